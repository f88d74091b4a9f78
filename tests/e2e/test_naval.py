"""A whole naval battle, the server by mouse alone and the client by keyboard alone."""

import cases
import handshake
import naval
import placing
from handshake import Player
from hands import NO, YES, KeyHand, MouseHand

GAME = naval.GAME
ANA = Player("Servidor", "Ana", "1")
LUIS = Player("Cliente", "Luis", "2")
_ANA, _LUIS = 0, 1


class Naval(cases.CopiesTest):
    def test_a_battle_by_mouse_and_keyboard(self):
        hands = self.start_pair(GAME, MouseHand, KeyHand)
        self.check_frames(*(hand.copy for hand in hands))
        handshake.shake_hands(*hands, GAME, ANA, LUIS)
        self.check_logs(*(hand.copy for hand in hands))
        session = naval.Session(*hands, _ANA, ANA, LUIS)
        session.start_placing()
        self.place_by_keyboard(session)
        self.place_by_mouse(session)
        self.fire(session)
        session.play_again(_LUIS)
        self.place_again(session)
        for hand in hands:
            self.assert_usable_and_leaves(hand, GAME)
            self.assertEqual(hand.copy.errors(), "")

    def check_frames(self, server, client):
        self.assertEqual(server.text("TbServ1"), handshake.SERVER_INSTRUCTIONS)
        broken = handshake.CLIENT_INSTRUCTIONS.replace("del mismo ordenador", "del mismo \nordenador")
        self.assertEqual(client.text("TbCli1"), broken)

    def check_logs(self, server, client):
        report = placing.report_line("Ana", drawn=False)
        server.expect_text("TBMensajes", placing.handshake_log(True, "Luis", report))
        client.expect_text("TBMensajes", placing.handshake_log(False, "Ana", report))

    def place_by_keyboard(self, session):
        """Esc and T as well; the server has two ships on its board when the fleet comes."""
        player = session.sides[_LUIS]
        session.click_and_read(_LUIS, "A1", naval.START_FIXED)
        session.press_key(_LUIS, "Escape")
        player.expect_status(naval.START_FORGOTTEN)
        session.press_key(_LUIS, "t")
        player.expect_line(naval.SHIPS_MISSING_LINE)
        session.place_all(_LUIS, range(5))
        session.click_and_read(_LUIS, "I5", naval.START_FIXED)
        session.refuse_in_log(_LUIS, "I7", naval.NO_MORE_LINE)
        session.click_and_read(_LUIS, "I5", naval.START_REMOVED)
        session.place_all(_LUIS, (5, 6))
        session.place_all(_ANA, (0, 1))
        session.answer(_LUIS, GAME.title, naval.FINISHED_TEXT, NO)
        player.expect_line(naval.CHANGE_LINE)
        player.expect_boards()
        for cell in ("I2", "J3", "A7"):
            player.expect_described(cell)
        session.press_key(_LUIS, "T")
        session.send_first(_LUIS)
        session.click_and_read(_LUIS, "B1", placing.NOT_YOUR_TURN)

    def place_by_mouse(self, session):
        """Refusals and removals; FG1 no longer shows what was placed before the other fleet came."""
        player = session.sides[_ANA]
        session.click_and_read(_ANA, "E3", naval.NOT_FREE)
        session.click_and_read(_ANA, "A5", naval.START_FIXED)
        session.refuse(_ANA, "B6", naval.diagonal_text("A5"))
        session.refuse(_ANA, "F5", naval.TOO_LONG_TEXT)
        session.click_and_read(_ANA, "A5", naval.START_REMOVED)
        session.remove(_ANA, 0, "B1", NO)
        session.place_all(_ANA, (2, 3))
        session.click_and_read(_ANA, "H3", naval.START_FIXED)
        session.refuse(_ANA, "H7", naval.BLOCKED_TEXT)
        session.click_and_read(_ANA, "H3", naval.START_REMOVED)
        session.place_all(_ANA, (4, 5, 6))
        session.answer(_ANA, GAME.title, naval.FINISHED_TEXT, NO)
        player.expect_line(naval.CHANGE_LINE)
        session.remove(_ANA, 6, "A9", YES)
        player.expect_boards()
        session.place(_ANA, 6)
        session.answer(_ANA, GAME.title, naval.FINISHED_TEXT, YES)
        session.send_second(_ANA)

    def fire(self, session):
        """Hits, the same cell twice, sinkings and water by both; the client wins."""
        ana, luis = session.sides
        session.click_and_read(_LUIS, "B3", placing.NOT_YOUR_TURN)
        for cell in ("E1", "E1", "G5", "G6", "E1"):
            session.fire(_ANA, cell)
        for cell in ("G5", "H4", "J10"):
            ana.expect_described(cell)
        session.fire(_ANA, "J10")
        session.click_and_read(_ANA, "J9", placing.NOT_YOUR_TURN)
        for cell in ("B3", "B9", "A9", "J10"):
            session.fire(_LUIS, cell)
        for player in session.sides:
            player.expect_boards()
        session.fire(_ANA, "J10")
        session.sink_rest(_LUIS, keep=("F7",))
        session.win(_LUIS, "F7")

    def place_again(self, session):
        """The winner begins, is the first to be ready, and may not fire yet."""
        session.place_all(_LUIS)
        session.answer(_LUIS, GAME.title, naval.FINISHED_TEXT, YES)
        session.send_first(_LUIS)
        session.refuse(_LUIS, "J10", naval.TOO_EARLY_TEXT)
        session.place(_ANA, 6)
        session.sides[_ANA].expect_boards()


if __name__ == "__main__":
    cases.main()
