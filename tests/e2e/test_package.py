"""The installed program in the system below BRONTAVIA_ROOT, where nothing is but what its package asks for."""

import os
import pathlib

import cases
import handshake
import screen
import three_in_row
from driver import Copy
from waiting import wait_for_value

ROOT = pathlib.Path(os.environ["BRONTAVIA_ROOT"])
CONFIGURATION = ROOT / "etc/brontavia/Brontavia.ini"
MANUAL = ROOT / "usr/share/doc/brontavia/manual/index.html"


class InstalledCopy(Copy):
    def _command(self, binary, ini):
        return ["chroot", ROOT, binary]


class Package(cases.CopiesTest):
    def start(self, ini=None, environment=None):
        copy = InstalledCopy("/usr/games/brontavia")
        self.addCleanup(copy.end)
        return copy

    def test_as_it_is_shipped(self):
        copy = self.start()
        copy.expect_text("Text1", handshake.START_QUESTION)
        # Drawn by a plugin that is only loaded.
        wait_for_value("the icon", lambda: screen.icon_sides(screen.windows_of(copy.pid)[-1][0]), [16, 32, 48])
        self.assertEqual(copy.find("push button", "Manual") is not None, MANUAL.exists())

    def test_a_whole_game_over_a_port_from_etc(self):
        shipped = CONFIGURATION.read_bytes()
        self.addCleanup(CONFIGURATION.write_bytes, shipped)
        CONFIGURATION.write_text(f"{self.port}\n")
        first = self.start()
        first.expect_text("Text1", f"{handshake.START_QUESTION} Puerto de conexión: {self.port}")
        first.end()
        session = self.start_session()
        session.placing_game(handshake.starter(session.copies[0]))
        session.stop(0)
        for hand in session.hands:
            handshake.leave(hand)
            self.assertEqual(hand.copy.errors(), "")


if __name__ == "__main__":
    cases.main()
