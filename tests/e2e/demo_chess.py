"""The demonstration of chess: castling on both wings, a capture en passant, a promotion and a mate."""

from chess import END, GAME, MIDDLE, OPENING
from chess_session import Session
from handshake import Player
from hands import NO

__all__ = ["CLIENT", "GAME", "SERVER", "play"]  # what demo.py needs of each game's demonstration

SERVER = Player("Servidor", "Ana", "1")
CLIENT = Player("Cliente", "Luis", "2")

_ANA, _LUIS = 0, 1


def play(server_hand, client_hand, tell, picture):
    """The server has White. Raises an error unless the game ends as it must."""
    session = Session(server_hand, client_hand, _ANA, SERVER, CLIENT, tell)
    tell("White captures en passant and promotes; both windows show the position after every move")
    session.play(*OPENING)
    picture("chess_after_the_promotion")
    session.offer_draw(NO)
    tell("Black castles short, White castles long")
    session.play(*MIDDLE)
    picture("chess_mid_game")
    session.play(*END)
    session.declare_mate(lambda: picture("chess_mate"))
    session.stop(_LUIS)
    tell("Both copies are back in the selection window. Games won: Ana 1, Luis 0")
    assert session.scores == [1, 0], session.scores
