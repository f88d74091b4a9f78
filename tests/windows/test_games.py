"""Whole games between a copy for Windows and one for Linux.

The one for Windows runs under Wine and is played by keys alone; the one for Linux is played by keys too, and read
through the accessibility bus. BRONTAVIA_WINDOWS names the folder of the one, BRONTAVIA_BINARY the other.
"""

import os
import pathlib
import re
import socket
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "e2e"))

import chess  # noqa: E402
import handshake  # noqa: E402
import naval  # noqa: E402
import placing  # noqa: E402
import screen  # noqa: E402
import strategy  # noqa: E402
import three_in_row  # noqa: E402
from driver import Copy, free_port  # noqa: E402
from handshake import NO_TITLE, Player  # noqa: E402
from hands import NO, YES, KeyHand  # noqa: E402
from waiting import wait_for_value, wait_until  # noqa: E402
from wine import WineCopy  # noqa: E402

_LETTERS = "ABCDEFGHIJ"
_START_TITLE = "BRONTAVIA"
_SCREENS = pathlib.Path(os.environ.get("BRONTAVIA_SCREENS", "screens"))


def run_in_wine(*command):
    subprocess.run(("wine", *command), check=True, stdout=subprocess.DEVNULL)


def sit_down(wine, serves, game):
    """From the start window of the copy for Windows to its game."""
    start = wine.wait_for(_START_TITLE)
    wine.picture(_SCREENS / "start.png")
    wine.press(*(["Tab"] if serves else ["Tab", "Tab"]), "space")
    wait_until("the selection", lambda: start not in dict(wine.windows()))
    wine.wait_for(_START_TITLE)
    wine.picture(_SCREENS / "selection.png")
    choose(wine, game)
    wine.picture(_SCREENS / f"{game.code}_{'server' if serves else 'client'}.png")


def choose(wine, game, title=None):
    """Goes down the list of games, until there is the game's window or one with another title."""
    title = title or game.caption
    keys = ("Home", *["Down"] * game.number, "Return")
    wine.press_until(f"the window {title!r}", lambda: title in dict(wine.windows()).values(), *keys)
    wine.wait_for(title)


class Games(unittest.TestCase):
    """In each game both sides move, and the boxes of both are answered."""

    maxDiff = None

    def setUp(self):
        _SCREENS.mkdir(parents=True, exist_ok=True)

    def tearDown(self):
        screen.picture(_SCREENS / f"{self.id().rpartition('.')[2]}.png")

    def meet(self, game, wine_serves, names=("Ana", "Luis")):
        """Both copies after the handshake; the server's player begins. Returns the one for Windows, and a hand."""
        port = free_port()
        wine = WineCopy(os.environ["BRONTAVIA_WINDOWS"], port)
        self.addCleanup(wine.end)
        linux = Copy(os.environ["BRONTAVIA_BINARY"], str(port))
        self.addCleanup(linux.end)
        hand = KeyHand(linux)
        sit_down(wine, wine_serves, game)
        handshake.open_game(hand, not wine_serves, game)
        player = Player(*(("Cliente", names[1], "2") if wine_serves else ("Servidor", names[0], "1")))
        if wine_serves:
            hand.press_button(handshake.LOCAL_BUTTON)
            wine.answer(handshake.REQUEST_TITLE)
        else:
            wine.press_until("the request", linux.boxes, "space")
            handshake.answer_request(hand)
        wine_name, wine_choice = (names[0], "1") if wine_serves else (names[1], "2")
        wine.wait_for(handshake.NAME_TITLE)
        wine.picture(_SCREENS / "name.png")
        wine.answer(handshake.NAME_TITLE, wine_name)
        wine.answer(handshake.TURN_TITLE, wine_choice)
        handshake.answer_name(hand, player, game)
        handshake.answer_turn(hand, player, game)
        handshake.report_line(linux)
        self.assertIn(f"Va a jugar contra {wine_name}", linux.text("TBMensajes"))
        caption = wine_name + game.suffix  # of a window that may be behind its first box
        wait_until(f"the caption {caption!r}", lambda: caption in dict(wine.windows()).values())
        return wine, hand

    def part(self, wine, hand, game, cell):
        """The player before Linux wants no other game; both programs end in order."""
        wine.picture(_SCREENS / f"{game.code}_over.png")
        hand.click_cell(cell)
        hand.answer_box(game.title, handshake.REMATCH_TEXT, NO)
        wine.answer(NO_TITLE)
        wine.wait_for(_START_TITLE)
        wine.press("Tab", "space")
        self.assertEqual(wine.exit_code(), 0)
        handshake.leave(hand)

    # ---- What goes wrong ----

    def test_a_taken_port_ends_the_program(self):
        with socket.create_server(("", 0)) as taken:
            wine = WineCopy(os.environ["BRONTAVIA_WINDOWS"], taken.getsockname()[1])
            self.addCleanup(wine.end)
            start = wine.wait_for(_START_TITLE)
            wine.press("Tab", "space")
            wait_until("the selection", lambda: start not in dict(wine.windows()))
            wine.wait_for(_START_TITLE)
            choose(wine, three_in_row.GAME, "Error")
            wine.answer("Error")
            self.assertEqual(wine.exit_code(), 1)

    def test_a_lost_peer_is_told_of(self):
        wine, hand = self.meet(three_in_row.GAME, True)
        hand.copy.kill()
        wine.go_to(0, 0)
        wine.press_until("the box", lambda: "Error" in dict(wine.windows()).values(), "Return")
        wine.answer("Error")
        wine.wait_for("Ana" + three_in_row.GAME.suffix)

    def test_a_lost_copy_for_windows_is_told_of(self):
        wine, hand = self.meet(three_in_row.GAME, False)
        wine.kill()
        hand.click_cell(0)
        hand.answer_box("Error", handshake.SEND_FAILED_TEXT)

    # ---- How it looks ----

    def test_where_windows_are_dark_so_are_its_own(self):
        value = (r"HKCU\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize", "/v", "AppsUseLightTheme", "/f")
        self.addCleanup(run_in_wine, "reg", "delete", *value)
        run_in_wine("reg", "add", *value, "/t", "REG_DWORD", "/d", "0")
        wine = WineCopy(os.environ["BRONTAVIA_WINDOWS"], free_port())
        self.addCleanup(wine.end)
        start = wine.wait_for(_START_TITLE)
        wait_until("a dark corner", lambda: max(screen.pixels_of(start)[:3]) < 0x40)
        wine.picture(_SCREENS / "start_dark.png")

    # ---- Three in a row ----

    def three_in_row(self, wine_serves):
        game = three_in_row.GAME
        wine, hand = self.meet(game, wine_serves)
        marks = list("*********")
        for turn, cell in enumerate((0, 4, 1, 8)):
            marks[cell] = "XO"[turn % 2]
            if (turn % 2 == 0) == wine_serves:
                wine.go_to(*divmod(cell, 3))
                wine.press_until(f"a piece on cell {cell}", lambda: marks[cell] in hand.copy.cell(cell).name, "Return")
            else:
                hand.click_cell(cell)
            hand.copy.expect_board("".join(marks))
        if wine_serves:
            wine.go_to(0, 2)
            wine.press_until("the end", hand.copy.boxes, "Return")
        else:
            hand.click_cell(2)
        if wine_serves:
            hand.answer_box(three_in_row.LOSS_TITLE, three_in_row.loss_text("Ana"))
            wine.answer(three_in_row.WIN_TITLE)
        else:
            hand.answer_box(three_in_row.WIN_TITLE, three_in_row.WIN_TEXT)
            wine.answer(three_in_row.LOSS_TITLE)
        self.part(wine, hand, game, 4)

    def test_three_in_row_as_server(self):
        self.three_in_row(True)

    def test_three_in_row_as_client(self):
        self.three_in_row(False)

    # ---- Naval battle ----

    def naval(self, wine_serves):
        """Whoever serves begins, and hits until the other fleet is gone."""
        game = naval.GAME
        wine, hand = self.meet(game, wine_serves)
        wine.answer(NO_TITLE)
        hand.answer_box(NO_TITLE, naval.PLACE_TEXT)
        for ship, ends in enumerate(naval.IN_ROWS, 1):
            for end in ends:
                wine.click(int(end[1:]) - 1, _LETTERS.index(end[0]))
        wine.answer(game.title)
        wait_until("the fleet", lambda: naval.OTHER_WAITS_LINE in hand.copy.text("TBMensajes"))
        wine.answer(NO_TITLE)
        wine.picture(_SCREENS / "BAR_placed.png")
        for ends in naval.IN_COLUMNS:
            for end in ends:
                hand.click_cell(naval.number_of(end))
        hand.answer_box(game.title, naval.FINISHED_TEXT, YES)
        hand.answer_box(NO_TITLE, naval.READY_TEXTS[not wine_serves])
        wine.answer(NO_TITLE)
        fleet = naval.IN_COLUMNS if wine_serves else naval.IN_ROWS
        cells = [cell for ends in fleet for cell in naval.cells_between(*ends)]
        for cell in cells[:-1]:
            number = naval.number_of(cell)
            if wine_serves:
                wine.go_to(int(cell[1:]) - 1, _LETTERS.index(cell[0]))
                wine.press_until(f"a hit on {cell}", lambda: "Impacto" in hand.copy.cell(number, "FG2").name, "Return")
            else:
                hand.click_cell(number)
                wait_until(f"a hit on {cell}", lambda: "Impacto" in hand.copy.cell(number).name)
        wine.picture(_SCREENS / "BAR_battle.png")
        if wine_serves:
            wine.go_to(int(cells[-1][1:]) - 1, _LETTERS.index(cells[-1][0]))
            wine.press_until("the end", hand.copy.boxes, "Return")
            hand.answer_box(placing.LOSS_TITLE, naval.loss_text("Ana"))
            wine.answer(placing.WIN_TITLE)
        else:
            hand.click_cell(naval.number_of(cells[-1]))
            hand.answer_box(placing.WIN_TITLE, naval.WIN_TEXT)
            wine.answer(placing.LOSS_TITLE)
        self.part(wine, hand, game, naval.number_of("C3"))

    def test_naval_as_server(self):
        self.naval(True)

    def test_naval_as_client(self):
        self.naval(False)

    # ---- Both strategy games ----

    def strategy(self, variant, wine_serves):
        """Both place whatever rank the menu offers first; whoever serves sends a scout for the flag, straight ahead."""
        wine, hand = self.meet(variant.game, wine_serves)
        column = variant.open_columns()[0]
        scout = f"{column}{variant.zone_rows}"
        flag = variant.mirrored(f"{column}{variant.rows + 1 - variant.zone_rows}")
        before_scouts = sum(variant.counts[rank] for rank in range(strategy.FLAG, strategy.SCOUT))
        others = [cell for cell in variant.zone() if cell != scout]
        scouting = others[:before_scouts] + [scout] + others[before_scouts:]
        guarding = [flag] + [cell for cell in variant.zone() if cell != flag]
        for cell in scouting if wine_serves else guarding:
            wine.go_to(variant.rows - int(cell[1:]), _LETTERS.index(cell[0]))
            wine.choose_first()
        wine.answer(variant.placed_title)
        wait_until("the army", lambda: strategy.OTHER_READY_LINE in hand.copy.text("TBMensajes"))
        wine.answer(NO_TITLE)
        wine.picture(_SCREENS / f"{variant.game.code}_placed.png")
        for cell in guarding if wine_serves else scouting:
            hand.click_cell(variant.number_of(cell))
            hand.copy.menu_items()
            screen.press("Return")
            hand.copy.expect_no_menu()
        hand.answer_box(variant.placed_title, strategy.PLACED_TEXT, YES)
        for _ in range(2 if variant.tells_twice else 1):
            wine.answer(NO_TITLE)
        hand.answer_box(NO_TITLE, strategy.FIGHT_TEXTS[not wine_serves])
        target = variant.mirrored(flag)
        if wine_serves:
            cells = [(variant.rows - int(cell[1:]), _LETTERS.index(cell[0])) for cell in (scout, target)]
            wine.move("the end", hand.copy.boxes, *cells)
            hand.answer_box(placing.LOSS_TITLE, strategy.loss_text("Ana"))
            wine.answer(placing.WIN_TITLE)
        else:
            for cell in (scout, target):
                hand.click_cell(variant.number_of(cell))
            hand.answer_box(placing.WIN_TITLE, strategy.WIN_TEXT)
            wine.answer(placing.LOSS_TITLE)
        self.part(wine, hand, variant.game, variant.number_of("C3"))

    def test_strategy_as_server(self):
        self.strategy(strategy.EST, True)

    def test_strategy_as_client(self):
        self.strategy(strategy.EST, False)

    def test_mini_strategy_as_server(self):
        self.strategy(strategy.MES, True)

    def test_mini_strategy_as_client(self):
        self.strategy(strategy.MES, False)

    # ---- Chess ----

    def chess(self, wine_serves, names=("Ana", "Luis")):
        """A mate in four moves. Returns what meet() does."""
        game = chess.GAME
        wine, hand = self.meet(game, wine_serves, names)
        moves = ("e2e4", "e7e5", "f1c4", "b8c6", "d1h5", "g8f6", "h5f7")
        for turn, move in enumerate(moves):
            origin, target = move[:2], move[2:]
            if (turn % 2 == 0) == wine_serves:
                cells = [(8 - int(square[1]), "abcdefgh".index(square[0])) for square in (origin, target)]
                wine.move(f"the move {move}", lambda: self.is_empty(hand, origin), *cells, before=["Escape"])
            else:
                for square in (origin, target):
                    hand.click_cell(self.number_of(square))
                wait_until(f"the move {move}", lambda: self.is_empty(hand, origin))
        wine.picture(_SCREENS / "AJE_mate.png")
        return wine, hand

    @staticmethod
    def number_of(square):
        return (9 - int(square[1])) * 9 + "abcdefgh".index(square[0]) + 1

    def is_empty(self, hand, square):
        return not re.search("blanc|negr", hand.copy.cell(self.number_of(square)).name)

    def test_chess_as_server(self):
        wine, hand = self.chess(True)
        hand.choose_command(chess.OPTIONS_MENU, chess.MATE)
        hand.answer_box(NO_TITLE, chess.LOST_TEXT)
        wine.answer(NO_TITLE)
        wine.answer(NO_TITLE)
        self.part(wine, hand, chess.GAME, self.number_of("e4"))

    def test_chess_as_client(self):
        wine, hand = self.chess(False)
        wine.press_until("a menu", wine.popups, "alt+o")
        wine.press("j")
        hand.answer_box(NO_TITLE, "Luis se ha declarado en jaque mate.")
        hand.answer_box(NO_TITLE, chess.WON_TEXT)
        wine.answer(NO_TITLE)
        self.part(wine, hand, chess.GAME, self.number_of("e4"))

    def test_each_reads_positions_and_names_of_the_other(self):
        """The name of the saved file is made of both players' names, as the copy for Windows has them."""
        names = "Íñigo Öé", "Ñandú €"
        wine, hand = self.chess(True, names)
        documents = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c"
        before = set(documents.rglob("*.fen"))
        wine.press_until("a menu", wine.popups, "alt+a")
        wine.press("g")
        wine.answer(chess.SAVE_TITLE)
        saved = wait_until("the file", lambda: next(iter(set(documents.rglob("*.fen")) - before), None))
        self.addCleanup(saved.unlink)
        self.assertTrue(saved.name.startswith("-".join(names) + " _ "), saved.name)
        with tempfile.TemporaryDirectory() as folder:
            own = pathlib.Path(folder, "own.fen")
            hand.choose_command(chess.FILE_MENU, chess.SAVE_AS)
            hand.answer_file(chess.SAVE_TITLE, None, own)
            wait_for_value("the bytes of both files", lambda: own.exists() and own.read_bytes(), saved.read_bytes())
            # Each opens what the other has saved, and the other agrees to play on from there; White stays with Íñigo.
            hand.choose_command(chess.FILE_MENU, chess.OPEN)
            hand.answer_file(chess.OPEN_TITLE, None, saved)
            hand.answer_box(NO_TITLE, chess.resume_sent_text(names[0], saved.name))
            wine.answer(chess.RESUME_TITLE)
            hand.answer_input(chess.COLOURS_TITLE, chess.COLOURS_PROMPT, "", "2")
            wait_until("the position", lambda: chess.RESUME_ACCEPTED_LINE in hand.copy.text("TBMensajes"))
            wine.press_until("a menu", wine.popups, "alt+a")
            wine.press("a")
            wine.answer(chess.OPEN_TITLE, f"Z:{own}")
            hand.answer_box(chess.RESUME_TITLE, chess.resume_question(names[0], own.name), YES)
            wine.answer(chess.COLOURS_TITLE, "1")
            # Only who was asked is told so.
            wait_until("the position", lambda: chess.loaded_line(False, True) in hand.copy.text("TBMensajes"))


if __name__ == "__main__":
    unittest.main()
