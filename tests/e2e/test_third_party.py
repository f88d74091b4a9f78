"""One connection per game window: who else knocks, before and after the acceptance."""

import cases
import handshake
import three_in_row
from hands import CANCEL


class ThirdParty(cases.CopiesTest):
    def test_after_the_acceptance_nobody_else_gets_in(self):
        session = self.start_session(
            handshake.Player("Servidor", choice="1"), handshake.Player("Cliente", choice="2")
        )
        with self.assertRaises(ConnectionRefusedError):
            self.connect_peer()
        session.place(0, 4)
        session.copies[0].expect_no_box()

    def test_cancel_keeps_listening(self):
        server, client = self.start_pair()
        for _ in range(2):
            client.press_button(handshake.LOCAL_BUTTON)
            handshake.answer_request(server, CANCEL)
            self.assertTrue(server.copy.shows("FrServidor"))
            self.assertTrue(client.copy.shows("FrCliente"))
        handshake.shake_hands(server, client, three_in_row.GAME)
        handshake.report_line(client.copy)

    def test_requests_wait_while_the_box_is_open(self):
        server = self.start_server()
        first, second, third = (self.connect_peer() for _ in range(3))
        handshake.refuse_request(server)
        self.assertEqual(first.rest(), b"")
        handshake.answer_request(server)
        second.expect(b"Solicitud aceptada|TER")
        self.assertEqual(third.rest(), b"")
        self.assertEqual(len(server.copy.boxes()), 1)

    def test_both_kinds_of_address(self):
        for host in ("127.0.0.1", "::1"):
            with self.subTest(host):
                server = self.start_server()
                peer = self.connect_peer(host)
                handshake.answer_request(server)
                peer.expect(b"Solicitud aceptada|TER")
                server.copy.end()
                peer.close()


if __name__ == "__main__":
    cases.main()
