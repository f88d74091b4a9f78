"""Chess: its texts, and what a game looks like after each move of a script in the notation of the list of moves."""

import re

from handshake import Game

GAME = Game(
    number=4,
    code="AJE",
    caption="BRONTAVIA - AJEDREZ",
    suffix=" - Ajedrez",
    title="Ajedrez",
    asks_before_closing=False,
    turn_prompt="Indique qué jugador Jugará con blancas: 1 = yo; 2 = Él; 3 = Sortear.",
)

FILE_MENU = "Archivo"
OPEN, SAVE, SAVE_AS = "Abrir Partida...", "Guardar partida", "Guardar partida como... "
OPTIONS_MENU = "Opciones"
MATE, RESIGN, OFFER = "Jaque mate", "Abandonar", "Solicitar tablas"
LEARNING, FLIP, FREE_MODE = "Modo aprendizaje", "Girar tablero", "Modo Libre"
CLOCKS, SET_CLOCKS = "Parar / encender relojes", "Establecer tiempos"
EMPTY_BOARD, SET_DATA = "Vaciar tablero", "Establecer datos"

OPEN_TITLE = "Abrir partida "
SAVE_TITLE = "Guardar partida como..."
RESUME_TITLE = "Reanudar partida"
COLOURS_TITLE = "Asignación de bandos"
COLOURS_PROMPT = "¿Quién juega con blancas?: 1=Yo, 2=El otro jugador"
NO_POSITION_TEXT = "El texto no contiene una posición de ajedrez."
RESUME_ACCEPTED_LINE = "Se aceptó la solicitud, cargando la partida."

DRAW_TITLE = "Brontavia - ajedrez"
DRAW_QUESTION = "El otro jugador le propone terminar la partida en tablas. ¿Acepta su propuesta?"
OFFERED_LINE = (
    "Ha solicitado al otro jugador que la partida termine en tablas. Por favor, espere a que él responda antes de "
    "realizar cualquier otra acción."
)
OTHER_MOVES_LINE = "Le toca mover al otro jugador."
DRAW_REFUSED_TEXT = "El otro jugador no ha aceptado su propuesta. Realice su siguiente movimiento."
DRAW_TEXT = "La partida termina en tablas, pulse en el tablero para continuar."
DRAW_ACCEPTED_TEXT = f"El otro jugador ha aceptado su propuesta. {DRAW_TEXT}"
LOST_TEXT = "Ha perdido la partida. Pulse sobre el tablero para continuar."
WON_TEXT = "Ha ganado la partida, pulse en el tablero para continuar."
NOT_IN_CHECK_TEXT = "Su rey no está en jaque, por lo que no puede ser jaque mate. "

NOT_YOUR_TURN = "No es su turno de mover"
CANCELLED = "Selección cancelada"
WRONG_MOVE = "Movimiento incorrecto. "
KING_IN_CHECK = "Movimiento incorrecto. El rey quedaría en jaque."
EN_PASSANT_STATUS = "posibilidad al paso"
PROMOTION_STATUS = "Indique por qué ficha desea sustituir el peón promocionado"
STOPPED_CLOCKS = "00:00 / 00:00"

FREE_MODE_TITLE = "Activar modo libre"
FREE_MODE_TEXT = (
    "¿Seguro que desea activar el modo libre? Este modo permite reajustar las fichas que hay sobre el tablero, "
    "establecer valores sobre enroques y otros aspectos, así como parar y modificar los relojes,pero si está en medio "
    "de una partida contra otra persona es posible que aparezcan errores por discordancias entre los dos tableros, ya "
    "que los cambios que haga no se transmitirán. Si activa el modo libre se informará de ello a su rival."
)

DATA_PROMPTS = (
    "Número de jugada actual: ",
    "Color que mueve ficha (0 blancas, 1 negras):",
    "Número de medios movimientos:",
)
CLOCK_PROMPTS = tuple(f"Establezca el tiempo de las {side}(minutos:segundos)" for side in ("blancas", "negras"))
CLOCKS_ON, CLOCKS_OFF = "Relojes  activados.", "Relojes  parados."
TOO_LONG_TEXT = "El tiempo es demasiado largo: un reloj no puede pasar de 32767 segundos."

# A whole game in three parts: castling on both wings, a capture en passant, a promotion and a mate.
OPENING = ("e2-e4", "Cg8-h6", "e4-e5", "d7-d5", "e5xd6a.p.", "e7-e6", "d6xc7", "Af8-e7", "c7xCb8=D", "Ta8xDb8")
MIDDLE = ("Af1-d3", "0-0", "b2-b3", "a7-a6", "Ac1-b2", "a6-a5", "Cb1-c3", "a5-a4", "Dd1-h5", "b7-b6", "0-0-0")
END = ("Ch6-g4", "Dh5xh7+")

_NOUNS = {"P": "Peón", "T": "Torre", "C": "Caballo", "A": "Alfil", "D": "Dama", "R": "Rey"}
_START = "tcadract/pppppppp/8/8/8/8/PPPPPPPP/TCADRACT/"
_FILES = "abcdefgh"
SQUARES = [f"{letter}{row}" for row in range(8, 0, -1) for letter in _FILES]

_STEPS = re.compile(r"[TCADR]?([a-h][1-8])[-x][TCADR]?([a-h][1-8])(?:a\.p\.)?(?:=([TCAD]))?\+?")
_CASTLES = {"0-0": ("e", "g", "h", "f"), "0-0-0": ("e", "c", "a", "d")}  # files of the king, then of the rook
_RIGHTS_OF = {"e1": "RD", "h1": "R", "a1": "D", "e8": "rd", "h8": "r", "a8": "d"}


def refused_resume_text(name):
    return f"{name} rechazó la solicitud de jugar la partida guardada en el disco. Continúa la partida actual."


def resume_question(name, file):
    return f"{name} desea reanudar la partida {file} . ¿Quiere usted también continuar jugando esa partida?"


def resume_sent_text(name, file):
    return (
        f"Se ha enviado a {name} un mensaje preguntándole si desea continuar jugando contra usted la partida {file}. "
        "Si responde que sí, se cargará automáticamente la partida."
    )


def loaded_line(plays_white, black_moves):
    own, moving = (" negras", " blancas")[plays_white], (" blancas", " negras")[black_moves]
    return f"Posición cargada. Usted juega con {own}. Mueven {moving}."


def report_line(name):
    return f"Por decisión mutua jugará  con blancas {name}. {name},  realice su primer movimiento."


def name_of(piece):
    """Of a letter, a capital for White."""
    ending = "a" if piece.upper() in "TD" else "o"
    return f"{_NOUNS[piece.upper()]} {'blanc' if piece.isupper() else 'negr'}{ending}"


def selected(piece):
    name = name_of(piece)
    return f"{name} seleccionad{name[-1]}"


class Move:
    """A move as the list of moves tells it, such as "e2-e4", "Cg1xPf3+" or "0-0"."""

    def __init__(self, text, black):
        self.text = text
        self.rook = None
        self.promotion = None
        castle = text.rstrip("+")
        if castle in _CASTLES:
            row = "8" if black else "1"
            files = [letter + row for letter in _CASTLES[castle]]
            self.source, self.target, self.rook = files[0], files[1], (files[2], files[3])
        else:
            self.source, self.target, self.promotion = _STEPS.fullmatch(text).groups()

    def sentence(self, position):
        """What the messages tell of it in the position before it."""
        if self.rook:
            return "Enroque corto" if self.target[0] == "g" else "Enroque largo"
        captured = position.pieces.get(self.target)
        told = f"{name_of(position.pieces[self.source])} de {self.source}"
        told += " por " if "x" in self.text else " a "
        told += (f"{name_of(captured)} de " if captured else "") + self.target
        told += " al paso " if "a.p." in self.text else ""
        told += f" Promociona a {name_of(self.promotion)}" if self.promotion else ""
        return told + ((", Jaque" if position.black_moves else " Jaque") if self.text.endswith("+") else "")


class Position:
    """What stands where, who moves, and what the list of moves and the position box show."""

    def __init__(self, board=_START, black_moves=False, rights="RDrd", number=1):
        self.pieces = read_board(board)
        self.black_moves = black_moves
        self.rights = set(rights)
        self.number = number
        self.list = f"{number}. (...)" if black_moves else ""
        self.en_passant = {"P": None, "p": None}  # where a pawn of each colour may capture so
        self.told_black = black_moves  # whose move the position box tells of
        self.told_number = number

    def describe(self, square):
        """What a screen reader says of it."""
        piece = self.pieces.get(square)
        return f"{name_of(piece) if piece else ''} {square.upper()}"

    def apply(self, move):
        black = self.black_moves
        self.told_black, self.told_number = black, self.number
        piece = self.pieces.pop(move.source)
        self.list += f", {move.text}\n" if black else f"{self.number}. {move.text}"
        if "a.p." in move.text:
            del self.pieces[move.target[0] + move.source[1]]
        self.pieces[move.target] = piece
        if move.promotion:
            self.pieces[move.target] = move.promotion.lower() if black else move.promotion
        if move.rook:
            self.pieces[move.rook[1]] = self.pieces.pop(move.rook[0])
        if piece in "RrTt":
            self.rights -= set(_RIGHTS_OF.get(move.source, ""))
        offered = self.offers_en_passant(move, piece)
        self.en_passant["P" if black else "p"] = f"{move.target[0]}{6 if black else 3}" if offered else None
        self.number += black
        self.black_moves = not black

    def offers_en_passant(self, move, piece):
        """Whether a pawn that has gone two squares stands beside one of the other colour."""
        if piece not in "Pp" or abs(int(move.target[1]) - int(move.source[1])) != 2:
            return False
        other = "p" if piece == "P" else "P"
        column = _FILES.index(move.target[0])
        beside = (_FILES[place] for place in (column - 1, column + 1) if 0 <= place < 8)
        return any(self.pieces.get(f"{letter}{move.target[1]}") == other for letter in beside)

    def box(self):
        """The text of TBEntorno."""
        sides = ("Blancas", "R", "D"), ("Negras", "r", "d")
        castling = "".join(
            f"{name}. Corto: {self._may(short)} Largo: {self._may(long)}\n" for name, short, long in sides
        )
        white, black = ((self.en_passant[pawn] or "No.").capitalize() for pawn in "Pp")
        mover = "Negras. " if self.told_black else "Blancas. "
        return (
            f"Jug. Nº {self.told_number}. Mueven {mover}\n Enroques disponibles:\n{castling}"
            f" Opción de comer al paso\nBlancas : {white}Negras: {black}"
        )

    def _may(self, right):
        return "Sí." if right in self.rights else "No. "


def read_board(line):
    """What stands where, by the board field of a position line."""
    pieces = {}
    squares = iter(SQUARES)
    for character in line.replace("/", ""):
        if character.isdigit():
            for _ in range(int(character)):
                next(squares)
        else:
            pieces[next(squares)] = character
    return pieces
