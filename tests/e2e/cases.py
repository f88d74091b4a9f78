"""What all end-to-end tests share. The built program is named by BRONTAVIA_BINARY."""

import os
import unittest

import handshake
import screen
import three_in_row
from driver import Copy, free_port
from hands import YES, MouseHand
from peer import Listener, Peer


OWN_PORT = object()
# Texts in which no game finds anything.
GARBAGE = (b"\0", b"\r\n", bytes(range(256)), b"|" * 1000, b"jug|-1|3", b"x" * 2**20)


class CopiesTest(unittest.TestCase):
    """Starts copies and peers that are gone when the test is over."""

    maxDiff = None

    def setUp(self):
        self.port = free_port()

    def start(self, ini=OWN_PORT, environment=None):
        """A copy on the test's own port, or with another Brontavia.ini; without one when it is None."""
        copy = Copy(os.environ["BRONTAVIA_BINARY"], str(self.port) if ini is OWN_PORT else ini, environment)
        self.addCleanup(copy.end)
        return copy

    def start_pair(self, game=three_in_row.GAME, server_hand=MouseHand, client_hand=MouseHand):
        """Hands at two copies, in the game's window, not yet connected."""
        hands = server_hand(self.start()), client_hand(self.start())
        for hand, server in zip(hands, (True, False)):
            handshake.open_game(hand, server, game)
        return hands

    def start_session(self, server=handshake.SERVER, client=handshake.CLIENT):
        """Two copies after the handshake."""
        hands = self.start_pair()
        handshake.shake_hands(*hands, three_in_row.GAME, server, client)
        return three_in_row.Session(*hands, server, client)

    def start_server(self, game=three_in_row.GAME):
        """The hand at a copy that listens."""
        hand = MouseHand(self.start())
        handshake.open_game(hand, True, game)
        return hand

    def start_server_session(self, game, server=handshake.Player("Servidor", "Ana", "1")):
        """The hand at a server in session with a bare peer, who is Eva; the server begins."""
        hand = self.start_server(game)
        peer = self.connect_peer()
        handshake.answer_request(hand)
        peer.expect(f"Solicitud aceptada|{game.code}".encode())
        peer.send("Nombre|Eva")
        handshake.answer_name(hand, server, game)
        peer.expect(f"Nombre|{server.name}".encode())
        peer.send("turno|2")
        handshake.answer_turn(hand, server, game)
        peer.expect(b"Turnodef|00")
        return hand, peer

    def start_client(self, game=three_in_row.GAME):
        hand = MouseHand(self.start())
        handshake.open_game(hand, False, game)
        return hand

    def connect_peer(self, host="127.0.0.1"):
        """A peer that connects to the copy that listens."""
        peer = Peer.connected_to(self.port, host)
        self.addCleanup(peer.close)
        return peer

    def listen(self):
        """A listener that a client copy can connect to."""
        listener = Listener(self.port)
        self.addCleanup(listener.close)
        return listener

    def accept(self, listener):
        peer = listener.accept()
        self.addCleanup(peer.close)
        return peer

    def assert_usable_and_leaves(self, hand, game=three_in_row.GAME):
        """The game's window closes, the selection window comes, SALIR ends the program with 0."""
        hand.close_window()
        if game.asks_before_closing:
            hand.answer_box(game.title, handshake.CLOSE_TEXT, YES)
        handshake.leave(hand)


class PictureOfFailure(unittest.TextTestResult):
    """Leaves a picture of the screen in the working directory for each test that fails."""

    def addError(self, test, err):
        super().addError(test, err)
        self._picture(test)

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self._picture(test)

    def addSubTest(self, test, subtest, err):
        super().addSubTest(test, subtest, err)
        if err is not None:
            self._picture(test)

    def _picture(self, test):
        path = os.path.abspath(f"failed_{test.id().removeprefix('__main__.')}.png")
        screen.picture(path)
        self.stream.writeln(f"picture of the screen: {path}")


def main():
    runner = unittest.TextTestRunner(resultclass=PictureOfFailure, verbosity=2)
    unittest.main(testRunner=runner)
