"""A session of chess that can be played by any two hands.

It keeps its own idea of the position and compares everything that the windows show with it.
"""

import time

import chess
import placing
from chess import GAME, Move, Position
from handshake import CLIENT, NO_TITLE, SERVER, score_text
from hands import NO, YES
from placing import NEW_GAME_TITLE
from waiting import wait_for_value, wait_until


class Side(placing.Side):
    """What the window of one player must show."""

    def __init__(self, hand, name):
        super().__init__(hand, name)
        self.flipped = False
        self.position = Position()
        self.learning = False
        self.reachable = ()  # squares that learning mode marks

    def number_of(self, square):
        column, row = ord(square[0].lower()) - ord("a") + 1, int(square[1])
        return row * 9 + 9 - column if self.flipped else (9 - row) * 9 + column

    def description(self, square):
        return ("Disponible " if square in self.reachable else "") + self.position.describe(square)

    def choose(self, menu, caption):
        self.hand.choose_command(menu, caption)

    def click_and_read(self, square, status):
        self.click(square)
        self.expect_status(status)

    def expect_board(self):
        """Each square and each header, as a screen reader says them."""
        expected = {self.number_of(square): self.description(square) for square in chess.SQUARES}
        places = range(1, 9)
        for place, letter, number in zip(places, "hgfedcba" if self.flipped else "abcdefgh", places):
            expected[place] = letter
            expected[9 * place] = str(number if self.flipped else 9 - number)
        wait_for_value(f"the board of {self.name}", self._shown, {0: "", **expected})

    def _shown(self):
        return {number: cell.name for number, cell in enumerate(self.copy.cells())}

    def expect_texts(self):
        """The list of moves and the position box."""
        self.copy.expect_text("TBJugadas", self.position.list)
        self.copy.expect_text("TBEntorno", self.position.box())

    def expect_position(self, position):
        """Another position has come."""
        self.position = position
        self.expect_board()
        self.expect_texts()

    # ---- The own move ----

    def make(self, move):
        """Both clicks of a move."""
        self.click_and_read(move.source, chess.selected(self.position.pieces[move.source]))
        if self.learning:
            self.reachable = (move.target,)
        self.status = self.description(move.target)
        self.click(move.target)

    def see(self, move, replayed):
        """What a move of either player leaves in the window."""
        self.reachable = ()
        if replayed:
            self.status = chess.selected(self.position.pieces[move.source])
        piece = self.position.pieces[move.source]
        sentence = move.sentence(self.position)
        if self.position.offers_en_passant(move, piece):
            self.status = chess.EN_PASSANT_STATUS
        if move.promotion:
            self.status = chess.PROMOTION_STATUS
            self.copy.expect_text("TBEstado", self.status)
            self.hand.choose_item(chess.name_of(move.promotion).split(" ", maxsplit=1)[0])
        self.position.apply(move)
        self.expect_status(self.status)
        self.expect_line(sentence)
        self.expect_board()
        self.expect_texts()


class Session(placing.Session):
    """Two copies after the handshake; side 0 is the server and side 1 the client."""

    def __init__(self, server_hand, client_hand, white, server=SERVER, client=CLIENT, tell=lambda line: None):
        sides = Side(server_hand, server.kept_name), Side(client_hand, client.kept_name)
        super().__init__(GAME, sides, white, tell)
        self.white = white

    def expect_position(self):
        for player in self.sides:
            player.expect_board()
            player.expect_texts()

    # ---- Moves ----

    def play(self, *moves):
        """Moves of both players in turn."""
        for text in moves:
            player, other = self.sides[self.turn], self.sides[1 - self.turn]
            move = Move(text, player.position.black_moves)
            self.tell(f"{player.name} moves {text}")
            player.make(move)
            player.see(move, replayed=False)
            other.see(move, replayed=True)
            self.turn = 1 - self.turn

    # ---- Draws and ends ----

    def offer_draw(self, answer):
        """The player to move offers, the other answers."""
        player, other = self.sides[self.turn], self.sides[1 - self.turn]
        self.tell(f"{player.name} offers a draw, {other.name} answers {answer!r}")
        player.choose(chess.OPTIONS_MENU, chess.OFFER)
        player.expect_line(chess.OFFERED_LINE)
        other.hand.answer_box(chess.DRAW_TITLE, chess.DRAW_QUESTION, answer)
        if answer == NO:
            other.expect_line(chess.OTHER_MOVES_LINE)
            player.hand.answer_box(NO_TITLE, chess.DRAW_REFUSED_TEXT)
            return
        for side, text in ((other, chess.DRAW_TEXT), (player, chess.DRAW_ACCEPTED_TEXT)):
            side.position.list += " y los jugadores acuerdan tablas."
            side.expect_texts()
            side.hand.answer_box(NO_TITLE, text)
        self.scores = [score + score % 2 for score in self.scores]

    def declare_mate(self, with_boxes_open=lambda: None):
        self._lose(chess.MATE, "se ha declarado en jaque mate.", with_boxes_open)

    def resign(self, with_boxes_open=lambda: None):
        loser, winner = self.sides[self.turn], self.sides[1 - self.turn]
        colour = "blancas" if self.turn == self.white else "negras"
        self._lose(chess.RESIGN, "abandona la partida.", with_boxes_open)
        winner.position.list += f" y las {colour} abandonan.  "
        for player in (loser, winner):
            player.expect_texts()

    def _lose(self, command, told, with_boxes_open):
        """The player to move loses."""
        loser, winner = self.sides[self.turn], self.sides[1 - self.turn]
        self.tell(f"{loser.name} chooses {command!r}: the game is over")
        loser.choose(chess.OPTIONS_MENU, command)
        loser.copy.box(NO_TITLE, chess.LOST_TEXT)
        winner.copy.box(NO_TITLE)
        with_boxes_open()
        loser.hand.answer_box(NO_TITLE, chess.LOST_TEXT)
        winner.hand.answer_box(NO_TITLE, f"{loser.name} {told}")
        winner.hand.answer_box(NO_TITLE, chess.WON_TEXT)
        self.scores[1 - self.turn] += 1

    def play_again(self, first, with_boxes_open=lambda: None):
        """Both want another game; the colours change hands."""
        self.wish_rematch(first)
        self.white = self.turn = 1 - self.white
        self.ask_rematch(1 - first, YES)
        for player in self.sides:
            player.copy.box(NEW_GAME_TITLE)
        with_boxes_open()
        names = [player.name for player in self.sides]
        text = score_text(GAME, names[0], self.scores[0], names[1], self.scores[1], names[self.white])
        for player in self.sides:
            player.hand.answer_box(NEW_GAME_TITLE, text)
            player.expect_status("")
            player.expect_log("")
            player.expect_position(Position())
            player.copy.expect_text("TBReloj", chess.STOPPED_CLOCKS)

    # ---- Position files ----

    def save_as(self, side, path, proposal, command=chess.SAVE_AS):
        """Chooses a file to write the position to."""
        player = self.sides[side]
        self.tell(f"{player.name} saves the position")
        player.choose(chess.FILE_MENU, command)
        player.hand.answer_file(chess.SAVE_TITLE, proposal, path)

    def choose_file(self, side, path):
        """Chooses a file to open."""
        player = self.sides[side]
        player.choose(chess.FILE_MENU, chess.OPEN)
        player.hand.answer_file(chess.OPEN_TITLE, None, path)

    def ask_to_resume(self, side, path, answer):
        """Chooses a saved position; the other player answers."""
        player, other = self.sides[side], self.sides[1 - side]
        self.tell(f"{player.name} wants to go on with {path.name}, {other.name} answers {answer!r}")
        self.choose_file(side, path)
        player.hand.answer_box(NO_TITLE, chess.resume_sent_text(other.name, path.name))
        other.hand.answer_box(chess.RESUME_TITLE, chess.resume_question(player.name, path.name), answer)
        if answer == NO:
            player.hand.answer_box(NO_TITLE, chess.refused_resume_text(other.name))

    def resume(self, side, path, answers, *position):
        """Goes on with a saved position, told as Position is made. The last answer chooses the colours."""
        player, other = self.sides[side], self.sides[1 - side]
        self.ask_to_resume(side, path, YES)
        for answer in answers:
            player.hand.answer_input(chess.COLOURS_TITLE, chess.COLOURS_PROMPT, "", answer)
        plays_white = answers[-1] == "1"
        self.white = side if plays_white else 1 - side
        for each in self.sides:
            each.position = Position(*position)
        black_moves = player.position.black_moves
        self.turn = side if plays_white and not black_moves else 1 - side
        player.expect_line(chess.RESUME_ACCEPTED_LINE)
        other.expect_line(chess.loaded_line(self.white == 1 - side, black_moves))
        self.expect_position()

    # ---- Free mode ----

    def enter_free_mode(self, side):
        """Sent until it has certainly left, so that the other player may be told more than once."""
        player, other = self.sides[side], self.sides[1 - side]
        self.tell(f"{player.name} switches free mode on")
        player.choose(chess.OPTIONS_MENU, chess.FREE_MODE)
        self.answer(side, chess.FREE_MODE_TITLE, chess.FREE_MODE_TEXT, YES)
        other.copy.box(NO_TITLE)
        self._await_last_box(other.copy)
        while other.copy.boxes():
            self.answer(1 - side, NO_TITLE, f"{player.name} ha activado el modo libre.")

    @staticmethod
    def _await_last_box(copy):
        """Until no further box has come for longer than the pauses between the sends."""
        seen = [0, time.monotonic()]

        def rests():
            count = len(copy.boxes())
            if count != seen[0]:
                seen[:] = count, time.monotonic()
            return time.monotonic() - seen[1] > 1

        wait_until("the last box", rests)

    def empty_board(self, side):
        player = self.sides[side]
        player.choose(chess.OPTIONS_MENU, chess.EMPTY_BOARD)
        player.position.pieces.clear()
        player.expect_board()

    def insert(self, side, square, piece):
        """A click on a square and a choice from the menu of the context-menu key."""
        player = self.sides[side]
        player.click(square)
        player.press_key("Menu")
        names = [item.name for item in player.copy.menu_items()]
        assert names == [chess.name_of(each) for each in "PTCADRptcadr"], names
        player.hand.choose_item(chess.name_of(piece))
        player.position.pieces[square] = piece
        player.expect_board()

    def delete(self, side, square):
        player = self.sides[side]
        player.click(square)
        player.press_key("Delete")
        del player.position.pieces[square]
        player.expect_board()

    def set_data(self, side, number, colour, half_moves):
        player = self.sides[side]
        player.choose(chess.OPTIONS_MENU, chess.SET_DATA)
        proposals = str(player.position.number), str(int(player.position.black_moves))
        for prompt, proposal, answer in zip(chess.DATA_PROMPTS, (*proposals, "0"), (number, colour, half_moves)):
            player.hand.answer_input(chess.SET_DATA, prompt, proposal, str(answer))
        position = player.position
        position.number = position.told_number = number
        position.black_moves = position.told_black = bool(colour)
        player.expect_texts()
