"""The exact bytes on the wire, and bad input from a peer that is not the program."""

import cases
import handshake
import three_in_row
from handshake import Player
from hands import NO, OK, YES
from waiting import wait_until

GAME = three_in_row.GAME
# Name, and its bytes in Windows-1252.
ACCENTED = "Ñandú €"
ACCENTED_BYTES = b"\xd1and\xfa \x80"
HTML_NAME = "<b>Eva</b>"
EMPTY_BOARD = "*** *** ***"


class Wire(cases.CopiesTest):
    def server_session(self, name=b"Eva", server=handshake.SERVER, choice="1", answer=b"turno|2"):
        """A copy as server in session with a bare peer; the server begins unless the choices say otherwise."""
        hand = self.start_server()
        peer = self.connect_peer()
        handshake.answer_request(hand)
        peer.expect(b"Solicitud aceptada|TER")
        peer.send(b"Nombre|" + name)
        handshake.answer_name(hand, server, GAME)
        peer.expect(b"Nombre|" + server.shown_name.encode("cp1252"))
        peer.send(answer)
        handshake.answer_turn(hand, Player(server.proposal, choice=choice), GAME)
        return hand, peer

    def client_session(self, client=handshake.CLIENT, choice="2"):
        """A copy as client in session with a bare server."""
        listener = self.listen()
        hand = self.start_client()
        hand.press_button(handshake.LOCAL_BUTTON)
        peer = self.accept(listener)
        peer.send(b"Solicitud aceptada|TER")
        handshake.answer_name(hand, client, GAME)
        peer.expect(b"Nombre|" + client.shown_name.encode("cp1252"))
        peer.send(b"Nombre|Eva")
        handshake.answer_turn(hand, Player(client.proposal, choice=choice), GAME)
        return hand, peer

    # ---- What the program sends ----

    def test_bytes_of_the_server(self):
        hand, peer = self.server_session(server=Player("Servidor", ACCENTED))
        hand.copy.expect_caption(f"{ACCENTED} - Tres en raya")
        peer.expect(b"Turnodef|00")
        self.win(hand, peer, 0)

    def test_bytes_of_the_client(self):
        hand, peer = self.client_session(client=Player("Cliente", ACCENTED), choice="1")
        peer.expect(b"turno|1")
        peer.send(b"Turnodef|10")
        self.win(hand, peer, 1)

    def win(self, hand, peer, player):
        """The copy begins and wins while placing, then refuses another game."""
        handshake.report_line(hand.copy)
        for own, others in ((0, 4), (1, 8)):
            hand.click_cell(own)
            peer.expect(b"Jug|-1|%d" % own)
            peer.send(b"Jug|-1|%d" % others)
            hand.copy.expect_text("TBEstado", three_in_row.PLACE)
        # Both leave before the box is answered, and in one write.
        with peer.expect_writes(b"Jug|-1|2Haganado|%d" % player):
            hand.click_cell(2)
        hand.answer_box(three_in_row.WIN_TITLE, three_in_row.WIN_TEXT)
        hand.click_cell(5)
        hand.answer_box(GAME.title, handshake.REMATCH_TEXT, YES)
        peer.expect(b"Seguir|Si")
        peer.send(b"Seguir|Si")
        score = [0, 0]
        score[player] = 1
        names = ["Eva", "Eva"]
        names[player] = ACCENTED
        text = handshake.score_text(GAME, names[0], score[0], names[1], score[1], "Eva")
        hand.answer_box(three_in_row.NEW_GAME_TITLE, text)
        self.lose_in_one_read(hand, peer, 1 - player)
        hand.click_cell(5)
        hand.answer_box(GAME.title, handshake.REMATCH_TEXT, NO)
        peer.expect_refusals(b"Seguir|No")
        handshake.leave(hand)

    def lose_in_one_read(self, hand, peer, other):
        """The peer begins and wins; its last move and "Haganado|" come together, so the box names the peer."""
        for others, own in ((0, 4), (1, 8)):
            peer.send(b"Jug|-1|%d" % others)
            hand.copy.expect_text("TBEstado", three_in_row.PLACE)
            hand.click_cell(own)
            peer.expect(b"Jug|-1|%d" % own)
        peer.send(b"Jug|-1|2Haganado|%d" % other)
        hand.answer_box(three_in_row.LOSS_TITLE, three_in_row.loss_text("Eva"))
        own_symbol, other_symbol = "XO"[1 - other], "XO"[other]
        hand.copy.expect_board(f"{other_symbol * 3} *{own_symbol}* **{own_symbol}")

    def test_winning_move_in_two_reads_names_the_loser(self):
        hand, peer = self.server_session(choice="2", answer=b"turno|1")
        peer.expect(b"Turnodef|10")
        for others, own in ((0, 4), (1, 8)):
            peer.send(b"Jug|-1|%d" % others)
            hand.copy.expect_text("TBEstado", three_in_row.PLACE)
            hand.click_cell(own)
            peer.expect(b"Jug|-1|%d" % own)
        peer.send(b"Jug|-1|2")
        hand.copy.expect_text("TBEstado", three_in_row.PLACE)
        peer.send(b"Haganado|1")
        hand.answer_box(three_in_row.LOSS_TITLE, three_in_row.loss_text("Servidor"))
        hand.click_cell(5)
        hand.answer_box(GAME.title, handshake.REMATCH_TEXT, YES)
        peer.expect(b"Seguir|Si")
        peer.send(b"Seguir|Si")
        text = handshake.score_text(GAME, "Servidor", 1, "Eva", 0, "Servidor")
        hand.answer_box(three_in_row.NEW_GAME_TITLE, text)

    def test_what_is_sent_before_a_box_leaves_before_the_box(self):
        hand = self.start_server()
        peer = self.connect_peer()
        handshake.answer_request(hand)
        hand.copy.box(handshake.NAME_TITLE)
        peer.expect(b"Solicitud aceptada|TER")
        peer.expect_silence()
        handshake.answer_name(hand, handshake.SERVER, GAME)
        hand.copy.box(handshake.TURN_TITLE)
        peer.expect(b"Nombre|Servidor")
        peer.expect_silence()

    def test_invalid_first_turn_answers_become_a_draw(self):
        hand, peer = self.client_session(choice="7")
        peer.expect(b"turno|3")
        peer.send(b"Turnodef|01")
        line = handshake.report_line(hand.copy)
        self.assertEqual(line, "Tras realizar el sorteo, comienza jugando Eva. Eva es su turno. ")

    # ---- Bad input ----

    def test_bad_input_as_server(self):
        hand, peer = self.server_session(choice="2", answer=b"turno|1")
        peer.expect(b"Turnodef|10")
        self.bad_input(hand, peer, "O")

    def test_bad_input_as_client(self):
        hand, peer = self.client_session()
        peer.expect(b"turno|2")
        peer.send(b"Turnodef|71")  # nobody begins: ignored
        wait_until("the line about it", lambda: "Turnodef|" in hand.copy.errors())
        peer.send(b"Turnodef|00")
        self.bad_input(hand, peer, "X")

    def bad_input(self, hand, peer, symbol):
        """The peer is to move. Nothing of this moves anything; then the game goes on."""
        handshake.report_line(hand.copy)
        log = hand.copy.text("TBMensajes")
        for data in cases.GARBAGE:
            peer.send(data)
            self.assert_unchanged(hand.copy, log)
        told = 0
        for data in (
            b"Jug|",
            b"Jug|4",
            b"Jug|-1|9",
            b"Jug|-1|-1",
            b"Jug|9|1",
            b"Jug|1e9|2",
            b"Jug|-1|99999999999999999999",
            b"Jug|0|8.6",
            b"x" * 2**16 + b"Jug|-1|3",
            b"basura Jug|-1|3",
        ):
            peer.send(data)
            told += 1
            wait_until(
                f"the line about {data[-40:]!r}", lambda: hand.copy.errors().count("FormTER Jug|: ") == told
            )
            self.assert_unchanged(hand.copy, log)
        self.go_on(hand, peer, symbol)

    @staticmethod
    def assert_unchanged(copy, log):
        copy.expect_no_box()
        copy.expect_board(EMPTY_BOARD)
        copy.expect_text("TBMensajes", log)
        copy.expect_text("TBEstado", "")

    def go_on(self, hand, peer, symbol):
        """The peer moves, the copy moves."""
        own = "XO"["XO".index(symbol) - 1]
        peer.send(b"Jug|-1|4")
        hand.copy.expect_text("TBEstado", three_in_row.PLACE)
        hand.copy.expect_board(f"*** *{symbol}* ***")
        hand.click_cell(8)
        peer.expect(b"Jug|-1|8")
        hand.copy.expect_board(f"*** *{symbol}* **{own}")

    def test_missing_numbers_are_zero(self):
        hand, peer = self.server_session(choice="2", answer=b"turno|1")
        peer.expect(b"Turnodef|10")
        peer.send(b"Jug|-1|")
        hand.copy.expect_board("O** *** ***")

    def test_two_messages_in_one_read(self):
        """The name runs to the end of the read and is cut by position; the move is found in it as well."""
        hand, peer = self.server_session(choice="2", answer=b"turno|1")
        peer.expect(b"Turnodef|10")
        peer.send(b"Nombre|LuzJug|-1|3")
        # From position 5 the text reads "re|LuzJug|-1|3": nothing is 0, twice.
        hand.copy.expect_board("O** *** ***")
        wait_until("the name", lambda: "\nVa a jugar contra LuzJug|-1|3\n" in hand.copy.text("TBMensajes"))

    def test_html_in_a_name_is_text(self):
        hand, peer = self.server_session(name=HTML_NAME.encode(), choice="2", answer=b"turno|1")
        peer.expect(b"Turnodef|10")
        report = f"Por decisión mutua comienza jugando {HTML_NAME}. {HTML_NAME} es su turno. "
        hand.copy.expect_text("TBMensajes", f"\nNombre recibido\nVa a jugar contra {HTML_NAME}\n{report}")
        peer.send(b"Haganado|1")
        hand.answer_box(three_in_row.LOSS_TITLE, three_in_row.loss_text(HTML_NAME))
        peer.send(b"Seguir|No")
        hand.answer_box(handshake.NO_TITLE, handshake.refusal_text(HTML_NAME))
        handshake.leave(hand)

    def test_end_of_file_and_reset_are_not_noticed(self):
        for leave in ("finish", "reset"):
            with self.subTest(leave):
                hand, peer = self.server_session()
                peer.expect(b"Turnodef|00")
                handshake.report_line(hand.copy)
                getattr(peer, leave)()
                hand.copy.expect_no_box()
                hand.click_cell(0)
                if leave == "reset":
                    hand.answer_box("Error", handshake.SEND_FAILED_TEXT)
                hand.copy.expect_board("X** *** ***" if leave == "finish" else "*** *** ***")
                hand.copy.end()

    def test_wrong_game_code(self):
        for acceptance in (b"Solicitud aceptada|BAR", b"Solicitud aceptada", b"Solicitud aceptadaTER"):
            with self.subTest(acceptance):
                listener = self.listen()
                hand = self.start_client()
                hand.press_button(handshake.LOCAL_BUTTON)
                peer = self.accept(listener)
                peer.send_unread(acceptance)
                hand.answer_box("Error", handshake.WRONG_GAME_TEXT, OK)
                self.assertEqual(peer.rest(), b"")
                listener.close()
                handshake.leave(hand)


if __name__ == "__main__":
    cases.main()
