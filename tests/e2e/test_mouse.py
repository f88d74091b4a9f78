"""Two whole games by mouse alone."""

import cases
import handshake
import screen
import three_in_row
from hands import MouseHand
from tree import extents_of


class Mouse(cases.CopiesTest):
    def test_two_games_by_mouse_alone(self):
        server, client = MouseHand(self.start()), MouseHand(self.start())
        for hand, is_server in ((server, True), (client, False)):
            self.check_start_window(hand)
            handshake.choose_role(hand, is_server)
            self.check_selection_window(hand)
            handshake.choose_game(hand, is_server, three_in_row.GAME)
        self.check_frames(server.copy, client.copy)
        handshake.shake_hands(server, client, three_in_row.GAME)
        self.check_logs(server.copy, client.copy)

        session = three_in_row.Session(server, client)
        first = handshake.starter(server.copy)
        session.placing_game(first)
        session.play_again(first, starter=1 - first)
        session.moving_game(1 - first)
        session.stop(refuser=1 - first)
        for hand in (server, client):
            handshake.leave(hand)
            self.assertEqual(hand.copy.errors(), "")

    def check_start_window(self, hand):
        copy = hand.copy
        copy.expect_caption("BRONTAVIA")
        copy.expect_text("Text1", f"{handshake.START_QUESTION} Puerto de conexión: {self.port}")
        copy.expect_text("Text2", "")

    def check_selection_window(self, hand):
        copy = hand.copy
        copy.expect_caption("BRONTAVIA")
        self.assertEqual([entry.name for entry in copy.entries()], handshake.GAMES)
        self.assertEqual(copy.selected_entry(), 0)

    def check_frames(self, server, client):
        self.assertTrue(server.shows("FrServidor"))
        self.assertFalse(server.shows("FrCliente"))
        self.assertEqual(server.text("TbServ1"), handshake.SERVER_INSTRUCTIONS)
        self.assertTrue(client.shows("FrCliente"))
        self.assertFalse(client.shows("FrServidor"))
        self.assertEqual(client.text("TbCli1"), handshake.CLIENT_INSTRUCTIONS)
        for copy in (server, client):
            self.assertFalse(copy.shows("FG1"))
            self.assertFalse(copy.shows("TBEstado"))

    def check_logs(self, server, client):
        report = handshake.report_line(server)
        name = ("Servidor", "Cliente")[handshake.starter(server)]
        self.assertEqual(report, f"Tras realizar el sorteo, comienza jugando {name}. {name} es su turno. ")
        server.expect_text("TBMensajes", f"\nNombre recibido\nVa a jugar contra Cliente\n{report}")
        client.expect_text(
            "TBMensajes",
            f"\n{handshake.CONNECTED_LINE}\nNombre recibido\nVa a jugar contra Servidor\n{report}",
        )
        for copy in (server, client):
            copy.expect_text("TBEstado", "")
            copy.expect_board("*** *** ***")
            self.assertFalse(copy.shows("FrServidor") or copy.shows("FrCliente"))

    def test_a_click_counts_where_it_is_let_go(self):
        session = self.start_session(
            handshake.Player("Servidor", choice="1"), handshake.Player("Cliente", choice="2")
        )
        server = session.copies[0]
        handshake.report_line(server)
        server.bring_to_front()
        from_cell, to_cell = (self.centre(server.cells()[cell]) for cell in (0, 8))
        screen.drag(from_cell, to_cell)
        session.place(0, 4)
        server.expect_board("*** *X* ***")

    @staticmethod
    def centre(node):
        x, y, width, height = extents_of(node)
        return x + width // 2, y + height // 2


if __name__ == "__main__":
    cases.main()
