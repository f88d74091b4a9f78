"""Two copies with a relay between them: whole sessions through delays, and what becomes of both when bytes are taken
apart, joined or swallowed.

usage: relayed.py [--game CODE]

Messages have no length, so what is taken apart or joined is read as other texts than were sent; and what is swallowed
nobody is told of. So a game cannot go on then. What both copies owe their users is to answer, to close and to leave
nothing behind.
"""

import argparse
import functools
import os
import re
import sys
import time
import traceback

import demo_chess
import demo_naval
import demo_strategy
import demo_three_in_row
import handshake
from driver import Copy, free_port
from process import Process
from relay import Relay
from seats import PLAYS, Seat
from touch import Touch, TouchHand
from waiting import wait_until

MOST_BOXES = 8
CLOSE_LIMIT = 15.0  # seconds, as in faults.py
QUIET = 0.5  # seconds without a box, after which none is expected
LATE, LATER = 0.1, 0.3  # seconds
_INTERNAL_ERROR = re.compile(r"Form\w+ \S+: .+")

DEMOS = {
    demo.GAME.code: demo
    for demo in (demo_three_in_row, demo_naval, demo_strategy.SMALL, demo_strategy.LARGE, demo_chess)
}


def _delay(relay, forth=0.0, back=0.0):
    relay.forth.delay, relay.back.delay = forth, back


def _take_apart(relay):
    for way in (relay.forth, relay.back):
        way.apart = 0.01


def _join(relay):
    for way in (relay.forth, relay.back):
        way.together = 0.3


def _swallow(relay, forth=True, back=True):
    relay.forth.swallows, relay.back.swallows = forth, back


# The client's texts go forth, the server's come back.
DELAYS = {
    "client late": functools.partial(_delay, forth=LATER),
    "server late": functools.partial(_delay, back=LATER),
    "both ways late": functools.partial(_delay, forth=LATE, back=LATER),
}
DISTURBANCES = {
    "taken apart": _take_apart,
    "joined": _join,
    "cut": _swallow,
    "client cut": functools.partial(_swallow, back=False),
    "server cut": functools.partial(_swallow, forth=False),
}
FIRST_BYTE, FIRST_TURN = "first byte", "first turn"
SAMPLE = (
    (FIRST_BYTE, "taken apart"),
    (FIRST_TURN, "taken apart"),
    (FIRST_BYTE, "joined"),
    (FIRST_TURN, "cut"),
)


class Pair:
    """A server, a client and the relay that the client takes for the server."""

    def __init__(self, binary):
        port = free_port()
        self.relay = Relay(port)
        self.copies = []
        try:
            for own_port in (port, self.relay.port):
                self.copies.append(Copy(binary, str(own_port)))
        except BaseException:
            self.end()
            raise
        self._touches = [Touch(copy) for copy in self.copies]
        for touch, button in zip(self._touches, (handshake.SERVER_BUTTON, handshake.CLIENT_BUTTON)):
            touch.press(button)

    # ---- Whole sessions ----

    def play_through(self, demo, delay):
        """A whole session, which must end as without a relay."""
        hands = [TouchHand(copy) for copy in self.copies]
        for hand, server in zip(hands, (True, False)):
            handshake.choose_game(hand, server, demo.GAME)
        self.relay.mend()
        delay(self.relay)
        handshake.shake_hands(*hands, demo.GAME, demo.SERVER, demo.CLIENT)
        for copy in self.copies:
            handshake.report_line(copy)
        demo.play(*hands, lambda line: None, lambda name: None)

    # ---- Disturbed sessions ----

    def disturb(self, play, since, disturbance):
        """A session whose bytes are disturbed from the first of them or from the first turn on."""
        seats = [Seat(copy, None, play, server) for copy, server in zip(self.copies, (True, False))]
        for touch in self._touches:
            touch.choose_game(play.game.number)
            touch.copy.expect_caption(play.game.caption)
        self.relay.mend()
        if since == FIRST_BYTE:
            disturbance(self.relay)
        self._connect()
        if since == FIRST_TURN:
            self._settle(seats)
            disturbance(self.relay)
            for seat in seats:
                play.place(seat)
        self._answer_until_quiet()
        self._expect_alive()
        for touch in self._touches:
            touch.close_window(CLOSE_LIMIT)
        for copy in self.copies:
            wait_until("the sockets to close", lambda: not Process(copy.pid).sockets())

    def _connect(self):
        """The server's user accepts, whatever may come of it."""
        self._touches[1].press(handshake.LOCAL_BUTTON)
        self._touches[0].answer(handshake.REQUEST_TITLE)
        self.copies[0].box(handshake.NAME_TITLE)

    @staticmethod
    def _settle(seats):
        """Up to the first turn, which the server has."""
        for seat in seats:
            seat.touch.answer(handshake.NAME_TITLE)
        for seat, choice in zip(seats, "12"):
            seat.touch.answer(handshake.TURN_TITLE, text=choice)
        for seat in seats:
            handshake.report_line(seat.copy)
            seat.begins = seat.server
            seat.play.begin(seat)

    def _answer_until_quiet(self):
        """Both users answer whatever is asked, until nothing is any more."""
        quiet_since = time.monotonic()

        def quiet():
            nonlocal quiet_since
            if any([touch.answer_top() for touch in self._touches]):
                quiet_since = time.monotonic()
            return time.monotonic() - quiet_since > QUIET

        wait_until("the boxes to end", quiet)

    def _expect_alive(self):
        for copy in self.copies:
            assert copy.running(), f"the process has ended: {copy.errors()}"
            copy.caption()
            assert len(copy.boxes()) <= MOST_BOXES

    # ---- The end ----

    def leave(self):
        for touch in self._touches:
            touch.leave()
            wrong = [line for line in touch.copy.errors().splitlines() if not _INTERNAL_ERROR.fullmatch(line)]
            assert not wrong, f"on standard error: {wrong}"

    def end(self):
        self.relay.close()
        for copy in self.copies:
            copy.end()


class Rows:
    """Tries one after the other, each with what the last has left when it held and with new copies when it did not."""

    def __init__(self, binary):
        self._binary = binary
        self._pair = None
        self._held = 0
        self._failed = []

    def add(self, row, attempt):
        self._pair = self._pair or Pair(self._binary)
        begun = time.monotonic()
        try:
            attempt(self._pair)
            self._held += 1
            told = f"held, {time.monotonic() - begun:.1f} s"
        except Exception as error:  # whatever it is, the other rows are still to be tried
            told = f"FAILED: {error}"
            self._failed.append(f"{row}\n{traceback.format_exc()}")
            self._pair.end()
            self._pair = None
        print(f"{row:44}{told}", flush=True)

    def leave(self):
        if self._pair:
            self._pair.leave()
            self._pair.end()
        print(f"\n{self._held + len(self._failed)} tried, {self._held} held")
        for failure in self._failed:
            print(f"\n{failure}")
        return not self._failed


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--game", choices=[play.game.code for play in PLAYS])
    options = parser.parse_args()
    rows = Rows(os.environ["BRONTAVIA_BINARY"])
    for play in PLAYS:
        code = play.game.code
        if options.game not in (None, code):
            continue
        for name, delay in DELAYS.items():
            rows.add(f"{code}, {name}", lambda pair: pair.play_through(DEMOS[code], delay))
        for name, disturbance in DISTURBANCES.items():
            for since in (FIRST_BYTE, FIRST_TURN):
                rows.add(f"{code}, {name} from the {since} on", lambda pair: pair.disturb(play, since, disturbance))
    sys.exit(not rows.leave())


if __name__ == "__main__":
    main()
