"""One peer at a time, and nobody before the user has said yes: who else knocks at every step, and what comes early."""

import cases
import handshake
import three_in_row
from hands import YES

_HOSTS = ("127.0.0.1", "::1")
# Everything that the window understands, with what could follow it.
_EARLY = b"Solicitud aceptada|TERNombre|EveTurnodef|00turno|1Jug|-1|4Haganado|1Seguir|Si"


class WhoGetsIn(cases.CopiesTest):
    def assert_closed_to_others(self, step):
        for host in _HOSTS:
            with self.subTest(f"{step}, {host}"), self.assertRaises(ConnectionRefusedError):
                self.connect_peer(host)

    def test_nobody_else_from_the_acceptance_to_the_end(self):
        game = three_in_row.GAME
        hand = self.start_server(game)
        peer = self.connect_peer()
        handshake.answer_request(hand)
        peer.expect(b"Solicitud aceptada|TER")
        self.assert_closed_to_others("naming")
        peer.send("Nombre|Eva")
        handshake.answer_name(hand, handshake.Player("Servidor", "Ana"), game)
        self.assert_closed_to_others("choosing who starts")
        peer.send("turno|2")
        handshake.answer_turn(hand, handshake.Player("Servidor", choice="1"), game)
        handshake.report_line(hand.copy)
        self.assert_closed_to_others("own turn")
        hand.click_cell(0)
        self.assert_closed_to_others("the other's turn")
        peer.send("Jug|-1|3Haganado|1")
        hand.answer_box(three_in_row.LOSS_TITLE, three_in_row.loss_text("Eva"))
        self.assert_closed_to_others("over")
        peer.close()
        hand.click_cell(0)
        hand.copy.box(game.title, handshake.REMATCH_TEXT)
        self.assert_closed_to_others("another game asked, and the peer gone")
        hand.answer_box(game.title, handshake.REMATCH_TEXT, YES)
        hand.answer_box("Error", handshake.SEND_FAILED_TEXT)
        hand.close_window()
        hand.answer_box(game.title, handshake.CLOSE_TEXT, YES)
        hand.copy.expect_text("Text1", handshake.SELECTION_QUESTION)
        self.assert_closed_to_others("selection")
        handshake.leave(hand)

    def test_a_client_listens_to_nobody(self):
        self.start_client()
        self.assert_closed_to_others("client")

    def test_nothing_is_heard_before_the_user_has_accepted(self):
        hand = self.start_server()
        for answer in ("refused", "accepted"):
            with self.subTest(answer):
                peer = self.connect_peer()
                peer.send_unread(_EARLY)
                peer.offer(b"x" * 2**20)
                hand.copy.box(handshake.REQUEST_TITLE, handshake.REQUEST_TEXT)
                self.assertTrue(hand.copy.shows("FrServidor"))
                self.assertEqual(len(hand.copy.boxes()), 1)
                self.assertEqual(hand.copy.caption(), three_in_row.GAME.caption)
                peer.expect_silence()
                if answer == "refused":
                    handshake.refuse_request(hand)
                    self.assertEqual(peer.rest(), b"")
                    self.assertTrue(hand.copy.shows("FrServidor"))
        # What was waiting is a read like any other now: the acceptance in it is all that counts.
        handshake.answer_request(hand)
        hand.copy.expect_text("TBMensajes", "\n" + handshake.CONNECTED_LINE)


if __name__ == "__main__":
    cases.main()
