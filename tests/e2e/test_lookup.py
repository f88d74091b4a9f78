"""The client asks for a host whose name takes the name server half a minute; meanwhile everything goes on."""

import os

import cases
import chess
import handshake
import three_in_row
from hands import NO, YES, MouseHand
from waiting import wait_until

LOOKUP = {"LD_PRELOAD": os.environ["SLOW_LOOKUP"]}
SOON = 3.0  # seconds: a tenth of the lookup, and enough for a busy machine


class Lookup(cases.CopiesTest):
    def start_lookup(self, game):
        """The hand at a client who waits for a name."""
        hand = MouseHand(self.start(environment=LOOKUP))
        handshake.open_game(hand, False, game)
        self.look_up(hand, "lejos.example")
        return hand

    def look_up(self, hand, name):
        hand.press_button(handshake.CONNECT_BUTTON)
        hand.answer_input(handshake.ADDRESS_TITLE, handshake.ADDRESS_PROMPT, "", name)
        wait_until("the lookup to begin", lambda: f"looking up {name}\n" in hand.copy.errors())

    def leave_selection(self, hand):
        hand.copy.expect_text("Text1", handshake.SELECTION_QUESTION)
        hand.press_button(handshake.LEAVE_BUTTON)
        self.assert_ends_soon(hand)

    def assert_ends_soon(self, hand):
        self.assertEqual(hand.copy.exit_code(SOON), 0)

    def test_leaving_a_game_that_does_not_ask(self):
        hand = self.start_lookup(chess.GAME)
        hand.close_window()
        self.leave_selection(hand)

    def test_yes_to_the_close_question(self):
        hand = self.start_lookup(three_in_row.GAME)
        hand.close_window()
        hand.answer_box(three_in_row.GAME.title, handshake.CLOSE_TEXT, YES)
        self.leave_selection(hand)

    def test_no_to_the_close_question(self):
        hand = self.start_lookup(three_in_row.GAME)
        hand.close_window()
        hand.answer_box(three_in_row.GAME.title, handshake.CLOSE_TEXT, NO)
        self.assert_ends_soon(hand)

    def test_close_box_of_the_selection_window(self):
        hand = self.start_lookup(chess.GAME)
        hand.close_window()
        hand.copy.expect_text("Text1", handshake.SELECTION_QUESTION)
        hand.close_window()
        self.assert_ends_soon(hand)

    def test_connecting_again(self):
        hand = self.start_lookup(three_in_row.GAME)
        self.look_up(hand, "otro.example")
        listener = self.listen()
        hand.press_button(handshake.LOCAL_BUTTON)
        self.accept(listener).send(b"Solicitud aceptada|TER")
        handshake.answer_name(hand, handshake.CLIENT, three_in_row.GAME)
        handshake.answer_turn(hand, handshake.CLIENT, three_in_row.GAME)
        hand.close_window()
        hand.answer_box(three_in_row.GAME.title, handshake.CLOSE_TEXT, YES)
        self.leave_selection(hand)


if __name__ == "__main__":
    cases.main()
