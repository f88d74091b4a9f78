"""Naval battle: its texts, and a session that can be played by any two hands.

The session keeps its own idea of both seas and compares everything that the windows show with it.
"""

import placing
from driver import cell_tells
from handshake import CLIENT, NO_TITLE, SERVER, Game
from hands import NO
from placing import LOSS_TITLE, WIN_TITLE
from waiting import wait_for_value

GAME = Game(
    number=1,
    code="BAR",
    caption="BRONTAVIA - BATALLA NAVAL",
    suffix=" - Batalla naval",
    title="Batalla naval",
    new_game_opening="Comenzará jugando ",
    new_game_ending=". Coloque sus barcos.",
)

SHIPS = (
    ("Portaaviones", 5),
    ("Acorazado", 4),
    ("Submarino", 3),
    ("Submarino", 3),
    ("Submarino", 3),
    ("Destructor", 2),
    ("Destructor", 2),
)
# Both ends of each ship, in the order of SHIPS.
IN_ROWS = (("A1", "E1"), ("A3", "D3"), ("A5", "C5"), ("E5", "G5"), ("A7", "C7"), ("E7", "F7"), ("A9", "B9"))
IN_COLUMNS = (("A1", "A5"), ("C1", "C4"), ("E1", "E3"), ("E5", "E7"), ("G1", "G3"), ("G5", "G6"), ("I1", "I2"))

PLACE_TEXT = "Coloque sus barcos"
REMOVE_TEXT = "¿Desea quitar ese barco?"
FINISHED_TEXT = "¿Ha terminado de colocar los barcos?"
WAIT_FOR_OTHER_TEXT = "Espere a que el otro jugador termine de colocar sus barcos "
WAIT_FOR_FLEET_TEXT = (
    "Espere un momento, está recibiendo la posición de los barcos enemigos, pulse t cuando desee volver a intentar "
    "enviar los barcos"
)
TOO_EARLY_TEXT = "Por favor, Espere a que el otro jugador coloque sus barcos"
READY_TEXTS = {
    True: "Ambos jugadores están listos para empezar a disparar,  es su turno.",
    False: "Ambos jugadores están listos para empezar a disparar,  le toca al otro jugador.",
}
TOO_LONG_TEXT = "No existen barcos de más de 5 casillas de largo"
BLOCKED_TEXT = "Alguna de las casillas necesarias para colocar el barco no está libre."
WIN_TEXT = "¡Enhorabuena, ha conseguido destruir todos los barcos enemigos!"

START_FIXED = "posición inicial fijada"
START_REMOVED = "Posición inicial eliminada."
START_FORGOTTEN = "Posición inicial borrada"
NOT_FREE = "Esa posición no está libre"
WATER_STATUS = "¡Agua! le toca disparar al otro jugador."
HIT_STATUS = "¡Impacto!, Barco tocado. Siga disparando."
SUNK_STATUS = "¡Impacto!, Barco hundido. Siga disparando."
LAST_SUNK_STATUS = "¡Impacto!, Barco hundido."

NO_MORE_LINE = "No quedan barcos de ese tamaño por colocar"
SHIPS_MISSING_LINE = "Aún faltan barcos por colocar "
CHANGE_LINE = "Haga  modificaciones en las posiciones de sus barcos o pulse t cuando haya terminado"
OTHER_WAITS_LINE = "El otro jugador ha terminado de colocar sus barcos y está esperando."
SENT = "barcos enviados "

_COLUMNS = "ABCDEFGHIJ"
_HEADERS = {**{letter: letter for letter in _COLUMNS}, **{str(row): str(row) for row in range(1, 11)}}
CORNER = "corner"  # the cell where both headers meet


def diagonal_text(start):
    return f"No se pueden colocar los barcos en diagonal. La posición de inicio del barco es {start[0]}, {start[1:]}"


def loss_text(name):
    return f"{name} ha destruído todos sus barcos.\nPulse sobre el tablero para continuar."


# ---- Cells ----


def number_of(cell):
    """The place of a cell such as "B3" among the board's children."""
    return int(cell[1:]) * 11 + _COLUMNS.index(cell[0]) + 1


def name_of(number):
    row, column = divmod(number, 11)
    if row and column:
        return f"{_COLUMNS[column - 1]}{row}"
    return CORNER if row == column else str(row or _COLUMNS[column - 1])


def cells_between(start, end):
    (left, right), (top, bottom) = sorted(start[0] + end[0]), sorted((int(start[1:]), int(end[1:])))
    columns = _COLUMNS[_COLUMNS.index(left) : _COLUMNS.index(right) + 1]
    return [f"{column}{row}" for column in columns for row in range(top, bottom + 1)]


def around(cells):
    """The cells of the sea that touch some cells, without these."""
    found = []
    for cell in cells:
        column, row = _COLUMNS.index(cell[0]), int(cell[1:])
        for x in range(max(column - 1, 0), min(column + 1, 9) + 1):
            found += [f"{_COLUMNS[x]}{y}" for y in range(max(row - 1, 1), min(row + 1, 10) + 1)]
    return set(found) - set(cells)


# ---- One player's side of the battle ----


class Side(placing.Side):
    """What the window of one player must show."""

    def __init__(self, hand, name, fleet):
        super().__init__(hand, name)
        self.fleet = fleet
        self.current = "A1"
        self.corner = ""
        self.clear()

    def clear(self):
        """Before a game. The letter in the corner stays."""
        self.placed = {}  # ship number: cells
        self.hits = set()  # on the own fleet
        self.firing = False
        self.target = {}  # what FG1 shows
        self.own = {}  # what FG2 shows

    def number_of(self, cell):
        return number_of(cell)

    def begin_again(self):
        self.clear()
        self.current = "A1"  # with what that writes to the status
        self.expect_status("A1 ")
        self.expect_ships_to_place()
        self.expect_boards()

    def click(self, cell):
        super().click(cell)
        self.current = cell

    def cells_of(self, ship):
        return cells_between(*self.fleet[ship])

    def ship_at(self, cell):
        return next((ship for ship, cells in self.placed.items() if cell in cells), None)

    def state(self, ship):
        hits = self.hits & set(self.placed[ship])
        return "I" if not hits else "H" if len(hits) == len(self.placed[ship]) else "T"

    def margin(self):
        ships = [cell for cells in self.placed.values() for cell in cells]
        return around(ships) - set(ships)

    def description(self, cell):
        """What a move onto a cell of FG1 writes to TBEstado; a screen reader says it too."""
        if self.firing:
            return f"{cell} {self.target.get(cell, '').capitalize()}"
        ship = self.ship_at(cell)
        if ship is not None:
            return f"{cell} {SHIPS[ship][0]}"
        return f"{cell} Agua" if cell in self.margin() else f"{cell} "

    def own_description(self, cell):
        """What a screen reader says of a cell of FG2."""
        shown, ship = self.own.get(cell, ""), self.ship_at(cell)
        return f"{cell} {SHIPS[ship][0] if shown and ship is not None else ''}{' Impacto' if shown == '*' else ''}"

    def fleet_travelled(self):
        """When either fleet has been sent or has come, FG1 is empty and FG2 shows the own ships placed so far."""
        self.target = {}
        self.own = {cell: SHIPS[ship][0][0] for ship, cells in self.placed.items() for cell in cells}
        missing = [ship for ship in range(7) if ship not in self.placed]
        if missing:
            self.corner = SHIPS[missing[-1]][0][0]

    def expect_boards(self):
        """Both boards, each cell."""
        cells = [f"{column}{row}" for column in _COLUMNS for row in range(1, 11)]
        big = {cell: cell_tells(self.description(cell), self.target.get(cell, "")) for cell in cells}
        small = {cell: cell_tells(self.own_description(cell), self.own.get(cell, "")) for cell in cells}
        for board, sea, corner in (("FG1", big, ""), ("FG2", small, self.corner)):
            expected = {**_HEADERS, CORNER: corner, **sea}
            wait_for_value(f"{board} of {self.name}", lambda: self._shown(board), expected)

    def _shown(self, board):
        return {name_of(number): text for number, text in enumerate(self.copy.board(board))}

    def expect_ships_to_place(self):
        missing = [SHIPS[ship] for ship in range(7) if ship not in self.placed]
        lines = [f"{name:13} ({length} Casillas)" for name, length in missing]
        self.copy.expect_text("TBBarcos", "\n".join(["Faltan por colocar:", *lines, ""]))


# ---- Both players ----


class Session(placing.Session):
    """Two copies after the handshake; side 0 is the server and side 1 the client."""

    def __init__(self, server_hand, client_hand, starter, server=SERVER, client=CLIENT, tell=lambda line: None):
        sides = Side(server_hand, server.kept_name, IN_ROWS), Side(client_hand, client.kept_name, IN_COLUMNS)
        super().__init__(GAME, sides, starter, tell)

    # ---- Placing ----

    def start_placing(self):
        for side in (0, 1):
            self.answer(side, NO_TITLE, PLACE_TEXT)
            self.sides[side].expect_ships_to_place()
            self.sides[side].expect_boards()

    def place(self, side, ship):
        """Two clicks. The last ship of all is followed by a question, which the caller answers."""
        player = self.sides[side]
        start, end = player.fleet[ship]
        self.click_and_read(side, start, START_FIXED)
        self.click(side, end)
        margin_before = player.margin()  # not written again, also where a received fleet has wiped it off FG1
        player.placed[ship] = player.cells_of(ship)
        player.target.update({cell: SHIPS[ship][0] for cell in player.placed[ship]})
        player.target.update({cell: "Agua" for cell in around(player.placed[ship]) - margin_before})
        left = 7 - len(player.placed)
        self.tell(f"{player.name} places a {SHIPS[ship][0]} from {start} to {end}; {left} to go")
        player.expect_status(f"Colocado {SHIPS[ship][0]}, quedan {left} barcos por colocar.")
        player.expect_ships_to_place()

    def place_all(self, side, ships=range(7)):
        for ship in ships:
            self.place(side, ship)

    def refuse(self, side, cell, text):
        """A click that opens a box and places nothing."""
        self.click(side, cell)
        self.answer(side, NO_TITLE, text)
        self.sides[side].expect_status(self.sides[side].description(cell))

    def refuse_in_log(self, side, cell, line):
        self.click(side, cell)
        self.sides[side].expect_line(line)

    def remove(self, side, ship, cell, answer):
        """A click on an own ship, and the answer to the question about it."""
        player = self.sides[side]
        self.click(side, cell)
        self.answer(side, GAME.title, REMOVE_TEXT, answer)
        if answer == NO:
            player.expect_status(player.description(cell))
            return
        self.tell(f"{player.name} takes the {SHIPS[ship][0]} on {cell} off the board")
        freed = player.placed.pop(ship)
        for gone in {*freed, *around(freed)} - player.margin():
            player.target.pop(gone, None)
        player.expect_status(f"Eliminado {SHIPS[ship][0]}, quedan {7 - len(player.placed)} barcos por colocar.")

    def send_first(self, side):
        """The confirmed fleet leaves, and its owner waits for the other one's."""
        player, other = self.sides[side], self.sides[1 - side]
        self.tell(f"{player.name} confirms the fleet and is told to wait")
        other.expect_line(OTHER_WAITS_LINE)
        other.fleet_travelled()
        other.expect_boards()
        player.fleet_travelled()
        player.expect_log(SENT)
        self.answer(side, NO_TITLE, WAIT_FOR_OTHER_TEXT)
        player.firing = True
        player.expect_boards()

    def send_second(self, side, with_boxes_open=lambda: None):
        """The other confirmed fleet leaves, and firing begins."""
        self.tell(f"{self.sides[side].name} confirms the fleet; both are told who fires first")
        for player in self.sides:
            player.fleet_travelled()
            player.copy.box(NO_TITLE)
        with_boxes_open()
        for number, player in enumerate(self.sides):
            self.answer(number, NO_TITLE, READY_TEXTS[number == self.turn])
            player.firing = True
            player.expect_log("")
            player.expect_status("")
            self.expect_fleet_status(number)
            player.expect_boards()

    def expect_fleet_status(self, side):
        own, other = self.sides[side], self.sides[1 - side]
        lines = ["Estado de los barcos", "Barcos propios | Barcos enemigos "]
        for ship, (name, _) in enumerate(SHIPS):
            sunk = "H" if other.state(ship) == "H" else "?"
            lines.append(f"{name:13}{own.state(ship)} |{name:13}{sunk}")
        own.copy.expect_text("TBBarcos", "\n".join([*lines, ""]))

    # ---- Firing ----

    def fire(self, side, cell, last=False):
        """A shot, compared on both sides. After the last one there are boxes to answer."""
        shooter, target = self.sides[side], self.sides[1 - side]
        unmoved_status = shooter.status if shooter.current == cell else f"{cell} Impacto"
        self.click(side, cell)
        ship = target.ship_at(cell)
        if ship is None:
            self._water(shooter, target, cell)
            return
        again = cell in target.hits
        target.hits.add(cell)
        shooter.target[cell] = "impacto"
        line = f"Disparo enemigo  en {cell}: Impacto en un {SHIPS[ship][0]}"
        if again:
            shooter.expect_status(unmoved_status)
        elif target.state(ship) == "H":
            line += ", barco hundido."
            for margin in around(target.placed[ship]):
                shooter.target.setdefault(margin, "Agua")
            shooter.expect_status(LAST_SUNK_STATUS if last else SUNK_STATUS)
        else:
            line += ", barco tocado."
            shooter.expect_status(HIT_STATUS)
        self.tell(f"{shooter.name} fires at {cell}: {shooter.status}")
        if last:
            return
        target.own[cell] = "*"
        target.expect_line(line)
        target.expect_status("")
        for number in (0, 1):
            self.expect_fleet_status(number)

    def _water(self, shooter, target, cell):
        shooter.target[cell] = "Agua"
        shooter.expect_status(WATER_STATUS)
        self.tell(f"{shooter.name} fires at {cell}: {shooter.status}")
        target.expect_line(f"Disparo enemigo  en {cell}: Agua. Le toca disparar.")
        target.expect_status("")
        self.turn = 1 - self.turn

    def sink_rest(self, side, keep=()):
        """Fires at every cell of the other fleet that has not been hit, but for some."""
        target = self.sides[1 - side]
        for cells in target.placed.values():
            for cell in cells:
                if cell not in target.hits and cell not in keep:
                    self.fire(side, cell)

    def win(self, side, cell, with_boxes_open=lambda: None):
        """The shot that ends the battle, and both boxes about it."""
        winner, loser = self.sides[side], self.sides[1 - side]
        self.fire(side, cell, last=True)
        self.scores[side] += 1
        winner.copy.box(WIN_TITLE)
        loser.copy.box(LOSS_TITLE)
        with_boxes_open()
        winner.expect_log()
        loser.expect_log("")
        loser.expect_status("")
        self.answer(side, WIN_TITLE, WIN_TEXT)
        self.answer(1 - side, LOSS_TITLE, loss_text(winner.name))
        winner.expect_line(placing.AFTER_WIN_LINE)
        loser.expect_log("")
        self.expect_fleet_status(side)
        # The loser learns of the end together with the shot, which then no longer counts.
        loser.hits.remove(cell)
        self.expect_fleet_status(1 - side)
        for player in self.sides:
            player.expect_boards()
