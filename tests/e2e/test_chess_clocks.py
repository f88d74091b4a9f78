"""The clocks of two copies: running, stopped, set and started again, and free mode, which that takes."""

import pyatspi

import cases
import chess
import chess_cases
import screen
from hands import NO
from tree import has_state
from waiting import wait_until

_ANA, _LUIS = 0, 1
_WHITE, _BLACK = 0, 1
_FREE_MODE_ONLY = (chess.CLOCKS, chess.SET_CLOCKS, chess.EMPTY_BOARD, chess.SET_DATA)


def seconds(player):
    """What the clocks of a copy show, White's first."""
    clocks = player.copy.text("TBReloj").split(" / ")
    return [60 * int(minutes) + int(rest) for minutes, rest in (clock.split(":") for clock in clocks)]


class ChessClocks(chess_cases.ChessTest):
    def test_clocks(self):
        session = self.start_fresh()
        ana, luis = session.sides
        for player in session.sides:
            player.copy.expect_text("TBReloj", chess.STOPPED_CLOCKS)
        session.play("e2-e4")
        for player in session.sides:
            white = self.expect_running(player, _BLACK)
            self.assertEqual(white, 0)
        session.play("e7-e5")
        for player in session.sides:
            self.expect_running(player, _WHITE)
        self.assert_available(session, _ANA, False)
        self.refuse_free_mode(session)
        session.enter_free_mode(_ANA)
        self.assert_available(session, _ANA, True)
        self.stop(session)
        self.set_clocks(session)
        ana.choose(chess.OPTIONS_MENU, chess.CLOCKS)
        ana.expect_status(chess.CLOCKS_ON)
        self.assertEqual(self.expect_running(ana, _WHITE), 3600)
        session.play("Cg1-f3")
        # A stop while Black thinks outlasts Black's move, not White's.
        self.stop(session)
        session.play("Cb8-c6")
        self.expect_stopped(ana, luis, _WHITE)
        session.play("Af1-c4")
        self.expect_running(ana, _BLACK)
        self.assert_silent(session)

    def expect_running(self, player, colour):
        """Until a clock goes on; returns what the other one shows then."""
        before = seconds(player)[colour]
        return wait_until("a clock to go on", lambda: (now := seconds(player))[colour] > before and now)[1 - colour]

    def expect_stopped(self, stopped, running, colour):
        """The clocks of one copy stand while those of the other go on."""
        shown = stopped.copy.text("TBReloj")
        self.expect_running(running, colour)
        self.expect_running(running, colour)
        self.assertEqual(stopped.copy.text("TBReloj"), shown)

    def stop(self, session):
        ana, luis = session.sides
        ana.choose(chess.OPTIONS_MENU, chess.CLOCKS)
        ana.expect_status(chess.CLOCKS_OFF)
        self.expect_stopped(ana, luis, int(ana.position.black_moves))

    def set_clocks(self, session):
        ana = session.sides[_ANA]
        shown = ana.copy.text("TBReloj")
        proposals = [f"{time // 60}:{time % 60}" for time in seconds(ana)]
        for answers in (("5:75",), ("5",), ("1:0", "2:60"), ("1:0", "600:0")):
            ana.choose(chess.OPTIONS_MENU, chess.SET_CLOCKS)
            self.answer_times(ana, answers, proposals)
            if answers[-1] == "600:0":
                ana.hand.answer_box(chess.SET_CLOCKS, chess.TOO_LONG_TEXT)
            self.assertEqual(ana.copy.text("TBReloj"), shown)
            ana.copy.expect_no_box()
        ana.choose(chess.OPTIONS_MENU, chess.SET_CLOCKS)
        self.answer_times(ana, ("1:5", "60:0"), proposals)
        ana.copy.expect_text("TBReloj", "01:05 / 60:00")
        ana.expect_line("Establecido 01:05 / 60:00")

    @staticmethod
    def answer_times(player, answers, proposals):
        for prompt, proposal, answer in zip(chess.CLOCK_PROMPTS, proposals, answers):
            player.hand.answer_input(chess.SET_CLOCKS, prompt, proposal, answer)

    def refuse_free_mode(self, session):
        ana, luis = session.sides
        ana.choose(chess.OPTIONS_MENU, chess.FREE_MODE)
        session.answer(_ANA, chess.FREE_MODE_TITLE, chess.FREE_MODE_TEXT, NO)
        self.assert_available(session, _ANA, False)
        luis.copy.expect_no_box()

    def assert_available(self, session, side, free_mode):
        """What the menu offers, and whether it shows that free mode is on."""
        player = session.sides[side]
        player.hand.open_menu(chess.OPTIONS_MENU)
        items = {item.name: item for item in player.copy.menu_items()}
        usable = {name for name in items if has_state(items[name], pyatspi.STATE_ENABLED)}
        checked = has_state(items[chess.FREE_MODE], pyatspi.STATE_CHECKED)
        screen.press("Escape", "Escape")
        player.copy.expect_no_menu()
        self.assertEqual(set(items) - usable, set() if free_mode else set(_FREE_MODE_ONLY))
        self.assertEqual(checked, free_mode)

if __name__ == "__main__":
    cases.main()
