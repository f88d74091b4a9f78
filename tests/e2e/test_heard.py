"""What is read from Orca's record. Needs no screen reader: the record is written here."""

import unittest

from demo import GAME_DEMOS
from heard import Summary, read_record
from listen import GAMES

_VOICE = "{'established': False}"
_APPLICATION = "[application | brontavia]"


def _event(kind, source, detail=1):
    return f"01:02:03.000000 - EVENT MANAGER: Dequeued {kind} [{source}] ({detail},0,None) from {_APPLICATION}\n"


def _shown(text, detail=1):
    """An announcement's event as it comes in, before Orca decides what to do with it."""
    source = f"[notification | {text}]"
    return (
        f"01:02:03.000000 - EVENT MANAGER: object:state-changed:showing for {source} in {_APPLICATION} "
        f"({detail}, 0, None)\n"
    )


def _spoken(text, voice=_VOICE):
    return f"01:02:03.000000 - SPEECH OUTPUT: '{text}'{voice}\n"


def _announced(text):
    return _shown(text) + _event("object:state-changed:showing", f"notification | {text}") + _spoken(text + ".")


def _summary(*steps):
    summary = Summary()
    for step in steps:
        summary.add(*read_record(step))
    return "\n".join(summary.lines())


class ReadRecord(unittest.TestCase):
    def test_an_utterance_has_the_event_that_caused_it(self):
        source = "list item | Fila 1, columna 1: X"
        utterances, _ = read_record(_event("focus:", source) + _spoken("Fila 1"))
        self.assertEqual([(one.text, one.cause) for one in utterances], [("Fila 1", f"focus: [{source}]")])

    def test_the_name_of_a_key_is_caused_by_the_key(self):
        record = "vvvvv PROCESS ATSPI_KEY_PRESSED_EVENT: 'Return' (36) vvvvv\n" + _spoken("intro ", " " + _VOICE)
        self.assertEqual([(one.text, one.is_key_name) for one in read_record(record)[0]], [("intro ", True)])

    def test_every_way_to_write_a_voice_ends_the_text(self):
        for voice in (_VOICE, f"[{_VOICE}]", f" voice=system{_VOICE}", "None"):
            self.assertEqual([one.text for one in read_record(_spoken("it's 'so'", voice))[0]], ["it's 'so'"], voice)

    def test_further_lines_of_a_text_lose_the_indent_of_the_record(self):
        self.assertEqual([one.text for one in read_record(_spoken("uno\n" + " " * 18 + "dos"))[0]], ["uno\ndos"])

    def test_an_announcement_that_is_hidden_is_none(self):
        self.assertEqual(read_record(_shown("Agua") + _shown("Agua", detail=0))[1], ["Agua"])


class Summaries(unittest.TestCase):
    def test_twice_in_a_row_counts_across_steps_and_past_keys(self):
        key = "vvvvv PROCESS ATSPI_KEY_PRESSED_EVENT: 'Tab' (23) vvvvv\n" + _spoken("tab ", " " + _VOICE)
        text = _summary(_event("focus:", "a") + _spoken("SALIR."), key + _event("focus:", "b") + _spoken("SALIR"))
        self.assertIn("said twice in a row: 1\n  1 x 'SALIR': focus: [a]; then focus: [b]", text)

    def test_beginning_and_end_of_the_one_before_are_nothing_new(self):
        for part in ("X", "Fila 1"):
            text = _summary(_event("focus:", "a") + _spoken("Fila 1: X") + _spoken(part))
            self.assertIn(f"only a part of the one before: 1\n  1 x '{part}'", text)

    def test_an_announcement_that_orca_drops_is_told(self):
        text = _summary(_announced("Su turno") + _shown("Agua"))
        self.assertIn("announcements: 2, not spoken: 1\n  1 x 'Agua'", text)

    def test_a_text_that_the_record_shortens_is_no_other(self):
        long = "palabra " * 20
        record = _announced(long).replace(f"[notification | {long}] in", f"[notification | {long[:80]} (...) ] in", 1)
        self.assertIn("announcements: 1, not spoken: 0", _summary(record))

    def test_what_another_event_tells_besides_counts_within_a_step(self):
        besides = _event("object:text-changed:insert", "text | Mensajes") + _spoken("Le toca jugar")
        both = _announced("Agua. Le toca jugar")
        self.assertIn("besides the announcement: 1\n  1 x 'Le toca jugar': object:text-ch", _summary(besides + both))
        self.assertIn("besides the announcement: 0", _summary(besides, both))


class Listening(unittest.TestCase):
    def test_every_game_of_the_demonstration_can_be_listened_to(self):
        self.assertEqual(set(GAMES.values()), set(GAME_DEMOS))


if __name__ == "__main__":
    unittest.main()
