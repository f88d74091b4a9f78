"""Three games of chess, one copy by mouse alone and the other by keyboard alone."""

import cases
import chess
import chess_cases
import handshake
from handshake import NO_TITLE
from hands import NO, YES

_ANA, _LUIS = 0, 1


class Chess(chess_cases.ChessTest):
    def test_three_games(self):
        session = self.start_fresh()
        self.refuse(session)
        session.play(*chess.OPENING)
        session.offer_draw(NO)
        session.play(*chess.MIDDLE)
        self.declare_too_early(session)
        session.play(*chess.END)
        session.declare_mate()
        session.play_again(_LUIS)
        session.play("e2-e4", "e7-e5", "Af1-c4")
        session.offer_draw(YES)
        self.assertEqual(session.scores, [2, 0])
        session.play_again(_ANA)
        session.play("d2-d4")
        session.resign()
        session.stop(_LUIS)
        for player in session.sides:
            handshake.leave(player.hand)
        self.assert_silent(session)

    def refuse(self, session):
        """Clicks and commands that move nothing."""
        ana, luis = session.sides
        session.expect_position()
        for square, status in (
            ("e7", "Le toca mover a las blancas."),
            ("e4", " E4"),
            ("g1", "Caballo blanco seleccionado"),
            ("g3", chess.WRONG_MOVE),
            ("g1", chess.CANCELLED),
            ("a1", "Torre blanca seleccionada"),
            ("a1", chess.CANCELLED),
        ):
            ana.click_and_read(square, status)
        for square in ("e7", "e4"):
            luis.click_and_read(square, chess.NOT_YOUR_TURN)
        for command in (chess.MATE, chess.RESIGN, chess.OFFER):
            luis.choose(chess.OPTIONS_MENU, command)
            luis.hand.answer_box(NO_TITLE, chess.NOT_YOUR_TURN)
        session.expect_position()

    def declare_too_early(self, session):
        luis = session.sides[_LUIS]
        luis.choose(chess.OPTIONS_MENU, chess.MATE)
        luis.hand.answer_box(NO_TITLE, chess.NOT_IN_CHECK_TEXT)


if __name__ == "__main__":
    cases.main()
