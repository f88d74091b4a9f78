"""Two copies play on this screen: the server with the mouse, the client with the keyboard.

usage: demo.py BINARY OUTPUT_DIR

Leaves pictures and transcript.txt in OUTPUT_DIR. Ends with 0 only when everything went as it must.
"""

import pathlib
import sys

import demo_chess
import demo_naval
import demo_strategy
import demo_three_in_row
import handshake
from hands import KeyHand, MouseHand
from stage import Stage

GAME_DEMOS = (demo_three_in_row, demo_naval, demo_strategy.SMALL, demo_strategy.LARGE, demo_chess)


class Demonstration:
    def __init__(self, stage, server, client, games=GAME_DEMOS):
        self._stage = stage
        self._games = games
        self.server = server
        self.client = client
        self._step = 0

    def tell(self, line):
        self._step += 1
        print(f"{self._step:3}  {line}", flush=True)

    def picture(self, name):
        self._stage.transcript.look()
        print(f"     picture: {self._stage.picture(name)}", flush=True)

    def run(self):
        self._start()
        for number, game in enumerate(self._games):
            self._connect(game, first=number == 0)
            game.play(self.server, self.client, self.tell, self.picture)
            self._stage.arrange()
        self.tell("Both players leave with SALIR; both copies end with code 0")
        handshake.leave(self.server)
        handshake.leave(self.client)

    def _start(self):
        self.tell("Two copies are running; each shows the start window")
        self._stage.arrange()
        self.picture("start")
        self.tell(
            f"One player will be the server and uses the {self.server.TOOL}, "
            f"the other the client and uses the {self.client.TOOL}"
        )
        handshake.choose_role(self.server, server=True)
        handshake.choose_role(self.client, server=False)
        self._stage.arrange()
        self.picture("selection")

    def _connect(self, demo, first):
        server, client, game = demo.SERVER, demo.CLIENT, demo.GAME
        self.tell(f"Both choose {handshake.GAMES[game.number]}; the server listens")
        handshake.choose_game(self.server, True, game)
        handshake.choose_game(self.client, False, game)
        self._stage.arrange()
        if first:
            self.picture("server_and_client")
        self.tell("The client connects; the server is asked and accepts")
        self.client.press_button(handshake.LOCAL_BUTTON)
        self._stage.copies[0].box(handshake.REQUEST_TITLE)
        if first:
            self.picture("request")
        handshake.accept(self.server, self.client)
        self.tell(f"The players give their names: {server.shown_name} and {client.shown_name}")
        handshake.answer_name(self.server, server, game)
        handshake.answer_name(self.client, client, game)
        self.tell(f"Who begins? {server.shown_name} answers {server.choice}, {client.shown_name} {client.choice}")
        handshake.answer_turn(self.server, server, game)
        handshake.answer_turn(self.client, client, game)
        self.tell(f"The server reports: {handshake.report_line(self._stage.copies[0]).strip()}")


def main(binary, output):
    folder = pathlib.Path(output)
    folder.mkdir(parents=True, exist_ok=True)
    for old in [*folder.glob("*.png"), folder / "transcript.txt"]:
        old.unlink(missing_ok=True)
    stage = Stage(binary, folder)
    try:
        server, client = stage.copies
        Demonstration(stage, MouseHand(server, stage.transcript), KeyHand(client, stage.transcript)).run()
    except BaseException:
        stage.picture("failed")
        raise
    finally:
        (folder / "transcript.txt").write_text("\n".join([*stage.transcript.lines, ""]), encoding="utf-8")
        stage.end()
    print(f"The demonstration ended as it must. Pictures and transcript.txt are in {folder}", flush=True)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
