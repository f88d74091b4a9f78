"""A player who sees nothing: hears what the screen reader says of the own copy, and presses keys."""

import dataclasses
import re

import screen
from ear import plain
from handshake import (
    CLIENT_BUTTON,
    CLIENT_EXPLANATION,
    CLIENT_INSTRUCTIONS,
    GAMES,
    LOCAL_BUTTON,
    NAME_PROMPT,
    NAME_TITLE,
    REMATCH_TEXT,
    REQUEST_TEXT,
    REQUEST_TITLE,
    SERVER_BUTTON,
    SERVER_INSTRUCTIONS,
    START_QUESTION,
    TURN_TITLE,
    score_text,
    server_explanation,
)
from hands import OK, YES
from placing import NEW_GAME_TITLE
from waiting import wait_until

_LONGEST_TAB_CHAIN = 12
_LONGEST_MENU = 20
_SOON = 2.0  # seconds


@dataclasses.dataclass(frozen=True)
class Board:
    """How the cells of a board are called, row by row from the top."""

    rows: tuple  # of tuples of cells
    pattern: re.Pattern  # of a cell's spoken name, with groups "cell" and "holds"

    def place(self, cell):
        """Row and column from the top left."""
        return next((number, row.index(cell)) for number, row in enumerate(self.rows) if cell in row)

    def read(self, name):
        """The cell and what is on it, of a spoken name; None when it is not the name of a cell."""
        found = self.pattern.fullmatch(plain(name))
        return (found["cell"], plain(found["holds"] or "")) if found else None

    def keys(self, start, end):
        (from_row, from_column), (to_row, to_column) = self.place(start), self.place(end)
        down, right = to_row - from_row, to_column - from_column
        return ["Down" if down > 0 else "Up"] * abs(down) + ["Right" if right > 0 else "Left"] * abs(right)


def lettered(letters, numbers, pattern):
    """A board whose cells are called by a letter and a number, the numbers told from the top."""
    return Board(tuple(tuple(f"{letter}{number}" for letter in letters) for number in numbers), re.compile(pattern))


class Player:
    """Side 0 is at the server and side 1 at the client."""

    def __init__(self, ears, copy, side, name, board):
        self.name = name
        self.side = side
        self._copy = copy
        self._ears = ears
        self._ear = ears.of(copy, name)
        self._board = board
        self._round = 0  # where the round begins in what has been heard
        self._expected = []  # texts that were to be told in this round
        self._before = []  # and in the one before
        self._focus_after = 0  # no focus before it counts any more
        self._last_box = 0  # how much had been heard when it had been spoken

    # ---- Hearing ----

    def hear(self, *texts):
        """Waits until each text has been told in this round."""
        for text in map(plain, texts):
            self._wait(f"hear {text!r}", lambda: any(text in each for each in self._told()))
            self._expected.append(text)

    def hear_match(self, pattern):
        """Waits until a text has been told in this round that holds what a pattern describes."""
        found = self._wait(
            f"hear what matches {pattern!r}",
            lambda: next(filter(None, (re.search(pattern, each) for each in self._told())), None),
        )
        self._expected.append(found[0])
        return found

    def hear_any(self, text):
        """Waits for a text in this round, however it is spoken."""
        self._wait(f"hear {text!r}", lambda: any(plain(text) in str(each) for each in self._utterances()))

    def hear_box(self, title, text):
        """Waits for a box, also one of a copy in the back. The text may be a pattern; returns its match."""

        def look():
            self.come_to_front()
            for place, each in enumerate(self._ear.heard[self._round :], self._round + 1):
                if each.kind == "box" and each.name == title and (found := _matches(text, each)):
                    return place, found
            return None

        place, found = self._wait(f"hear the box {title!r} with {text!r}", look)
        if place > self._last_box:
            self._expected.append(plain(found[0]))
            self._last_box = self._focus_after = place
        return found

    def next_round(self):
        """Each text that was to be told in this round has been told once, and none of the round before again."""
        told = self._told()
        for text in {*self._expected, *self._before}:
            count = sum(each.count(text) for each in told)
            expected = self._expected.count(text)
            assert count == expected, f"{self.name} heard {text!r} {count} times instead of {expected} times in {told}"
        twice = _letters(self._announcements()) & _letters(self._focus_names())
        assert not twice, f"{self.name} heard both as what has the focus and as an announcement: {twice}"
        self._before, self._expected = self._expected, []
        self._round = len(self._ear.heard)

    def finish(self):
        """Nothing of the last round is left, and nothing has spoken that did not have the focus."""
        self.next_round()
        strays = sorted(set(self._ear.strays))
        assert not strays, f"in the copy of {self.name} these spoke without the focus: {strays}"

    def _utterances(self):
        return self._ear.heard[self._round :]

    def _told(self):
        return [plain(each.text) for each in self._utterances() if each.is_told]

    def _announcements(self):
        return [each.text for each in self._utterances() if each.kind == "announcement"]

    def _focus_names(self):
        return [each.name for each in self._utterances() if each.kind == "focus"]

    def _wait(self, what, condition):
        try:
            return wait_until(what, condition)
        except TimeoutError as error:
            heard = "\n".join(f"  {each.kind}: {each}" for each in self._utterances())
            raise AssertionError(f"{self.name} does not {what}; heard in this round:\n{heard}") from error

    # ---- Keys ----

    def come_to_front(self):
        """Turns to the own computer; returns what is heard to have the focus there."""
        return self._wait("hear what has the focus", self._focus_in_front)

    def is_heard(self):
        """Whether the own computer says soon what has the focus when the player turns to it."""
        try:
            return wait_until("what has the focus", self._focus_in_front, _SOON)
        except TimeoutError:
            return None

    def _focus_in_front(self):
        windows = screen.windows_of(self._copy.pid)
        if windows and screen.in_front(windows[-1][0]):
            return self._ear.focus(self._focus_after)
        if windows:
            screen.activate(windows[-1][0])
        return None

    def press(self, *keys):
        self.come_to_front()
        self._ears.note(self._copy.pid, "key", " ".join(keys))
        screen.press(*keys)

    def press_and_leave(self, key):
        """Presses a key that takes the focus elsewhere."""
        self.come_to_front()
        start = len(self._ear.heard)
        self.press(key)
        self._focus_after = start

    def move_focus(self, key):
        """Presses a key that moves the focus; returns what is heard to have it."""
        self.press_and_leave(key)
        return self.come_to_front()

    def tab_to(self, role, name):
        """Presses Tab until something is heard; returns it."""
        focus = self.come_to_front()
        for _ in range(_LONGEST_TAB_CHAIN):
            if (focus.role, focus.name) == (role, name):
                return focus
            focus = self.move_focus("Tab")
        raise AssertionError(f"{self.name} does not hear the {role} {name!r} with Tab, but last {focus}")

    def read(self, name):
        """Goes to a text with Tab and back again; returns what is heard of the text."""
        here = self.come_to_front()
        text = self.tab_to("text", name).text
        for _ in range(_LONGEST_TAB_CHAIN):
            focus = self.move_focus("shift+Tab")
            if (focus.role, focus.name) == (here.role, here.name):
                return text
        raise AssertionError(f"{self.name} does not hear {here} again with Shift and Tab, but last {focus}")

    def push(self, caption):
        self.tab_to("push button", caption)
        self.press_and_leave("space")

    def answer(self, title, text, button=OK):
        """Hears a box and answers it."""
        found = self.hear_box(title, text)
        self.push(button)
        return found

    def answer_input(self, title, prompt, proposal, answer):
        """Hears a question with the proposed answer, and types another over it."""
        self.hear_box(title, prompt)
        field = self.come_to_front()
        assert (field.role, field.text) == ("text", proposal), f"{self.name} hears {field} in {title!r}"
        start = len(self._ear.heard)
        self._ears.note(self._copy.pid, "key", answer)
        screen.type_text(answer)
        self._wait(f"hear {answer!r} typed", lambda: self._typed_since(start) == answer)
        self.press_and_leave("Return")

    def _typed_since(self, start):
        return "".join(each.text for each in self._ear.heard[start:] if each.kind == "typed")

    def choose(self, caption):
        """Goes down to an item of the open menu, known by how it begins."""
        focus = self.come_to_front()
        for _ in range(_LONGEST_MENU):
            if focus.name.startswith(caption):
                self.press_and_leave("Return")
                return
            focus = self.move_focus("Down")
        raise AssertionError(f"{self.name} does not hear the item {caption!r}, but last {focus}")

    def open_menu(self, menu):
        """Opens a menu of the window's menu bar by its first letter."""
        self.press_and_leave(f"alt+{menu[0].lower()}")

    # ---- On a board ----

    def tab_to_board(self, name):
        """Presses Tab until a board is heard, and then its current cell."""
        for _ in range(_LONGEST_TAB_CHAIN):
            start = len(self._ear.heard)
            self.move_focus("Tab")
            if any(each.kind == "focus" and each.name == name for each in self._ear.heard[start:]):
                return
        raise AssertionError(f"{self.name} does not hear the board {name!r} with Tab")

    def go_to(self, cell):
        """Moves with the arrows until a cell is heard; returns what is on it."""
        here, holds = self._here()
        keys = self._board.keys(here, cell)
        if not keys:
            return holds
        start = len(self._ear.heard)
        self.press(*keys)
        self._wait(f"hear the cell {cell}", lambda: cell in self._cells_since(start))
        return self._cells_since(start)[cell]

    def _here(self):
        focus = self.come_to_front()
        here = self._board.read(focus.name)
        assert here, f"{self.name} is not on the board but hears {focus}"
        return here

    def _cells_since(self, start):
        names = (each.name for each in self._ear.heard[start:] if each.kind == "focus")
        return dict(filter(None, map(self._board.read, names)))

    def click(self, cell):
        """Goes to a cell and plays it."""
        self.go_to(cell)
        self.press("Return")

    def click_for_menu(self, cell):
        """Goes to a cell that opens a menu."""
        self.go_to(cell)
        self.press_and_leave("Return")

    def survey(self):
        """Walks over the whole board to and fro; returns what is on each cell."""
        found = {}
        for number, row in enumerate(self._board.rows):
            cells = row if number % 2 == 0 else row[::-1]
            found[cells[0]] = self.go_to(cells[0])
            start = len(self._ear.heard)
            self.go_to(cells[-1])
            found |= self._cells_since(start)
            # Of keys in quick succession only the last cell may be told.
            found |= {cell: self.go_to(cell) for cell in cells if cell not in found}
        return found


def _matches(text, utterance):
    pattern = text if isinstance(text, re.Pattern) else re.compile(re.escape(plain(text)))
    return pattern.fullmatch(plain(utterance.text))


def _letters(texts):
    """Texts without blanks and punctuation marks, but for those that have nothing else."""
    return {re.sub(r"\W", "", text) for text in texts} - {""}


# ---- What is the same for all games ----


def sit_down(players, game, port, report):
    """From the start windows to the first turn, which both give to the server's player."""
    server, client = players
    # A copy that has just started may not know yet that somebody listens.
    wait_until("both start windows to be heard", lambda: all([player.is_heard() for player in players]))
    for player, explanation, button, instructions in (
        (server, server_explanation(port), SERVER_BUTTON, SERVER_INSTRUCTIONS),
        (client, CLIENT_EXPLANATION, CLIENT_BUTTON, CLIENT_INSTRUCTIONS),
    ):
        player.come_to_front()
        player.hear_any(START_QUESTION)
        player.tab_to("push button", button)
        player.hear(explanation)
        player.push(button)
        choose_game(player, game)
        player.hear_any(instructions)
    client.push(LOCAL_BUTTON)
    server.answer(REQUEST_TITLE, REQUEST_TEXT)
    for player, proposal in zip(players, ("Servidor", "Cliente")):
        player.answer_input(NAME_TITLE, NAME_PROMPT, proposal, player.name)
        player.hear_box(TURN_TITLE, game.turn_prompt)
    for player, other, choice in zip(players, reversed(players), "12"):
        player.hear("Nombre recibido", f"Va a jugar contra {other.name}")
        player.answer_input(TURN_TITLE, game.turn_prompt, "3", choice)
    for player in players:
        player.hear(report)


def choose_game(player, game):
    """Goes down the list of games."""
    while (focus := player.come_to_front()).name != GAMES[game.number]:
        assert focus.name != GAMES[-1], f"{player.name} does not hear {GAMES[game.number]!r} in the list"
        player.move_focus("Down")
    player.press_and_leave("Return")


def play_again(players, game, scores, starter):
    """The server's player asks for another game; both hear the score and who begins."""
    for player in players:
        player.next_round()
    for player in players:
        player.press("Return")
        player.answer(game.title, REMATCH_TEXT, YES)
        if player is players[0]:
            players[1].hear(f"Nueva partida.{player.name} desea jugar otra partida.")
    names = [player.name for player in players]
    text = score_text(game, names[0], scores[0], names[1], scores[1], names[starter])
    for player in players:
        player.hear_box(NEW_GAME_TITLE, text)
    for player in players:
        player.answer(NEW_GAME_TITLE, text)
        strip = player.read("Marcador")
        assert all(f"{name} {score}" in strip for name, score in zip(names, scores)), f"{player.name} reads {strip!r}"
