"""The close box of every window, and the ports that cannot be listened on."""

import socket

import cases
import handshake
import three_in_row
from handshake import Player
from hands import NO, OK, YES, KeyHand, MouseHand
from waiting import wait_until

GAME = three_in_row.GAME


class Closing(cases.CopiesTest):
    def test_close_box_of_the_start_window_ends_the_program(self):
        hand = MouseHand(self.start())
        hand.close_window()
        self.assertEqual(hand.copy.exit_code(), 0)

    def test_close_box_of_the_selection_window_ends_the_program(self):
        hand = MouseHand(self.start())
        handshake.choose_role(hand, server=True)
        hand.close_window()
        self.assertEqual(hand.copy.exit_code(), 0)

    def test_yes_to_the_close_question_shows_the_selection_window(self):
        for make_hand in (MouseHand, KeyHand):
            with self.subTest(make_hand.__name__):
                hand = make_hand(self.start())
                handshake.open_game(hand, True, GAME)
                hand.close_window()
                hand.answer_box(GAME.title, handshake.CLOSE_TEXT, YES)
                hand.copy.expect_text("Text1", handshake.SELECTION_QUESTION)
                # The port is free again, and the game can be chosen anew.
                handshake.choose_game(hand, True, GAME)
                self.connect_peer()
                handshake.answer_request(hand)

    def test_no_to_the_close_question_ends_the_program_all_the_same(self):
        for make_hand in (MouseHand, KeyHand):
            with self.subTest(make_hand.__name__):
                hand = make_hand(self.start())
                handshake.open_game(hand, False, GAME)
                hand.close_window()
                hand.answer_box(GAME.title, handshake.CLOSE_TEXT, NO)
                self.assertEqual(hand.copy.exit_code(), 0)

    def test_one_player_closes_during_the_game(self):
        session = self.start_session(Player("Servidor", choice="1"), Player("Cliente", choice="2"))
        server, client = session.hands
        session.place(0, 4)
        session.place(1, 0)
        client.close_window()
        client.answer_box(GAME.title, handshake.CLOSE_TEXT, YES)
        handshake.leave(client)
        # The other player learns of it from the first move that cannot be sent; the window stays.
        server.click_cell(8)
        server.answer_box("Error", handshake.SEND_FAILED_TEXT)
        server.copy.expect_board("".join(session.marks))
        self.assert_usable_and_leaves(server)

    def test_a_box_that_is_closed_counts_as_refused(self):
        server = self.start_server()
        self.connect_peer()
        server.copy.box(handshake.REQUEST_TITLE)
        KeyHand(server.copy).close_window()
        wait_until("the box to close", lambda: not server.copy.boxes())
        self.assertTrue(server.copy.shows("FrServidor"))
        peer = self.connect_peer()
        handshake.answer_request(server)
        peer.expect(b"Solicitud aceptada|TER")
        server.copy.box(handshake.NAME_TITLE)
        KeyHand(server.copy).close_window()
        server.copy.expect_caption("Servidor - Tres en raya")
        peer.expect(b"Nombre|Servidor")

    def test_port_in_use(self):
        with socket.create_server(("0.0.0.0", self.port)):
            self.check_port_error(str(self.port), "La dirección enlazada ya está en uso")

    def test_ports_that_no_socket_can_have(self):
        for ini in ("0", "-5", "65536", "99999999999"):
            with self.subTest(ini):
                port = str(min(int(ini), 2**31 - 1))
                self.check_port_error(ini, "el puerto debe estar entre 1 y 65535.", port)

    def check_port_error(self, ini, reason, port=None):
        hand = MouseHand(self.start(ini))
        handshake.choose_role(hand, server=True)
        hand.choose_game(GAME.number)
        hand.answer_box("Error", f"No se puede escuchar en el puerto {port or ini}: {reason}", OK)
        self.assertEqual(hand.copy.exit_code(), 1)

    def test_a_client_with_an_impossible_port_stays_silent(self):
        hand = MouseHand(self.start("70000"))
        handshake.open_game(hand, False, GAME)
        hand.press_button(handshake.LOCAL_BUTTON)
        hand.copy.expect_no_box()
        self.assert_usable_and_leaves(hand)


if __name__ == "__main__":
    cases.main()
