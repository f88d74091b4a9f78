"""The start window with each kind of Brontavia.ini, and the games that cannot be played yet."""

import cases
import handshake
from hands import KeyHand, MouseHand

# The first games of the list can be played; these cannot.
NOT_YET = range(4, 5)


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

    def test_games_that_cannot_be_played_yet(self):
        for hand, server in ((MouseHand(self.start("")), True), (KeyHand(self.start("")), False)):
            handshake.choose_role(hand, server)
            for number in NOT_YET:
                name = handshake.GAMES[number]
                with self.subTest(name):
                    hand.choose_game(number)
                    hand.answer_box(handshake.NO_TITLE, f"{name}: este juego todavía no está disponible.")
                    hand.copy.expect_text("Text1", handshake.SELECTION_QUESTION)
                    self.assertEqual(hand.copy.selected_entry(), number)
            handshake.leave(hand)


if __name__ == "__main__":
    cases.main()
