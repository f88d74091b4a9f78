"""A peer that sends as fast as the copy reads: the window stays small, answers, and can be closed.

usage: floods.py [--seconds N] [--kind KIND]

Each kind of flood comes in three sessions. In the first the user is away; in the others he answers each box that he
sees, and clicks on the board when there is none. At the end of each, with the flood going on, he closes the window.

A click is measured from outside, and so with all that lies between: on a cell from the call of the accessibility bus
that presses it until the bus tells that the cell is current, on a box from the start of the program that presses Enter
until the bus tells that the box has gone.
"""

import argparse
import contextlib
import itertools
import os
import random
import statistics
import sys
import threading
import time

import pyatspi
from gi.repository import GLib

import handshake
import screen
from driver import Copy, free_port
from process import Process
from seats import PLAYS, Seat
from touch import do
from tree import has_state, is_showing
from waiting import wait_until

MOST_GROWTH = 20 * 1024  # KiB
MOST_BOXES = 8
CLICK_LIMIT = 0.1  # seconds
CLOSE_LIMIT = 2.0
PATIENCE = 20.0  # until closing is given up
SESSIONS = 3
BETWEEN_LOOKS = 0.25

_TER, _BAR, _MES, _EST, _AJE = PLAYS
_POSITIONS = (
    "datospartida|t3r2t/pppppppp/8/8/8/8/PPPPPPPP/T3R2T/B RDrd - 4 9",
    "datospartida|8/8/8/8/8/8/8/8/N - - 0 1",
    "cargpturnos|0 0 0",
    "cargpturnos|1 1 1",
)


def _any_of(*texts):
    encoded = [text.encode("cp1252") for text in texts]
    chance = random.Random(len(texts))
    return lambda: chance.choice(encoded)


def _noise():
    chance = random.Random(1)
    return lambda: chance.randbytes(chance.randrange(1, 4096))


def _single_bytes():
    letters = itertools.cycle("Nombre|turno|Turnodef|Haganado|Datos|Listo|Jug|".encode())
    return lambda: bytes((next(letters),))


# name: the game and what makes the next text
KINDS = {
    "noise": (_TER, _noise()),
    "single bytes": (_BAR, _single_bytes()),
    "60 KB names": (_MES, _any_of(*("Nombre|" + letter * 60_000 for letter in "abc"))),
    **{f"every token of {play.game.code}": (play, _any_of(*play.tokens)) for play in PLAYS},
    "box-openers": (_AJE, _any_of(*_AJE.box_openers)),
    "refusals": (_AJE, _any_of("SolTablasNo|", "cargpno|")),
    "refusals of a game": (_TER, _any_of("Seguir|No")),
    "positions": (_AJE, _any_of(*_POSITIONS)),
}


class Flood:
    """Sends in a thread of its own until it is stopped or the copy has closed the connection."""

    def __init__(self, peer, text):
        self.sent = 0
        self._stopped = threading.Event()
        self._thread = threading.Thread(target=self._run, args=(peer, text))

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._stopped.set()
        self._thread.join()

    def _run(self, peer, text):
        while not self._stopped.is_set() and not peer.ended:
            data = text()
            peer.offer(data)
            self.sent += len(data)


class Window:
    """One copy under one kind of flood, and what was measured of it."""

    def __init__(self, binary, play):
        port = free_port()
        self.copy = Copy(binary, str(port))
        self.seat = Seat(self.copy, port, play, server=True)
        self.touch = self.seat.touch
        self.touch.press(handshake.SERVER_BUTTON)
        self.process = Process(self.copy.pid)
        self.most_boxes = 0
        self.growth = 0
        self.clicks = []
        self.closings = []
        self.sent = 0
        self.busy = []  # processors, in each session

    def session(self, text, seconds, user_there):
        self.seat.open()
        self.seat.start_play()
        before = self.process.memory()
        with Flood(self.seat.peer, text) as flood:
            begun, cpu = time.monotonic(), self.process.cpu()
            while time.monotonic() - begun < seconds:
                time.sleep(BETWEEN_LOOKS)
                self.growth = max(self.growth, self.process.memory() - before)
                with contextlib.suppress(GLib.Error, LookupError):  # what is looked at may go
                    if self.touch.in_selection():
                        break  # the peer has refused another game, and the user has read that
                    self.most_boxes = max(self.most_boxes, len(self.copy.boxes()))
                    if user_there:
                        self.clicks.append(self._click())
            self.busy.append((self.process.cpu() - cpu) / (time.monotonic() - begun))
            self.closings.append(self.touch.close_window(PATIENCE))
        self.sent += flood.sent
        self.seat.end()

    def _click(self):
        """Seconds until Enter has closed a box, or a click has made a cell current."""
        box = self.touch.top_box()
        if box:
            self.copy.bring_to_front(box)
            begun = time.monotonic()
            screen.press("Return")
            wait_until("the box to close", lambda: not _is_open(box), PATIENCE)
        else:
            number = next(number for number in (-1, -2) if not self.copy.is_current_cell(number))
            cell = self.copy.cell(number)
            begun = time.monotonic()
            do(cell)
            wait_until("the cell to be current", lambda: has_state(cell, pyatspi.STATE_SELECTED), PATIENCE)
        return time.monotonic() - begun

    def leave(self):
        self.touch.leave()
        errors = [line for line in self.copy.errors().splitlines() if not line.startswith("Form")]
        assert not errors, errors
        self.copy.end()


def _is_open(box):
    try:
        return is_showing(box)
    except GLib.Error:
        return False


class Table:
    _HEAD = f"{'flood':22}{'MiB sent':>9}{'grown MiB':>10}{'boxes':>6}{'click ms: half':>15}{'95 %':>6}{'all':>6}"
    _TAIL = f"{'closed s':>9}{'processors':>11}"

    def __init__(self):
        self.missed = []
        print(self._HEAD + self._TAIL, flush=True)

    def add(self, kind, window):
        clicks = sorted(window.clicks) or [0.0]
        half, most, worst = statistics.median(clicks), clicks[int(0.95 * len(clicks))], clicks[-1]
        closed, busy = max(window.closings), max(window.busy)
        print(
            f"{kind:22}{window.sent / 2**20:9.1f}{window.growth / 1024:10.1f}{window.most_boxes:6}"
            f"{1000 * half:15.0f}{1000 * most:6.0f}{1000 * worst:6.0f}{closed:9.1f}{busy:11.2f}",
            flush=True,
        )
        for what, value, limit in (
            ("memory", window.growth, MOST_GROWTH),
            ("boxes", window.most_boxes, MOST_BOXES),
            ("clicks", most, CLICK_LIMIT),
            ("closing", closed, CLOSE_LIMIT),
            ("processors", busy, 1.0),
        ):
            if value > limit:
                self.missed.append(f"{kind}: {what}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--kind", choices=KINDS)
    options = parser.parse_args()
    table = Table()
    for kind, (play, text) in KINDS.items():
        if options.kind not in (None, kind):
            continue
        window = Window(os.environ["BRONTAVIA_BINARY"], play)
        try:
            for session in range(SESSIONS):
                window.session(text, options.seconds / SESSIONS, user_there=session > 0)
            table.add(kind, window)
            window.leave()
        finally:
            window.copy.end()
    print("missed: " + (", ".join(table.missed) or "nothing"))
    sys.exit(bool(table.missed))


if __name__ == "__main__":
    main()
