"""What the accessibility bus tells of a window and of what is in it."""

import pyatspi
from gi.repository import Atspi

BOX_ROLES = ("dialog", "alert")
# Nothing that a test looks for is inside these.
_LEAVES = ("text", "push button", "label", "list item", "scroll bar", "notification")
# The boards by their accessible names. They have nothing but cells, and many.
BOARDS = ("Tablero", "Flota propia")

# A copy that hangs is found out by the waits, not by a call that never returns.
Atspi.set_timeout(3000, 10000)


def has_state(node, state):
    return node.getState().contains(state)


def is_showing(node):
    return has_state(node, pyatspi.STATE_SHOWING)


def is_focused(node):
    return has_state(node, pyatspi.STATE_FOCUSED)


def text_of(node):
    return node.queryText().getText(0, -1)


def extents_of(node):
    box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return box.x, box.y, box.width, box.height


def find_below(node, role, name):
    """The first control on the screen below a node with a role and a name (any name when it is None), or None."""
    if node.getRoleName() in _LEAVES or node.name in BOARDS:
        return None
    for child in node:
        if child is None or not is_showing(child):
            continue
        if child.getRoleName() == role and name in (None, child.name):
            return child
        found = find_below(child, role, name)
        if found:
            return found
    return None


def label_of(box):
    """The text of a message box or the prompt of an input box. An icon is a label without a name."""
    return next((child.name for child in labels_below(box) if child.name), "")


def labels_below(node):
    for child in node:
        if child is not None and child.getRoleName() == "label":
            yield child
        elif child is not None and child.getRoleName() not in _LEAVES:
            yield from labels_below(child)
