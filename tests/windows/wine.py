"""A copy for Windows under Wine, and the player before it.

Wine tells the accessibility bus nothing. The player knows which windows are open, by their titles, and presses keys;
what they have done shows in the other copy.
"""

import os
import pathlib
import shutil
import subprocess
import tempfile

import screen
from waiting import LIMIT, wait_until

_PATIENCE = 60.0  # seconds; Wine is slow to start
_SOON = 4.0
_MOST_PRESSES = 5


def _has_keyboard(window):
    """Whether keys reach a window, which is sent to the front if they do not. Wine takes them later than the manager."""
    if not screen.in_front(window):
        screen.activate(window)
        return False
    focus = subprocess.run(("xdotool", "getwindowfocus"), capture_output=True, text=True, check=False)
    return focus.stdout.strip() == str(window)


class WineCopy:
    """A copy with its own folder, and thus with its own Brontavia.ini."""

    def __init__(self, program, port=None):
        # Beside the program, for links; what is a symbolic one Wine does not start.
        self._folder = tempfile.TemporaryDirectory(prefix="brontavia_", dir=pathlib.Path(program).absolute().parent)
        home = pathlib.Path(self._folder.name, "Brontavia")
        shutil.copytree(program, home, copy_function=os.link)
        if port is not None:
            (home / "Brontavia.ini").unlink()
            (home / "Brontavia.ini").write_text(f"{port}\r\n", encoding="ascii")
        self._errors = open(pathlib.Path(self._folder.name, "stderr"), "w+b")
        self._process = subprocess.Popen(("wine", str(home / "brontavia.exe")), cwd=home, stderr=self._errors)
        self.pid = self._process.pid
        self._at = None  # the current cell of the board, while the player has been at it

    # ---- The process ----

    def running(self):
        return self._process.poll() is None

    def exit_code(self, limit=LIMIT):
        """Waits for the end of the process."""
        return self._process.wait(limit)

    def kill(self):
        self._process.kill()
        self._process.wait()

    def errors(self):
        """What the copy wrote to standard error."""
        return pathlib.Path(self._errors.name).read_text(errors="replace")

    def end(self):
        if self.running():
            self.kill()
        self._errors.close()
        self._folder.cleanup()

    # ---- Windows ----

    def windows(self):
        """Main window and boxes that are on the screen as (id, title), the topmost last."""
        return screen.windows_of(self.pid)

    def _titled(self, title):
        return next((window for window, each in reversed(self.windows()) if each == title), None)

    def wait_for(self, title):
        """Brings the window with a title to the front, once it is there; returns its number at the X server."""

        def front():
            assert self.running(), f"the program has ended with {self._process.returncode}: {self.errors()}"
            window = self._titled(title)
            return window if window is not None and _has_keyboard(window) else None

        try:
            return wait_until(f"the window {title!r}", front, _PATIENCE)
        except TimeoutError as error:
            raise AssertionError(f"no window {title!r} came; open are {self.windows()}") from error

    def picture(self, path):
        screen.picture_of(self.windows()[-1][0], path)

    # ---- Keys ----

    def press(self, *keys):
        """Keys for the topmost window."""

        self.take_keyboard()
        screen.press(*keys)

    def take_keyboard(self):
        """Turns to this copy, if it is not in front yet."""
        if not _has_keyboard(self.windows()[-1][0]):
            self._at = None
            wait_until("the keyboard", lambda: _has_keyboard(self.windows()[-1][0]))

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
        if answer:
            screen.type_text(answer)
        self.press_until(f"the box {title!r} to go", lambda: window not in dict(self.windows()), button)

    def popups(self):
        """The menus that are open: windows that the manager knows nothing of."""
        found = subprocess.run(
            ("xdotool", "search", "--onlyvisible", "--pid", str(self.pid), ""), capture_output=True, text=True, check=False
        )
        managed = {window for window, _ in self.windows()}
        return {int(window) for window in found.stdout.split()} - managed

    def choose_first(self):
        """Opens the menu of the current cell and takes its first item. What else has no manager is no menu."""
        others, windows = self.popups(), len(self.windows())

        def closed():
            return not self.popups() - others or len(self.windows()) > windows  # a box may come at once

        self.press_until("a menu", lambda: self.popups() - others, "Return")
        wait_until("the menu to be listening", lambda: _has_keyboard(self.windows()[-1][0]))
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
        keys = ["Down" if down > 0 else "Up"] * abs(down) + ["Right" if right > 0 else "Left"] * abs(right)
        self._at = (row, column)
        if keys:
            self.press(*keys)

    def click(self, row, column):
        self.go_to(row, column)
        self.press("Return")

    def move(self, what, condition, origin, target, before=()):
        """Moves a piece from one cell to another. A key may be lost, so `before` lets go a piece that is still held."""

        def clicks():
            self.press(*before, "Home")
            self._at = None
            self.click(*origin)
            self.click(*target)

        self.do_until(what, condition, clicks)
