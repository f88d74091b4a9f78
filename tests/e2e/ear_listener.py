"""Listens on the accessibility bus as a screen reader does: writes what would be spoken, one JSON object a line.

A process of its own, because events come through a main loop and the tests wait without one.
"""

import json

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402 (the version is chosen first)

_BOXES = (Atspi.Role.DIALOG, Atspi.Role.ALERT)
_MENUS = (Atspi.Role.POPUP_MENU, Atspi.Role.MENU)
_STATES = {Atspi.StateType.CHECKED: "checked", Atspi.StateType.READ_ONLY: "read-only"}


class Listener:
    """Only an event leads to an object, and of the objects only notifications, boxes and the focus are read."""

    def __init__(self):
        self._focus = {}  # by process
        self._cell = {}  # of a list or a board, the last that had the focus
        self._window = {}  # the active one, by process
        self._boxes = set()  # that have been read since they opened
        self._handlers = {
            "object:state-changed:showing": self._showing,
            "object:state-changed:focused": self._focused,
            "window:activate": self._activated,
            "window:deactivate": self._deactivated,
            "object:text-changed:insert": self._typed,
            "object:property-change:accessible-name": self._renamed,
            "object:property-change:accessible-description": self._described,
            "object:text-caret-moved": self._caret_moved,
            "object:text-selection-changed": self._caret_moved,
        }
        self._listener = Atspi.EventListener.new(self._heard)
        for kind in self._handlers:
            self._listener.register(kind)

    def run(self):
        write(None, "ready", "")
        GLib.MainLoop().run()

    def _heard(self, event):
        kind = next(kind for kind in self._handlers if event.type.startswith(kind))
        try:
            event.source.clear_cache()
            self._handlers[kind](event.source, event)
        except GLib.Error:
            pass  # it went before it could be read, as it would for a screen reader

    def _showing(self, source, event):
        if not event.detail1:
            self._boxes.discard(source)
            return
        role = source.get_role()
        if role == Atspi.Role.NOTIFICATION:
            write(source, "announcement", source.get_name())
        elif role in _MENUS:
            write(source, "menu", source.get_name())

    def _activated(self, source, _event):
        self._window[source.get_process_id()] = source
        write(source, "window", source.get_name())
        if source.get_role() in _BOXES and source not in self._boxes:
            self._boxes.add(source)
            write(source, "box", " ".join(labels_below(source)), name=source.get_name())

    def _deactivated(self, source, _event):
        process = source.get_process_id()
        if self._window.get(process) == source:
            write(source, "away", "")

    def _focused(self, source, event):
        if not event.detail1:
            return
        process = source.get_process_id()
        self._focus[process] = source
        if source.get_role() == Atspi.Role.LIST_ITEM:
            self._cell[process] = source
        write(
            source,
            "focus",
            text_of(source),
            name=source.get_name(),
            role=source.get_role_name(),
            description=source.get_description(),
            states=[word for state, word in _STATES.items() if is_in(source, state)],
        )

    def _has_focus(self, source):
        return source in self._focus.values()

    def _typed(self, source, event):
        if self._has_focus(source):
            write(source, "typed", event.any_data)

    def _renamed(self, source, _event):
        if self._has_focus(source):
            write(source, "renamed", source.get_name())

    def _described(self, source, _event):
        if self._has_focus(source):
            write(source, "described", source.get_description())
        elif source.get_role() == Atspi.Role.LIST_ITEM and source not in self._cell.values():
            write(source, "stray", f"the description of {source.get_name()!r}")

    def _caret_moved(self, source, event):
        # A field is filled before it gets the focus.
        if not self._has_focus(source) and not is_in(source, Atspi.StateType.EDITABLE):
            write(source, "stray", f"{event.type} in {source.get_name()!r}")


def is_in(node, state):
    return node.get_state_set().contains(state)


def text_of(node):
    """What is selected in a text control, or else all that it holds."""
    if node.get_role() != Atspi.Role.TEXT:
        return ""
    if Atspi.Text.get_n_selections(node) > 0:
        selected = Atspi.Text.get_selection(node, 0)
        return Atspi.Text.get_text(node, selected.start_offset, selected.end_offset)
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def labels_below(node):
    """An icon is a label without a name."""
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is None:
            continue
        if child.get_role() == Atspi.Role.LABEL:
            yield from filter(None, [child.get_name()])
        else:
            yield from labels_below(child)


def write(source, kind, text, **more):
    process = source.get_process_id() if source else None
    print(json.dumps({"process": process, "kind": kind, "text": text, **more}), flush=True)


if __name__ == "__main__":
    Atspi.set_timeout(3000, 10000)
    Listener().run()
