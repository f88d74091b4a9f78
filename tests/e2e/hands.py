"""How a person uses a copy: with the mouse alone or with the keyboard alone. Both offer the same operations."""

import screen
from driver import CONTROLS
from tree import BOARDS, extents_of, find_below, is_focused, label_of, text_of
from waiting import wait_for_value, wait_until

OK = "Aceptar"
CANCEL = "Cancelar"
YES = "Sí"
NO = "No"

_LONGEST_TAB_CHAIN = 20
_MOST_PRESSES = 3
_PATIENCE = 8.0  # seconds


class Witness:
    """Told of what the hands do. The demonstration writes it down, the tests do not care."""

    def look(self):
        """After each step, and before a box is answered."""

    def box(self, copy, title, text, answer):
        """A box is about to be answered."""


class Hand:
    """What mouse and keyboard have in common."""

    def __init__(self, copy, witness=None):
        self.copy = copy
        self._witness = witness or Witness()

    def press_button(self, caption):
        """Presses a button of the main window."""
        self._push(lambda: find_below(self.copy.main_window(), "push button", caption), None, f"button {caption!r}")
        self._witness.look()

    def answer_box(self, title, text, button=OK):
        """Checks an open message box to the letter and answers it."""
        box = self._expected_box(title, text)
        self._close_box(box, title, text, button, button)

    def answer_input(self, title, prompt, proposal, answer=None, button=OK):
        """Checks an open input box to the letter, types an answer unless the proposal will do, and closes it."""
        box = self._expected_box(title, prompt)
        field = wait_until(f"the field of {title!r}", lambda: find_below(box, "text", None))
        wait_for_value(f"the proposal of {title!r}", lambda: text_of(field), proposal)
        if answer is not None:
            self._replace_text(box, field, answer)
            wait_for_value(f"the answer in {title!r}", lambda: text_of(field), answer)
        typed = proposal if answer is None else answer
        self._close_box(box, title, prompt, button, f"{typed} [{button}]")

    def choose_command(self, menu, caption):
        """Chooses from a menu of the window's menu bar."""
        self.open_menu(menu)
        self.choose_item(caption)

    def answer_file(self, title, proposal, path):
        """Types a path into an open file dialog and confirms it with Enter. A proposal of None may be anything."""
        box = self.copy.box(title)
        self.copy.bring_to_front(box)
        field = wait_until("the field of the file", lambda: focused_text_below(box))
        if proposal is not None:
            wait_for_value(f"the proposal of {title!r}", lambda: text_of(field), proposal)
        self._replace_by(field, str(path))
        wait_for_value(f"the file in {title!r}", lambda: text_of(field), str(path))
        self._witness.look()
        self._witness.box(self.copy, title, "", str(path))
        screen.press("Return")
        wait_until(f"the box {title!r} to close", lambda: box not in self.copy.boxes())
        self._witness.look()

    def _expected_box(self, title, text):
        box = self.copy.box(title, text)
        wait_for_value(f"the text of the box {title!r}", lambda: label_of(box), text)
        return box

    def _close_box(self, box, title, text, button, answer):
        self._witness.look()
        self._witness.box(self.copy, title, text, answer)
        self._push(lambda: find_below(box, "push button", button), box, f"button {button!r} of {title!r}")
        wait_until(f"the box {title!r} to close", lambda: not self.copy.running() or box not in self.copy.boxes())
        self._witness.look()

    def _replace_text(self, box, field, text):
        """Types with the keyboard, also where the rest is done with the mouse."""
        self.copy.bring_to_front(box)
        wait_until("the field to have the focus", lambda: is_focused(field))
        self._replace_by(field, text)

    @staticmethod
    def _replace_by(field, text):
        """For a field that has the keyboard."""
        screen.press("ctrl+a")
        if text.isascii():
            screen.type_text(text)
        else:
            field.queryEditableText().setTextContents(text)  # the virtual keyboard has no accents


class MouseHand(Hand):
    """The mouse alone, as long as no answer needs typing."""

    TOOL = "mouse"

    def choose_game(self, number):
        self.copy.control("List1")
        self._click(lambda: self.copy.entries()[number], times=2)
        self._witness.look()

    def click_cell(self, number, board="FG1"):
        self.copy.control(board)
        self._click(lambda: self.copy.cell(number, board))
        self._witness.look()

    def point_at_cell(self, number, board="FG1"):
        self.copy.bring_to_front(self.copy.main_window())
        screen.point_at(*self._middle_of(lambda: self.copy.cell(number, board)))

    def choose_item(self, caption):
        """Chooses from the menu that is open."""
        screen.click(*self._middle_of(lambda: named(self.copy.menu_items(), caption)))
        self._witness.look()

    def open_menu(self, menu):
        """Opens a menu of the window's menu bar."""
        self._click(lambda: find_below(self.copy.main_window(), "menu item", menu))

    def close_window(self):
        """Clicks the close box of the window's frame."""
        window = self.copy.bring_to_front()
        x, y, width, _ = extents_of(self.copy.main_window())
        _, right, top, _ = screen.frame_of(window)
        screen.click(x + width + right - top // 2 - 2, y - top // 2)

    def _push(self, find, box, what):
        wait_until(f"the {what}", find)
        self._click(find, box)

    def _click(self, find, window=None, times=1):
        self.copy.bring_to_front(window or self.copy.main_window())
        screen.click(*self._middle_of(find), times)

    @staticmethod
    def _middle_of(find):
        """Once it stays in its place: a window that has just come is laid out in several steps."""
        seen = [None]

        def steady():
            seen.append(extents_of(find()))
            return seen[-1] if seen[-1] == seen[-2] and seen[-1][2] > 0 else None

        x, y, width, height = wait_until("a control to stay in its place", steady)
        return x + width // 2, y + height // 2


class KeyHand(Hand):
    """The keyboard alone."""

    TOOL = "keyboard"

    def choose_game(self, number):
        self.copy.control("List1")
        self._focus(lambda: self.copy.find(*CONTROLS["List1"]), None, "the list of games", lambda _: self._in_list())
        screen.press("Home", *["Down"] * number)
        wait_until("the entry to be selected", lambda: is_focused(self.copy.entries()[number]))
        screen.press("Return")
        self._witness.look()

    def _in_list(self):
        return any(is_focused(entry) for entry in self.copy.entries()) and is_focused(self.copy.control("List1"))

    def focus_on(self, control):
        self._focus(lambda: self.copy.find(*CONTROLS[control]), None, control, is_focused)

    def focus_on_button(self, caption):
        self._focus(lambda: self.copy.find("push button", caption), None, f"button {caption!r}", is_focused)

    def move_to_cell(self, number, board="FG1"):
        """Moves the board's cursor with the arrows."""
        self._focus(lambda: self.copy.find(*CONTROLS[board]), None, board, is_focused)
        columns = self.copy.columns(board)
        current = self.copy.current_cell(board)
        down, right = number // columns - current // columns, number % columns - current % columns
        keys = ["Down" if down > 0 else "Up"] * abs(down) + ["Right" if right > 0 else "Left"] * abs(right)
        self._walk(keys)
        wait_until(f"cell {number} to be current", lambda: self.copy.is_current_cell(number, board))

    @staticmethod
    def _walk(keys):
        """Presses arrow keys, as fast as they can be."""
        if keys:
            screen.press(*keys)

    def click_cell(self, number, board="FG1", key="Return"):
        self.move_to_cell(number, board)
        screen.press(key)
        self._witness.look()

    def choose_item(self, caption):
        """Chooses from the menu that is open, with the arrow keys from its first item on."""

        def look():
            items = self.copy.menu_items()
            return items, named(items, caption)

        items, item = wait_until(f"the item {caption!r}", look)
        if steps := items.index(item):
            screen.press(*["Down"] * steps)
        wait_until(f"the item {caption!r} to be current", lambda: is_focused(item))
        screen.press("Return")
        self._witness.look()

    def open_menu(self, menu):
        """Opens a menu of the window's menu bar by its first letter.

        On a busy machine keys that follow the window's coming to the front have led nowhere; they are pressed again.
        """
        for _ in range(_MOST_PRESSES):
            self.copy.bring_to_front(self.copy.main_window())
            self._press_with_alt(menu[0].lower())
            if self.copy.menu_comes(_PATIENCE):
                return
        raise AssertionError(f"the keys do not open the menu {menu!r}")

    @staticmethod
    def _press_with_alt(key):
        screen.press(f"alt+{key}")

    def close_window(self):
        """Alt+F4, which the window manager makes a request to close."""
        self.copy.bring_to_front()
        screen.press("alt+F4")

    def _push(self, find, box, what):
        wait_until(f"the {what}", find)
        self._focus(find, box, what, is_focused)
        screen.press("space")

    def _focus(self, find, window, what, focused):
        """Presses Tab until a control has the focus."""
        self.copy.bring_to_front(window or self.copy.main_window())
        for _ in range(_LONGEST_TAB_CHAIN):
            control = wait_until(f"the {what}", find)
            if focused(control):
                return
            before = wait_until("the focus to be told", self._focused)
            screen.press("Tab")
            wait_until("the focus to move", lambda: self._focused() != before)
        raise AssertionError(f"Tab does not reach the {what}")

    def _focused(self):
        """Role and name of what has the focus. Announcements that vanish meanwhile break off the look."""
        return [focus_below(window) for window in self.copy.windows()]


def named(nodes, name):
    """The one with a name."""
    for node in nodes:
        if node.name == name:
            return node
    raise LookupError(name)


def focused_text_below(node):
    """The text field that has the focus, or None."""
    for child in node:
        if child is not None and child.getRoleName() == "text" and is_focused(child):
            return child
        found = child is not None and child.getRoleName() in ("panel", "filler") and focused_text_below(child)
        if found:
            return found
    return None


def focus_below(node):
    """Role and name of what has the focus below a node, outermost first."""
    found = []
    for child in node:
        if child is not None and is_focused(child):
            found.append((child.getRoleName(), child.name))
        if child is not None and child.getRoleName() in ("panel", "filler", "list") and child.name not in BOARDS:
            found += focus_below(child)
    return found
