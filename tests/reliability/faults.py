"""Every fault at every step of every game, in both roles: the copy goes on, closes, and leaves nothing behind.

usage: faults.py FOLDER [--game CODE] [--role server|client] [--sample]

A row is a step of a game in one role, a column a fault. Each cell is a session of its own with a bare peer over a real
socket. The matrix goes into the folder, too, with a picture of the screen for each cell that fails. `--sample` takes
each step and each fault several times, in a game and role that change from cell to cell; it runs beside other tests, on
a machine of any speed, so it looks for what goes wrong and gives all things time.
"""

import argparse
import contextlib
import itertools
import os
import pathlib
import random
import re
import sys
import tempfile
import time
import traceback

import cases
import chess
import handshake
import screen
from driver import Copy, free_port
from hands import NO
from process import Process, listeners
from seats import PLAYS, Seat
from touch import Touch
from tree import find_below
from waiting import wait_until

ANSWER_LIMIT = 1.0  # seconds in which a window tells its caption
# From the wish to close to the selection window, each box answered through the accessibility bus: three boxes of a
# flood and two questions take seconds on a busy machine. What a flood leaves of a second is measured by floods.py.
CLOSE_LIMIT = 15.0
PATIENCE = 5  # how many times these limits a sample gives
MOST_BOXES = 8
FLOOD = 0.5  # seconds
_INTERNAL_ERROR = re.compile(r"Form\w+ \S+: .+")
# The accessibility bus is slower than a key on a busy machine, and the toolkit tells so.
_BUS_IS_SLOW = "QSpiApplication::keyEventError"

# ---- Steps: how each is reached, what its user does next, and how the text begins that then travels ----


class Step:
    def __init__(self, name, reach, act=None, sends=lambda seat: None, only=lambda seat: True, begins=True):
        self.name = name
        self.reach = reach
        self.act = act
        self.sends = sends
        self.exists_for = only
        self.begins = begins


def _named(seat):
    seat.connect()
    seat.peer.send("Nombre|Eva")


def _choosing(seat):
    _named(seat)
    seat.give_name()
    if seat.server:
        seat.peer.send("turno|2")


def _sending(seat):
    """What the user has done is on its way and does not arrive."""
    seat.begin()
    seat.peer.cut()
    seat.play.place(seat)
    seat.wait_until_unacknowledged()


def _own_box(seat):
    seat.start_play()
    seat.play.open_box(seat)


def _over(seat):
    seat.start_play()
    seat.lose()


def _refusing(seat):
    """The refusal of another game is repeated until it has arrived, and it does not arrive."""
    _over(seat)
    seat.ask_rematch()
    seat.peer.cut()
    seat.touch.push(seat.touch.top_box(), NO)
    seat.wait_until_unacknowledged()


def _rematch_asked(seat):
    _over(seat)
    seat.ask_rematch()


def _resume_asked(seat):
    seat.start_play()
    seat.peer.send("cargpartida|tarde.fen")
    seat.copy.box(chess.RESUME_TITLE)


def _answer(seat):
    seat.touch.answer_top()


def _move_after_the_peer(seat):
    seat.play.receive_move(seat)
    seat.play.make_move(seat)


def _want_rematch(seat):
    seat.ask_rematch()
    _answer(seat)


STEPS = (
    Step("listening", lambda seat: None),
    Step("asked", Seat.meet),
    Step("connected", Seat.connect, _answer, lambda seat: b"Nombre|"),
    Step("naming", _named, _answer, lambda seat: b"Nombre|"),
    Step("choosing", _choosing, _answer, lambda seat: b"Turnodef|" if seat.server else b"turno|"),
    Step("placing", Seat.begin, lambda seat: seat.play.place(seat), lambda seat: seat.play.placed),
    Step("sending", _sending, lambda seat: seat.peer.mend(), lambda seat: seat.play.placed),
    Step("own turn", Seat.start_play, lambda seat: seat.play.make_move(seat), lambda seat: seat.play.move),
    Step("other's turn", Seat.start_play, _move_after_the_peer, lambda seat: seat.play.move, begins=False),
    Step("own box", _own_box),
    Step("over", _over, _want_rematch, lambda seat: b"Seguir|Si"),
    Step("refusing", _refusing, lambda seat: seat.peer.mend(), lambda seat: b"Seguir|No"),
    Step("rematch asked", _rematch_asked, _answer, lambda seat: b"Seguir|Si"),
    Step("resume asked", _resume_asked, _answer, lambda seat: b"cargpsi|", only=lambda play: play.game is chess.GAME),
)

# ---- Faults ----


def _garbage(seat):
    for data in cases.GARBAGE:
        seat.peer.offer(data)


def _flood(seat):
    """As fast as the copy reads, or until it has gone."""
    tokens = random.Random(seat.play.game.number)
    end = time.monotonic() + FLOOD
    while time.monotonic() < end:
        seat.peer.offer(tokens.choice(seat.play.tokens).encode("cp1252"))


FAULTS = {
    "killed": lambda seat: seat.peer.die(),
    "reset": lambda seat: seat.peer.reset(),
    "half-closed": lambda seat: seat.peer.finish(),
    "cut": lambda seat: seat.peer.cut(),
    "silent": lambda seat: time.sleep(0.3),
    "garbage": _garbage,
    "flood": _flood,
    "user closes": lambda seat: None,
}
# Steps at which a game of chess is saved after the fault.
_SAVED = ("own turn", "other's turn", "over")
# At these something of the user's is on its way, and acting is to let it arrive.
_UNDELIVERED = ("sending", "refusing")
# After these the connection is as it was.
_HARMLESS = ("silent", "garbage")
# After these standard error tells of texts that could not be read.
_READ = ("garbage", "flood")


# ---- A cell of the matrix ----


class Cell:
    def __init__(self, seat, step, fault, folder, patience):
        self.seat = seat
        self.copy = seat.copy
        self.step = step
        self.fault = fault
        self._patience = patience
        self.told = []  # the boxes that were answered
        self._file = folder / "partida.fen"
        self._process = Process(self.copy.pid)
        self._errors_before = len(self.copy.errors())

    def run(self):
        """Returns how long the window took to close."""
        seat = self.seat
        seat.begins = self.step.begins
        seat.open()
        self.step.reach(seat)
        if self.step.name == "listening" and self.fault != "user closes":
            seat.meet()
        FAULTS[self.fault](seat)
        self._expect_alive()
        if self.fault != "user closes":
            self._go_on()
            self._save()
        closed = seat.touch.close_window(CLOSE_LIMIT * self._patience)
        self._expect_nothing_left()
        seat.end()
        return closed

    def _expect_alive(self):
        begun = time.monotonic()
        assert self.copy.running(), f"the process has ended: {self.copy.errors()}"
        self.copy.caption()
        waited = time.monotonic() - begun
        assert waited < ANSWER_LIMIT * self._patience, f"the window told its caption after {waited:.1f} s"
        boxes = [box.name for box in self.copy.boxes()]
        assert len(boxes) <= MOST_BOXES, f"{len(boxes)} boxes are open: {boxes}"

    # ---- The user goes on ----

    def _go_on(self):
        if self.step.name in ("listening", "asked"):
            if self.fault != "flood":
                self._meet_anew()
        elif self.step.act and self.fault != "flood":
            self._act()

    def _act(self):
        """What the user does is sent, or he is told that it could not be; with the line cut neither."""
        lost = self.fault in ("killed", "reset")
        if self.step.name in _UNDELIVERED and self.fault not in _HARMLESS:
            return  # only over a connection that lasts can it still arrive
        if self.step.name == "other's turn" and self.fault not in _HARMLESS:
            return  # the other moves no more
        self.step.act(self.seat)
        if lost:
            self._answer_until(self._failure_told, "the failure")
        elif self.fault == "half-closed":
            self._answer_until(lambda: self._failure_told() or self._sent(), "the failure or what the user did")
        elif self.fault in _HARMLESS:
            self._answer_until(self._sent, "what the user did")
        if self.step.name == "refusing":
            wait_until("the window to close by itself", self.seat.touch.in_selection)

    def _sent(self):
        return self.seat.peer.has_sent(self.step.sends(self.seat))

    def _failure_told(self):
        return ("Error", handshake.SEND_FAILED_TEXT) in self.told

    def _meet_anew(self):
        """Whoever comes next is asked about, or answers."""
        if self.seat.server:
            self._answer_until(lambda: not self.copy.boxes(), "the end of the request")
            self.seat.meet()
            self.copy.box(handshake.REQUEST_TITLE)
        else:
            self.seat.meet()
            self.seat.accept()

    def _answer_until(self, done, what):
        """Answers boxes as they come."""

        def step():
            if done():
                return True
            self._answer_top()
            return done()

        wait_until(what, step)

    def _answer_top(self):
        told = self.seat.touch.answer_top()
        if told:
            self.told.append(told)

    def _save(self):
        """A game of chess can be kept, whatever has become of the connection."""
        if self.seat.play.game is not chess.GAME or self.step.name not in _SAVED or self.fault == "flood":
            return
        self._answer_until(lambda: not self.copy.boxes(), "the boxes to close")
        self._file.unlink(missing_ok=True)
        touch = self.seat.touch
        touch.choose_command(chess.SAVE_AS)
        box = self.copy.box(chess.SAVE_TITLE)
        find_below(box, "text", None).queryEditableText().setTextContents(str(self._file))
        screen.press("Return")
        wait_until("the file", lambda: self._file.exists() and self._file.read_bytes().endswith(b"\r\n"))
        wait_until("the dialog to close", lambda: not self.copy.boxes())

    def _expect_nothing_left(self):
        wait_until("the sockets to close", lambda: not self._process.sockets())
        assert not self._process.children(), "the copy has a process of its own"
        new = self.copy.errors()[self._errors_before :].splitlines()
        wrong = [line for line in new if not self._may_tell(line)]
        assert not wrong, f"on standard error: {wrong}"

    def _may_tell(self, line):
        return line.startswith(_BUS_IS_SLOW) or self.fault in _READ and _INTERNAL_ERROR.fullmatch(line)


# ---- The matrix ----


class Matrix:
    def __init__(self, binary, folder, patience):
        self._binary = binary
        self._folder = folder
        self._patience = patience
        self._held = 0
        self._failed = []
        self._slowest = 0.0
        self.lines = []

    def run(self, play, server, cells):
        """The cells of one game in one role, as (step, fault)."""
        title = f"{play.game.code} {'server' if server else 'client'}"
        print(f"\n{title:14}" + "".join(f"{fault:>12}" for fault in FAULTS), flush=True)
        with contextlib.ExitStack() as stack:
            folder = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="brontavia_faults_")))
            copy = None
            for step, faults in itertools.groupby(cells, key=lambda cell: cell[0]):
                row = {}
                for _, fault in faults:
                    if copy is None:
                        copy, port = self._start(server)
                    seat = Seat(copy, port, play, server)
                    try:
                        closed = Cell(seat, step, fault, folder, self._patience).run()
                        self._slowest = max(self._slowest, closed)
                        self._held += 1
                        row[fault] = "held"
                    except Exception as error:  # whatever it is, the other cells are still to be tried
                        row[fault] = "FAILED"
                        self._failed.append(f"{title}, {step.name}, {fault}: {error}\n{traceback.format_exc()}")
                        screen.picture(self._folder / f"failed_{title}_{step.name}_{fault}.png".replace(" ", "_"))
                        seat.end()
                        copy.end()
                        copy = None
                print(f"{step.name:14}" + "".join(f"{row.get(fault, '-'):>12}" for fault in FAULTS), flush=True)
                self.lines += [f"{title} | {step.name} | {fault} | {result}" for fault, result in row.items()]
            if copy is not None:
                self._leave(title, copy, port)

    def _start(self, server):
        port = free_port()
        copy = Copy(self._binary, str(port))
        Touch(copy).press(handshake.SERVER_BUTTON if server else handshake.CLIENT_BUTTON)
        return copy, port

    def _leave(self, title, copy, port):
        """The process ends with 0 and lets go of its port."""
        try:
            Touch(copy).leave()
            assert not listeners(port), "somebody still listens on the port"
        except Exception as error:
            self._failed.append(f"{title}, leaving: {error}")
        copy.end()

    def summary(self):
        tried = self._held + len(self._failed)
        return f"{tried} faults tried, {self._held} held; the slowest window closed after {self._slowest:.1f} s"

    def failures(self):
        return self._failed


def all_cells(play):
    return [(step, fault) for step in STEPS if step.exists_for(play) for fault in FAULTS]


def sample():
    """Each step twice and each fault at least three times, in turn in each game and role."""
    seats = [(play, server) for play in PLAYS for server in (True, False)]
    chosen = {seat: [] for seat in seats}
    number = itertools.count()
    for row, step in enumerate(STEPS):
        able = [seat for seat in seats if step.exists_for(seat[0])]
        for column, fault in enumerate(FAULTS):
            if (row + column) % 4 == 0:
                chosen[able[(3 * next(number) + row // 4) % len(able)]].append((step, fault))
    return chosen


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--game", choices=[play.game.code for play in PLAYS])
    parser.add_argument("--role", choices=("server", "client"))
    parser.add_argument("--sample", action="store_true")
    options = parser.parse_args()
    chosen = sample() if options.sample else {(p, s): all_cells(p) for p in PLAYS for s in (True, False)}
    options.folder.mkdir(parents=True, exist_ok=True)
    patience = PATIENCE if options.sample else 1
    matrix = Matrix(os.environ["BRONTAVIA_BINARY"], options.folder, patience)
    begun = time.monotonic()
    for (play, server), cells in chosen.items():
        if options.game in (None, play.game.code) and options.role in (None, "server" if server else "client"):
            matrix.run(play, server, cells)
    print(f"\n{matrix.summary()}, in {time.monotonic() - begun:.0f} s")
    for failure in matrix.failures():
        print(f"\n{failure}")
    (options.folder / "matrix.txt").write_text("\n".join([*matrix.lines, matrix.summary(), ""]), encoding="utf-8")
    sys.exit(bool(matrix.failures()))


if __name__ == "__main__":
    main()
