"""Positions edited in free mode and played on, learning mode, the keys of the board and the turned board."""

import cases
import chess
import chess_cases
from handshake import NO_TITLE

_ANA, _LUIS = 0, 1
_EDITED = "4r3/P7/8/8/8/8/8/3DR3/"


class ChessModes(chess_cases.ChessTest):
    # ---- Editing ----

    def test_an_edited_position(self):
        session = self.start_fresh()
        self.press_editing_keys_in_vain(session)
        for side in (_LUIS, _ANA):
            session.enter_free_mode(side)
            session.empty_board(side)
            for square, piece in (("e1", "R"), ("e8", "r"), ("d1", "T"), ("a7", "P"), ("h5", "c")):
                session.insert(side, square, piece)
            session.insert(side, "d1" if side == _LUIS else "c1", "D")
            session.delete(side, "h5")
        session.delete(_ANA, "d1")
        session.delete(_ANA, "c1")
        session.insert(_ANA, "d1", "D")
        for side in (_ANA, _LUIS):
            self.assertEqual(session.sides[side].position.pieces, chess.read_board(_EDITED))
            self.set_data_in_vain(session.sides[side])
            session.set_data(side, 12, 0, 3)
        session.play("Dd1-d7+")
        luis = session.sides[_LUIS]
        luis.click_and_read("e8", chess.selected("r"))
        luis.click_and_read("f8", chess.KING_IN_CHECK)
        luis.expect_board()
        session.play("Re8xDd7", "a7-a8=T")
        self.assert_silent(session)

    def press_editing_keys_in_vain(self, session):
        for player in session.sides:
            player.click("e2")
            for key in ("Delete", "Menu", "Escape"):
                player.press_key(key)
            player.expect_status(chess.CANCELLED)
            player.copy.expect_no_menu()
            player.expect_board()

    def set_data_in_vain(self, player):
        """The number 0 ends the command, and so does a colour that is none."""
        for answers in (("0",), ("1", "2")):
            player.choose(chess.OPTIONS_MENU, chess.SET_DATA)
            for prompt, proposal, answer in zip(chess.DATA_PROMPTS, ("1", "0"), answers):
                player.hand.answer_input(chess.SET_DATA, prompt, proposal, answer)
            player.copy.expect_no_box()
            player.expect_texts()

    # ---- Keys and modes ----

    def test_learning_mode_and_a_turned_board(self):
        session = self.start_fresh()
        ana, luis = session.sides
        session.play("e2-e4")
        luis.choose(chess.OPTIONS_MENU, chess.LEARNING)
        luis.learning = True
        luis.click_and_read("g8", "Caballo negro seleccionado")
        luis.reachable = ("f6", "h6")
        luis.expect_board()
        for square in ("f6", "g7", "h6", "e4"):
            luis.hand.move_to_cell(luis.number_of(square))
            luis.expect_status(luis.description(square))
        self.assertEqual(luis.description("f6"), "Disponible  F6")
        luis.press_key("Escape")
        luis.expect_status(chess.CANCELLED)
        luis.reachable = ()
        luis.expect_board()
        for square, attacked in (("f6", "True"), ("e5", "False"), ("e4", "False")):
            luis.click(square)
            luis.press_key("F5")
            luis.hand.answer_box(NO_TITLE, attacked)
            luis.press_key("Escape")
            luis.expect_status(chess.CANCELLED)
        for player in session.sides:
            player.choose(chess.OPTIONS_MENU, chess.FLIP)
            player.flipped = True
        session.expect_position()
        for square in ("a1", "h8", "d5"):
            luis.hand.move_to_cell(luis.number_of(square))
            luis.expect_status(luis.description(square))
        session.play("d7-d5", "e4xd5", "Dd8xd5")
        ana.choose(chess.OPTIONS_MENU, chess.FLIP)
        ana.flipped = False
        session.play("Cb1-c3")
        self.assert_silent(session)


if __name__ == "__main__":
    cases.main()
