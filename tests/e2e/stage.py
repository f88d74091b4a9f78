"""Two copies side by side on the screen, with pictures and a transcript of what they say."""

import screen
from driver import CONTROLS, Copy, free_port
from hands import Witness
from tree import extents_of, text_of
from waiting import wait_for_value

# The insides of the windows, so that two stand side by side; their frames come on top.
_SIZE = (800, 560)
_CORNERS = ((12, 30), (832, 30))
_BOTH_WINDOWS = "1644x606+0+0"


class Transcript(Witness):
    """Writes down each line of TBMensajes and each box of both copies, in order."""

    def __init__(self, copies, names):
        self._speakers = list(zip(copies, names))
        self._log = {copy.pid: "" for copy in copies}
        self.lines = []

    def look(self):
        for copy, name in self._speakers:
            control = copy.find(*CONTROLS["TBMensajes"]) if copy.running() else None
            now = text_of(control) if control else ""
            before = self._log[copy.pid]
            self._log[copy.pid] = now
            new = now[len(before) :] if now.startswith(before) else now
            self.lines += [f"{name} | TBMensajes | {line}" for line in new.split("\n") if line]

    def box(self, copy, title, text, answer):
        name = next(name for speaker, name in self._speakers if speaker is copy)
        first, *others = text.split("\n")
        self.lines.append(f"{name} | box {title!r} | {first}")
        self.lines += [f"{' ' * len(name)} | {' ' * len(f'box {title!r}')} | {line}" for line in others]
        self.lines.append(f"{name} | answer | {answer}")


class Stage:
    """Server on the left, client on the right."""

    def __init__(self, binary, folder, environment=None):
        port = str(free_port())
        self.folder = folder
        self.copies = []
        try:
            for _ in range(2):
                self.copies.append(Copy(binary, port, environment))
        except BaseException:
            self.end()
            raise
        self.transcript = Transcript(self.copies, ("server", "client"))
        self._pictures = 0

    def arrange(self):
        """Puts each copy's main window in its place."""
        for copy, corner in zip(self.copies, _CORNERS):
            number = copy.bring_to_front(copy.main_window())
            screen.resize(number, *_SIZE)
            screen.place(number, *corner)
            wait_for_value("the place of a window", lambda: extents_of(copy.main_window())[:2], corner)

    def picture(self, name):
        """A picture of both windows, numbered in the order in which they are taken."""
        self._pictures += 1
        path = self.folder / f"{self._pictures:02}_{name}.png"
        screen.picture(path, _BOTH_WINDOWS)
        return path.name

    def end(self):
        for copy in self.copies:
            copy.end()
