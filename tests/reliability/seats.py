"""A copy in one role of one game, a bare peer across the wire, and the way to each step of a session between them."""

import chess
import handshake
import naval
import strategy
import three_in_row
from hands import OK, YES
from handshake import NO_TITLE
from peer import Listener, Peer
from touch import Touch
from waiting import wait_until

_LAST = -1  # the lower right cell is one of the board's own in every game
_ALL = ("Nombre|Eva", "turno|2", "Turnodef|10", "Seguir|Si", "Seguir|No")


class Play:
    """What a game has of its own: its messages as a peer sends them, and how a copy's user plays."""

    game = None
    tokens = ()
    box_openers = ()
    move = b"Jug|"  # how the own move begins on the wire
    placed = move  # the same of what ends the placing
    loses = "Haganado|0"  # what tells the copy that its player has lost
    quiet_cells = -1, -2  # whose pictures no message changes

    def begin(self, seat):
        """The first turn is settled: up to the placing."""

    def place(self, seat):
        """The own placing, up to what is sent."""

    def fight(self, seat):
        """From the placing to the first turn."""

    def make_move(self, seat):
        """The own move; out of turn the same clicks."""

    def receive_move(self, seat):
        """The peer's."""

    def open_box(self, seat):
        """A box that the user opens himself."""
        seat.touch.ask_to_close()
        seat.copy.box(self.game.title)


class ThreeInRow(Play):
    game = three_in_row.GAME
    tokens = (*_ALL, "Jug|-1|4", "Jug|", "Haganado|0")
    box_openers = ("Haganado|0",)

    def place(self, seat):
        seat.touch.click_cell(0)

    def fight(self, seat):
        """Three pieces of each, the first of who begins."""
        mine, theirs = iter((0, 1, 5)), iter((4, 2, 3))
        for turn in range(6):
            if (turn % 2 == 0) == seat.begins:
                cell = next(mine)
                seat.touch.click_cell(cell)
                seat.peer.expect(b"Jug|-1|%d" % cell)
            else:
                cell = next(theirs)
                seat.peer.send(b"Jug|-1|%d" % cell)
                wait_until("the peer's piece", lambda: not seat.copy.cell(cell).name.endswith("vacía"))

    def make_move(self, seat):
        seat.touch.click_cell(5)
        seat.touch.click_cell(8)

    def receive_move(self, seat):
        seat.peer.send("Jug|3|6")
        seat.copy.expect_text("TBEstado", three_in_row.MOVE)


class Naval(Play):
    game = naval.GAME
    tokens = (*_ALL, "Datos|", "Datos|3)))))", "Listo|", "Jug|22A", "Jug|))I", "Jug|", "Haganado|")
    box_openers = ("Datos|3)))))", "Listo|", "Haganado|")
    placed = b"Datos|"
    _FLEET = "Datos|3))-)4)+,+5)-+-6--/-7)/+/8-/./9)1*1"

    def begin(self, seat):
        seat.touch.answer(NO_TITLE)  # place your ships

    def place(self, seat):
        for start, end in naval.IN_ROWS:
            seat.touch.click_cell(naval.number_of(start))
            seat.touch.click_cell(naval.number_of(end))
        seat.touch.answer(self.game.title, YES)

    def fight(self, seat):
        seat.peer.send(self._FLEET + "Listo|")
        self.place(seat)
        seat.touch.answer(NO_TITLE)  # both are ready

    def make_move(self, seat):
        seat.touch.click_cell(naval.number_of("J10"))

    def receive_move(self, seat):
        seat.peer.send("Jug|22A")
        wait_until("the own turn", lambda: seat.copy.text("TBMensajes").endswith("Le toca disparar."))


class Strategy(Play):
    placed = b"Datos|"

    def __init__(self, variant):
        self.variant = variant
        self.game = variant.game
        rows, first = variant.rows, variant.zone_rows
        step = strategy.move_message(f"A{first}", f"A{first + 1}", strategy.MOVED)
        army = strategy.army_message(variant, 1, dict.fromkeys(variant.zone(), strategy.LIEUTENANT))
        self.tokens = (*_ALL, army, "Datos|", "Listo|", step, "Jug|", "Pasaturno|", "Haganado|")
        self.box_openers = ("Haganado|", "Listo|", army)
        self._front, self._theirs = first, (f"A{rows + 1 - first}", f"A{rows - first}")

    def place(self, seat):
        seat.touch.key("F3")
        seat.touch.answer(self.variant.placed_title, YES)

    def fight(self, seat):
        ranks = dict.fromkeys(self.variant.zone(), strategy.LIEUTENANT)
        seat.peer.send(strategy.army_message(self.variant, int(seat.server), ranks) + "Listo|")
        self.place(seat)
        seat.touch.answer(NO_TITLE)  # both are ready

    def make_move(self, seat):
        """A piece of the first row goes forward."""
        lane = next(letter for letter in self.variant.open_columns() if self._moves(seat, f"{letter}{self._front}"))
        for row in (self._front, self._front + 1):
            seat.touch.click_cell(self.variant.number_of(f"{lane}{row}"))

    def _moves(self, seat, cell):
        name = seat.copy.cell(self.variant.number_of(cell)).name
        return not name.startswith(("Bomba", "Bandera"))

    def receive_move(self, seat):
        origin, target = (self.variant.mirrored(cell) for cell in self._theirs)
        seat.peer.send(strategy.move_message(origin, target, strategy.MOVED))
        seat.touch.answer(NO_TITLE)

    def open_box(self, seat):
        seat.touch.key("F2")
        wait_until("the list of ranks", seat.copy.boxes)


class Chess(Play):
    game = chess.GAME
    tokens = (
        *_ALL,
        "JUG|5 7 5 5 False 0",
        "JUG|",
        "JMate|",
        "Abandona|",
        "SolTablas|",
        "SolTablasSi|",
        "SolTablasNo|",
        "cargpartida|tarde.fen",
        "cargpsi|",
        "cargpno|",
        "datospartida|8/8/8/8/8/8/8/8/B - - 0 1",
        "cargpturnos|0 0 0",
        "modolibre|",
    )
    box_openers = ("JMate|", "Abandona|", "SolTablas|", "cargpartida|tarde.fen", "datospartida|", "modolibre|")
    move = placed = b"JUG|"
    loses = "SolTablasSi|"
    quiet_cells = 37, 38  # a5 and b5

    def make_move(self, seat):
        row, ahead = (2, 4) if seat.begins else (7, 5)
        for square_row in (row, ahead):
            seat.touch.click_cell((9 - square_row) * 9 + 5)

    place = make_move

    def receive_move(self, seat):
        seat.peer.send("JUG|5 7 5 5 False 0" if seat.begins else "JUG|5 2 5 4 False 0")
        wait_until("the peer's move", lambda: "-e" in seat.copy.text("TBJugadas"))

    def open_box(self, seat):
        seat.touch.choose_command(chess.MATE)
        seat.copy.box(NO_TITLE, chess.NOT_IN_CHECK_TEXT)


PLAYS = (ThreeInRow(), Naval(), Strategy(strategy.MES), Strategy(strategy.EST), Chess())


class Seat:
    """From the selection window on. After each step its peer may be replaced by what the step needs next."""

    def __init__(self, copy, port, play, server):
        self.copy = copy
        self.touch = Touch(copy)
        self.port = port
        self.play = play
        self.server = server
        self.begins = True
        self.peers = []
        self._listener = None

    @property
    def peer(self):
        return self.peers[-1]

    def open(self):
        """The game's window, not yet connected."""
        if not self.server:
            self._listener = Listener(self.port)
        self.touch.choose_game(self.play.game.number)
        self.copy.expect_caption(self.play.game.caption)

    def meet(self):
        """A connection, not yet accepted."""
        if self.server:
            self.peers.append(Peer.connected_to(self.port))
        else:
            self.touch.press(handshake.LOCAL_BUTTON)
            self.peers.append(self._listener.accept())

    def accept(self):
        """Up to the question for the own name."""
        acceptance = f"Solicitud aceptada|{self.play.game.code}".encode()
        if self.server:
            self.touch.answer(handshake.REQUEST_TITLE)
            self.peer.expect(acceptance)
        else:
            self.peer.send(acceptance)
        self.copy.box(handshake.NAME_TITLE)

    def give_name(self):
        """Up to the question who is to start."""
        self.touch.answer(handshake.NAME_TITLE)
        self.peer.expect(b"Nombre|Servidor" if self.server else b"Nombre|Cliente")
        self.copy.box(handshake.TURN_TITLE)

    def give_choice(self):
        """Both want the same player to start."""
        self.touch.answer(handshake.TURN_TITLE, OK, "1" if self.begins else "2")

    def settle(self):
        """Up to the settled first turn."""
        first, starter = ("turno|2", 0) if self.server == self.begins else ("turno|1", 1)
        if self.server:
            self.peer.send(first)
            self.give_choice()
            self.peer.expect(b"Turnodef|%d0" % starter)
        else:
            self.give_choice()
            self.peer.expect(b"turno|1" if self.begins else b"turno|2")
            self.peer.send(b"Turnodef|%d0" % (1 if self.begins else 0))
        handshake.report_line(self.copy)
        self.play.begin(self)

    # ---- Several steps at once ----

    def connect(self):
        """Up to the question for the own name."""
        self.meet()
        self.accept()

    def begin(self):
        """Up to the placing, or to the first turn where nothing is placed."""
        self.connect()
        self.peer.send("Nombre|Eva")
        self.give_name()
        self.settle()

    def start_play(self):
        """Up to a turn in mid-game."""
        self.begin()
        self.play.fight(self)
        self.peer.discard()

    # ---- The end ----

    def lose(self):
        """From the game to its end, with all boxes answered."""
        self.peer.send(self.play.loses)
        wait_until("the box about the end", self.copy.boxes)
        while box := self.touch.top_box():
            self.touch.close(box)

    def ask_rematch(self):
        """Up to the question for another game."""
        self.touch.click_cell(_LAST)
        self.copy.box(self.play.game.title)

    def wait_until_unacknowledged(self):
        """What the copy has sent does not arrive."""
        wait_until("a text on its way", lambda: self.peer.undelivered() > 0)

    def end(self):
        for peer in self.peers:
            peer.close()
        if self._listener:
            self._listener.close()
        self.peers, self._listener = [], None
