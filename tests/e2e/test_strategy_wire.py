"""The exact bytes of a strategy game, and bad input from a peer that is not the program."""

import cases
import handshake
import placing
import strategy
from handshake import NO_TITLE, Player
from hands import NO
from strategy import BOTH, EST, FLAG, LIEUTENANT, LOST, MARSHAL, MES, MINER, MOVED, SPY, WON
from strategy_session import Side
from waiting import wait_until

_EVA = f"{'Eva':15}"
_OWN, _EVAS = 0, 1  # sides
_LIEUTENANTS = dict.fromkeys(EST.zone(), LIEUTENANT)


class StrategyWire(cases.CopiesTest):
    def placing_session(self, variant=EST):
        """What the window of a server must show that plays against a bare peer and begins."""
        hand, peer = self.start_server_session(variant.game)
        own = Side(hand, "Ana", _OWN, variant)
        report = placing.report_line("Ana", drawn=False)
        own.expect_log(placing.handshake_log(True, "Eva", report, strategy.PLACE_LINE))
        return own, peer

    def fighting_session(self, ranks=_LIEUTENANTS):
        """A server whose random army stands opposite the peer's; the server begins."""
        own, peer = self.placing_session()
        self.take_army(own, ranks)
        peer.send(strategy.army_message(EST, _EVAS, ranks) + "Listo|")
        self.begin_fight(own, peer)
        return own, peer

    @staticmethod
    def take_army(own, ranks):
        for cell, rank in ranks.items():
            own.set(own.variant.mirrored(cell), (1 - own.number, rank) if rank else None)

    @staticmethod
    def send_army(own, peer):
        """A random one."""
        own.deploy(NO)
        ranks = {cell: own.rank_at(cell) for cell in own.variant.zone()}
        message = strategy.army_message(own.variant, own.number, ranks)
        with peer.expect_writes(message.encode(), b"Listo|"):
            own.press_key("Escape")

    def begin_fight(self, own, peer):
        """The peer's army is there."""
        self.send_army(own, peer)
        own.hand.answer_box(NO_TITLE, strategy.FIGHT_TEXTS[own.number == _OWN])
        own.expect_log("")

    def receive_move(self, own, peer, origin, target, outcome):
        """A move of the peer, in cells of the own view."""
        attacker, defender = own.rank_at(origin), own.rank_at(target)
        message = strategy.move_message(own.variant.mirrored(origin), own.variant.mirrored(target), outcome)
        peer.send(message)
        text = _EVA + strategy.told(outcome, attacker, defender, origin, target)
        own.hand.answer_box(NO_TITLE, text)
        own.apply(origin, target, outcome)
        own.expect_board()

    def send_move(self, own, peer, origin, target, outcome):
        own.click(origin)
        own.click(target)
        peer.expect(strategy.move_message(origin, target, outcome).encode())
        own.apply(origin, target, outcome)
        own.expect_board()

    # ---- What the program sends ----

    def test_bytes_of_a_large_game(self):
        own, peer = self.placing_session(EST)
        self.send_army(own, peer)
        own.hand.answer_box(NO_TITLE, strategy.WAIT_TEXT)
        lane = own.lanes()[0]
        beside = "A" if lane == "J" else "J"
        way = [f"{lane}{row}" for row in range(4, 9)]
        weaker = MARSHAL if own.rank_at(way[0]) == SPY else SPY
        ranks = {**_LIEUTENANTS, EST.mirrored(way[3]): weaker, EST.mirrored(way[4]): FLAG}
        self.take_army(own, ranks)
        peer.send(strategy.army_message(EST, _EVAS, ranks))
        peer.send("Listo|")
        own.hand.answer_box(NO_TITLE, strategy.FIGHT_TEXTS[True])
        self.send_move(own, peer, way[0], way[1], MOVED)
        self.receive_move(own, peer, f"{beside}7", f"{beside}6", MOVED)
        self.send_move(own, peer, way[1], way[2], MOVED)
        self.receive_move(own, peer, f"{beside}6", f"{beside}4", BOTH)
        self.send_move(own, peer, way[2], way[3], WON)
        self.receive_move(own, peer, f"{beside}8", f"{beside}7", MOVED)
        # No move goes with it, and it leaves before the box is answered.
        own.click(way[3])
        with peer.expect_writes(b"Haganado|"):
            own.click(way[4])
        own.hand.answer_box(placing.WIN_TITLE, strategy.WIN_TEXT)
        own.click("A1")
        own.hand.answer_box(EST.game.title, handshake.REMATCH_TEXT, NO)
        peer.expect_refusals(b"Seguir|No")
        handshake.leave(own.hand)

    def test_bytes_of_a_small_game(self):
        """The player who was ready first is told twice that the game begins."""
        own, peer = self.placing_session(MES)
        self.send_army(own, peer)
        own.hand.answer_box(NO_TITLE, strategy.WAIT_TEXT)
        ranks = dict.fromkeys(MES.zone(), MINER)
        self.take_army(own, ranks)
        peer.send(strategy.army_message(MES, _EVAS, ranks))
        own.hand.answer_box(NO_TITLE, strategy.FIGHT_TEXTS[True])
        peer.send("Listo|")
        own.hand.answer_box(NO_TITLE, strategy.PLAY_TEXTS[True])
        lane = own.lanes()[0]
        self.send_move(own, peer, f"{lane}3", f"{lane}4", MOVED)
        self.receive_move(own, peer, "A6", "A5", MOVED)
        self.assert_usable_and_leaves(own.hand, MES.game)

    # ---- Armies ----

    def test_an_army_and_its_ready_mark_in_one_read(self):
        """The mark is looked for first, and what the army has behind its last field is left out."""
        own, peer = self.placing_session()
        peer.send(strategy.army_message(EST, _EVAS, _LIEUTENANTS) + "Listo|")
        own.expect_line(f"{strategy.OTHER_READY_LINE}\n{strategy.OTHER_ARMY_LINE}")
        self.take_army(own, _LIEUTENANTS)
        own.expect_board()
        self.begin_fight(own, peer)

    def test_a_ready_mark_and_its_army_in_one_read(self):
        """The fields are then cut in the wrong places, and none of them is a piece."""
        own, peer = self.placing_session()
        peer.send("Listo|" + strategy.army_message(EST, _EVAS, _LIEUTENANTS))
        own.expect_line(f"{strategy.OTHER_READY_LINE}\n{strategy.OTHER_ARMY_LINE}")
        own.expect_board()
        self.begin_fight(own, peer)
        own.expect_board()

    def test_bad_armies(self):
        """Each is taken as far as it is sound, on top of the last one; then the game begins all the same."""
        own, peer = self.placing_session()
        cells = [EST.mirrored(cell) for cell in reversed(EST.zone())]
        for data, codes in (
            ("", []),
            ("112,", [112]),
            ("112,10", [112]),
            ("112," * 41, [112] * 40),
            ("abc,107,-10,-01,", [0, 107, 0, 0]),
            ("012,107,113,114,", [0, 107, 0, 0]),
            ("100,999,9e9,|||,", [0, 0, 0, 0]),
            ("107," * 3000, [107] * 40),
        ):
            with self.subTest(data[:40]):
                peer.send(f"Datos|{data}")
                own.expect_line(strategy.OTHER_ARMY_LINE)
                for cell, code in zip(cells, codes):
                    own.set(cell, (_EVAS, code - 100) if code else None)
                own.expect_board()
        self.begin_fight(own, peer)
        self.go_on(own, peer)

    def test_a_second_army_in_mid_game(self):
        own, peer = self.fighting_session()
        lane = own.lanes()[0]
        self.send_move(own, peer, f"{lane}4", f"{lane}5", MOVED)
        own.log = own.copy.text("TBMensajes")
        self.receive_move(own, peer, f"{lane}7", f"{lane}6", MOVED)
        ranks = {**_LIEUTENANTS, "A4": 0, "J1": FLAG}
        self.take_army(own, ranks)
        peer.send(strategy.army_message(EST, _EVAS, ranks))
        own.hand.answer_box(NO_TITLE, strategy.FIGHT_TEXTS[True])
        own.expect_log("")
        own.expect_board()
        own.click(f"{lane}5")
        own.click(f"{lane}6")
        outcome, status = strategy.combat(own.rank_at(f"{lane}5"), LIEUTENANT)
        own.expect_status(status)
        peer.expect(strategy.move_message(f"{lane}5", f"{lane}6", outcome).encode())

    def go_on(self, own, peer):
        """Both move."""
        lane = own.lanes()[0]
        self.send_move(own, peer, f"{lane}4", f"{lane}5", MOVED)
        self.receive_move(own, peer, f"{lane}7", f"{lane}6", MOVED)

    # ---- Moves ----

    def test_bad_moves(self):
        """Nothing of this moves anything; then the game goes on."""
        own, peer = self.fighting_session()
        for data in cases.GARBAGE:
            peer.send(data)
            self.assert_unchanged(own)
        for told, data in enumerate(
            (
                "Jug|",
                "Jug|01,",
                "Jug|01,04,01,",
                "Jug|11,04,01,05,01,",
                "Jug|00,04,01,05,01,",
                "Jug|01,04,01,00,01,",
                "Jug|01,04,01,11,01,",
                "Jug|-1,04,01,05,01,",
                "Jug|99,99,99,99,99,",
                "Jug|01,04,01,05,03,",
                "Jug|01,04,01,05,-1,",
                "Jug|1e9,2,3,",
                "Jug|abcdefghijklmno",
                "x" * 2**16 + "Jug|01,04,01,05,01,",
                "basura Jug|01,04,01,05,01,",
            ),
            1,
        ):
            peer.send(data)
            wait_until(f"the line about {data[-40:]!r}", lambda: own.copy.errors().count("FormEST Jug|: ") == told)
            self.assert_unchanged(own)
        self.go_on(own, peer)

    @staticmethod
    def assert_unchanged(own):
        own.copy.expect_no_box()
        own.expect_board()
        own.expect_log()

    def test_a_move_without_its_result(self):
        """It reads as an attack that has failed, on nobody."""
        own, peer = self.fighting_session()
        lane = own.lanes()[0]
        self.send_move(own, peer, f"{lane}4", f"{lane}5", MOVED)
        peer.send("Jug|01,04,01,05,")
        text = _EVA + strategy.told(LOST, LIEUTENANT, 0, "J7", "J6")
        own.hand.answer_box(NO_TITLE, text)
        own.set("J7", None)
        own.expect_board()

    # ---- Passing ----

    def test_the_client_passes(self):
        """The server draws anew whose turn it is and tells the client; then the turn passes at the server."""
        own, peer = self.fighting_session()
        lane = own.lanes()[0]
        self.send_move(own, peer, f"{lane}4", f"{lane}5", MOVED)
        own.log = own.copy.text("TBMensajes")
        peer.send("Pasaturno|")
        drawn = int(peer.expect_one_of(b"Turnodef|01", b"Turnodef|11")[9:10])
        names = "Ana", "Eva"
        for line in (
            placing.report_line(names[drawn], drawn=True),
            strategy.PLACE_LINE,
            f"El otro jugador no puede mover y pasa el turno. {names[1 - drawn]:15} es su turno.",
        ):
            own.log += f"\n{line}"
        own.expect_log()
        own.expect_board()
        own.click("A6")
        own.expect_status(placing.NOT_YOUR_TURN if drawn == _OWN else strategy.NOTHING_THERE)

    def test_the_server_passes(self):
        """The client only takes the turn."""
        listener = self.listen()
        hand = self.start_client(MES.game)
        hand.press_button(handshake.LOCAL_BUTTON)
        peer = self.accept(listener)
        luis = Player("Cliente", "Luis", "2")
        peer.send("Solicitud aceptada|MES")
        handshake.answer_name(hand, luis, MES.game)
        peer.expect(b"Nombre|Luis")
        peer.send("Nombre|Eva")
        handshake.answer_turn(hand, luis, MES.game)
        peer.expect(b"turno|2")
        peer.send("Turnodef|00")
        own = Side(hand, "Luis", 1, MES)
        report = placing.report_line("Eva", drawn=False)
        own.expect_log(placing.handshake_log(False, "Eva", report, strategy.PLACE_LINE))
        ranks = dict.fromkeys(MES.zone(), MINER)
        self.take_army(own, ranks)
        peer.send(strategy.army_message(MES, 1 - own.number, ranks))
        self.begin_fight(own, peer)
        own.click("A4")
        own.expect_status(placing.NOT_YOUR_TURN)
        peer.send("Pasaturno|")
        own.expect_log(f"\nEl otro jugador no puede mover y pasa el turno. {'Luis':15} es su turno.")
        own.click("A4")
        own.expect_status(strategy.NOTHING_THERE)


if __name__ == "__main__":
    cases.main()
