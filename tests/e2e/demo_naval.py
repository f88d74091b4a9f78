"""The demonstration of naval battle: a whole battle that the client wins, and a refusal."""

from handshake import Player
from hands import NO, YES
from naval import CHANGE_LINE, FINISHED_TEXT, GAME, Session

__all__ = ["CLIENT", "GAME", "SERVER", "play"]  # what demo.py needs of each game's demonstration

SERVER = Player("Servidor", "Ana", "2")
CLIENT = Player("Cliente", "Luis", "1")

_ANA, _LUIS = 0, 1


def play(server_hand, client_hand, tell, picture):
    """The client begins. Raises an error unless the battle ends as it must."""
    session = Session(server_hand, client_hand, _LUIS, SERVER, CLIENT, tell)
    session.start_placing()
    _place(session, picture)
    _fire(session, picture)
    session.stop(_ANA, lambda: picture("naval_no_more_games"))
    tell("Both copies are back in the selection window. Battles won: Ana 0, Luis 1")
    assert session.scores == [0, 1], session.scores


def _place(session, picture):
    session.tell("Both place their ships, with two clicks each")
    session.place_all(_LUIS, range(4))
    session.place_all(_ANA, range(5))
    picture("naval_placing")
    session.place_all(_ANA, (5, 6))
    session.answer(_ANA, GAME.title, FINISHED_TEXT, YES)
    session.send_first(_ANA)
    session.tell("The fleet that has come has emptied Luis's board; his ships stay where they are")
    session.place_all(_LUIS, range(4, 7))
    session.answer(_LUIS, GAME.title, FINISHED_TEXT, NO)
    session.sides[_LUIS].expect_line(CHANGE_LINE)
    session.tell("Luis is not done yet, looks again and presses T")
    session.press_key(_LUIS, "t")
    session.send_second(_LUIS, lambda: picture("naval_ready_to_fire"))


def _fire(session, picture):
    session.tell("The battle: whoever hits fires again, water passes the turn")
    for cell in ("B3", "F4"):
        session.fire(_LUIS, cell)
    for cell in ("E2", "E1", "J9"):
        session.fire(_ANA, cell)
    session.fire(_LUIS, "H9")
    for cell in ("A1", "A2", "C6"):
        session.fire(_ANA, cell)
    session.fire(_LUIS, "C3")
    picture("naval_mid_battle")
    for cell in ("D3", "A3"):
        session.fire(_LUIS, cell)
    picture("naval_sunk")
    session.sink_rest(_LUIS, keep=("B9",))
    session.win(_LUIS, "B9", lambda: picture("naval_victory"))
