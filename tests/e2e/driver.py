"""One running copy of the program: starts it, reads it through the accessibility bus, ends it."""

import itertools
import pathlib
import random
import shutil
import socket

import pyatspi
from gi.repository import Atspi, GLib

import screen
from menus import Menus, items_of
from program import Program
from tree import BOX_ROLES, extents_of, find_below, has_state, is_showing, label_of, text_of
from waiting import wait_for_value, wait_until

# The program's controls by role and by the name that a screen reader speaks.
CONTROLS = {
    "Text1": ("text", "Indicaciones"),
    "Text2": ("text", "Explicación"),
    "List1": ("list", "Juegos"),
    "TbServ1": ("text", "Instrucciones"),
    "TbCli1": ("text", "Instrucciones"),
    "TBEstado": ("text", "Estado"),
    "TBMensajes": ("text", "Mensajes"),
    "TBJugadas": ("text", "Jugadas"),
    "TBEntorno": ("text", "Posición"),
    "TBReloj": ("text", "Relojes"),
    "TBBarcos": ("text", "Barcos"),
    "FrServidor": ("panel", "SERVIDOR"),
    "FrCliente": ("panel", "CLIENTE"),
    "FG1": ("panel", "Tablero"),
    "FG2": ("panel", "Flota propia"),
}


_MENUS = Menus()


def cell_tells(name, text):
    """What a cell tells that has a name and displays a text: the text only where it adds to the name."""
    adds = text not in ("", "*") and text.casefold() not in name.casefold()
    return f"{name} | {text}" if adds else name


def free_port():
    """A port that nobody listens on, outside the range that the system gives to outgoing connections."""
    while True:
        port = random.SystemRandom().randrange(20000, 32000)
        with socket.socket() as probe:
            try:
                probe.bind(("0.0.0.0", port))
            except OSError:
                continue
            return port


class Copy(Program):
    """A copy that is read through the accessibility bus, with its own Brontavia.ini."""

    def __init__(self, binary, ini=None, environment=None):
        super().__init__(binary, ini, environment=environment)
        self._controls = {}
        self._cells = {}  # of the boards among the controls
        try:
            self._application = wait_until("the program to reach the accessibility bus", self._find_application)
        except BaseException:
            self.end()
            raise

    def _command(self, binary, ini):
        if ini is not None:
            pathlib.Path(self._folder.name, "Brontavia.ini").write_bytes(ini.encode("latin-1"))
        return [shutil.copy(binary, self._folder.name)]

    def _find_application(self):
        self.expect_running()
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self.pid:
                application.set_cache_mask(Atspi.Cache.NONE)
                return application
        return None

    # ---- Windows and controls ----

    def windows(self):
        """Main window and boxes that are on the screen."""
        return [window for window in self._application if window is not None and is_showing(window)]

    def main_window(self):
        for window in self.windows():
            if window.getRoleName() not in BOX_ROLES:
                return window
        raise LookupError("the main window")

    def boxes(self):
        return [window for window in self.windows() if window.getRoleName() in BOX_ROLES]

    def box(self, title, text=None):
        """The open box with a title, once it is there; with a text, that one of them where several are open."""

        def look():
            titled = [box for box in self.boxes() if box.name == title]
            alike = [box for box in titled if label_of(box) == text] or titled
            return next((box for box in alike if has_state(box, pyatspi.STATE_ACTIVE)), next(iter(alike), None))

        try:
            return wait_until(f"the box {title!r}", look)
        except TimeoutError as error:
            there = [(box.name, label_of(box)) for box in self.boxes()]
            raise AssertionError(f"no box {title!r} came; open boxes: {there}; {self._state()}") from error

    def _state(self):
        if not self.running():
            return f"the process has ended with {self.exit_code()}: {self.errors()}"
        return f"the main window is {self.caption()!r}"

    def caption(self):
        return self.main_window().name

    def find(self, role, name):
        """A control on the screen, or None."""
        for window in reversed(self.windows()):
            found = find_below(window, role, name)
            if found:
                return found
        return None

    def control(self, name):
        """A control by its name in the program, such as "TBEstado", once it is on the screen."""
        return wait_until(f"the control {name}", lambda: self._known(name) or self._find_anew(name))

    def _known(self, name):
        """Where the control was seen last, if it is still on the screen: a walk through the tree takes far longer."""
        control = self._controls.get(name)
        try:
            return control if control and is_showing(control) else None
        except (GLib.Error, LookupError):
            return None

    def _find_anew(self, name):
        self._cells.pop(name, None)
        self._controls[name] = self.find(*CONTROLS[name])
        return self._controls[name]

    def shows(self, name):
        return self.find(*CONTROLS[name]) is not None

    def text(self, name):
        return text_of(self.control(name))

    def button(self, caption):
        return wait_until(f"the button {caption!r}", lambda: self.find("push button", caption))

    # ---- Menus ----

    def menu_items(self):
        """The items of the pop-up menu that can be chosen, once it is there."""
        return items_of(wait_until("a menu", self._menu))

    def menu_comes(self, limit):
        """Whether a pop-up menu opens within some seconds."""
        try:
            return wait_until("a menu", self._menu, limit) is not None
        except TimeoutError:
            return False

    def expect_no_menu(self):
        wait_until("the menu to close", lambda: self._menu() is None)

    def _menu(self):
        return _MENUS.open_menu(self.pid)

    # ---- Lists and boards ----

    def entries(self):
        return list(self.control("List1"))

    def selected_entry(self):
        return self._selected(self.entries(), "List1")

    def cells(self, board="FG1"):
        """The cells of a board in row-major order."""
        control = self.control(board)
        if board not in self._cells:
            self._cells[board] = list(control)
        return self._cells[board]

    def cell(self, number, board="FG1"):
        return self.cells(board)[number]

    def columns(self, board="FG1"):
        """How many cells a row of a board has."""
        tops = (extents_of(cell)[1] for cell in self.cells(board))
        first = next(tops)
        return 1 + sum(1 for _ in itertools.takewhile(lambda top: top == first, tops))

    def board(self, board="FG1"):
        """What is told of the cells of a board, in row-major order."""
        return [cell_tells(cell.name, cell.description) for cell in self.cells(board)]

    def current_cell(self, board="FG1"):
        """The number of the cell under the board's cursor."""
        return self._selected(self.cells(board), board)

    @staticmethod
    def _selected(nodes, name):
        for number, node in enumerate(nodes):
            if has_state(node, pyatspi.STATE_SELECTED):
                return number
        raise LookupError(f"what is selected in {name}")

    def is_current_cell(self, number, board="FG1"):
        return has_state(self.cell(number, board), pyatspi.STATE_SELECTED)

    # ---- Expectations ----

    def expect_caption(self, expected):
        wait_for_value("the caption", self.caption, expected)

    def expect_text(self, name, expected):
        wait_for_value(name, lambda: self.text(name), expected)

    def expect_board(self, expected):
        """The cells of three in a row as one text, with rows parted by blanks: "*X* *O* ***"."""
        names = [
            f"Fila {number // 3 + 1}, columna {number % 3 + 1}: {'vacía' if mark == '*' else mark}"
            for number, mark in enumerate(expected.replace(" ", ""))
        ]
        wait_for_value("the board", self.board, names)

    def expect_no_box(self):
        boxes = [(box.name, label_of(box)) for box in self.boxes()]
        assert not boxes, f"unexpected boxes: {boxes}"

    # ---- To the front ----

    def bring_to_front(self, window=None):
        """Gives a window (without one: the box in front, or else the main window) the keyboard, uncovered.

        Returns its number at the X server.
        """

        def front():
            target = window or self._foremost()
            candidates = [number for number, title in screen.windows_of(self.pid) if title == target.name]
            if not candidates:
                return None
            if screen.in_front(candidates[-1]) and has_state(target, pyatspi.STATE_ACTIVE):
                return candidates[-1]
            screen.activate(candidates[-1])
            return None

        return wait_until("a window to come to the front", front)

    def _foremost(self):
        """The main window, or the box that covers all others."""
        boxes = {box.name: box for box in self.boxes()}
        if not boxes:
            return self.main_window()
        titles = [title for _, title in screen.windows_of(self.pid) if title in boxes]
        return boxes[titles[-1]]
