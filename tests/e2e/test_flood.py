"""A peer that opens boxes without end does not keep the user in."""

import subprocess
import threading
import time

import cases
import handshake
import three_in_row
from handshake import Player
from waiting import wait_until

GAME = three_in_row.GAME
# A person sees a box, presses Enter, and looks again.
BETWEEN_KEYS = 0.15
FLOOD = 3  # seconds


class Flood(cases.CopiesTest):
    def flooded_session(self):
        """A copy whose peer says ten times a second that it has won; returns the hand and what stops the flood."""
        hand = self.start_server()
        peer = self.connect_peer()
        handshake.answer_request(hand)
        peer.expect(b"Solicitud aceptada|TER")
        peer.send(b"Nombre|Eva")
        handshake.answer_name(hand, handshake.SERVER, GAME)
        peer.send(b"turno|2")
        handshake.answer_turn(hand, Player("Servidor", choice="1"), GAME)
        handshake.report_line(hand.copy)
        stopped = threading.Event()

        def flood():
            while not stopped.wait(0.1):
                try:
                    peer.send_unread(b"Haganado|0")
                except OSError:  # the copy has gone
                    return

        thread = threading.Thread(target=flood)
        thread.start()

        def stop():
            stopped.set()
            thread.join()

        self.addCleanup(stop)
        return hand, stop

    @staticmethod
    def press(*keys):
        subprocess.run(["xdotool", "key", *keys], check=True)

    def close_between_boxes(self, hand):
        """Enter for each box, and Alt+F4 where there is none; returns the seconds until the close question is there."""
        begun = time.monotonic()
        while time.monotonic() - begun < 10:
            boxes = [box.name for box in hand.copy.boxes()]
            if GAME.title in boxes:
                return time.monotonic() - begun
            self.press("Return" if boxes else "alt+F4")
            time.sleep(BETWEEN_KEYS)
        self.fail("the window could not be closed within ten seconds")

    def test_the_window_can_be_closed_within_two_seconds(self):
        hand, _ = self.flooded_session()
        time.sleep(FLOOD)
        hand.copy.bring_to_front()
        waited = self.close_between_boxes(hand)
        print(f"closed {waited:.1f} s after the user wished so")
        self.assertLess(waited, 2)
        self.press("Return")
        handshake.leave(hand)

    def test_after_the_flood_no_more_boxes_are_left_than_were_open(self):
        hand, stop = self.flooded_session()
        time.sleep(FLOOD)
        stop()
        # As many as may be open, and one for all the texts that had not been read.
        left = 0
        quiet_since = time.monotonic()
        while time.monotonic() - quiet_since < 2:
            if hand.copy.boxes():
                left += 1
                before = len(hand.copy.boxes())
                self.press("Return")
                wait_until("the box to close", lambda: len(hand.copy.boxes()) != before or not hand.copy.boxes())
                quiet_since = time.monotonic()
            time.sleep(0.05)
        print(f"{left} boxes left")
        self.assertLessEqual(left, 4)


if __name__ == "__main__":
    cases.main()
