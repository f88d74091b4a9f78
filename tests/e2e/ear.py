"""What a screen reader says of each copy, as utterances in the order in which they are spoken."""

import collections
import dataclasses
import json
import pathlib
import re
import subprocess
import threading

from waiting import wait_until

_LISTENER = pathlib.Path(__file__).with_name("ear_listener.py")
_ROUTES = ("panel", "list", "filler")  # the focus goes on from them to one of their children


def plain(text):
    """How a text sounds: blanks and line ends are not heard."""
    return re.sub(r"\s+", " ", text).strip()


@dataclasses.dataclass(frozen=True)
class Utterance:
    """One thing that is spoken: an announcement, a box, what has the focus."""

    kind: str
    text: str
    name: str = ""
    role: str = ""
    description: str = ""
    states: tuple = ()

    def __str__(self):
        return plain(", ".join(filter(None, (self.name, self.role, *self.states, self.description, self.text))))

    @property
    def is_told(self):
        """Whether it speaks of something that has happened, without the player having asked."""
        return self.kind in ("announcement", "box")


class Ears:
    """The listening process. To be made before the copies start, so that they know that somebody listens."""

    def __init__(self):
        self._ears = collections.defaultdict(Ear)
        self._names = {}  # names by process
        self.transcript = []  # who, kind and text of each utterance and of each key
        self._ready = threading.Event()
        self._process = subprocess.Popen(["/usr/bin/python3", str(_LISTENER)], stdout=subprocess.PIPE, text=True)
        threading.Thread(target=self._read, daemon=True).start()
        wait_until("the listener", self._ready.is_set)

    def end(self):
        self._process.kill()
        self._process.wait()
        self._process.stdout.close()

    def of(self, copy, name):
        """The ear of the player at a copy."""
        self._names[copy.pid] = name
        return self._ears[copy.pid]

    def _read(self):
        for line in self._process.stdout:
            told = json.loads(line)
            process = told.pop("process")
            if told["kind"] == "ready":
                self._ready.set()
            elif told["kind"] == "stray":
                self._ears[process].strays.append(told["text"])
            elif process is not None:
                utterance = Utterance(**{**told, "states": tuple(told.get("states", ()))})
                if utterance.kind != "away":
                    self.note(process, utterance.kind, str(utterance))
                self._ears[process].heard.append(utterance)

    def note(self, process, kind, text):
        """Writes a line of the transcript."""
        self.transcript.append((process, kind, text))

    def write(self, path):
        """The transcript, with the number of utterances of each kind at its end."""
        lines = [f"{self._names.get(who, who)} | {kind} | {text}" for who, kind, text in self.transcript]
        counts = collections.Counter((self._names.get(who, str(who)), kind) for who, kind, _ in self.transcript)
        lines += [f"{name} | count | {kind}: {count}" for (name, kind), count in sorted(counts.items())]
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("\n".join([*lines, ""]), encoding="utf-8")


class Ear:
    """What one player has heard."""

    def __init__(self):
        self.heard = []
        self.strays = []  # events of what has not the focus, which a screen reader may speak

    def focus(self, start):
        """What has the focus, as last heard since some place in what has been heard; None while a window lacks it."""
        windows = [place for place, each in enumerate(self.heard) if each.kind in ("window", "away")]
        if not windows or self.heard[windows[-1]].kind == "away":
            return None
        return next((each for each in reversed(self.heard[max(start, windows[-1]) :]) if _is_focus(each)), None)


def _is_focus(utterance):
    return utterance.kind == "focus" and utterance.role not in _ROUTES
