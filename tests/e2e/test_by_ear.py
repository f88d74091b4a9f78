"""Each game from the start window to the next game, by two players who only hear their screens and press keys."""

import os
import pathlib
import re
import unittest

import by_ear
import cases
import chess
import naval
import placing
import strategy
import three_in_row
from by_ear import Board, Player, lettered
from driver import Copy, free_port
from ear import Ears
from hands import NO, YES
from handshake import NO_TITLE

_LETTERS = "ABCDEFGHIJ"


class ByEar(unittest.TestCase):
    """Both players hear what is spoken in their own copies, and tell each other nothing."""

    maxDiff = None

    def start(self, name, game, board, report):
        """Both players when the first turn is settled, which is Ana's. The transcript gets a name."""
        ears = Ears()
        self.addCleanup(ears.end)
        self.addCleanup(lambda: ears.write(pathlib.Path("ear", f"{name}.txt")))
        port = free_port()
        players = []
        for side, player in enumerate(("Ana", "Luis")):
            copy = Copy(os.environ["BRONTAVIA_BINARY"], str(port))
            self.addCleanup(copy.end)
            players.append(Player(ears, copy, side, player, board))
        by_ear.sit_down(players, game, port, report)
        return players

    # ---- Three in a row ----

    def test_three_in_row(self):
        cells = [f"Fila {row}, columna {column}" for row in (1, 2, 3) for column in (1, 2, 3)]
        board = Board((*zip(*[iter(cells)] * 3),), re.compile("(?P<cell>Fila ., columna .): (?P<holds>.+)"))
        report = "Por decisión mutua comienza jugando Ana."
        ana, luis = players = self.start("three_in_row", three_in_row.GAME, board, report)
        known = {player: dict.fromkeys(cells, "vacía") for player in players}

        def place(player, other, cell):
            player.click(cells[cell])
            known[player][cells[cell]] = "XO"[player.side]
            player.hear(f"Turno de jugar para {other.name}")
            hear_placement(player, other)
            player.next_round()

        def hear_placement(player, other):
            heard = other.hear_match(f"{player.name}: (fila ., columna .)")[1]
            known[other][heard.capitalize()] = "XO"[player.side]
            other.hear(f"Turno de {other.name} para jugar.")

        def lift(player, cell):
            player.click(cells[cell])
            player.hear(three_in_row.PUT_ELSEWHERE)
            known[player][cells[cell]] = "vacía"

        def hear_move(player, other):
            origin, target = other.hear_match(f"{player.name}: de (fila ., columna .) a (fila ., columna .)").groups()
            known[other][origin.capitalize()] = "vacía"
            known[other][target.capitalize()] = "XO"[player.side]

        for cell, reply in ((0, 4), (1, 2), (5, 3)):
            place(ana, luis, cell)
            place(luis, ana, reply)
        ana.hear(three_in_row.MOVE)
        lift(ana, 5)
        ana.click(cells[8])
        known[ana][cells[8]] = "X"
        ana.hear("Turno de jugar para Luis")
        ana.next_round()
        hear_move(ana, luis)
        luis.hear("Turno de Luis para jugar.", three_in_row.MOVE)
        lift(luis, 3)
        luis.click(cells[6])
        known[luis][cells[6]] = "O"
        ana.hear_box(three_in_row.LOSS_TITLE, three_in_row.loss_text("Luis"))
        luis.answer(three_in_row.WIN_TITLE, three_in_row.WIN_TEXT)
        ana.answer(three_in_row.LOSS_TITLE, three_in_row.loss_text("Luis"))
        hear_move(luis, ana)
        for player in players:
            self.assertEqual(player.survey(), known[player])

        by_ear.play_again(players, three_in_row.GAME, (0, 1), starter=1)
        for player in players:
            self.assertIn("Mueve Luis", player.read("Marcador"))
        known = {player: dict.fromkeys(cells, "vacía") for player in players}
        place(luis, ana, 4)
        for player in players:
            self.assertEqual(player.survey(), known[player])
            player.finish()

    # ---- Naval battle ----

    def test_naval(self):
        board = lettered(_LETTERS, range(1, 11), r"(?P<cell>[A-J]\d+)(?P<holds>( .*)?)")
        ana, luis = players = self.start("naval", naval.GAME, board, "Por decisión mutua comenzará jugando Ana.")
        for player in players:
            player.answer(NO_TITLE, naval.PLACE_TEXT)
        self.place_fleet(ana, naval.IN_ROWS)
        ana.hear_box(NO_TITLE, naval.WAIT_FOR_OTHER_TEXT)
        luis.hear(naval.OTHER_WAITS_LINE)
        self.place_fleet(luis, naval.IN_COLUMNS)
        for player in players:
            player.hear_box(NO_TITLE, naval.READY_TEXTS[player is ana])
        for player in players:
            player.answer(NO_TITLE, naval.READY_TEXTS[player is ana])
            player.next_round()
        self.fight_at_sea(ana, luis)
        by_ear.play_again(players, naval.GAME, (1, 0), starter=0)
        for player in players:
            player.finish()

    def place_fleet(self, player, fleet):
        for number, (start, end) in enumerate(fleet):
            player.next_round()
            player.click(start)
            player.hear(naval.START_FIXED)
            player.click(end)
            player.hear(f"Colocado {naval.SHIPS[number][0]}, quedan {6 - number} barcos por colocar.")
        player.answer(naval.GAME.title, naval.FINISHED_TEXT, YES)

    def fight_at_sea(self, ana, luis):
        """Ana knows one cell of each ship, and how a ship lies only from what she hears. Luis misses."""
        seas = {ana: {}, luis: {}}  # what each has heard of the other's
        hits = {}  # on Luis's fleet, as he has heard
        misses = iter(("J10", "J9", "J8"))
        wounded = []  # cells of the ship that Ana is hunting
        starts = iter(("J1", "A1", "C1", "E2", "E5", "G1", "G5", "I2"))
        sunk = 0
        while sunk < len(naval.SHIPS):
            cell = self.next_shot(wounded, seas[ana]) or next(starts)
            outcome = self.shoot(ana, cell)
            last = outcome == "hundido" and sunk == len(naval.SHIPS) - 1
            seas[ana][cell] = "Agua" if outcome == "Agua" else "Impacto"
            if outcome != "Agua":
                wounded.append(cell)
            if outcome == "hundido":
                sunk += 1
                seas[ana].update(dict.fromkeys(naval.around(wounded), "Agua"))
                wounded.clear()
            if last:
                break
            self.hear_shot(luis, hits)
            if outcome == "Agua":
                miss = next(misses)
                self.assertEqual(self.shoot(luis, miss), "Agua")
                seas[luis][miss] = "Agua"
                self.hear_shot(ana, {})
                luis.next_round()
        luis.hear_box(placing.LOSS_TITLE, naval.loss_text("Ana"))
        ana.answer(placing.WIN_TITLE, naval.WIN_TEXT)
        luis.answer(placing.LOSS_TITLE, naval.loss_text("Ana"))
        ana.hear(placing.AFTER_WIN_LINE)
        for player, sea in seas.items():
            shown = {cell: holds for cell, holds in player.survey().items() if holds}
            self.assertEqual(shown, sea)
        luis.tab_to_board("Flota propia")
        own = {cell: holds for cell, holds in luis.survey().items() if holds}
        own.pop(cell)  # the shot that ends the battle may come with the end, and is not told then
        fleet = {
            each: ship
            for (ship, _), ends in zip(naval.SHIPS, naval.IN_COLUMNS)
            for each in naval.cells_between(*ends)
            if each != cell
        }
        self.assertEqual(hits, fleet)
        self.assertEqual(own, {each: f"{ship} Impacto" for each, ship in hits.items()})
        luis.tab_to_board("Tablero")

    @staticmethod
    def next_shot(wounded, sea):
        """Goes on from the hits on a ship that is afloat: on in their line, or else to every side."""
        steps = ((0, 1), (0, -1), (1, 0), (-1, 0))
        if len(wounded) > 1:
            steps = steps[:2] if wounded[0][0] == wounded[1][0] else steps[2:]
        for cell in wounded:
            for right, down in steps:
                column, row = _LETTERS.index(cell[0]) + right, int(cell[1:]) + down
                beside = f"{_LETTERS[column % 10]}{row}"
                if 0 <= column < 10 and 1 <= row <= 10 and beside not in sea:
                    return beside
        return None

    @staticmethod
    def shoot(player, cell):
        """Returns "Agua", "tocado" or "hundido", as heard."""
        player.next_round()
        player.click(cell)
        return player.hear_match(r"¡(Agua)! le toca disparar|¡Impacto!, Barco (tocado|hundido)\.").expand(r"\1\2")

    @staticmethod
    def hear_shot(player, hits):
        player_hears = r"Disparo enemigo en ([A-J]\d+): (?:Agua\. Le toca disparar\.|Impacto en un (\w+), barco \w+\.)"
        cell, ship = player.hear_match(player_hears).groups()
        if ship:
            hits[cell] = ship
            player.next_round()

    # ---- Both strategy games ----

    def test_strategy(self):
        self.fight_on_land("strategy", strategy.EST)

    def test_mini_strategy(self):
        self.fight_on_land("mini_strategy", strategy.MES)

    def fight_on_land(self, name, variant):
        """Two pieces meet on the first column, and a scout goes straight for the flag."""
        front, mirrored, columns = variant.zone_rows, variant.mirrored, variant.open_columns()
        ana_front, ana_next, luis_next, luis_front = (f"{columns[0]}{front + row}" for row in range(4))
        scout, flag = (f"{columns[len(columns) // 2]}{row}" for row in (front, front + 3))
        other_scout, other_next = (f"{columns[0]}{front + row}" for row in (0, 1))
        board = lettered(
            _LETTERS[: variant.columns], range(variant.rows, 0, -1), r"(?P<holds>.*?)\W*(?P<cell>[A-J]\d+)"
        )
        report = "Por decisión mutua comenzará jugando Ana."
        ana, luis = players = self.start(name, variant.game, board, report)
        known = {}
        wishes = (
            {ana_front: "Capitán", scout: "Explorador"},
            {mirrored(luis_front): "Teniente", mirrored(flag): "Bandera", other_scout: "Explorador"},
        )
        for player, wanted in zip(players, wishes):
            player.hear(strategy.PLACE_LINE)
            known[player] = self.deploy(player, variant, wanted)
            if player is ana:
                ana.hear_box(NO_TITLE, strategy.WAIT_TEXT)
                luis.hear(strategy.OTHER_ARMY_LINE, strategy.OTHER_READY_LINE)
        for player in players:
            known[player].update({mirrored(cell): ("azul", "rojo")[player.side] for cell in variant.zone()})
            if variant.tells_twice and player is ana:
                player.answer(NO_TITLE, strategy.PLAY_TEXTS[True])
            player.answer(NO_TITLE, strategy.FIGHT_TEXTS[player is ana])

        self.move_on_land(ana, luis, known, (ana_front, ana_next), "Capitán movido")
        self.move_on_land(luis, ana, known, (mirrored(luis_front), mirrored(luis_next)), "Teniente movido")
        victory = "El Capitán se enfrenta a un Teniente y sale vencedor."
        self.move_on_land(ana, luis, known, (ana_next, luis_next), victory)
        self.move_on_land(luis, ana, known, (other_scout, other_next), "Explorador movido")
        for player in players:
            self.assertEqual(player.survey(), known[player])
        ana.click(scout)
        ana.hear(strategy.selected(strategy.SCOUT))
        ana.click(flag)
        luis.hear_box(placing.LOSS_TITLE, strategy.loss_text("Ana"))
        ana.answer(placing.WIN_TITLE, strategy.WIN_TEXT)
        luis.answer(placing.LOSS_TITLE, strategy.loss_text("Ana"))
        ana.hear("El Explorador ha capturado la bandera!!!", placing.AFTER_WIN_LINE)
        by_ear.play_again(players, variant.game, (1, 0), starter=0)
        for player in players:
            player.finish()

    def deploy(self, player, variant, wanted):
        """A random army, in which pieces change places until the wanted ranks stand where they are wanted."""
        player.press("F3")
        player.answer(variant.placed_title, strategy.PLACED_TEXT, NO)
        player.hear(strategy.CHANGE_SOMETHING)
        army = player.survey()
        for cell, rank in wanted.items():
            if army[cell].startswith(rank):
                continue
            donor = next(each for each in army if army[each].startswith(rank) and wanted.get(each) != rank)
            army[cell], army[donor] = army[donor], army[cell]
            for changed in (cell, donor):
                player.next_round()
                player.click(changed)
                player.hear(strategy.TAKEN_BACK_LINE)
            for changed in (cell, donor):
                player.click_for_menu(changed)
                player.choose(army[changed].split()[0])
            player.answer(variant.placed_title, strategy.PLACED_TEXT, NO)
        player.press("Escape")
        return army

    @staticmethod
    def move_on_land(player, other, known, cells, report):
        """The other one learns of it from a box."""
        origin, target = cells
        player.next_round()
        player.click(origin)
        player.hear(f"{known[player][origin].split()[0]} seleccionado.")
        player.click(target)
        player.hear(report, f"Le toca jugar a{other.name}")
        known[player][target], known[player][origin] = known[player][origin], ""
        told = re.compile(
            f"{player.name} (?:mueve una ficha de (?P<origin>\\w+) a (?P<target>\\w+)"
            r"|ataca con un \w+ de (?P<from>\w+) al \w+ de (?P<to>\w+) y le vence)\. Es su turno\."
        )
        heard = other.answer(NO_TITLE, told).groupdict()
        heard_origin, heard_target = heard["origin"] or heard["from"], heard["target"] or heard["to"]
        known[other][heard_target], known[other][heard_origin] = known[other][heard_origin], ""

    # ---- Chess ----

    def test_chess(self):
        """A mate in four moves, which the loser declares."""
        board = lettered("ABCDEFGH", range(8, 0, -1), r"(?P<holds>.*?)\s*(?P<cell>[A-H][1-8])")
        report = "Por decisión mutua jugará con blancas Ana. Ana, realice su primer movimiento."
        ana, luis = players = self.start("chess", chess.GAME, board, report)
        pieces = chess.Position().pieces
        start = {square.upper(): chess.name_of(pieces[square]) if square in pieces else "" for square in chess.SQUARES}
        known = {player: dict(start) for player in players}
        for move in ("e2 a e4", "f1 a c4", "d1 a h5", "h5 por Peón negro de f7"):
            self.move_in_chess(ana, luis, known, move)
            if "por" not in move:
                self.move_in_chess(luis, ana, known, {"e4": "e7 a e5", "c4": "b8 a c6", "h5": "g8 a f6"}[move[-2:]])
        luis.hear("Dama blanca de h5 por Peón negro de f7 Jaque")
        for player in players:
            self.assertEqual(player.survey(), known[player])
        luis.open_menu(chess.OPTIONS_MENU)
        luis.choose(chess.MATE)
        ana.hear_box(NO_TITLE, "Luis se ha declarado en jaque mate.")
        luis.answer(NO_TITLE, chess.LOST_TEXT)
        ana.answer(NO_TITLE, "Luis se ha declarado en jaque mate.")
        ana.answer(NO_TITLE, chess.WON_TEXT)
        by_ear.play_again(players, chess.GAME, (1, 0), starter=1)
        for player in players:
            self.assertIn("Mueve Luis", player.read("Marcador"))
            player.finish()

    @staticmethod
    def move_in_chess(player, other, known, move):
        origin, target = move[:2].upper(), move[-2:].upper()
        piece = known[player][origin]
        player.next_round()
        player.click(origin)
        player.hear(f"{piece} seleccionad{piece[-1]}")
        player.click(target)
        for hearer in (player, other):
            sentence = r"\w+ \w+ de ([a-h]\d) (?:a|por \w+ \w+ de) ([a-h]\d)"
            heard_origin, heard_target = (cell.upper() for cell in hearer.hear_match(sentence).groups())
            known[hearer][heard_target], known[hearer][heard_origin] = known[hearer][heard_origin], ""
        player.next_round()


if __name__ == "__main__":
    cases.main()
