"""Two whole games by keyboard alone."""

import cases
import handshake
import screen
import three_in_row
from handshake import CLIENT_EXPLANATION, Player, server_explanation
from hands import OK, KeyHand
from tree import is_focused, text_of
from waiting import wait_until

SERVER = Player("Servidor", "Ana", "2")
CLIENT = Player("Cliente", "Nombre de veinte car", "1")  # cut to 15 characters where names are kept


class Keyboard(cases.CopiesTest):
    def test_two_games_by_keyboard_alone(self):
        server, client = KeyHand(self.start()), KeyHand(self.start())
        self.check_start_window(server.copy)
        for hand, is_server in ((server, True), (client, False)):
            handshake.choose_role(hand, is_server)
            # Enter at once opens the first game.
            hand.copy.bring_to_front()
            screen.press("Return")
            hand.copy.expect_caption(three_in_row.GAME.caption)
        self.connect(server, client)
        handshake.answer_name(server, SERVER, three_in_row.GAME)
        handshake.answer_name(client, CLIENT, three_in_row.GAME)
        handshake.answer_turn(client, CLIENT, three_in_row.GAME)
        handshake.answer_turn(server, SERVER, three_in_row.GAME)
        self.check_logs(server.copy, client.copy)

        session = three_in_row.Session(server, client, SERVER, CLIENT)
        session.moving_game(1)
        session.play_again(1, starter=0)
        self.check_keys(session)
        session.placing_game(0)
        session.stop(refuser=0)
        for hand in (client, server):
            handshake.leave(hand)
            self.assertEqual(hand.copy.errors(), "")

    def check_start_window(self, copy):
        copy.bring_to_front()
        wait_until("the focus in Text1", lambda: is_focused(copy.control("Text1")))
        copy.expect_text("Text2", "")
        for explanation in (server_explanation(self.port), CLIENT_EXPLANATION):
            screen.press("Tab")
            copy.expect_text("Text2", explanation)
            selection = copy.control("Text2").queryText().getSelection(0)
            self.assertEqual(selection[:2], (0, len(explanation)))
        screen.press("shift+Tab")
        copy.expect_text("Text2", server_explanation(self.port))

    def connect(self, server, client):
        """First without an address, then with one."""
        client.press_button(handshake.CONNECT_BUTTON)
        client.answer_input(handshake.ADDRESS_TITLE, handshake.ADDRESS_PROMPT, "")
        client.answer_box(handshake.ADDRESS_TITLE, "Conexión cancelada", OK)
        client.press_button(handshake.CONNECT_BUTTON)
        client.answer_input(handshake.ADDRESS_TITLE, handshake.ADDRESS_PROMPT, "", "127.0.0.1")
        handshake.accept(server, client)

    def check_logs(self, server, client):
        """The client's choice came first, so the server decides in its own question: no comma in its report."""
        name = CLIENT.kept_name
        report = f"Por decisión mutua comienza jugando {name}. {name} es su turno. "
        server.expect_text("TBMensajes", f"\nNombre recibido\nVa a jugar contra {CLIENT.name}\n{report}")
        client.expect_text(
            "TBMensajes", f"\n{handshake.CONNECTED_LINE}\nNombre recibido\nVa a jugar contra Ana\n{report}"
        )
        client.expect_caption(f"{CLIENT.name} - Tres en raya")

    def check_keys(self, session):
        """Tab reaches the texts; every other key goes back to the board; both Enter and the space bar click."""
        hand, copy = session.hands[1], session.copies[1]
        for key in ("a", "F1", "Right", "Page_Down"):
            for name in ("TBEstado", "TBMensajes"):
                hand.focus_on(name)
                screen.press(key)
                wait_until(f"{key} to go to the board", lambda: is_focused(copy.control("FG1")))
        for key in ("space", "Return", "KP_Enter"):
            hand.click_cell(8, key=key)
            copy.expect_text("TBEstado", three_in_row.NOT_YOUR_TURN)
        self.assertEqual(text_of(copy.control("TBMensajes")), "")


if __name__ == "__main__":
    cases.main()
