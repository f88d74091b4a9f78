"""Three in a row: its texts, and a whole session of two games that can be played by any two hands."""

import handshake
from handshake import CLIENT, SERVER, Game, score_text
from hands import NO, YES
from waiting import wait_until

GAME = Game(number=0, code="TER", caption="BRONTAVIA - TRES EN RAYA", suffix=" - Tres en raya", title="Tres en raya")

WIN_TITLE = "Enhorabuena"
WIN_TEXT = "¡Ha ganado! Consiguió hacer tres en raya antes que su rival.\nPulse sobre el tablero para continuar."
LOSS_TITLE = "Ha perdido"
NEW_GAME_TITLE = "Nueva partida"

NOT_YOUR_TURN = "No es su turno de jugar."
CHOOSE_EMPTY = "Elija una casilla vacía para colocar su ficha"
CHOOSE_OWN = "Pulse sobre una de sus propias fichas para moverla *"
PUT_ELSEWHERE = "Coloque la ficha quitada en un sitio diferente"
PUT_BACK = "El movimiento realizado no es válido, vuelva a quitar una ficha"
PLACE = "Coloque una ficha en el tablero"
MOVE = "Mueva una ficha del tablero"


def loss_text(name):
    return f"{name:15} ha conseguido tres en raya antes que usted.\nPulse sobre el tablero para continuar."


def passed_turn_line(name):
    """In the mover's log."""
    return f"Turno de jugar para {name:15}"


def got_turn_line(name):
    """In the log of the player who is to move next."""
    return f" Turno de {name} para jugar."


class Session:
    """Two copies that play; side 0 is the server and side 1 the client."""

    def __init__(self, server_hand, client_hand, server=SERVER, client=CLIENT, tell=lambda line: None):
        self.tell = tell  # takes a line about each step
        self.hands = (server_hand, client_hand)
        self.copies = (server_hand.copy, client_hand.copy)
        self.names = (server.kept_name, client.kept_name)
        self.scores = [0, 0]
        self.marks = list("*********")

    def click(self, side, cell, status):
        """A click that sends nothing."""
        self.tell(f"{self.names[side]} chooses cell {cell} and reads: {status}")
        self.hands[side].click_cell(cell)
        self.copies[side].expect_text("TBEstado", status)

    def place(self, side, cell, next_status=PLACE):
        """A move that passes the turn, seen by both."""
        self.tell(f"{self.names[side]} puts a piece on cell {cell}; it appears in both windows")
        self.hands[side].click_cell(cell)
        self._put(side, cell)
        other = 1 - side
        self.expect_board()
        self.copies[other].expect_text("TBEstado", next_status)
        for copy, line in (
            (self.copies[side], passed_turn_line(self.names[other])),
            (self.copies[other], got_turn_line(self.names[other])),
        ):
            wait_until(f"the line {line!r}", lambda: copy.text("TBMensajes").endswith("\n" + line))

    def lift(self, side, cell):
        """The lifted piece is gone from the own board only."""
        self.click(side, cell, PUT_ELSEWHERE)
        shown = self.marks.copy()
        shown[cell] = "*"
        self.copies[side].expect_board("".join(shown))
        self.copies[1 - side].expect_board("".join(self.marks))

    def put_back(self, side, cell):
        self.click(side, cell, PUT_BACK)
        self.expect_board()

    def move(self, side, from_cell, to_cell):
        self.lift(side, from_cell)
        self.marks[from_cell] = "*"
        self.place(side, to_cell, MOVE)

    def win(self, side, cell, from_cell=None, with_boxes_open=lambda: None):
        """The move that ends the game, and both boxes about it."""
        if from_cell is not None:
            self.lift(side, from_cell)
            self.marks[from_cell] = "*"
        self.tell(f"{self.names[side]} puts a piece on cell {cell}: three in a row")
        self.hands[side].click_cell(cell)
        self._put(side, cell)
        self.scores[side] += 1
        self.copies[side].box(WIN_TITLE)
        self.copies[1 - side].box(LOSS_TITLE)
        with_boxes_open()
        self.hands[side].answer_box(WIN_TITLE, WIN_TEXT)
        self.hands[1 - side].answer_box(LOSS_TITLE, loss_text(self.names[side]))
        self.expect_board()
        for box in ("TBEstado", "TBMensajes"):
            self.copies[1 - side].expect_text(box, "")

    def expect_board(self):
        for copy in self.copies:
            copy.expect_board("".join(self.marks))

    def _put(self, side, cell):
        self.marks[cell] = "XO"[side]

    def ask_rematch(self, side, answer):
        self.tell(f"{self.names[side]} clicks the board and answers {answer!r} to another game")
        self.hands[side].click_cell(4)
        self.hands[side].answer_box(GAME.title, handshake.REMATCH_TEXT, answer)

    def play_again(self, first, starter, with_boxes_open=lambda: None):
        """Both want another game; the one who answers first sees it begin when the other has answered."""
        second = 1 - first
        self.ask_rematch(first, YES)
        wish = f"\nNueva partida.{self.names[first]} desea jugar otra partida."
        self.copies[second].expect_text("TBMensajes", wish)
        self.ask_rematch(second, YES)
        text = score_text(GAME, self.names[0], self.scores[0], self.names[1], self.scores[1], self.names[starter])
        self.marks = list("*********")
        for copy in self.copies:
            copy.box(NEW_GAME_TITLE)
        with_boxes_open()
        for hand in self.hands:
            hand.answer_box(NEW_GAME_TITLE, text)
            hand.copy.expect_text("TBEstado", "")
            hand.copy.expect_text("TBMensajes", "")
        self.expect_board()

    def stop(self, refuser, with_box_open=lambda: None):
        """One player does not want another game; both are back in the selection window."""
        self.ask_rematch(refuser, NO)
        self.copies[1 - refuser].box(handshake.NO_TITLE)
        with_box_open()
        self.hands[1 - refuser].answer_box(handshake.NO_TITLE, handshake.refusal_text(self.names[refuser]))
        for copy in self.copies:
            copy.expect_text("Text1", handshake.SELECTION_QUESTION)

    # ---- Two whole games ----

    def placing_game(self, first, with_boxes_open=lambda: None):
        """The player who begins wins while placing."""
        other = 1 - first
        self.click(other, 4, NOT_YOUR_TURN)
        self.place(first, 0)
        self.click(first, 8, NOT_YOUR_TURN)
        self.click(other, 0, CHOOSE_EMPTY)
        self.place(other, 4)
        self.place(first, 1)
        self.place(other, 8)
        self.win(first, 2, with_boxes_open=with_boxes_open)

    def moving_game(self, first, with_boxes_open=lambda: None):
        """The player who does not begin wins with a move."""
        self.place_all(first)
        self.move_to_win(first, with_boxes_open)

    def place_all(self, first):
        other = 1 - first
        self.place(first, 0)
        self.place(other, 4)
        self.place(first, 1)
        self.place(other, 2)
        self.place(first, 5)
        self.place(other, 3, MOVE)

    def move_to_win(self, first, with_boxes_open=lambda: None):
        other = 1 - first
        self.click(first, 7, CHOOSE_OWN)
        self.click(first, 4, CHOOSE_OWN)
        self.lift(first, 5)
        self.put_back(first, 5)
        self.lift(first, 5)
        self.click(first, 4, CHOOSE_EMPTY)
        self.put_back(first, 5)
        self.move(first, 5, 8)
        self.win(other, 6, from_cell=3, with_boxes_open=with_boxes_open)
