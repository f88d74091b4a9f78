"""What happens before and after each game, the same for all games: roles, connection, names, first turn, leaving."""

import dataclasses
import re

from hands import CANCEL, OK
from waiting import wait_until

REQUEST_TITLE = "Solicitud de conexión"
REQUEST_TEXT = "Se ha recibido una solicitud de conexión. ¿Desea aceptarla?"
ADDRESS_TITLE = "Conectar"
ADDRESS_PROMPT = "¿Con qué ordenador desea conectar? Introduzca su IP: "
NAME_TITLE = "Introducir nombre"
NAME_PROMPT = "Por favor, introduzca su  nombre para mostrar al otro jugador: "
TURN_TITLE = "Asignación del primer turno"
TURN_PROMPT = "Indique qué jugador empezará la partida: 1 = yo empiezo; 2 = Él empieza; 3 = Sortear."
CONNECTED_LINE = "Conexión establecida.Listo para jugar."
CLOSE_TEXT = "¿Está seguro de que desea salir? La partida se dará por terminada y no se podrá reanudar."
REMATCH_TEXT = "¿Desea jugar otra partida?"
NO_TITLE = "Brontavia"  # of a box without a title of its own
SEND_FAILED_TEXT = "No hay conexión con el otro jugador. No se le ha podido enviar su última acción."
WRONG_GAME_TEXT = (
    "Ha elegido un juego diferente que el servidor. La conexión se va a cancelar y la ventana se cerrará"
)
SERVER_BUTTON = "Jugar como servidor"
CLIENT_BUTTON = "Jugar como cliente"
CONNECT_BUTTON = "CONECTAR"
LOCAL_BUTTON = "CONEXIÓN LOCAL"
LEAVE_BUTTON = "SALIR"
START_QUESTION = "Seleccione cómo desea jugar."
SELECTION_QUESTION = "Elija a qué juego desea jugar. Los dos jugadores deben escoger el mismo."
GAMES = ["TRES EN RAYA", "BATALLA NAVAL", "Mini-Estratega", "Estratega", "Ajedrez"]

_REPORT = re.compile(" (comienza|comenzará) jugando | jugará  con blancas ")

CLIENT_EXPLANATION = (
    "Si elige esta opción, deberá pedirle al otro jugador que le proporcione su IP externa, e introducir este dato "
    "cuando se le pida el nombre o dirección del equipo con el que se quiere conectar.\n"
    "Es necesario que uno de los jugadores actúe como servidor y el otro como cliente."
)
SERVER_INSTRUCTIONS = (
    "El programa ha empezado a escuchar en el puerto seleccionado. Comunique al otro jugador su IP externa si no lo ha "
    "hecho todavía, y \n"
    "dígale que inicie la conexión. Cuando él inicie la conexión e introduzca su IP, usted recibirá una solicitud de "
    "conexión que deberá aceptar \n"
    "para poder jugar.Si esta solicitud de conexión no llega,compruebe si el puerto seleccionado está abierto.\n"
)
CLIENT_INSTRUCTIONS = (
    "Solicite al otro jugador que le facilite su IP externa y que inicie el juego y cuando él esté listo, pulse el "
    "botón de conectar. Cuando  se le \n"
    "pregunte introduzca la IP que le ha facilitado y espere un instante a que se complete la conexión. Para jugar "
    "entre dos ventanas  del mismo ordenador, pulse el botón de conexión local. \n"
)


@dataclasses.dataclass(frozen=True)
class Game:
    """What a game changes in the common steps."""

    number: int  # in the list of games
    code: str
    caption: str
    suffix: str  # of the caption, after the name
    title: str  # of the boxes about leaving and playing again
    new_game_opening: str = "Comienza jugando "
    new_game_ending: str = "."
    asks_before_closing: bool = True
    turn_prompt: str = TURN_PROMPT


@dataclasses.dataclass(frozen=True)
class Player:
    """Who sits at a copy and what they answer. An answer of None takes what the box proposes."""

    proposal: str  # the name that the program proposes
    name: str = None
    choice: str = None

    @property
    def shown_name(self):
        return self.name or self.proposal

    @property
    def kept_name(self):
        """What both copies remember of the name."""
        return self.shown_name[:15].strip()


def server_explanation(port):
    return (
        "Si elige esta opción,para poder jugar deberá:\n"
        "· averiguar su IP externa y proporcionársela al otro jugador\n"
        f"· Permitir el paso de información por el puerto seleccionado (puerto {port} de tcp). Para ello puede "
        "necesitar abrir este puerto en su router, abrirlo en el firewall y si windows le muestra un aviso de que este "
        "programa se ha bloqueado, elegir la opción de desbloquear o de permitir según la qe le aparezca.\n"
        "Es necesario que uno de los jugadores actúe como servidor y el otro como cliente."
    )


SERVER = Player("Servidor")
CLIENT = Player("Cliente")


def choose_role(hand, server):
    hand.press_button(SERVER_BUTTON if server else CLIENT_BUTTON)
    hand.copy.expect_text("Text1", SELECTION_QUESTION)
    hand.copy.bring_to_front()  # before that it may take the keyboard from whoever is typing in another window


def open_game(hand, server, game):
    """From the start window to the game's window."""
    choose_role(hand, server)
    choose_game(hand, server, game)


def choose_game(hand, server, game):
    hand.choose_game(game.number)
    hand.copy.expect_caption(game.caption)
    wait_until("the frame of the role", lambda: hand.copy.shows("FrServidor" if server else "FrCliente"))
    hand.copy.bring_to_front()


def answer_request(hand, button=OK):
    hand.answer_box(REQUEST_TITLE, REQUEST_TEXT, button)


def accept(server_hand, client_hand):
    answer_request(server_hand)
    _come_to_front(client_hand, NAME_TITLE)


def _come_to_front(hand, title):
    """Until a new box has had the keyboard, it may take it from whoever is typing in the other copy."""
    hand.copy.bring_to_front(hand.copy.box(title))


def refuse_request(hand):
    answer_request(hand, CANCEL)


def answer_name(hand, player, game):
    hand.answer_input(NAME_TITLE, NAME_PROMPT, player.proposal, player.name)
    hand.copy.expect_caption(player.shown_name.strip() + game.suffix)
    _come_to_front(hand, TURN_TITLE)


def answer_turn(hand, player, game):
    hand.answer_input(TURN_TITLE, game.turn_prompt, "3", player.choice)


def shake_hands(server_hand, client_hand, game, server=SERVER, client=CLIENT):
    """From the two frames to the first turn, each box as it comes. The client chooses its turn last."""
    client_hand.press_button(LOCAL_BUTTON)
    accept(server_hand, client_hand)
    answer_name(server_hand, server, game)
    answer_name(client_hand, client, game)
    answer_turn(server_hand, server, game)
    answer_turn(client_hand, client, game)


def report_line(copy):
    """The line of TBMensajes that tells who begins."""
    return wait_until(
        "the report of who begins",
        lambda: next((line for line in copy.text("TBMensajes").split("\n") if _REPORT.search(line)), None),
    )


def starter(copy, server=SERVER):
    """0 when the server begins and 1 when the client does, as the report has it."""
    line = report_line(copy)
    return 0 if f" jugando {server.kept_name}. " in line else 1


def score_text(game, server_name, server_score, client_name, client_score, starter_name):
    return (
        f"Marcador actual: \n{server_name}  {server_score} : {client_name} {client_score}\n"
        f"{game.new_game_opening}{starter_name}{game.new_game_ending}"
    )


def refusal_text(name):
    return f"{name} no desea jugar otra partida. Va a finalizarse la conexión y a cerrarse la ventana."


def leave(hand):
    """From the selection window to the end of the process."""
    hand.copy.expect_text("Text1", SELECTION_QUESTION)
    hand.press_button(LEAVE_BUTTON)
    code = hand.copy.exit_code()
    assert code == 0, f"SALIR ended the program with {code}"
