"""The demonstration of one game under a screen reader: each step, and below it what was spoken.

usage: listen.py BINARY GAME OUTPUT_DIR

GAME is one of: three_in_row naval mini_strategy strategy chess
Leaves Orca's whole record in OUTPUT_DIR. Ends with 0 only when the demonstration went as it must and was heard.
"""

import pathlib
import shutil
import sys

import demo_chess
import demo_naval
import demo_strategy
import demo_three_in_row
import screen
from demo import Demonstration
from hands import KeyHand, Witness
from heard import Summary
from screen_reader import ScreenReader
from stage import Stage

GAMES = {
    "three_in_row": demo_three_in_row,
    "naval": demo_naval,
    "mini_strategy": demo_strategy.SMALL,
    "strategy": demo_strategy.LARGE,
    "chess": demo_chess,
}


class Patience(Witness):
    """Hears the screen reader out after each step."""

    def __init__(self, reader):
        self._reader = reader

    def look(self):
        self._reader.rest()


class PatientHand(KeyHand):
    """Hears the screen reader out before a button is pressed and after each arrow key: a person does not press eighty
    keys a second."""

    def __init__(self, copy, reader):
        super().__init__(copy, Patience(reader))
        self._reader = reader

    def _focus(self, find, window, what, focused):
        super()._focus(find, window, what, focused)
        self._reader.rest()

    def _press_with_alt(self, key):
        """The toolkit asks the screen reader about keys before it hands them on, but opens a menu at once. An Alt that
        comes behind the opening closes the menu again."""
        screen.press_holding("alt", key, self._reader.rest)

    def _walk(self, keys):
        for key in keys:
            screen.press(key)
            self._reader.rest()


class Listening(Demonstration):
    """Both players use the keyboard: who hears the screen does."""

    def __init__(self, stage, reader, game):
        server, client = (PatientHand(copy, reader) for copy in stage.copies)
        super().__init__(stage, server, client, games=[game])
        self._reader = reader
        self.summary = Summary()

    def tell(self, line):
        self.listen()
        super().tell(line)

    def picture(self, name):
        """Nobody who listens looks at it."""

    def listen(self):
        """Prints what was spoken since the last step was told."""
        utterances, announcements = self._reader.hear()
        self.summary.add(utterances, announcements)
        for utterance in utterances:
            first, *others = utterance.text.split("\n")
            print(f"       {'key' if utterance.is_key_name else '   '} | {first}", flush=True)
            for line in others:
                print(f"           | {line}", flush=True)


def main(binary, game, output):
    folder = pathlib.Path(output)
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    reader = ScreenReader(folder)
    try:
        stage = Stage(binary, folder)
        try:
            listening = Listening(stage, reader, GAMES[game])
            listening.run()
            listening.listen()
        except BaseException:
            stage.picture("failed")
            raise
        finally:
            stage.end()
    finally:
        reader.end()
    print()
    print(*listening.summary.lines(), sep="\n")
    if listening.summary.count == 0:
        sys.exit("Orca has spoken nothing.")


if __name__ == "__main__":
    if len(sys.argv) != 4 or sys.argv[2] not in GAMES:
        sys.exit(__doc__)
    main(*sys.argv[1:])
