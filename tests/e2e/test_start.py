"""The start window with each kind of Brontavia.ini."""

import cases
import handshake
import screen
from waiting import wait_for_value


class Start(cases.CopiesTest):
    def check(self, ini, port_line):
        copy = self.start(ini)
        copy.expect_caption("BRONTAVIA")
        copy.expect_text("Text1", handshake.START_QUESTION + port_line)

    def test_brontavia_ini(self):
        for ini, port_line in (
            ("34567", ""),
            ("40000", " Puerto de conexión: 40000"),
            ("40000abc\r\n12345", " Puerto de conexión: 40000"),
            ("1 2 3 4 5\n", " Puerto de conexión: 12345"),
            ("2001.5", " Puerto de conexión: 2002"),
            ("", " Puerto de conexión: 0"),
            ("puerto", " Puerto de conexión: 0"),
        ):
            with self.subTest(ini):
                self.check(ini, port_line)

    def test_without_brontavia_ini(self):
        self.check(None, "")

    def test_the_window_has_the_programs_icon(self):
        copy = self.start()
        copy.expect_caption("BRONTAVIA")
        wait_for_value("the icon", lambda: screen.icon_sides(screen.windows_of(copy.pid)[-1][0]), [16, 32, 48])


if __name__ == "__main__":
    cases.main()
