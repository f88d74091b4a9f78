"""The exact bytes of a naval battle, and a fleet that is none."""

import cases
import handshake
import naval
import placing
import screen
from hands import NO, YES

GAME = naval.GAME
# The fleet of IN_ROWS on the wire.
FLEET = b"Datos|3))-)4)+,+5)-+-6--/-7)/+/8-/./9)1*1"


class NavalWire(cases.CopiesTest):
    def server_session(self):
        """A copy as server in session with a bare peer; the server begins."""
        hand, peer = self.start_server_session(GAME)
        hand.answer_box(handshake.NO_TITLE, naval.PLACE_TEXT)
        return hand, peer

    def place(self, hand, answer):
        for start, end in naval.IN_ROWS:
            hand.click_cell(naval.number_of(start))
            hand.click_cell(naval.number_of(end))
        hand.answer_box(GAME.title, naval.FINISHED_TEXT, answer)

    def test_bytes_of_a_battle(self):
        hand, peer = self.server_session()
        self.assertEqual(len(FLEET), 41)
        with peer.expect_writes(FLEET, b"Listo|"):
            self.place(hand, YES)
        hand.answer_box(handshake.NO_TITLE, naval.WAIT_FOR_OTHER_TEXT)
        peer.send(FLEET)
        peer.send(b"Listo|")
        hand.answer_box(handshake.NO_TITLE, naval.READY_TEXTS[True])
        self.fire(hand, peer, "J10", b"Jug|22A")
        peer.send(b"Jug|)2A")
        hand.copy.expect_text("TBMensajes", "\nDisparo enemigo  en A10: Agua. Le toca disparar.")
        cells = [cell for ends in naval.IN_ROWS for cell in naval.cells_between(*ends)]
        for cell in cells[:-1]:
            self.fire(hand, peer, cell, b"Jug|%c%cI" % (ord(cell[0]) - 24, 40 + int(cell[1:])))
        # Both leave before the box is answered, and in one write.
        with peer.expect_writes(b"Jug|*1IHaganado|"):
            hand.click_cell(naval.number_of(cells[-1]))
        hand.answer_box(placing.WIN_TITLE, naval.WIN_TEXT)
        hand.click_cell(naval.number_of("A1"))
        hand.answer_box(GAME.title, handshake.REMATCH_TEXT, NO)
        peer.expect_refusals(b"Seguir|No")
        handshake.leave(hand)

    @staticmethod
    def fire(hand, peer, cell, expected):
        hand.click_cell(naval.number_of(cell))
        peer.expect(expected)

    def test_defeat_in_one_read(self):
        """The peer's last shot and "Haganado|" come together: the shot no longer counts."""
        hand, peer = self.server_session()
        peer.send(FLEET + b"Listo|")  # as a copy reads them that was busy when they came
        with peer.expect_writes(FLEET, b"Listo|"):
            self.place(hand, YES)
        hand.answer_box(handshake.NO_TITLE, naval.READY_TEXTS[True])
        self.fire(hand, peer, "J10", b"Jug|22A")
        peer.send(b"Jug|))IHaganado|")
        hand.answer_box(placing.LOSS_TITLE, naval.loss_text("Eva"))
        hand.copy.expect_text("TBMensajes", "")
        self.assertNotIn("Impacto", hand.copy.cell(naval.number_of("A1"), "FG2").name)
        peer.send(b"Seguir|No")
        hand.answer_box(handshake.NO_TITLE, handshake.refusal_text("Eva"))
        handshake.leave(hand)

    def test_malformed_fleet(self):
        """It is told, and from then on the own fleet cannot be confirmed."""
        hand, peer = self.server_session()
        peer.send(b"Datos|3)))))")
        hand.answer_box(
            handshake.NO_TITLE,
            "Error. Datos actuales: 3))))) numbarco = 0 recibidos: False, colocando = False, Limpiando = False "
            "Contadores: 0; 0; 0; 0. Coor: 1, 1",
        )
        self.place(hand, YES)
        hand.answer_box(handshake.NO_TITLE, naval.WAIT_FOR_FLEET_TEXT)
        screen.press("t")
        hand.answer_box(handshake.NO_TITLE, naval.WAIT_FOR_FLEET_TEXT + ".")
        peer.expect_silence()
        self.assert_usable_and_leaves(hand, GAME)


if __name__ == "__main__":
    cases.main()
