"""A peer that sends as fast as the copy reads: the window stays small, answers, and can be closed.

usage: floods.py [--seconds N] [--kind KIND] [--sample]

Each kind of flood comes in three sessions. In the first the user is away; in the others he presses Enter for each box
that he sees, and answers on the board when there is none. At the end of each, with the flood going on, he closes the
window: Enter for each box, Alt+F4 where there is none.

All of it is measured at the X server. A click is answered when the pixels of its cell have changed, Enter when another
window is in front; the window is closed when the selection window is in front.

`--sample` is one session of two seconds of each kind but the tokens of each game, which faults.py sends, too. It runs
beside other tests, so times are not judged.
"""

import argparse
import itertools
import os
import random
import statistics
import sys
import threading
import time

import handshake
from driver import Copy, free_port
from eye import Eye
from process import Process
from seats import PLAYS, Seat
from tree import extents_of

MOST_GROWTH = 20 * 1024  # KiB
MOST_BOXES = 8
ANSWER_LIMIT = 0.1  # seconds
CLOSE_LIMIT = 2.0
PATIENCE = 20.0  # until closing is given up
SAMPLED_SECONDS = 2.0
SELECTION_CAPTION = "BRONTAVIA"
# Seconds: of a person who sees what has come, of one who wants to get out, and of what measures.
BETWEEN_LOOKS = 0.25
BETWEEN_KEYS = 0.15
BETWEEN_REQUESTS = 0.5  # to close, when nothing has come of the last
BEFORE_THE_SAME_KEY = 3.0
BETWEEN_PIXELS = 0.002

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


EVERY_TOKEN = "every token of"
# name: the game and what makes the next text
KINDS = {
    "noise": (_TER, _noise()),
    "single bytes": (_BAR, _single_bytes()),
    "60 KB names": (_MES, _any_of(*("Nombre|" + letter * 60_000 for letter in "abc"))),
    **{f"{EVERY_TOKEN} {play.game.code}": (play, _any_of(*play.tokens)) for play in PLAYS},
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
        self.process = Process(self.copy.pid)
        self.most_boxes = 0
        self.growth = 0
        self.answers = []
        self.closings = []
        self.sent = 0
        self.busy = []  # processors, in each session
        self._seat = Seat(self.copy, port, play, server=True)
        self._eye = Eye()
        self._main = None
        self._cells = None
        self._seat.touch.press(handshake.SERVER_BUTTON)

    def session(self, text, seconds, user_there):
        self._seat.open()
        self._seat.start_play()
        self._main = self.copy.bring_to_front()
        cells = (self.copy.cell(number) for number in self._seat.play.quiet_cells)
        self._cells = itertools.cycle([extents_of(cell) for cell in cells])
        before = self.process.memory()
        with Flood(self._seat.peer, text) as flood:
            begun, cpu = time.monotonic(), self.process.cpu()
            while time.monotonic() - begun < seconds and not self._in_selection(self._eye.active_window()):
                time.sleep(BETWEEN_LOOKS)
                self.growth = max(self.growth, self.process.memory() - before)
                self.most_boxes = max(self.most_boxes, len(self._eye.windows()) - 1)
                if user_there:
                    self._act(self._eye.active_window())
            self.busy.append((self.process.cpu() - cpu) / (time.monotonic() - begun))
            self.closings.append(self._close())
        self.sent += flood.sent
        self._seat.end()

    def _in_selection(self, front):
        return self._eye.title(front) == SELECTION_CAPTION

    def _act(self, front):
        """Answers the box in front, or answers on the board."""
        if not front or self._in_selection(front):
            return
        if front != self._main:
            begun = time.monotonic()
            self._eye.press_return()
            _wait_until(lambda: self._eye.active_window() != front)
        else:
            x, y, width, height = next(self._cells)
            area = x + 1, y + 1, width - 2, height - 2
            shown = self._eye.pixels(*area)
            begun = time.monotonic()
            self._eye.click(x + width // 2, y + height // 2)
            _wait_until(lambda: self._eye.pixels(*area) != shown or self._eye.active_window() != front)
            if self._eye.active_window() != front:
                return  # a box has come over the board
        self.answers.append(time.monotonic() - begun)

    def _close(self):
        """Seconds from the wish to close to the selection window."""
        begun = time.monotonic()
        while not self._in_selection(front := self._eye.active_window()):
            if front == self._main:
                self._eye.ask_to_close()
            elif front:
                self._eye.press_return()
            # A key that comes while the box is getting the focus may be lost; one too many might meet the next window.
            self._look_elsewhere(front, BETWEEN_REQUESTS if front in (0, self._main) else BEFORE_THE_SAME_KEY)
            waited = time.monotonic() - begun
            assert waited < PATIENCE, f"the window cannot be closed; in front: {self._eye.title(front)!r}"
        return time.monotonic() - begun

    def _look_elsewhere(self, front, limit):
        """Until another window is in front."""
        begun = time.monotonic()
        time.sleep(BETWEEN_KEYS)
        while self._eye.active_window() == front and time.monotonic() - begun < limit:
            time.sleep(BETWEEN_PIXELS)

    def leave(self):
        self._seat.touch.leave()
        errors = [line for line in self.copy.errors().splitlines() if not line.startswith("Form")]
        assert not errors, errors


def _wait_until(condition):
    end = time.monotonic() + PATIENCE
    while not condition():
        assert time.monotonic() < end, "the window does not answer"
        time.sleep(BETWEEN_PIXELS)


class Table:
    _HEAD = f"{'flood':22}{'MiB sent':>9}{'grown MiB':>10}{'boxes':>6}{'answer ms: half':>15}{'95 %':>6}{'all':>6}"
    _TAIL = f"{'closed s':>9}{'processors':>11}"

    def __init__(self, judges_times):
        self.missed = []
        self._judges_times = judges_times
        print(self._HEAD + self._TAIL, flush=True)

    def add(self, kind, window):
        answers = sorted(window.answers) or [0.0]
        half, most, worst = statistics.median(answers), answers[int(0.95 * len(answers))], answers[-1]
        closed, busy = max(window.closings), max(window.busy)
        print(
            f"{kind:22}{window.sent / 2**20:9.1f}{window.growth / 1024:10.1f}{window.most_boxes:6}"
            f"{1000 * half:15.0f}{1000 * most:6.0f}{1000 * worst:6.0f}{closed:9.1f}{busy:11.2f}",
            flush=True,
        )
        for what, value, limit, is_time in (
            ("memory", window.growth, MOST_GROWTH, False),
            ("boxes", window.most_boxes, MOST_BOXES, False),
            ("answers", most, ANSWER_LIMIT, True),
            ("closing", closed, CLOSE_LIMIT, True),
            ("processors", busy, 1.0, True),
        ):
            if value > limit and (self._judges_times or not is_time):
                self.missed.append(f"{kind}: {what}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--kind", choices=KINDS)
    parser.add_argument("--sample", action="store_true")
    options = parser.parse_args()
    sessions = [False, True, True]  # whether the user is there
    if options.sample:
        sessions, options.seconds = [True], SAMPLED_SECONDS
    table = Table(judges_times=not options.sample)
    for kind, (play, text) in KINDS.items():
        if options.kind not in (None, kind) or options.sample and kind.startswith(EVERY_TOKEN):
            continue
        window = Window(os.environ["BRONTAVIA_BINARY"], play)
        try:
            for user_there in sessions:
                window.session(text, options.seconds / len(sessions), user_there)
            table.add(kind, window)
            window.leave()
        finally:
            window.copy.end()
    print("missed: " + (", ".join(table.missed) or "nothing"))
    sys.exit(bool(table.missed))


if __name__ == "__main__":
    main()
