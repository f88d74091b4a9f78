"""A copy for Windows under Wine, and the player before it.

Wine tells the accessibility bus nothing. The player knows which windows are open, by their titles, and presses keys;
what they have done shows in the other copy, and that they have done something at all in the window's picture.
"""

import os
import pathlib
import shutil
import subprocess

import screen
from program import Program
from waiting import wait_until

_PATIENCE = 60.0  # seconds; Wine is slow to start
_SOON = 4.0
_MOST_PRESSES = 5


def _focused():
    """The window that keys reach, which Wine asks for later than the manager has brought it to the front."""
    focus = subprocess.run(("xdotool", "getwindowfocus"), capture_output=True, text=True, check=False).stdout.strip()
    return int(focus) if focus else None


class WineCopy(Program):
    """A copy that is played blindly, with its own Brontavia.ini."""

    def __init__(self, program, port=None):
        # Beside the program, for links; what is a symbolic one Wine does not start.
        super().__init__(program, port, beside=pathlib.Path(program).absolute().parent)
        self._at = None  # the current cell of the board, while the player has been at it

    def _command(self, program, port):
        home = pathlib.Path(self._folder.name, "Brontavia")
        shutil.copytree(program, home, copy_function=os.link)
        if port is not None:
            (home / "Brontavia.ini").unlink()
            (home / "Brontavia.ini").write_text(f"{port}\r\n", encoding="ascii")
        return ["wine", str(home / "brontavia.exe")]

    # ---- Windows ----

    def windows(self):
        """Main window and boxes that are on the screen as (id, title), the topmost last."""
        return screen.windows_of(self.pid)

    def wait_for(self, title):
        """Brings a window with a title to the front, once there is one; returns its number at the X server."""

        def front():
            self.expect_running()
            # Of several boxes alike the last one has the keyboard, whichever of them is the topmost.
            titled = [window for window, each in self.windows() if each == title]
            focused = _focused()
            if focused in titled:
                return focused
            if titled:
                screen.activate(titled[-1])
            return None

        try:
            return wait_until(f"the window {title!r}", front, _PATIENCE)
        except TimeoutError as error:
            raise AssertionError(f"no window {title!r} came; open are {self.windows()}") from error

    def picture(self, path):
        screen.picture_of(self.windows()[-1][0], path)

    # ---- Keys ----

    def press(self, *keys):
        """Keys for the window of this copy that takes them."""
        self.take_keyboard()
        screen.press(*keys)

    def take_keyboard(self):
        """Turns to this copy, unless the player is there already."""
        if not self._has_keyboard():
            self._at = None
            wait_until("the keyboard", self._gets_keyboard)

    def _has_keyboard(self):
        return _focused() in dict(self.windows())

    def _gets_keyboard(self):
        if self._has_keyboard():
            return True
        screen.activate(self.windows()[-1][0])
        return False

    def press_to_see(self, key):
        """Presses a key that changes what the screen shows of this copy, again where nothing changes."""
        self.take_keyboard()
        before = self._look()
        self.do_until(f"a change after {key}", lambda: self._glance() != before, lambda: screen.press(key))

    def _look(self):
        """Which windows are there and what the topmost shows, once it has come to rest."""
        seen = [self._glance()]

        def at_rest():
            seen.append(self._glance())
            return seen[-1] == seen[-2]

        wait_until("a window at rest", at_rest)
        return seen[-1]

    def _glance(self):
        windows = self.windows()
        try:
            return windows, screen.pixels_of(windows[-1][0])
        except subprocess.CalledProcessError:
            return windows, None  # the topmost has just gone

    def press_until(self, what, condition, *keys):
        """Presses keys, again when nothing has come of it: what the other copy sent may not have been read before."""
        return self.do_until(what, condition, lambda: self.press(*keys))

    def do_until(self, what, condition, do):
        """The same for more than keys in a row."""
        for _ in range(_MOST_PRESSES):
            do()
            try:
                return wait_until(what, condition, _SOON)
            except TimeoutError:
                continue
        raise AssertionError(f"nothing brings {what}; open are {self.windows()}")

    def answer(self, title, answer="", button="Return"):
        """Types over the proposal of a box, if there is anything to type, and leaves it by a key."""
        window = self.wait_for(title)
        if answer.isascii():
            screen.type_text(answer)
        else:  # the virtual keyboard has no accents
            subprocess.run(("xclip", "-selection", "clipboard"), input=answer, encoding="utf-8", check=True)
            self.press_to_see("ctrl+v")
        self.press_until(f"the box {title!r} to go", lambda: window not in dict(self.windows()), button)

    def popups(self):
        """The menus that are open: windows that the manager knows nothing of."""
        found = subprocess.run(
            ("xdotool", "search", "--onlyvisible", "--pid", str(self.pid), ""),
            capture_output=True,
            text=True,
            check=False,
        )
        managed = {window for window, _ in self.windows()}
        return {int(window) for window in found.stdout.split()} - managed

    def choose_first(self):
        """Opens the menu of the current cell and takes its first item. What else has no manager is no menu."""
        others, windows = self.popups(), len(self.windows())

        def closed():
            return not self.popups() - others or len(self.windows()) > windows  # a box may come at once

        self.press_until("a menu", lambda: self.popups() - others, "Return")
        self.take_keyboard()
        screen.press("Return")
        try:
            wait_until("the menu to close", closed, _SOON)
        except TimeoutError:
            screen.press("Return")  # it was not listening yet
            wait_until("the menu to close", closed)

    # ---- On a board ----

    def go_to(self, row, column):
        """Moves to a cell, counted from the first one that is no header."""
        self.take_keyboard()
        if self._at is None:
            # More than enough: of keys that follow the window's coming to the front the first may be lost.
            self.press(*["Up"] * 12, "Home", "Home")
            self._at = (0, 0)
        down, right = row - self._at[0], column - self._at[1]
        self._at = (row, column)
        for key in ["Down" if down > 0 else "Up"] * abs(down) + ["Right" if right > 0 else "Left"] * abs(right):
            self.press_to_see(key)

    def click(self, row, column):
        self.go_to(row, column)
        self.press_to_see("Return")

    def move(self, what, condition, origin, target, before=()):
        """Moves a piece from one cell to another. A key may be lost, so `before` lets go a piece that is still held."""

        def clicks():
            self.press(*before, "Home")
            self._at = None
            self.click(*origin)
            self.click(*target)

        self.do_until(what, condition, clicks)
