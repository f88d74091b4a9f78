"""What the end-to-end tests of chess share."""

import cases
import chess
import handshake
import placing
from chess_session import Session
from handshake import Player
from hands import KeyHand, MouseHand


class ChessTest(cases.CopiesTest):
    def start_fresh(self):
        """A session whose logs are as they must be when the colours are settled.

        The server, Ana, has White and the mouse; the client, Luis, has Black and the keyboard alone.
        """
        ana, luis = Player("Servidor", "Ana", "1"), Player("Cliente", "Luis", "2")
        hands = self.start_pair(chess.GAME, MouseHand, KeyHand)
        handshake.shake_hands(*hands, chess.GAME, ana, luis)
        for hand, is_server, other in zip(hands, (True, False), ("Luis", "Ana")):
            log = placing.handshake_log(is_server, other, chess.report_line("Ana"))
            hand.copy.expect_text("TBMensajes", log)
        return Session(*hands, 0, ana, luis)

    def assert_silent(self, session):
        """Nobody has written to standard error."""
        self.assertEqual([player.copy.errors() for player in session.sides], ["", ""])
