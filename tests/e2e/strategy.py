"""The two strategy games: their texts, their boards and what becomes of an attack."""

import dataclasses

from handshake import Game

RANKS = (
    "",
    "Bandera",
    "Bomba",
    "Espía",
    "Explorador",
    "Minador",
    "Sargento",
    "Teniente",
    "Capitán",
    "Comandante",
    "Coronel",
    "General",
    "Mariscal",
    "Bomba",
)
(
    FLAG,
    BOMB,
    SPY,
    SCOUT,
    MINER,
    SERGEANT,
    LIEUTENANT,
    CAPTAIN,
    MAJOR,
    COLONEL,
    GENERAL,
    MARSHAL,
    REVEALED_BOMB,
) = range(1, 14)

PLACED_TEXT = "¿Ha terminado de colocar sus fichas?"
WAIT_TEXT = "Espere a que el otro jugador termine de colocar su ejército"
FIGHT_TEXTS = {
    True: "Ambos jugadores están listos para empezar el combate,  es su turno.",
    False: "Ambos jugadores están listos para empezar el combate,  le toca mover al otro jugador.",
}
PLAY_TEXTS = {
    True: "Ambos jugadores están listos para empezar a jugar,  es su turno.",
    False: "Ambos jugadores están listos para empezar a jugar,  le toca al otro jugador.",
}
WIN_TEXT = "¡Enhorabuena, ha capturado la bandera enemiga!"
RANK_LIST = (
    "Lista de rangos\n"
    + "".join(f"{rank} {RANKS[rank]}. \n" for rank in range(12, 0, -1))
    + "Aunque el espía y las bombas funcionan de manera especial."
)

PLACE_LINE = "Coloque su ejército"
TAKEN_BACK_LINE = "Ficha retirada"
OTHER_ARMY_LINE = "El otro jugador ya ha colocado su ejército y está esperando"
OTHER_READY_LINE = "El otro jugador ha terminado de colocar su ejército y está esperando."

OUTSIDE_ZONE = "No puede colocar fichas fuera de su zona"
CHANGE_SOMETHING = "Realice algún cambio en la posición actual."
CANCELLED = "Selección cancelada"
INTO_WATER = "No se pueden mover fichas al agua. selección cancelada."
DIAGONAL = "No se puede mover en diagonal."
OBSTACLE = "Hay algún obstáculo en el camino a recorrer que impide llegar hasta ahí"
OWN_ARMY = "No puede atacar a miembros de su propio ejército. Selección cancelada."
FLAG_STAYS = "La bandera no se puede mover"
BOMBS_STAY = "Las bombas no se pueden mover"
NOT_YOURS = "No puede mover fichas del otro jugador"
NOTHING_THERE = "Casilla vacía"

MOVED, LOST, WON, BOTH, FLAG_TAKEN = range(5)  # what becomes of the piece that moves
_RESULTS = {MOVED: 1, LOST: 0, WON: 1, BOTH: 2}  # as the message of a move has them

_LETTERS = "ABCDEFGHIJ"


def selected(rank):
    return f"{RANKS[rank]} seleccionado."


def too_far(rank):
    return f"Un {RANKS[rank]} no puede moverse más de una casilla en un turno ni mover en diagonal."


def loss_text(name):
    return (
        f"{name:15} ha conseguido capturar la bandera, ganando la partida.\nPulse sobre el tablero para continuar."
    )


# ---- The two sizes ----


@dataclasses.dataclass(frozen=True)
class Variant:
    game: Game
    columns: int
    rows: int
    zone_rows: int
    water: tuple
    counts: dict  # of the pieces of each rank
    placed_title: str
    tells_twice: bool  # that the fight begins, to the player who was ready first

    def number_of(self, cell):
        """The place of a cell such as "B3" among the board's children."""
        return (self.rows + 1 - int(cell[1:])) * (self.columns + 1) + _LETTERS.index(cell[0]) + 1

    def cells(self):
        """From A1 on, row by row."""
        return [f"{letter}{row}" for row in range(1, self.rows + 1) for letter in _LETTERS[: self.columns]]

    def zone(self):
        return [cell for cell in self.cells() if int(cell[1:]) <= self.zone_rows]

    def mirrored(self, cell):
        """How the other player calls it."""
        return f"{_LETTERS[self.columns - 1 - _LETTERS.index(cell[0])]}{self.rows + 1 - int(cell[1:])}"

    def neighbours(self, cell):
        column, row = _LETTERS.index(cell[0]), int(cell[1:])
        beside = ((column - 1, row), (column + 1, row), (column, row - 1), (column, row + 1))
        return [f"{_LETTERS[x]}{y}" for x, y in beside if 0 <= x < self.columns and 1 <= y <= self.rows]

    def open_columns(self):
        """Without water, so that the armies face each other there."""
        return [letter for letter in _LETTERS[: self.columns] if letter not in "".join(self.water)]

    def headers(self):
        """What the cells of the first row and column show, by their number."""
        letters = dict(enumerate(_LETTERS[: self.columns], 1))
        return {**letters, **{(self.columns + 1) * (self.rows + 1 - row): str(row) for row in range(1, self.rows + 1)}}


def _counts(*counts):
    return dict(enumerate(counts, FLAG))


_NEW_GAME = {"new_game_opening": "Comenzará jugando ", "new_game_ending": ". Coloque su ejército."}

EST = Variant(
    game=Game(
        number=3,
        code="EST",
        caption="BRONTAVIA - Estratega",
        suffix=" - Estratega",
        title="Estratega",
        asks_before_closing=False,
        **_NEW_GAME,
    ),
    columns=10,
    rows=10,
    zone_rows=4,
    water=("C5", "C6", "D5", "D6", "G5", "G6", "H5", "H6"),
    counts=_counts(1, 6, 1, 8, 5, 4, 4, 4, 3, 2, 1, 1),
    placed_title="Estratega",
    tells_twice=False,
)
MES = Variant(
    game=Game(
        number=2,
        code="MES",
        caption="BRONTAVIA - Mini - Estratega",
        suffix=" - Mini-Estratega",
        title="Mini Estratega",
        asks_before_closing=False,
        **_NEW_GAME,
    ),
    columns=7,
    rows=8,
    zone_rows=3,
    water=("B4", "B5", "F4", "F5"),
    counts=_counts(1, 3, 1, 4, 3, 0, 2, 2, 2, 1, 1, 1),
    placed_title="Mini - Estratega",
    tells_twice=True,
)


def army(variant, layout):
    """The cells and ranks of an army: rows from the innermost one down, a hexadecimal digit for each rank."""
    cells = [f"{letter}{row}" for row in range(variant.zone_rows, 0, -1) for letter in _LETTERS[: variant.columns]]
    return {cell: int(rank, 16) for cell, rank in zip(cells, "".join(layout))}


# ---- On the wire ----


def army_message(variant, side, ranks):
    """The ranks by cell, as their player calls the cells."""
    return "Datos|" + "".join(f"{100 * side + ranks[cell]:03}," for cell in reversed(variant.zone()))


def move_message(origin, target, outcome):
    """The cells as the player who moves calls them."""
    places = [place for cell in (origin, target) for place in (_LETTERS.index(cell[0]) + 1, int(cell[1:]))]
    return "Jug|" + "".join(f"{number:02}," for number in (*places, _RESULTS[outcome]))


# ---- Combat ----


def combat(attacker, defender):
    """What becomes of a piece that attacks another, and what its player is told."""
    name, other = RANKS[attacker], RANKS[defender]
    if defender == FLAG:
        return FLAG_TAKEN, f"El {name} ha capturado la bandera!!!"
    if attacker == defender:
        return BOTH, f"El {name} se encuentra con un enemigo de su mismo rango y ambos son destruidos"
    if defender in (BOMB, REVEALED_BOMB):
        if attacker == MINER:
            return WON, f"El {name} desactiva la bomba y sigue su camino"
        return LOST, f"El {name} encuentra una bomba y muere."
    if attacker == SPY and defender == MARSHAL:
        return WON, f"El {name} ha conseguido su objetivo, matar al mariscal!!!"
    if attacker == SPY:
        return LOST, f"El {name} se enfrenta a un {other} y muere"
    if attacker < defender:
        return LOST, f"El {name} se enfrenta a un {other} y muere en el intento."
    return WON, f"El {name} se enfrenta a un {other} y sale vencedor."


def told(outcome, attacker, defender, origin, target):
    """What the other player is told of it, after the mover's name; the cells as the other player calls them."""
    if outcome == MOVED:
        return f" mueve una ficha de {origin} a {target}. Es su turno."
    attack = f" ataca con un {RANKS[attacker]} de {origin}"
    if outcome == BOTH:
        return f"{attack} contra otro  {RANKS[defender]} de {target} y ambos son destruídos. Es su turno."
    if outcome == LOST and defender == BOMB:
        return (
            f" avanza con un {RANKS[attacker]} de {origin} contra la bomba de {target} y resulta muerto. Es su turno."
        )
    if outcome == LOST:
        return f"{attack} al {RANKS[defender]} de {target} pero es derrotado. Es su turno."
    return f"{attack} al {RANKS[defender]} de {target} y le vence. Es su turno."
