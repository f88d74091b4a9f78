"""A long evening: many games in one window, many windows in two copies; nothing grows and nothing goes on running.

usage: evening.py [--rematches N] [--openings N] [--game CODE] [--sample]

Idle: a window of each game that listens, and one on its user's turn, with nobody doing anything.
Rematches: three in a row against a bare peer that wins as soon as the rules allow, in turn first and second to move.
Openings: a window of each game in two copies, up to the settled first turn, and closed again.
What a copy holds is read after every tenth; it counts from the fiftieth on, when everything has been used once. What is
compared are the medians of the first and of the last third of these readings. `--sample` is sixty rematches that count
from the twentieth on: what grows by much with each is seen.
"""

import argparse
import contextlib
import dataclasses
import os
import statistics
import sys
import time

import handshake
from driver import Copy, free_port
from eye import Eye
from hands import OK
from process import Process
from seats import PLAYS, Seat
from touch import Touch, do
from waiting import wait_until

BETWEEN_READINGS = 10
IDLE = 5.0  # seconds
SETTLING = 2.0  # in which what was done before is told and painted
MOST_IDLE = 0.02  # seconds of processor time in it: two ticks of the clock that counts it
# The allocator gives back what it can and does not learn to keep more, so that what the program holds can be seen.
ALLOCATOR = {"MALLOC_MMAP_THRESHOLD_": "65536", "MALLOC_TRIM_THRESHOLD_": "65536", "MALLOC_TOP_PAD_": "0"}


@dataclasses.dataclass(frozen=True)
class Measure:
    """What counts as flat."""

    warm_up: int = 50
    most_growth: float = 0.02  # of what is held after the warm-up


SAMPLE = Measure(warm_up=20, most_growth=0.05)
SAMPLED_REMATCHES = 60


class Log:
    """What a copy holds in the course of an evening."""

    def __init__(self, what, copy, measure):
        self._what = what
        self._measure = measure
        self._process = Process(copy.pid)
        self._readings = []
        self._begun = time.monotonic()

    def read(self, number):
        if number % BETWEEN_READINGS == 0:
            process = self._process
            self._readings.append((number, process.memory(), process.descriptors(), process.threads()))

    def tell(self):
        """Prints what was held at first and at last, and what an idle copy uses. Returns what is not flat."""
        seconds = time.monotonic() - self._begun
        cpu, wakes = watch_idle(self._process)
        steady = [reading for reading in self._readings if reading[0] >= self._measure.warm_up] or self._readings[-1:]
        third = -(-len(steady) // 3)
        parts = steady[:third], steady[-third:]
        first, last = ([statistics.median(column) for column in zip(*part)] for part in parts)
        growth = last[1] / first[1] - 1
        each = 1024 * (last[1] - first[1]) / max(last[0] - first[0], 1)
        print(
            f"{self._what:24}{steady[-1][0]:6} in {seconds:5.0f} s; memory {first[1]:.0f} -> {last[1]:.0f} KiB "
            f"({100 * growth:+.1f} %, {each:+.0f} bytes each); descriptors {first[2]:.0f} -> {last[2]:.0f}; threads "
            f"{first[3]:.0f} -> {last[3]:.0f}; {idle_told(cpu, wakes)}",
            flush=True,
        )
        flat = (
            ("memory", growth <= self._measure.most_growth),
            ("descriptors", last[2] <= first[2]),
            ("threads", last[3] <= first[3]),
            ("idle", cpu <= MOST_IDLE),
        )
        return [f"{self._what}: {what}" for what, held in flat if not held]


def watch_idle(process):
    """Processor time and wakes of a copy with which nobody does anything."""
    cpu, wakes = process.cpu(), process.wakes()
    time.sleep(IDLE)
    return process.cpu() - cpu, process.wakes() - wakes


def idle_told(cpu, wakes):
    return f"idle for {IDLE:.0f} s: {cpu:.2f} s of processor time, {wakes} wakes"


class Idle:
    """One copy whose user and peer have gone for a coffee, in two windows of each game."""

    def __init__(self, binary):
        self._port = free_port()
        self._copy = Copy(binary, str(self._port))
        self._process = Process(self._copy.pid)
        Touch(self._copy).press(handshake.SERVER_BUTTON)

    def run(self, play):
        """Returns in which windows time was used."""
        seat = Seat(self._copy, self._port, play, server=True)
        seat.open()
        missed = self._watch(f"{play.game.code} listening")
        seat.start_play()
        missed += self._watch(f"{play.game.code} own turn")
        seat.touch.close_window(20)
        seat.end()
        return missed

    def _watch(self, window):
        time.sleep(SETTLING)
        cpu, wakes = watch_idle(self._process)
        print(f"{window:24}{idle_told(cpu, wakes)}", flush=True)
        return [window] if cpu > MOST_IDLE else []

    def leave(self):
        Touch(self._copy).leave()

    def end(self):
        self._copy.end()


class Rematches:
    """Three in a row; the peer's pieces make the first line, the copy's none."""

    _OWN, _PEERS = (4, 8, 6), (0, 1, 2)

    def __init__(self, binary):
        port = free_port()
        self._copy = Copy(binary, str(port), ALLOCATOR)
        Touch(self._copy).press(handshake.SERVER_BUTTON)
        self._seat = Seat(self._copy, port, PLAYS[0], server=True)
        self._eye = Eye()

    def run(self, games, measure):
        seat = self._seat
        seat.open()
        seat.begin()
        main = self._copy.bring_to_front()
        log = Log("rematches, TER", self._copy, measure)
        for game in range(games + 1):
            log.read(game)
            self._play(own_begins=game % 2 == 0)
            self._answer(main)  # lost
            do(self._copy.cell(4))
            self._answer(main)  # another game
            seat.peer.expect(b"Seguir|Si")
            seat.peer.send("Seguir|Si")
            self._answer(main)  # the score
        missed = log.tell()
        seat.touch.close_window(20)
        return missed

    def _play(self, own_begins):
        own, peers = iter(self._OWN), iter(self._PEERS)
        if own_begins:
            self._move(next(own))
        for cell in peers:
            if cell == self._PEERS[-1]:
                self._seat.peer.send(b"Jug|-1|%dHaganado|1" % cell)
                return
            self._seat.peer.send(b"Jug|-1|%d" % cell)
            self._move(next(own))

    def _move(self, cell):
        do(self._copy.cell(cell))
        self._seat.peer.expect(b"Jug|-1|%d" % cell)

    def _answer(self, main):
        """Enter, once a box is in front."""
        eye = self._eye
        wait_until("a box", lambda: eye.active_window() not in (0, main))
        box = eye.active_window()
        eye.press_return()
        wait_until("the box to close", lambda: eye.active_window() != box)

    def leave(self):
        self._seat.touch.leave()

    def end(self):
        self._seat.end()
        self._copy.end()


class Openings:
    """Two copies that open a window of the same game, settle who begins, and close it again."""

    def __init__(self, binary):
        port = free_port()
        self._copies = [Copy(binary, str(port), ALLOCATOR) for _ in range(2)]
        self._touches = [Touch(copy) for copy in self._copies]
        for touch, button in zip(self._touches, (handshake.SERVER_BUTTON, handshake.CLIENT_BUTTON)):
            touch.press(button)

    def run(self, play, times):
        logs = [
            Log(f"openings, {play.game.code} {role}", copy, Measure())
            for role, copy in zip(("server", "client"), self._copies)
        ]
        for number in range(times + 1):
            for log in logs:
                log.read(number)
            self._open(play.game)
        return [missed for log in logs for missed in log.tell()]

    def _open(self, game):
        server, client = self._touches
        for touch in self._touches:
            touch.choose_game(game.number)
            touch.copy.expect_caption(game.caption)
        client.press(handshake.LOCAL_BUTTON)
        server.answer(handshake.REQUEST_TITLE)
        self._answer_both(handshake.NAME_TITLE)
        self._answer_both(handshake.TURN_TITLE)
        for touch in self._touches:
            handshake.report_line(touch.copy)
        for touch in self._touches:
            touch.close_window(20)

    def _answer_both(self, title):
        """A button takes a tenth of a second to be pressed; both users press at the same time."""
        boxes = [touch.copy.box(title) for touch in self._touches]
        for touch, box in zip(self._touches, boxes):
            touch.push(box, OK)
        for touch, box in zip(self._touches, boxes):
            touch.wait_until_closed(box)

    def leave(self):
        for touch in self._touches:
            touch.leave()

    def end(self):
        for copy in self._copies:
            copy.end()


@contextlib.contextmanager
def using(part):
    """A part of the evening, whose copies leave in order unless something went wrong."""
    try:
        yield part
        part.leave()
    finally:
        part.end()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--rematches", type=int, default=2000)
    parser.add_argument("--openings", type=int, default=500)
    parser.add_argument("--game", choices=[play.game.code for play in PLAYS], help="whose windows to watch and open")
    parser.add_argument("--sample", action="store_true")
    options = parser.parse_args()
    if options.sample:
        options.rematches, options.openings = SAMPLED_REMATCHES, 0
    plays = [play for play in PLAYS if options.game in (None, play.game.code)]
    binary = os.environ["BRONTAVIA_BINARY"]
    missed = []
    if not options.sample:
        with using(Idle(binary)) as idle:
            missed += [window for play in plays for window in idle.run(play)]
    if options.rematches:
        with using(Rematches(binary)) as rematches:
            missed += rematches.run(options.rematches, SAMPLE if options.sample else Measure())
    if options.openings:
        with using(Openings(binary)) as openings:
            missed += [what for play in plays for what in openings.run(play, options.openings)]
    print("missed: " + (", ".join(missed) or "nothing"))
    sys.exit(bool(missed))


if __name__ == "__main__":
    main()
