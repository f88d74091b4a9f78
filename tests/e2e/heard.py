"""What Orca's record tells: what was spoken, what made it speak, and what a whole session amounts to."""

import collections
import dataclasses
import itertools
import operator
import re

_INDENT = "\n" + " " * 18  # before a text's further lines
_TEXT = rf"(?:.|{_INDENT})*?"
_RECORD = re.compile(
    rf"^\S+ - SPEECH OUTPUT: '(?P<spoken>{_TEXT})'(?: voice=\w+)? ?(?:None|\[?\{{.*)$"
    rf"|^\S+ - EVENT MANAGER: Dequeued (?P<event>\S+ \[{_TEXT}\]) \(-?\d+,-?\d+,"
    r"|^vvvvv PROCESS ATSPI_KEY_PRESSED_EVENT: '(?P<key>.*)' \(\d+\) vvvvv$"
    rf"|^\S+ - EVENT MANAGER: object:state-changed:showing for \[notification \| (?P<shown>{_TEXT})\] in .* \(1, ",
    re.MULTILINE,
)
_CUT = " (...) "  # at the end of a text that the record shortens
_KEY = "key "
_ANNOUNCEMENT = "object:state-changed:showing [notification | "
_MOST_OFTEN = 8  # texts in the summary
_FEWEST_WORDS = 2  # of a text that counts as told again when an announcement contains it


@dataclasses.dataclass(frozen=True)
class Utterance:
    text: str
    cause: str  # the event and its source, or the key

    @property
    def is_key_name(self):
        return self.cause.startswith(_KEY)

    @property
    def announcement(self):
        """The text that the program announced, or None."""
        return self.cause.removeprefix(_ANNOUNCEMENT)[:-1] if self.cause.startswith(_ANNOUNCEMENT) else None

    @property
    def words(self):
        return self.text.strip().rstrip(".")


def read_record(record):
    """The utterances of a record, and the announcements that reached Orca, whether spoken or not."""
    utterances, announcements, cause = [], [], ""
    for found in _RECORD.finditer(record):
        if found["spoken"] is not None:
            utterances.append(Utterance(_unindented(found["spoken"]), cause))
        elif found["shown"] is not None:
            announcements.append(_unindented(found["shown"]).removesuffix(_CUT))
        else:
            cause = _unindented(found["event"] or _KEY + found["key"])
    return utterances, announcements


def _unindented(text):
    return text.replace(_INDENT, "\n")


class Summary:
    """Of a whole session, step by step."""

    def __init__(self):
        self._utterances = []
        self._announced = 0
        self._silent = []
        self._told_besides = collections.Counter()

    def add(self, utterances, announcements):
        """What was heard in one step."""
        self._utterances += utterances
        self._announced += len(announcements)
        announced = [utterance.announcement for utterance in utterances if utterance.announcement is not None]
        spoken = list(announced)
        for text in announcements:
            match = next((one for one in spoken if one.startswith(text)), None)
            if match is None:
                self._silent.append(text)
            else:
                spoken.remove(match)
        self._told_besides.update(
            (utterance.words, utterance.cause)
            for utterance in utterances
            if utterance.announcement is None
            and len(utterance.words.split()) >= _FEWEST_WORDS
            and any(utterance.words in text for text in announced)
        )

    @property
    def count(self):
        return len(self._utterances)

    def lines(self):
        spoken = [utterance for utterance in self._utterances if not utterance.is_key_name]
        yield f"utterances: {self.count}, of them names of keys: {self.count - len(spoken)}"
        yield "most often:"
        yield from _counted(collections.Counter(utterance.words for utterance in spoken).most_common(_MOST_OFTEN))
        yield from _repeated("said twice in a row", spoken, operator.eq)
        yield from _repeated("only a part of the one before", spoken, _tells_part)
        yield f"announcements: {self._announced}, not spoken: {len(self._silent)}"
        yield from _counted(collections.Counter(self._silent).most_common())
        yield f"told by another event besides the announcement: {self._told_besides.total()}"
        yield from _counted(self._told_besides.most_common())


def _tells_part(whole, part):
    return whole != part and (whole.startswith(part) or whole.endswith(part))


def _repeated(title, utterances, is_repeat):
    """Neighbours of which the second tells nothing new, by what made Orca speak them."""
    repeats = [
        (second.words, f"{first.cause}; then {second.cause}")
        for first, second in itertools.pairwise(utterances)
        if is_repeat(first.words, second.words)
    ]
    yield f"{title}: {len(repeats)}"
    yield from _counted(collections.Counter(repeats).most_common())


def _counted(counts):
    """Texts, or texts with their causes, and how often."""
    for what, times in counts:
        text, cause = (what, "") if isinstance(what, str) else what
        yield f"  {times} x {text!r}{cause and ': '}{cause}"
