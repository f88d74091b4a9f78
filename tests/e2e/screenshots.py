"""Pictures of every window, light and dark, at 100 % and 200 %.

usage: screenshots.py BINARY OUTPUT_DIR
"""

import functools
import pathlib
import sys
import tempfile

import chess
import handshake
import naval
import screen
import three_in_row
from chess_session import Session as ChessSession
from driver import Copy, free_port
from hands import NO, YES, KeyHand
from strategy import BOMB, EST, FLAG, MAJOR, MES, SCOUT, selected
from strategy_session import Session as StrategySession

# The colours of Breeze Dark in the file from which Qt's KDE theme takes its palette.
_DARK_COLOURS = """\
[General]
ColorScheme=BreezeDark

[Colors:Window]
BackgroundNormal=42,46,50
BackgroundAlternate=49,54,59
ForegroundNormal=252,252,252
ForegroundInactive=161,169,177

[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=35,38,41
ForegroundNormal=252,252,252
ForegroundInactive=161,169,177
ForegroundLink=29,153,243
ForegroundVisited=155,89,182

[Colors:Button]
BackgroundNormal=49,54,59
BackgroundAlternate=30,87,116
ForegroundNormal=252,252,252
ForegroundInactive=161,169,177

[Colors:Selection]
BackgroundNormal=61,174,233
BackgroundAlternate=30,87,116
ForegroundNormal=252,252,252
ForegroundInactive=161,169,177

[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252

[Colors:Complementary]
BackgroundNormal=42,46,50
ForegroundNormal=252,252,252
"""
_DARK_DESKTOP = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5", "KDE_FULL_SESSION": "true"}
_SCALES = {"100": "1", "200": "2"}
_SERVER = handshake.Player("Servidor", "Nombre de 15 ca", "1")  # as long as names are kept
_CLIENT = handshake.Player("Cliente", "Luis", "2")


class Album:
    """One look of the program, window after window."""

    def __init__(self, binary, folder, look, environment):
        self._folder = folder
        self._look = look
        for fill in (
            self._from_start_to_rematch,
            self._naval_battle,
            functools.partial(self._strategy_game, EST, "strategy"),
            functools.partial(self._strategy_game, MES, "mini_strategy"),
            self._chess,
        ):
            port = str(free_port())
            copies = []
            try:
                for _ in range(2):
                    copies.append(Copy(binary, port, environment))
                fill(*(KeyHand(copy) for copy in copies))
            finally:
                for copy in copies:
                    copy.end()

    def _take(self, hand, name):
        """The main window of a copy, with the box that is open over it."""
        hand.copy.bring_to_front()
        self._take_open(hand, name)

    def _take_open(self, hand, name):
        """As it is, with a menu that is open."""
        copy = hand.copy
        title = copy.main_window().name
        window = next(number for number, its_title in screen.windows_of(copy.pid) if its_title == title)
        path = self._folder / f"{name}_{self._look}.png"
        screen.picture_of(window, path)
        print(path, flush=True)

    def _from_start_to_rematch(self, server, client):
        game = three_in_row.GAME
        self._take(server, "start")
        server.focus_on_button(handshake.SERVER_BUTTON)
        self._take(server, "start_explained")
        handshake.choose_role(server, server=True)
        handshake.choose_role(client, server=False)
        self._take(server, "selection")
        handshake.choose_game(server, True, game)
        handshake.choose_game(client, False, game)
        self._take(server, "server_frame")
        self._take(client, "client_frame")
        client.press_button(handshake.LOCAL_BUTTON)
        server.copy.box(handshake.REQUEST_TITLE)
        self._take(server, "request")
        handshake.accept(server, client)
        server.copy.box(handshake.NAME_TITLE)
        self._take(server, "name")
        handshake.answer_name(server, _SERVER, game)
        handshake.answer_name(client, _CLIENT, game)
        handshake.answer_turn(server, _SERVER, game)
        handshake.answer_turn(client, _CLIENT, game)
        session = three_in_row.Session(server, client, _SERVER, _CLIENT)
        session.place_all(0)
        self._take(server, "mid_game")
        session.move_to_win(0, lambda: self._take(server, "loss"))
        client.click_cell(4)
        client.copy.box(game.title)
        self._take(client, "rematch")

    def _naval_battle(self, server, client):
        game = naval.GAME
        handshake.open_game(server, True, game)
        handshake.open_game(client, False, game)
        self._take(client, "naval_client_frame")
        handshake.shake_hands(server, client, game, _SERVER, _CLIENT)
        session = naval.Session(server, client, 0, _SERVER, _CLIENT)
        session.start_placing()
        session.place_all(0, range(5))
        session.click_and_read(0, "E7", naval.START_FIXED)
        self._take(server, "naval_placing")
        session.place_all(1)
        session.answer(1, game.title, naval.FINISHED_TEXT, YES)
        session.send_first(1)
        session.click_and_read(0, "E7", naval.START_REMOVED)
        session.place_all(0, (5, 6))
        server.copy.box(game.title)
        self._take(server, "naval_finished")
        session.answer(0, game.title, naval.FINISHED_TEXT, YES)
        session.send_second(0)
        for side, cells in ((0, ("E1", "G5", "J10")), (1, ("B3", "A9", "B9", "H9")), (0, ("G6",))):
            for cell in cells:
                session.fire(side, cell)
        self._take(server, "naval_mid_battle")
        server.move_to_cell(naval.number_of("H4"))
        server.focus_on("TBBarcos")
        self._take(server, "naval_focus_elsewhere")

    def _strategy_game(self, variant, name, server, client):
        handshake.open_game(server, True, variant.game)
        handshake.open_game(client, False, variant.game)
        self._take(client, f"{name}_client_frame")
        handshake.shake_hands(server, client, variant.game, _SERVER, _CLIENT)
        session = StrategySession(variant, server, client, 0, _SERVER, _CLIENT)
        row = variant.zone_rows
        for cell, rank in ((f"A{row}", SCOUT), (f"D{row}", MAJOR), ("C1", FLAG)):
            session.place(0, cell, rank)
        session.open_menu(0, "D2")
        self._take(server, f"{name}_placing")
        screen.press("Escape")
        server.copy.expect_no_menu()
        target = f"A{variant.rows + 1 - row}"
        for side, wanted in enumerate(({f"A{row}": SCOUT}, {variant.mirrored(target): BOMB})):
            session.deploy(side, NO)
            session.arrange(side, wanted)
            session.press_key(side, "Escape")
            session.exchange(side)
        session.move(0, f"A{row}", target)
        for side in (1, 0, 1):
            session.step(side)
        cell = session.sides[0].movable_piece()
        session.click_and_read(0, cell, selected(session.sides[0].rank_at(cell)))
        server.move_to_cell(variant.number_of(f"{variant.open_columns()[-1]}{row + 1}"))
        self._take(server, f"{name}_mid_fight")
        self._take(client, f"{name}_mid_fight_of_the_other")
        server.focus_on("TBMensajes")
        self._take(server, f"{name}_focus_elsewhere")

    def _chess(self, server, client):
        handshake.open_game(server, True, chess.GAME)
        handshake.open_game(client, False, chess.GAME)
        self._take(client, "chess_client_frame")
        handshake.shake_hands(server, client, chess.GAME, _SERVER, _CLIENT)
        session = ChessSession(server, client, 0, _SERVER, _CLIENT)
        self._take(server, "chess_start")
        session.play(*chess.OPENING, *chess.MIDDLE)
        self._take(server, "chess_after_own_move")
        ana, luis = session.sides
        luis.click_and_read("h6", chess.selected("c"))
        self._take(client, "chess_mid_game")
        luis.choose(chess.OPTIONS_MENU, chess.LEARNING)
        client.move_to_cell(luis.number_of("g4"))
        self._take(client, "chess_learning")
        luis.choose(chess.OPTIONS_MENU, chess.FLIP)
        self._take(client, "chess_flipped")
        client.open_menu(chess.OPTIONS_MENU)
        client.copy.menu_items()
        self._take_open(client, "chess_menu")
        screen.press("Escape", "Escape")
        ana.hand.focus_on("TBMensajes")
        self._take(server, "chess_focus_elsewhere")


def main(binary, output):
    folder = pathlib.Path(output)
    folder.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as config:
        pathlib.Path(config, "kdeglobals").write_text(_DARK_COLOURS, encoding="utf-8")
        looks = {"light": {}, "dark": {**_DARK_DESKTOP, "XDG_CONFIG_HOME": config, "XDG_CONFIG_DIRS": config}}
        for colour, environment in looks.items():
            for percent, factor in _SCALES.items():
                Album(binary, folder, f"{colour}_{percent}", {**environment, "QT_SCALE_FACTOR": factor})


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
