"""A session of a strategy game that can be played by any two hands.

It keeps its own idea of both boards and compares everything that the windows show with it.
"""

import collections
import itertools

import placing
from driver import cell_tells
from handshake import CLIENT, NO_TITLE, SERVER
from hands import NO
from placing import LOSS_TITLE, WIN_TITLE
from strategy import (
    BOMB,
    BOTH,
    CHANGE_SOMETHING,
    FIGHT_TEXTS,
    FLAG,
    FLAG_TAKEN,
    MARSHAL,
    MOVED,
    OTHER_ARMY_LINE,
    OTHER_READY_LINE,
    PLACED_TEXT,
    PLAY_TEXTS,
    RANKS,
    REVEALED_BOMB,
    SCOUT,
    SPY,
    TAKEN_BACK_LINE,
    WAIT_TEXT,
    WIN_TEXT,
    WON,
    combat,
    loss_text,
    selected,
    told,
)
from waiting import wait_for_value

# ---- One player's side of the board ----


class Side(placing.Side):
    """What the window of one player must show."""

    def __init__(self, hand, name, number, variant):
        super().__init__(hand, name)
        self.number = number
        self.variant = variant
        self.clear()

    def clear(self):
        """Before a game."""
        self.board = {}  # cell: (side, rank), as this player calls the cells
        self.left = dict(self.variant.counts)  # to be placed, by rank
        self.lingering = {}  # what a cell goes on showing until it is drawn again

    def begin_again(self):
        self.clear()
        self.expect_status("")
        self.expect_board()

    @property
    def padded_name(self):
        return f"{self.name:15}"

    def number_of(self, cell):
        return self.variant.number_of(cell)

    def rank_at(self, cell):
        """0 where no piece stands."""
        return self.board.get(cell, (None, 0))[1]

    def set(self, cell, piece):
        """A piece or nothing comes onto a cell, which is drawn again."""
        self.board.pop(cell, None)
        self.lingering.pop(cell, None)
        if piece:
            self.board[cell] = piece

    def apply(self, origin, target, outcome):
        """A move of either player."""
        if outcome in (MOVED, WON):
            self.set(target, self.board[origin])
        elif outcome == BOTH:
            self.set(target, None)
        elif self.rank_at(target) == BOMB:
            self.set(target, (self.board[target][0], REVEALED_BOMB))
        self.set(origin, None)

    def knows(self, cell):
        side, rank = self.board[cell]
        return side == self.number or rank == REVEALED_BOMB

    def description(self, cell):
        """What a move onto a cell writes to TBEstado; a screen reader says it too."""
        if cell not in self.board:
            return f"Agua{cell}" if cell in self.variant.water else cell
        side, rank = self.board[cell]
        name = RANKS[rank] if self.knows(cell) else ""
        colour = "azul" if side else "roja" if name in ("Bandera", "Bomba") else "rojo"
        return f"{name} {colour} . {cell}"

    def expect_board(self):
        """Each cell."""
        cells = {cell: cell_tells(self.description(cell), self.lingering.get(cell, "")) for cell in self.variant.cells()}
        numbers = {self.number_of(cell): text for cell, text in cells.items()}
        expected = {0: "", **self.variant.headers(), **numbers}
        wait_for_value(f"the board of {self.name}", lambda: dict(enumerate(self.copy.board())), expected)

    def deploy(self, answer):
        """F3, and the answer to the question whether that is all."""
        self.press_key("F3")
        self.copy.box(self.variant.placed_title)
        self.lingering.clear()
        self._read_army()
        self.expect_board()
        self.hand.answer_box(self.variant.placed_title, PLACED_TEXT, answer)
        if answer == NO:
            self.expect_status(CHANGE_SOMETHING)
        else:
            self.log = ""

    def _read_army(self):
        """An army that the program has drawn up, as its own board tells it."""
        texts = self.copy.board()
        for cell in self.variant.zone():
            rank = texts[self.number_of(cell)].rsplit(" ", 3)[0]  # "Capitán rojo . A1"
            self.set(cell, (self.number, RANKS.index(rank)))
        self.left = dict.fromkeys(self.left, 0)
        counts = collections.Counter(self.rank_at(cell) for cell in self.variant.zone())
        assert counts == collections.Counter(self.variant.counts), f"the army of {self.name} is {counts}"

    def movable_piece(self):
        """The cell of the first own piece that can move, column by column from A1 up, or None."""
        for cell in sorted(self.variant.cells(), key=lambda cell: (cell[0], int(cell[1:]))):
            if self.board.get(cell, (None,))[0] == self.number and self.can_move(cell):
                return cell
        return None

    def lanes(self):
        """The columns without water in which the own piece of the first row can step forward."""
        row = self.variant.zone_rows
        return [
            letter
            for letter in self.variant.open_columns()
            if SPY <= self.rank_at(f"{letter}{row}") <= MARSHAL and f"{letter}{row + 1}" not in self.board
        ]

    def can_move(self, cell):
        free = (
            beside not in self.variant.water and self.board.get(beside, (None,))[0] != self.number
            for beside in self.variant.neighbours(cell)
        )
        return SPY <= self.rank_at(cell) <= MARSHAL and any(free)


# ---- Both players ----


class Session(placing.Session):
    """Two copies after the handshake; side 0 is the server and side 1 the client."""

    def __init__(
        self, variant, server_hand, client_hand, starter, server=SERVER, client=CLIENT, tell=lambda line: None
    ):
        sides = Side(server_hand, server.kept_name, 0, variant), Side(client_hand, client.kept_name, 1, variant)
        super().__init__(variant.game, sides, starter, tell)
        self.variant = variant
        self.ready = set()  # the sides that have ever sent an army

    # ---- Placing ----

    def place(self, side, cell, rank):
        """A click and a choice. The last piece of all is followed by a question, which the caller answers."""
        self.open_menu(side, cell)
        self.choose_rank(side, cell, rank)

    def choose_rank(self, side, cell, rank):
        """From the menu that is open at a cell."""
        player = self.sides[side]
        player.hand.choose_item(f"{RANKS[rank]} ({player.left[rank]})")
        player.left[rank] -= 1
        player.set(cell, (side, rank))
        self.tell(f"{player.name} places a piece on {cell}: {RANKS[rank]}")
        player.expect_status(player.description(cell))

    def open_menu(self, side, cell):
        """A click on an empty cell of the zone."""
        player = self.sides[side]
        self.click(side, cell)
        expected = [f"{RANKS[rank]} ({left})" for rank, left in player.left.items() if left]
        wait_for_value("the menu", lambda: [item.name for item in player.copy.menu_items()], expected)

    def take_back(self, side, cell):
        player = self.sides[side]
        rank = player.rank_at(cell)
        self.click(side, cell)
        self.tell(f"{player.name} takes a piece off {cell} again: {RANKS[rank]}")
        player.expect_line(TAKEN_BACK_LINE)
        player.left[rank] += 1
        player.set(cell, None)
        player.lingering[cell] = RANKS[rank]
        player.expect_status(player.description(cell))

    def deploy(self, side, answer):
        player = self.sides[side]
        self.tell(f"{player.name} presses F3 for a random army and answers {answer!r}")
        player.deploy(answer)

    def arrange(self, side, wanted):
        """Changes a complete army until the wanted ranks stand where they are wanted."""
        player = self.sides[side]
        wrong = {cell: rank for cell, rank in wanted.items() if player.rank_at(cell) != rank}
        missing = collections.Counter(wrong.values()) - collections.Counter(map(player.rank_at, wrong))
        taken = list(wrong)
        for cell in self.variant.zone():
            if cell not in wanted and missing[player.rank_at(cell)] > 0:
                missing[player.rank_at(cell)] -= 1
                taken.append(cell)
        for cell in taken:
            self.take_back(side, cell)
        for cell in taken:
            rank = wrong.get(cell) or next(rank for rank, left in player.left.items() if left)
            self.place(side, cell, rank)
        if taken:
            self.answer(side, self.variant.placed_title, PLACED_TEXT, NO)

    # ---- Exchange of the armies ----

    def exchange(self, side, with_boxes_open=lambda: None):
        """The army of one side has been confirmed and leaves."""
        player, other = self.sides[side], self.sides[1 - side]
        self.ready.add(side)
        for cell in self.variant.zone():
            other.set(self.variant.mirrored(cell), player.board[cell])
        player.lingering.clear()
        other.lingering.clear()
        if len(self.ready) == 1:
            self.tell(f"{player.name} confirms the army and is told to wait")
            self.answer(side, NO_TITLE, WAIT_TEXT)
            other.log += f"\n{OTHER_ARMY_LINE}"
            other.expect_line(OTHER_READY_LINE)
        else:
            self.tell(f"{player.name} confirms the army; both are told who moves first")
            self._begin_fight(player, other, with_boxes_open)
        for each in self.sides:
            each.expect_log()
            each.expect_board()

    def _begin_fight(self, sender, receiver, with_boxes_open):
        told_twice = self.variant.tells_twice
        sender.copy.box(NO_TITLE)
        wait_for_value("the boxes of the receiver", lambda: len(receiver.copy.boxes()), 1 + told_twice)
        with_boxes_open()
        for player in self.sides:
            player.expect_log("")
            player.expect_status("")
        if told_twice:
            self.answer(receiver.number, NO_TITLE, PLAY_TEXTS[receiver.number == self.turn])
        for player in self.sides:
            self.answer(player.number, NO_TITLE, FIGHT_TEXTS[player.number == self.turn])

    # ---- Fight ----

    def move(self, side, origin, target):
        """A move or an attack, compared on both sides."""
        player, other = self.sides[side], self.sides[1 - side]
        attacker, defender = player.rank_at(origin), player.rank_at(target)
        line = f"Le toca jugar a{other.padded_name}"
        if defender:
            outcome, status = combat(attacker, defender)
        else:
            outcome, status = MOVED, f"{RANKS[attacker]} movido"
            line = f"{status}. {line}"
        self.click_and_read(side, origin, selected(attacker))
        self.click(side, target)
        player.expect_status(status)
        player.expect_line(line)
        self.tell(f"{player.name} moves from {origin} to {target}: {status}")
        cells = [self.variant.mirrored(cell) for cell in (origin, target)]
        report = told(outcome, attacker, defender, *cells)
        player.apply(origin, target, outcome)
        player.expect_board()
        self.answer(1 - side, NO_TITLE, f"{player.padded_name}{report}")
        other.apply(*cells, outcome)
        other.expect_board()
        self.turn = 1 - self.turn

    def take_flag(self, side, origin, target, with_boxes_open=lambda: None):
        """The move that ends the game, and both boxes about it."""
        winner, loser = self.sides[side], self.sides[1 - side]
        attacker = winner.rank_at(origin)
        outcome, status = combat(attacker, winner.rank_at(target))
        assert outcome == FLAG_TAKEN, f"there is no flag on {target}"
        self.click_and_read(side, origin, selected(attacker))
        self.click(side, target)
        self.scores[side] += 1
        winner.copy.box(WIN_TITLE)
        loser.copy.box(LOSS_TITLE)
        self.tell(f"{winner.name} moves from {origin} to {target}: {status}")
        with_boxes_open()
        winner.expect_log()
        winner.expect_status(status)
        loser.expect_log("")
        loser.expect_status("")
        self.answer(side, WIN_TITLE, WIN_TEXT)
        self.answer(1 - side, LOSS_TITLE, loss_text(winner.name))
        winner.expect_line(placing.AFTER_WIN_LINE)
        # The piece goes on showing where it came from.
        winner.set(origin, None)
        winner.lingering[origin] = RANKS[attacker]
        for player in self.sides:
            player.expect_board()

    def try_to_pass(self, side):
        """Esc, which names a piece that can move."""
        player = self.sides[side]
        cell = player.movable_piece()
        self.press_key(side, "Escape")
        player.expect_line(f"Puede mover el {RANKS[player.rank_at(cell)]} de {cell}.")

    # ---- With random armies ----

    def step(self, side):
        """A piece of the first row goes forward."""
        letter = self.sides[side].lanes()[0]
        self.move(side, f"{letter}{self.variant.zone_rows}", f"{letter}{self.variant.zone_rows + 1}")

    def opposite(self, side):
        """Where the other player must have the flag for conquer, as that one calls the cell."""
        return self.variant.mirrored(f"{self.sides[side].lanes()[0]}{self.variant.rows + 1 - self.variant.zone_rows}")

    def conquer(self, side, at_the_flag=lambda: None, with_boxes_open=lambda: None):
        """One player goes straight for the flag, while the other moves a piece to and fro."""
        first, last = self.variant.zone_rows, self.variant.rows - self.variant.zone_rows
        way = [f"{self.sides[side].lanes()[0]}{row}" for row in range(first, last + 1)]
        idle = self.sides[1 - side].lanes()[0]
        others = itertools.cycle(((f"{idle}{first}", f"{idle}{first + 1}"), (f"{idle}{first + 1}", f"{idle}{first}")))
        if self.sides[side].rank_at(way[0]) == SCOUT:
            del way[1:]
        for origin, target in zip(way, way[1:]):
            self.move(side, origin, target)
            self.move(1 - side, *next(others))
        at_the_flag()
        self.take_flag(side, way[-1], self.variant.mirrored(self.flag_of(1 - side)), with_boxes_open)

    def flag_of(self, side):
        return next(cell for cell, piece in self.sides[side].board.items() if piece == (side, FLAG))

    # ---- Another game ----

    def play_again_at_once(self, side, with_boxes_open=lambda: None):
        """From the third game on a single wish is enough."""
        self.wish_rematch(side)
        self.begin_again(with_boxes_open)
