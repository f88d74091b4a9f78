"""What the games that begin with placing have in common: what the windows tell, how a game ends and the next begins."""

import screen
from hands import NO, YES
from handshake import NO_TITLE, REMATCH_TEXT, SELECTION_QUESTION, refusal_text, score_text
from waiting import wait_for_value

WIN_TITLE = "Ha ganado"
LOSS_TITLE = "Ha perdido"
NEW_GAME_TITLE = "Nueva partida"
NOT_YOUR_TURN = "No es su turno de jugar."
AFTER_WIN_LINE = "Haga click en el tablero para continuar"


def report_line(name, drawn):
    """The line that tells who begins."""
    opening = "Tras realizar el sorteo, comenzará jugando " if drawn else "Por decisión mutua comenzará jugando "
    return f"{opening}{name}. "


def handshake_log(server, other, *lines):
    """The log when the first turn is settled, with what the game has to say then."""
    before = [] if server else ["Conexión establecida.Listo para jugar."]
    return "".join(f"\n{line}" for line in [*before, "Nombre recibido", f"Va a jugar contra {other}", *lines])


class Side:
    """What the window of one player must show. A game adds its boards."""

    def __init__(self, hand, name):
        self.hand = hand
        self.copy = hand.copy
        self.name = name
        self.log = self.copy.text("TBMensajes")
        self.status = ""

    def number_of(self, cell):
        """The place of a cell such as "B3" among the children of FG1."""
        raise NotImplementedError

    def description(self, cell):
        """What a screen reader says of a cell of FG1."""
        raise NotImplementedError

    def begin_again(self):
        """Another game has begun: what it forgets, and what the window must show then."""
        raise NotImplementedError

    def click(self, cell):
        """A click on a cell of FG1, as mouse or keyboard has it."""
        self.hand.click_cell(self.number_of(cell))

    def press_key(self, key):
        """A key on FG1, where the keyboard is after a click."""
        self.copy.bring_to_front()
        screen.press(key)

    def expect_status(self, text):
        self.status = text
        self.copy.expect_text("TBEstado", text)

    def expect_line(self, line):
        self.log += f"\n{line}"
        self.expect_log()

    def expect_line_alone(self, line):
        """A line after the log was emptied."""
        self.log = ""
        self.expect_line(line)

    def expect_log(self, text=None):
        if text is not None:
            self.log = text
        self.copy.expect_text("TBMensajes", self.log)

    def expect_described(self, cell):
        wait_for_value(
            f"the name of {cell} of {self.name}",
            lambda: self.copy.cell(self.number_of(cell)).name,
            self.description(cell),
        )


class Session:
    """Two copies after the handshake; side 0 is the server and side 1 the client."""

    def __init__(self, game, sides, starter, tell):
        self.game = game
        self.sides = sides
        self.turn = starter
        self.tell = tell  # takes a line about each step
        self.scores = [0, 0]

    def answer(self, side, title, text, button=None):
        self.sides[side].hand.answer_box(title, text, *([button] if button else []))

    def click(self, side, cell):
        self.sides[side].click(cell)

    def click_and_read(self, side, cell, status):
        """A click that only writes a status."""
        self.click(side, cell)
        self.sides[side].expect_status(status)

    def press_key(self, side, key):
        self.sides[side].press_key(key)

    # ---- Another game ----

    def ask_rematch(self, side, answer):
        player = self.sides[side]
        self.tell(f"{player.name} clicks the board and answers {answer!r} to another game")
        self.click(side, "C3")
        player.copy.box(self.game.title)
        player.expect_log("")
        player.expect_status("")
        self.answer(side, self.game.title, REMATCH_TEXT, answer)

    def wish_rematch(self, side):
        """One player answers Yes, and the other is told."""
        self.ask_rematch(side, YES)
        other = self.sides[1 - side]
        other.expect_line_alone(f"Nueva partida.{self.sides[side].name} desea jugar otra partida.")

    def play_again(self, first, with_boxes_open=lambda: None):
        """Both want another game; the winner begins."""
        self.wish_rematch(first)
        self.sides[1 - first].expect_status("")
        self.wish_rematch(1 - first)
        self.begin_again(with_boxes_open)

    def begin_again(self, with_boxes_open=lambda: None):
        """The boxes that open the next game."""
        for player in self.sides:
            player.copy.box(NEW_GAME_TITLE)
        with_boxes_open()
        names = [player.name for player in self.sides]
        text = score_text(self.game, names[0], self.scores[0], names[1], self.scores[1], names[self.turn])
        for side, player in enumerate(self.sides):
            self.answer(side, NEW_GAME_TITLE, text)
            player.begin_again()
            player.expect_log()

    def stop(self, refuser, with_box_open=lambda: None):
        """One player does not want another game; both are back in the selection window."""
        self.ask_rematch(refuser, NO)
        self.sides[1 - refuser].copy.box(NO_TITLE)
        with_box_open()
        self.answer(1 - refuser, NO_TITLE, refusal_text(self.sides[refuser].name))
        for player in self.sides:
            player.copy.expect_text("Text1", SELECTION_QUESTION)
