"""Saved positions: written, opened again and gone on with together, one copy by mouse and the other by keyboard."""

import datetime
import os
import pathlib
import tempfile
import unittest.mock

import cases
import chess
import chess_cases
import screen
from hands import NO
from waiting import wait_for_value, wait_until

_ANA, _LUIS = 0, 1
# A file, and what it holds as chess.Position is made.
_AFTER_E4 = b"tcadract/pppppppp/8/8/4P3/8/PPPP1PPP/TCADRACT/N RDrd e6 0 1\r\n"
_AFTER_E4_POSITION = ("tcadract/pppppppp/8/8/4P3/8/PPPP1PPP/TCADRACT/", True)
_STANDARD = b"r3k2r/pppppppp/8/8/8/8/PPPPPPPP/R3K2R b KQkq - 0 12\nnobody reads this\n"
_STANDARD_POSITION = ("t3r2t/pppppppp/8/8/8/8/PPPPPPPP/T3R2T/", True, "RDrd", 12)


class ChessFiles(chess_cases.ChessTest):
    def setUp(self):
        super().setUp()
        profile = tempfile.TemporaryDirectory(prefix="brontavia_profile_")
        self.addCleanup(profile.cleanup)
        self.folder = pathlib.Path(profile.name, "Mis documentos")
        self.folder.mkdir()
        environment = unittest.mock.patch.dict(os.environ, userProfile=profile.name)
        environment.start()
        self.addCleanup(environment.stop)

    def file(self, name, content):
        path = self.folder / name
        path.write_bytes(content)
        return path

    def expect_file(self, path, content):
        wait_for_value(f"the bytes of {path.name}", lambda: path.exists() and path.read_bytes(), content)

    @staticmethod
    def proposal():
        today = datetime.date.today()
        return f"Ana-Luis _ {today.day}-{today.month}-{today.year}.fen"

    def test_save(self):
        session = self.start_fresh()
        luis = session.sides[_LUIS]
        mine, hers = self.folder / "mine.fen", self.folder / "hers.fen"
        session.play("e2-e4")
        session.save_as(_LUIS, mine, self.proposal())
        self.expect_file(mine, _AFTER_E4)
        session.play("e7-e5", "Cg1-f3", "Cb8-c6", "Th1-g1")
        luis.choose(chess.FILE_MENU, chess.SAVE)
        self.expect_file(mine, b"t1adract/pppp1ppp/2c5/4p3/4P3/5C2/PPPP1PPP/TCADRAT1/N Drd - 3 3\r\n")
        # Without a name of its own the command asks for one.
        session.save_as(_ANA, hers, self.proposal(), chess.SAVE)
        self.expect_file(hers, mine.read_bytes())
        self.cancel(session, _LUIS, chess.SAVE_AS, chess.SAVE_TITLE)
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), ["hers.fen", "mine.fen"])
        session.expect_position()
        self.assert_silent(session)

    def cancel(self, session, side, command, title):
        player = session.sides[side]
        player.choose(chess.FILE_MENU, command)
        box = player.copy.box(title)
        player.copy.bring_to_front(box)
        screen.press("Escape")
        wait_until("the dialog to close", lambda: not player.copy.boxes())

    def test_open_and_resume(self):
        session = self.start_fresh()
        after_e4 = self.file("after_e4.fen", _AFTER_E4)
        session.play("d2-d4", "d7-d5")
        self.cancel(session, _ANA, chess.OPEN, chess.OPEN_TITLE)
        session.ask_to_resume(_LUIS, after_e4, NO)
        session.expect_position()
        session.play("c2-c4")
        # White with Black to move: the turn is the other player's.
        session.resume(_ANA, after_e4, ("3", "x", "1"), *_AFTER_E4_POSITION)
        session.play("e7-e5", "Cg1-f3")
        # Black with Black to move: the turn is the other player's all the same.
        session.resume(_LUIS, self.file("standard.fen", _STANDARD), ("2",), *_STANDARD_POSITION)
        self.assertEqual(session.turn, _ANA)
        session.play("0-0-0", "0-0")
        self.assert_silent(session)

    def test_files_that_hold_no_position(self):
        session = self.start_fresh()
        session.play("e2-e4")
        for name, content in (
            ("empty.fen", b""),
            ("words.fen", "¡Hola! Esto no es una posición.\n".encode("cp1252")),
            ("binary.fen", bytes(range(256)) * 8),
            ("short.fen", b"tcadract/pppppppp/8/8/4P3/8/PPPP1PPP B RDrd - 0 1"),
        ):
            with self.subTest(name):
                session.choose_file(_LUIS, self.file(name, content))
                session.sides[_LUIS].hand.answer_box(chess.OPEN_TITLE, chess.NO_POSITION_TEXT)
                session.sides[_ANA].copy.expect_no_box()
                session.expect_position()
        session.play("e7-e5")
        self.assert_silent(session)


if __name__ == "__main__":
    cases.main()
