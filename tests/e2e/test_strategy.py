"""A whole game of each size and the rematch, one copy by mouse alone and the other by keyboard alone."""

import cases
import handshake
import placing
import screen
import strategy
from handshake import NO_TITLE, Player
from hands import NO, YES, KeyHand, MouseHand
from placing import NOT_YOUR_TURN
from strategy import BOMB, COLONEL, EST, FLAG, GENERAL, MARSHAL, MES, MINER, SCOUT, SPY, selected, too_far
from strategy_session import Session
from tree import is_focused
from waiting import wait_until

_ANA, _LUIS = 0, 1
# What stands where the large game needs it; the rest of both armies is random.
_ANAS_PIECES = {
    "A4": SCOUT,
    "B4": MARSHAL,
    "D4": GENERAL,
    "E4": BOMB,
    "F4": SCOUT,
    "I4": COLONEL,
    "J4": SCOUT,
    "J1": FLAG,
}
_LUISS_PIECES = {"A4": FLAG, "B4": SCOUT, "E4": SCOUT, "F4": MINER, "I4": SPY, "J4": BOMB}
_ANAS_SMALL_ARMY = ("4789AB5", "554322C", "7894241")


class Strategy(cases.CopiesTest):
    def start_fresh(self, variant, server_hand, client_hand, starter):
        """A session whose logs are as they must be when the first turn is settled."""
        ana = Player("Servidor", "Ana", "12"[starter])
        luis = Player("Cliente", "Luis", "21"[starter])
        hands = self.start_pair(variant.game, server_hand, client_hand)
        handshake.shake_hands(*hands, variant.game, ana, luis)
        report = placing.report_line((ana, luis)[starter].name, drawn=False)
        for hand, is_server, other in zip(hands, (True, False), ("Luis", "Ana")):
            log = placing.handshake_log(is_server, other, report, strategy.PLACE_LINE)
            hand.copy.expect_text("TBMensajes", log)
        return Session(variant, *hands, starter, ana, luis)

    def leave(self, session):
        for player in session.sides:
            self.assert_usable_and_leaves(player.hand, session.game)
            self.assertEqual(player.copy.errors(), "")

    # ---- The large game ----

    def test_a_large_game(self):
        session = self.start_fresh(EST, MouseHand, KeyHand, _ANA)
        self.place_by_mouse(session)
        self.place_by_keyboard(session)
        self.refuse(session)
        self.fight(session)
        session.play_again(_LUIS)
        self.begin_early(session)
        self.leave(session)

    def place_by_mouse(self, session):
        """By hand, then at random, then with changes; Esc sends."""
        ana = session.sides[_ANA]
        session.click_and_read(_ANA, "E5", strategy.OUTSIDE_ZONE)
        session.press_key(_ANA, "F2")
        session.answer(_ANA, NO_TITLE, strategy.RANK_LIST)
        session.place(_ANA, "C2", MARSHAL)
        session.place(_ANA, "D4", BOMB)
        session.place(_ANA, "J4", FLAG)
        session.take_back(_ANA, "C2")
        ana.expect_board()
        session.place(_ANA, "C2", BOMB)
        ana.expect_board()
        for cell in ("D4", "D5", "D7", "J4"):
            ana.hand.point_at_cell(ana.number_of(cell))
            ana.expect_status(ana.description(cell))
        session.deploy(_ANA, NO)
        session.arrange(_ANA, _ANAS_PIECES)
        session.press_key(_ANA, "Escape")
        session.exchange(_ANA)

    def place_by_keyboard(self, session):
        """The same with the keys alone, after the other army has come."""
        luis = session.sides[_LUIS]
        luis.hand.focus_on("TBMensajes")
        screen.press("F1")
        wait_until("F1 to lead to the board", lambda: is_focused(luis.copy.control("FG1")))
        session.click_and_read(_LUIS, "E7", strategy.OUTSIDE_ZONE)
        session.open_menu(_LUIS, "B1")
        screen.press("Escape")
        luis.copy.expect_no_menu()
        session.place(_LUIS, "B1", FLAG)
        session.place(_LUIS, "A1", MARSHAL)
        session.take_back(_LUIS, "B1")
        session.place(_LUIS, "A2", FLAG)
        luis.expect_board()
        for cell in ("A1", "B1", "J7", "C6"):
            luis.hand.move_to_cell(luis.number_of(cell))
            luis.expect_status(luis.description(cell))
            luis.expect_described(cell)
        session.deploy(_LUIS, NO)
        session.arrange(_LUIS, _LUISS_PIECES)
        session.press_key(_LUIS, "Escape")
        session.exchange(_LUIS)

    def refuse(self, session):
        """Clicks and keys that move nothing."""
        session.click_and_read(_LUIS, "J4", NOT_YOUR_TURN)
        session.click_and_read(_LUIS, "J6", NOT_YOUR_TURN)
        for cell, status in (
            ("A5", strategy.NOTHING_THERE),
            ("C5", strategy.NOTHING_THERE),
            ("A7", strategy.NOT_YOURS),
            ("E4", strategy.BOMBS_STAY),
            ("J1", strategy.FLAG_STAYS),
            ("B4", selected(MARSHAL)),
            ("B4", strategy.CANCELLED),
            ("B4", selected(MARSHAL)),
            ("B6", too_far(MARSHAL)),
            ("C5", strategy.INTO_WATER),
            ("F4", selected(SCOUT)),
            ("E5", strategy.DIAGONAL),
            ("F8", strategy.OBSTACLE),
            ("E4", strategy.OWN_ARMY),
        ):
            session.click_and_read(_ANA, cell, status)
        session.try_to_pass(_ANA)
        session.press_key(_LUIS, "Escape")
        session.sides[_LUIS].expect_status(NOT_YOUR_TURN)
        for player in session.sides:
            player.expect_board()

    def fight(self, session):
        """The scout's long attacks, bombs, the spy and the marshal, equal ranks, victory and defeat, the flag."""
        for side, origin, target in (
            (_ANA, "A4", "A7"),  # scout on bomb
            (_LUIS, "F4", "F5"),
            (_ANA, "B4", "B5"),
            (_LUIS, "F5", "F6"),
            (_ANA, "B5", "B6"),
            (_LUIS, "I4", "I5"),  # spy on marshal
            (_ANA, "F4", "F7"),  # scout on scout
            (_LUIS, "F6", "F7"),  # miner on bomb
            (_ANA, "D4", "E4"),  # general on miner
            (_LUIS, "B4", "B7"),  # scout on colonel
        ):
            session.move(side, origin, target)
            for player, cell in zip(session.sides, ("A7", "J4")):
                player.expect_described(cell)
        session.try_to_pass(_ANA)
        session.take_flag(_ANA, "J4", "J7")

    def begin_early(self, session):
        """In the second game the winner may move while the other is still placing, whose army comes later."""
        session.deploy(_ANA, YES)
        session.exchange(_ANA)
        session.step(_ANA)
        session.deploy(_LUIS, YES)
        session.exchange(_LUIS)
        session.step(_LUIS)

    # ---- The small game ----

    def test_two_small_games(self):
        """The keyboard places a whole army by hand, the mouse has a random one that wins."""
        session = self.start_fresh(MES, KeyHand, MouseHand, _LUIS)
        session.deploy(_LUIS, YES)
        session.exchange(_LUIS)
        self.place_whole_army(session)
        session.conquer(_LUIS)
        session.play_again(_ANA)
        session.deploy(_LUIS, YES)
        session.exchange(_LUIS)
        session.deploy(_ANA, NO)
        session.arrange(_ANA, {session.opposite(_LUIS): FLAG})
        session.press_key(_ANA, "Escape")
        session.exchange(_ANA)
        session.conquer(_LUIS)
        session.play_again_at_once(_ANA)
        self.leave(session)

    def place_whole_army(self, session):
        """With the flag where the other player can reach it."""
        pieces = strategy.army(MES, _ANAS_SMALL_ARMY)
        cell = session.opposite(_LUIS)
        pieces[cell], pieces["G1"] = FLAG, pieces[cell]
        for cell, rank in pieces.items():
            session.place(_ANA, cell, rank)
        session.answer(_ANA, MES.placed_title, strategy.PLACED_TEXT, YES)
        session.exchange(_ANA)


if __name__ == "__main__":
    cases.main()
