"""The demonstration of three in a row: one game up to a win by moving, one won while placing, and a refusal."""

from handshake import Player
from three_in_row import GAME, Session

__all__ = ["CLIENT", "GAME", "SERVER", "play"]  # what demo.py needs of each game's demonstration

SERVER = Player("Servidor", "Ana", "1")
CLIENT = Player("Cliente", "Luis", "2")

_ANA, _LUIS = 0, 1


def play(server_hand, client_hand, tell, picture):
    """The server begins. Raises an error unless both games end as they must."""
    session = Session(server_hand, client_hand, SERVER, CLIENT, tell)
    tell("First game: three pieces each")
    session.place_all(_ANA)
    picture("all_pieces_placed")
    tell("First game: the pieces move")
    session.move_to_win(_ANA, lambda: picture("win_and_loss"))
    session.play_again(_LUIS, starter=_LUIS, with_boxes_open=lambda: picture("another_game"))
    tell("Second game: Luis begins")
    session.placing_game(_LUIS, lambda: picture("second_win"))
    session.stop(_ANA, lambda: picture("no_more_games"))
    tell("Both copies are back in the selection window. Games won: Ana 0, Luis 2")
    assert session.scores == [0, 2], session.scores
