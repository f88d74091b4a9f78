"""A copy used by the actions that its controls offer, as assistive technology uses it: a step takes milliseconds."""

import contextlib
import time

import pyatspi
from gi.repository import Atspi, GLib

import screen
from driver import CONTROLS
from handshake import LEAVE_BUTTON, REQUEST_TITLE, SELECTION_QUESTION
from hands import CANCEL, OK, YES, KeyHand
from tree import find_below, has_state, label_of, text_of
from waiting import wait_until

_ANSWER_LIMIT = 3000, 10000  # ms, as tree.py sets them
# A window that is closing by itself gets this long before it is asked to.
_AFTER_A_BOX = 0.2  # seconds
# The wish may have closed a box that had just come. But on a busy machine it takes long, and a second one would then
# close the next window.
_AFTER_ASKING = 3.0
_MENU_ANSWER_LIMIT = 100, 10000


def do(node):
    node.queryAction().doAction(0)


class Touch:
    def __init__(self, copy):
        self.copy = copy

    def press(self, caption):
        do(self.copy.button(caption))

    def choose_game(self, number):
        entries = self.copy.entries()
        do(entries[number])
        wait_until("the game to be selected", lambda: self.copy.selected_entry() == number)
        self.key("Return")

    def click_cell(self, number, board="FG1"):
        do(self.copy.cell(number, board))

    def key(self, key):
        self.copy.bring_to_front()
        screen.press(key)

    def choose_command(self, caption):
        """A command of the menus. What it opens keeps the answer to the call waiting, so nobody waits for that."""
        item = wait_until(f"the command {caption!r}", lambda: _command_below(self.copy.main_window(), caption))
        Atspi.set_timeout(*_MENU_ANSWER_LIMIT)
        with contextlib.suppress(GLib.Error):
            do(item)
        Atspi.set_timeout(*_ANSWER_LIMIT)

    # ---- Boxes ----

    def top_box(self):
        """The box that takes the user's actions, or None."""
        boxes = self.copy.boxes()
        return next((box for box in boxes if has_state(box, pyatspi.STATE_ACTIVE)), boxes[-1] if boxes else None)

    def answer(self, title, button=OK, text=None):
        """Answers the box with a title once it is there."""
        self.close(self.copy.box(title), button, text)

    def close(self, box, button=OK, text=None):
        if text is not None:
            find_below(box, "text", None).queryEditableText().setTextContents(text)
        self.push(box, button)
        self.wait_until_closed(box)

    def wait_until_closed(self, box):
        wait_until("the box to close", lambda: not self.copy.running() or box not in self.copy.boxes())

    @staticmethod
    def push(box, button):
        do(wait_until(f"the button {button!r}", lambda: find_below(box, "push button", button)))

    def answer_top(self):
        """Goes on, whatever is asked. Returns title and text of the box that was answered, or None if there is none."""
        box = self.top_box()
        button = box and self._button_to_go_on(box)
        if not button:  # a box may also close by itself
            return None
        told = box.name, label_of(box)
        do(button)
        self.wait_until_closed(box)
        return told

    @staticmethod
    def _button_to_go_on(box):
        """What a user presses who wants to go on: a stranger is refused, all else answered Yes."""
        wanted = (CANCEL,) if box.name == REQUEST_TITLE else (OK, YES, CANCEL)
        buttons = (find_below(box, "push button", caption) for caption in wanted)
        return next((button for button in buttons if button), None)

    # ---- The end of a window ----

    def close_window(self, limit):
        """Asks for the end and answers all boxes on the way. Returns the seconds until the selection window is up."""
        begun = ask_at = time.monotonic()

        def closed():
            nonlocal ask_at
            if self.in_selection():
                return True
            if self.copy.boxes():
                self.answer_top()
                ask_at = time.monotonic() + _AFTER_A_BOX
            elif time.monotonic() >= ask_at:
                self.ask_to_close()
                ask_at = time.monotonic() + _AFTER_ASKING
            return False

        wait_until("the window to close", closed, limit)
        return time.monotonic() - begun

    def ask_to_close(self):
        """Alt+F4, which the window manager makes a request to close."""
        self.key("alt+F4")

    def leave(self):
        """From the selection window to the end of the process."""
        self.press(LEAVE_BUTTON)
        code = self.copy.exit_code()
        assert code == 0, f"SALIR ended the program with {code}"

    def in_selection(self):
        text = self.copy.find(*CONTROLS["Text1"])
        return text is not None and text_of(text) == SELECTION_QUESTION


class TouchHand(KeyHand):
    """Plays whole sessions so. From pop-up menus it chooses by the keyboard."""

    def choose_game(self, number):
        Touch(self.copy).choose_game(number)

    def click_cell(self, number, board="FG1"):
        do(self.copy.cell(number, board))

    def choose_command(self, menu, caption):
        Touch(self.copy).choose_command(caption)

    def _push(self, find, box, what):
        do(wait_until(f"the {what}", find))

    def _replace_text(self, box, field, text):
        field.queryEditableText().setTextContents(text)


def _command_below(node, caption):
    for child in node:
        if child is None or child.getRoleName() not in ("menu bar", "menu item", "popup menu"):
            continue
        if child.name == caption:
            return child
        if found := _command_below(child, caption):
            return found
    return None
