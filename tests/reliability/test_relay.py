"""The relay itself, and a sample of what two copies stand through it."""

import os
import time
import unittest

import cases
import relayed
import three_in_row
from peer import Listener, Peer
from relay import Relay
from seats import PLAYS

PAUSE = 1.0  # seconds: what takes no time at all happens meanwhile, on a busy machine too


class Passing(unittest.TestCase):
    """Bare ends on both sides."""

    def setUp(self):
        self.listener = Listener(0)
        self.addCleanup(self.listener.close)
        self.relay = Relay(self.listener.port)
        self.addCleanup(self.relay.close)
        self.near = Peer.connected_to(self.relay.port)
        self.addCleanup(self.near.close)
        self.far = self.listener.accept()
        self.addCleanup(self.far.close)

    def test_what_is_said_goes_through_both_ways(self):
        self.near.send(b"forth")
        self.far.expect(b"forth")
        self.far.send(b"back")
        self.near.expect(b"back")

    def test_bytes_that_are_no_text_go_through_whole(self):
        data = bytes(range(256)) * 4096
        self.near.send_unread(data)
        self.near.finish()
        self.assertEqual(self.far.rest(), data)

    def test_a_delay_holds_back_one_way_alone(self):
        self.relay.forth.delay = PAUSE
        begun = time.monotonic()
        self.near.send(b"late")
        self.far.send(b"soon")
        self.near.expect(b"soon")
        self.far.expect_silence()
        self.far.expect(b"late")
        self.assertGreaterEqual(time.monotonic() - begun, PAUSE)

    def test_writes_that_are_delayed_stay_apart(self):
        self.relay.forth.delay = PAUSE
        with self.far.expect_writes(b"one", b"two"):
            self.near.send(b"one")
            self.near.send(b"two")

    def test_a_write_is_taken_apart(self):
        self.relay.forth.apart = 0
        with self.far.expect_writes(b"T", b"E", b"R"):
            self.near.send(b"TER")

    def test_writes_are_joined(self):
        self.relay.forth.together = PAUSE
        with self.far.expect_writes(b"onetwo"):
            for text in (b"one", b"two"):
                self.near.send_unread(text)

    def test_an_end_is_passed_on(self):
        self.relay.forth.together = PAUSE
        self.near.send(b"last")
        self.near.finish()
        self.assertEqual(self.far.rest(), b"last")
        self.far.send(b"still here")
        self.near.expect(b"still here")

    def test_what_is_swallowed_nobody_is_told_of(self):
        self.relay.forth.swallows = True
        self.near.send(b"lost")
        self.near.finish()
        self.far.send(b"still here")
        self.near.expect(b"still here")
        self.far.expect_silence()

    def test_whoever_comes_in_vain_is_sent_away(self):
        self.listener.close()
        late = Peer.connected_to(self.relay.port)
        self.addCleanup(late.close)
        self.assertEqual(late.rest(), b"")


class Copies(unittest.TestCase):
    """Two copies, three in a row; relayed.py tries all games."""

    def setUp(self):
        self.pair = relayed.Pair(os.environ["BRONTAVIA_BINARY"])
        self.addCleanup(self.pair.end)

    def tearDown(self):
        self.pair.leave()

    def test_a_session_through_delays_ends_as_without(self):
        self.pair.play_through(relayed.DEMOS[three_in_row.GAME.code], relayed.DELAYS["both ways late"])

    def test_whatever_becomes_of_the_bytes_both_copies_go_on(self):
        for since, name in relayed.SAMPLE:
            with self.subTest(name, since=since):
                self.pair.disturb(PLAYS[0], since, relayed.DISTURBANCES[name])


if __name__ == "__main__":
    cases.main()
