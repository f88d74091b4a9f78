"""The demonstrations of the two strategy games: a large game with every kind of piece, and a small one at random."""

import dataclasses
import typing

from handshake import Game, Player
from hands import NO, YES
from strategy import BOMB, EST, FLAG, MARSHAL, MES, SCOUT, SPY
from strategy_session import Session

_ANA, _LUIS = 0, 1


@dataclasses.dataclass(frozen=True)
class _Demo:
    """What demo.py needs of each game's demonstration."""

    GAME: Game
    SERVER: Player
    CLIENT: Player
    play: typing.Callable


def _play_large(server_hand, client_hand, tell, picture):
    """The server begins. Raises an error unless the game ends as it must."""
    session = Session(EST, server_hand, client_hand, _ANA, LARGE.SERVER, LARGE.CLIENT, tell)
    tell("Both place their armies: by hand, at random with F3, and with changes to that; Esc sends the army")
    session.open_menu(_ANA, "C4")
    picture("strategy_menu")
    session.choose_rank(_ANA, "C4", SCOUT)
    session.deploy(_ANA, NO)
    session.arrange(_ANA, {"A4": SCOUT, "B4": MARSHAL, "J4": SCOUT})
    session.press_key(_ANA, "Escape")
    session.exchange(_ANA)
    session.deploy(_LUIS, NO)
    session.deploy(_LUIS, NO)
    session.arrange(_LUIS, {"A4": FLAG, "I4": SPY, "J4": BOMB})
    picture("strategy_placed")
    session.press_key(_LUIS, "Escape")
    session.exchange(_LUIS, lambda: picture("strategy_ready_to_fight"))
    tell("The fight: a scout runs into a bomb, which both see from then on; the spy takes the marshal")
    session.move(_ANA, "A4", "A7")
    session.move(_LUIS, "I4", "I5")
    session.move(_ANA, "B4", "B5")
    session.move(_LUIS, "I5", "I6")
    picture("strategy_mid_fight")
    session.take_flag(_ANA, "J4", "J7", lambda: picture("strategy_flag_taken"))
    session.stop(_LUIS)
    tell("Both copies are back in the selection window. Games won: Ana 1, Luis 0")
    assert session.scores == [1, 0], session.scores


def _play_small(server_hand, client_hand, tell, picture):
    """The client begins. Raises an error unless the game ends as it must."""
    session = Session(MES, server_hand, client_hand, _LUIS, SMALL.SERVER, SMALL.CLIENT, tell)
    session.deploy(_LUIS, NO)  # both windows opened in the same second would draw the same first army
    session.deploy(_LUIS, YES)
    session.exchange(_LUIS)
    session.deploy(_ANA, NO)
    session.arrange(_ANA, {session.opposite(_LUIS): FLAG})
    session.press_key(_ANA, "Escape")
    session.exchange(_ANA, lambda: picture("mini_strategy_ready_to_fight"))
    tell("The fight: Luis goes for the flag, and Ana lets it happen")
    session.conquer(_LUIS, lambda: picture("mini_strategy_mid_fight"), lambda: picture("mini_strategy_flag_taken"))
    session.stop(_ANA)
    tell("Both copies are back in the selection window. Games won: Ana 0, Luis 1")
    assert session.scores == [0, 1], session.scores


LARGE = _Demo(EST.game, Player("Servidor", "Ana", "1"), Player("Cliente", "Luis", "2"), _play_large)
SMALL = _Demo(MES.game, Player("Servidor", "Ana", "2"), Player("Cliente", "Luis", "1"), _play_small)
