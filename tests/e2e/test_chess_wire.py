"""The exact bytes of chess, and bad input from a peer that is not the program."""

import pathlib
import tempfile

import cases
import chess
import handshake
import placing
from chess import Move, Position
from chess_session import Side
from handshake import NO_TITLE, Player
from hands import NO, YES
from waiting import wait_until

_LINE = "t3r2t/pppppppp/8/8/8/8/PPPPPPPP/T3R2T/B RDrd - 4 9"
_LOADED = ("t3r2t/pppppppp/8/8/8/8/PPPPPPPP/T3R2T/", False, "RDrd", 9)


class ChessWire(cases.CopiesTest):
    def session(self):
        """What the window of a server must show that plays against a bare peer and has White."""
        hand, peer = self.start_server_session(chess.GAME)
        own = Side(hand, "Ana")
        own.expect_log(placing.handshake_log(True, "Eva", chess.report_line("Ana")))
        return own, peer

    @staticmethod
    def send_move(own, peer, text, expected):
        move = Move(text, own.position.black_moves)
        own.make(move)
        own.see(move, replayed=False)
        peer.expect(expected)

    @staticmethod
    def receive_move(own, peer, text, data):
        peer.send(data)
        own.see(Move(text, own.position.black_moves), replayed=True)

    @staticmethod
    def assert_unchanged(own):
        own.copy.expect_no_box()
        own.expect_board()
        own.expect_texts()
        own.expect_log()

    @staticmethod
    def expect_told(own, message, times):
        """Lines on standard error about a message that cannot be read."""
        wait_until(
            f"{times} lines about {message}", lambda: own.copy.errors().count(f"FormAje {message}: ") == times
        )

    def expect_loss_of_peer(self, own, told):
        own.hand.answer_box(NO_TITLE, f"Eva {told}")
        own.hand.answer_box(NO_TITLE, chess.WON_TEXT)

    # ---- What the program sends ----

    def test_bytes_of_a_game(self):
        own, peer = self.session()
        for text, expected, reply, data in (
            ("e2-e4", b"JUG|5 2 5 4 False 0", "Cg8-h6", "JUG|7 8 8 6"),
            ("e4-e5", b"JUG|5 4 5 5 False 0", "d7-d5", "JUG|4 7 4 5 False 0"),
            ("e5xd6a.p.", b"JUG|5 5 4 6 True 0", "e7-e6", "JUG|5 7 5 6 falso nada"),
            ("d6xc7", b"JUG|4 6 3 7 False 0", "Af8-e7", "JUG| 6  8 5 7"),
            ("c7xCb8=C", b"JUG|3 7 2 8 False 3", "0-0", "JUG|5 8 7 8 False 0 0 0"),
        ):
            self.send_move(own, peer, text, expected)
            if reply == "Af8-e7":
                # A second blank is an empty field, so that this is no move.
                peer.send(data)
                self.expect_told(own, "JUG|", 1)
                data = "JUG|6 8 5 7"
            self.receive_move(own, peer, reply, data)
        own.choose(chess.OPTIONS_MENU, chess.OFFER)
        peer.expect(b"SolTablas|")
        own.expect_line(chess.OFFERED_LINE)
        peer.send("SolTablasNo|")
        own.hand.answer_box(NO_TITLE, chess.DRAW_REFUSED_TEXT)
        peer.send("SolTablas|")
        own.hand.answer_box(chess.DRAW_TITLE, chess.DRAW_QUESTION, NO)
        peer.expect(b"SolTablasNo|")
        own.expect_line(chess.OTHER_MOVES_LINE)
        own.choose(chess.OPTIONS_MENU, chess.RESIGN)
        peer.expect(b"Abandona|")
        own.hand.answer_box(NO_TITLE, chess.LOST_TEXT)
        own.click("e4")
        own.hand.answer_box(chess.GAME.title, handshake.REMATCH_TEXT, NO)
        peer.expect_refusals(b"Seguir|No")
        handshake.leave(own.hand)

    def test_bytes_of_a_mate_and_of_an_agreed_draw(self):
        own, peer = self.session()
        for text, expected, reply, data in (
            ("f2-f3", b"JUG|6 2 6 3 False 0", "e7-e5", "JUG|5 7 5 5"),
            ("g2-g4", b"JUG|7 2 7 4 False 0", "Dd8-h4+", "JUG|4 8 8 4"),
        ):
            self.send_move(own, peer, text, expected)
            self.receive_move(own, peer, reply, data)
        own.choose(chess.OPTIONS_MENU, chess.MATE)
        peer.expect(b"JMate|")
        own.hand.answer_box(NO_TITLE, chess.LOST_TEXT)
        peer.send("SolTablas|")
        own.hand.answer_box(chess.DRAW_TITLE, chess.DRAW_QUESTION, YES)
        peer.expect(b"SolTablasSi|")
        own.hand.answer_box(NO_TITLE, chess.DRAW_TEXT)

    def test_bytes_of_a_resume_and_of_free_mode(self):
        own, peer = self.session()
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "saved.fen")
            path.write_text(f"{_LINE}\r\n", encoding="ascii")
            own.choose(chess.FILE_MENU, chess.OPEN)
            own.hand.answer_file(chess.OPEN_TITLE, None, path)
            peer.expect(b"cargpartida|saved.fen")
            own.hand.answer_box(NO_TITLE, chess.resume_sent_text("Eva", "saved.fen"))
            peer.send("cargpsi|")
            peer.expect(f"datospartida|{_LINE}".encode())
        own.expect_line(chess.RESUME_ACCEPTED_LINE)
        own.hand.answer_input(chess.COLOURS_TITLE, chess.COLOURS_PROMPT, "", "1")
        peer.expect(b"cargpturnos|0 0 0")
        own.expect_position(Position(*_LOADED))
        self.send_move(own, peer, "0-0", b"JUG|5 1 7 1 False 0")
        peer.send("cargpartida|")
        own.hand.answer_box(chess.RESUME_TITLE, chess.resume_question("Eva", ""), NO)
        peer.expect(b"cargpno|")
        peer.send("cargpartida|año.fen")
        own.hand.answer_box(chess.RESUME_TITLE, chess.resume_question("Eva", "año.fen"), YES)
        peer.expect(b"cargpsi|")
        peer.send(f"datospartida|{_LINE}")
        own.expect_position(Position(*_LOADED))
        peer.send("cargpturnos|1 0 1")
        own.expect_line(chess.loaded_line(False, False))
        peer.send("modolibre|")
        own.hand.answer_box(NO_TITLE, "Eva ha activado el modo libre.")
        own.choose(chess.OPTIONS_MENU, chess.FREE_MODE)
        own.hand.answer_box(chess.FREE_MODE_TITLE, chess.FREE_MODE_TEXT, YES)
        own.choose(chess.OPTIONS_MENU, chess.CLOCKS)
        own.expect_status(chess.CLOCKS_OFF)
        self.assert_usable_and_leaves(own.hand, chess.GAME)
        peer.expect_refusals(b"modolibre|")  # as often as it took to leave

    # ---- Moves ----

    def test_bad_moves(self):
        """Nothing of this moves anything; then the game goes on."""
        own, peer = self.session()
        self.send_move(own, peer, "e2-e4", b"JUG|5 2 5 4 False 0")
        for data in cases.GARBAGE:
            peer.send(data)
            self.assert_unchanged(own)
        for told, data in enumerate(
            (
                "JUG|",
                "JUG|5",
                "JUG|5 7 5",
                "JUG|e7 e5",
                "JUG|a b c d False 0",
                "JUG|0 7 5 5 False 0",
                "JUG|9 7 9 5 False 0",
                "JUG|5 7 5 9 False 0",
                "JUG|-5 7 5 5 False 0",
                "JUG|99999999999 7 5 5 False 0",
                "JUG|5|7|5|5|False|0",
                "x" * 2**16 + "JUG|5 7 5 5 False 0",
                "basura JUG|5 7 5 5 False 0",
            ),
            1,
        ):
            peer.send(data)
            self.expect_told(own, "JUG|", told)
            self.assert_unchanged(own)
        for data, status in (
            ("JUG|4 2 4 4 False 0", "Le toca mover a las negras."),
            ("JUG|5 7 5 4 False 0", chess.WRONG_MOVE),
            ("JUG|5 7 5 7 False 0", chess.CANCELLED),
        ):
            peer.send(data)
            own.expect_status(status)
            self.assert_unchanged(own)
        peer.send("JUG|3 5 3 4 False 0")  # from an empty square
        self.assert_unchanged(own)
        self.receive_move(own, peer, "e7-e5", "JUG|5 7 5 5")
        self.send_move(own, peer, "Cg1-f3", b"JUG|7 1 6 3 False 0")

    def test_moves_out_of_turn(self):
        """The peer's pieces stay; whoever moves the right colour has moved."""
        own, peer = self.session()
        peer.send("JUG|5 7 5 5 False 0")
        own.expect_status("Le toca mover a las blancas.")
        self.assert_unchanged(own)
        self.receive_move(own, peer, "e2-e4", "JUG|5 2 5 4 False 0")
        own.click_and_read("e7", chess.NOT_YOUR_TURN)

    def test_two_messages_in_one_read(self):
        """The move comes first, also where the other way round it cannot be read."""
        own, peer = self.session()
        self.send_move(own, peer, "e2-e4", b"JUG|5 2 5 4 False 0")
        self.receive_move(own, peer, "e7-e5", "JUG|5 7 5 5 False 0JMate|")
        self.expect_loss_of_peer(own, "se ha declarado en jaque mate.")
        peer.send("JMate|JUG|5 7 5 5 False 0")
        self.expect_told(own, "JUG|", 1)
        self.expect_loss_of_peer(own, "se ha declarado en jaque mate.")
        self.assert_unchanged(own)

    # ---- At the wrong moment ----

    def test_messages_that_nobody_expects(self):
        own, peer = self.session()
        self.send_move(own, peer, "e2-e4", b"JUG|5 2 5 4 False 0")
        peer.send("SolTablasNo|")
        own.hand.answer_box(NO_TITLE, chess.DRAW_REFUSED_TEXT)
        peer.send("cargpno|")
        own.hand.answer_box(NO_TITLE, chess.refused_resume_text("Eva"))
        peer.send("cargpsi|")
        own.expect_line(chess.RESUME_ACCEPTED_LINE)
        self.assert_unchanged(own)
        for data in ("", "basura", "8/8/8/8/8/8/8/8", "9/" * 7, "K" * 2**16, "\0" * 100):
            with self.subTest(data[:40]):
                peer.send(f"datospartida|{data}")
                own.hand.answer_box(chess.OPEN_TITLE, chess.NO_POSITION_TEXT)
                self.assert_unchanged(own)
        for told, data in enumerate(("", "0", "0 1", "2 0 0", "0 2 0", "0 0 -1", "1e9 0 0", "0|1|1", "0 1 2"), 1):
            peer.send(f"cargpturnos|{data}")
            self.expect_told(own, "cargpturnos|", told)
            self.assert_unchanged(own)
        peer.send("SolTablasSi|")
        own.hand.answer_box(NO_TITLE, chess.DRAW_ACCEPTED_TEXT)
        own.position.list += " y los jugadores acuerdan tablas."
        self.assert_unchanged(own)
        peer.send("Abandona|")
        self.expect_loss_of_peer(own, "abandona la partida.")
        own.position.list += " y las negras abandonan.  "
        self.assert_unchanged(own)
        own.log = ""
        peer.send("JUG|5 7 5 5 False 0")
        own.hand.answer_box(chess.GAME.title, handshake.REMATCH_TEXT, NO)
        peer.expect_refusals(b"Seguir|No")
        handshake.leave(own.hand)

    def test_messages_before_the_names(self):
        hand = self.start_server(chess.GAME)
        peer = self.connect_peer()
        handshake.answer_request(hand)
        peer.expect(b"Solicitud aceptada|AJE")
        hand.copy.box(handshake.NAME_TITLE)
        for data in ("JUG|9 9 9 9 False 0", "cargpturnos|2 2 2", "cargpsi|", "JUG|5 7 5 5 False 0"):
            peer.send(data)
        ana = Player("Servidor", "Ana", "1")
        handshake.answer_name(hand, ana, chess.GAME)
        peer.expect(b"Nombre|Ana")
        peer.send("Nombre|Eva")
        peer.send("turno|2")
        handshake.answer_turn(hand, ana, chess.GAME)
        peer.expect(b"Turnodef|00")
        own = Side(hand, "Ana")
        self.send_move(own, peer, "e2-e4", b"JUG|5 2 5 4 False 0")
        self.receive_move(own, peer, "e7-e5", "JUG|5 7 5 5 False 0")


if __name__ == "__main__":
    cases.main()
