"""The other copy is killed at each step; this one stays alive, can still be used, and closes as always.

usage: test_killed_peer.py server|client   the role of the copy that survives
"""

import sys

import cases
import handshake
import three_in_row
from handshake import Player
from hands import NO, YES

GAME = three_in_row.GAME
SERVER = Player("Servidor", choice="1")
CLIENT = Player("Cliente", choice="2")
NEVER_MIND = "El otro jugador ya ha cancelado su solicitud de conexión."


class KilledPeer(cases.CopiesTest):
    survivor = 0

    def setUp(self):
        super().setUp()
        self.hands = self.start_pair()
        self.hand = self.hands[self.survivor]
        self.server, self.client = self.hands
        self.session = three_in_row.Session(*self.hands, SERVER, CLIENT)

    def tearDown(self):
        self.hand.copy.expect_no_box()
        self.assert_usable_and_leaves(self.hand)
        self.assertEqual(self.hand.copy.errors(), "")

    def kill(self):
        self.hands[1 - self.survivor].copy.kill()

    def request(self):
        self.client.press_button(handshake.LOCAL_BUTTON)
        self.server.copy.box(handshake.REQUEST_TITLE)

    def accept(self):
        self.request()
        handshake.accept(*self.hands)
        self.server.copy.box(handshake.NAME_TITLE)

    def give_names(self):
        self.accept()
        handshake.answer_name(self.server, SERVER, GAME)
        handshake.answer_name(self.client, CLIENT, GAME)

    def play(self):
        """Up to the survivor's turn, with a piece of each on the board."""
        handshake.shake_hands(*self.hands, GAME, SERVER, CLIENT)
        self.session.place(0, 0)
        self.session.place(1, 4)
        if self.survivor == 1:
            self.session.place(0, 1)

    def finish(self, winner):
        """Up to the box of the survivor."""
        handshake.shake_hands(*self.hands, GAME, SERVER, CLIENT)
        for side, cell in enumerate((0, 3, 1, 4)) if winner == 0 else enumerate((0, 3, 1, 4, 8)):
            self.session.place(side % 2, cell, three_in_row.PLACE)
        self.hands[winner].click_cell(2 if winner == 0 else 5)
        self.hand.copy.box(self.end_box(winner)[0])

    def end_box(self, winner):
        if winner == self.survivor:
            return three_in_row.WIN_TITLE, three_in_row.WIN_TEXT
        return three_in_row.LOSS_TITLE, three_in_row.loss_text(self.session.names[winner])

    def answer_error(self):
        self.hand.answer_box("Error", handshake.SEND_FAILED_TEXT)

    def assert_not_my_turn(self):
        self.session.click(self.survivor, 8, three_in_row.NOT_YOUR_TURN)

    # ---- The steps ----

    def test_while_the_server_is_asked(self):
        self.request()
        self.kill()
        if self.survivor == 0:
            handshake.answer_request(self.hand)
            self.hand.answer_box(handshake.REQUEST_TITLE, NEVER_MIND)
            # It still listens.
            self.connect_peer()
            handshake.refuse_request(self.hand)
        else:
            # Nobody listens any more; that is not reported.
            self.hand.press_button(handshake.LOCAL_BUTTON)
            self.assertTrue(self.hand.copy.shows("FrCliente"))

    def test_at_the_name_question(self):
        self.accept()
        self.kill()
        player = (SERVER, CLIENT)[self.survivor]
        self.hand.answer_input(handshake.NAME_TITLE, handshake.NAME_PROMPT, player.proposal)
        self.answer_error()
        handshake.answer_turn(self.hand, player, GAME)
        self.assert_not_my_turn()

    def test_at_the_first_turn_question(self):
        self.give_names()
        self.kill()
        handshake.answer_turn(self.hand, (SERVER, CLIENT)[self.survivor], GAME)
        if self.survivor == 1:
            self.answer_error()
        self.assert_not_my_turn()

    def test_before_the_first_turn_is_decided(self):
        self.give_names()
        handshake.answer_turn(self.hand, (SERVER, CLIENT)[self.survivor], GAME)
        self.kill()
        self.assert_not_my_turn()

    def test_on_the_own_turn(self):
        self.play()
        self.kill()
        for _ in range(2):  # what could not be sent has not happened, so that he may try again
            self.hand.click_cell(8)
            self.answer_error()
            self.hand.copy.expect_board("".join(self.session.marks))

    def test_on_the_turn_of_the_other(self):
        self.play()
        self.session.place(self.survivor, 3)
        self.kill()
        self.assert_not_my_turn()

    def test_after_a_win(self):
        self.finish(winner=self.survivor)
        self.kill()
        self.hand.answer_box(*self.end_box(self.survivor))
        self.session.ask_rematch(self.survivor, YES)
        self.answer_error()

    def test_after_a_loss(self):
        """The refusal cannot be sent; the window closes all the same."""
        self.finish(winner=1 - self.survivor)
        self.kill()
        self.hand.answer_box(*self.end_box(1 - self.survivor))
        self.session.ask_rematch(self.survivor, NO)
        self.answer_error()
        self.hand.copy.expect_text("Text1", handshake.SELECTION_QUESTION)
        handshake.choose_game(self.hand, self.survivor == 0, GAME)


if __name__ == "__main__":
    KilledPeer.survivor = ("server", "client").index(sys.argv.pop(1))
    cases.main()
