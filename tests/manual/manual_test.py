"""The manual quotes the program as it is: its texts, its keys, its pictures.

In docs/manual a text of the program stands between « and »; "…" stands in it for what is left out or filled in. A text
that the program puts together stands as `code`, as one of its tests expects it. A key is **bold**. Nothing else is
marked so. What players type, and what files contain, stands in indented blocks.
"""

import pathlib
import re
import unittest

from program_texts import ProgramTexts, statements_of

_ROOT = pathlib.Path(__file__).resolve().parents[2]
_MANUAL = _ROOT / "docs" / "manual"
_CHAPTERS = {path.name: path.read_text(encoding="utf-8") for path in sorted(_MANUAL.glob("*.md"))}

_SHARED = ("text", "seams", "net", "ui", "app")
# What tells of one game quotes this game and what all games share.
_GAMES = {
    "tres_en_raya.md": "three_in_row",
    "batalla_naval.md": "naval",
    "estratega.md": "strategy",
    "ajedrez.md": "chess",
    "posiciones.md": "chess",
}

# Qt's own, in its Spanish translation.
_STANDARD_BUTTONS = {"Aceptar", "Cancelar", "Sí", "No"}

# What the sources must contain where the manual names a key. Tab, Alt and Shift are Qt's own affair.
_KEYS = {
    "Intro": ("Qt::Key_Return", "Qt::Key_Enter"),
    "Espacio": ("Qt::Key_Space",),
    "Flechas": ("Qt::Key_Up", "Qt::Key_Down", "Qt::Key_Left", "Qt::Key_Right"),
    "Inicio": ("Qt::Key_Home",),
    "Fin": ("Qt::Key_End",),
    "Esc": ("Qt::Key_Escape",),
    "Supr": ("Qt::Key_Delete",),
    "Menú": ("Qt::Key_Menu",),
    "Tab": (),
    "Mayús": (),
    "Alt": (),
}


def _read(folders, *patterns):
    return [
        path.read_text(encoding="utf-8")
        for folder in folders
        for pattern in patterns
        for path in sorted((_ROOT / folder).rglob(pattern))
    ]


def _sources_for(chapter):
    games = f"games/{_GAMES[chapter]}" if chapter in _GAMES else "games"
    sources = _read((*_SHARED, games), "*.cpp", "*.h")
    return sources + [path.read_text(encoding="utf-8") for path in (_ROOT / "games").glob("*.h")]


def _needed_for(key):
    """What the sources must contain for a key, or for keys that are pressed together; nothing when it is unknown."""
    if "+" in key:
        held, pressed = key.split("+")
        if held == "Alt":
            return (f'u"&{pressed}',)  # a menu with this letter
        key = pressed
    if re.fullmatch(r"[A-Z]|F\d+", key):
        return (f"Qt::Key_{key}",)
    return _KEYS.get(key)


def _words(text):
    return " ".join(text.split())


def _prose(chapter):
    """Without blocks of code: they hold what players type or files contain."""
    return re.sub(r"^(?:    .*\n)+", "\n", chapter, flags=re.MULTILINE)


def unknown_in(chapter, sources, test_sources):
    """What a chapter quotes that is none of the program's, and how much it quotes."""
    prose = _prose(chapter)
    program = ProgramTexts(sources)
    expected = ProgramTexts(test_sources + sources)
    code = "\n".join(sources)
    unknown = []
    texts = [_words(text) for text in re.findall(r"«(.*?)»", prose, re.DOTALL)]
    examples = [_words(text) for text in re.findall(r"`(.*?)`", prose, re.DOTALL)]
    keys = [_words(text) for text in re.findall(r"\*\*(.*?)\*\*", prose, re.DOTALL)]
    unknown += [f"«{text}»" for text in texts if text not in _STANDARD_BUTTONS and not program.have(text)]
    unknown += [f"`{text}`" for text in examples if "…" in text or not expected.have(text)]
    for key in keys:
        needed = _needed_for(key)
        if needed is None or not all(re.search(re.escape(each) + r"(?!\d)", code) for each in needed):
            unknown.append(f"**{key}**")
    return unknown, len(texts) + len(examples) + len(keys)


class Quotes(unittest.TestCase):
    def test_are_the_program_s(self):
        tests = _read(("tests",), "*.cpp", "*.h")
        for name, chapter in _CHAPTERS.items():
            with self.subTest(name):
                unknown, quoted = unknown_in(chapter, _sources_for(name), tests)
                self.assertEqual(unknown, [], f"docs/manual/{name} quotes what the program does not have")
                self.assertGreater(quoted, 10)


class Pictures(unittest.TestCase):
    _PICTURE = re.compile(r"!\[(.*?)\]\(pictures/(\w+)\.png\)", re.DOTALL)

    def setUp(self):
        self._shown = [shown for chapter in _CHAPTERS.values() for shown in self._PICTURE.findall(chapter)]

    def test_are_there_and_shown(self):
        there = {path.stem for path in _MANUAL.glob("pictures/*.png")}
        self.assertEqual({name for _, name in self._shown}, there)

    def test_are_renewed_by_the_script(self):
        script = (_ROOT / "scripts" / "manual_pictures.sh").read_text(encoding="utf-8")
        renewed = set(re.findall(r"^from_(?:demo|gallery) (\w+)", script, re.MULTILINE))
        self.assertEqual({name for _, name in self._shown}, renewed)

    def test_have_a_text_that_tells_them(self):
        for text, name in self._shown:
            self.assertGreater(len(text), 40, name)


class Links(unittest.TestCase):
    _LINK = re.compile(r"\]\(([\w]+\.md)(?:#([\w-]+))?\)")

    def test_lead_to_a_chapter_and_a_section_of_it(self):
        for name, chapter in _CHAPTERS.items():
            for target, section in self._LINK.findall(chapter):
                self.assertIn(target, _CHAPTERS, name)
                headings = re.findall(r"^#+ (.*)$", _CHAPTERS[target], re.MULTILINE)
                if section:
                    self.assertIn(section, [heading.lower().replace(" ", "-") for heading in headings], name)

    def test_of_the_first_chapter_lead_to_all_others(self):
        linked = {target for target, _ in self._LINK.findall(_CHAPTERS["index.md"])}
        self.assertEqual(linked, set(_CHAPTERS) - {"index.md"})


class TheTestItself(unittest.TestCase):
    """What the program does not have is found."""

    _SOURCE = """
        // u"Un comentario"_s
        SetStatus(u"Colocado "_s + Name(ship) + u", quedan " + QString::number(left) + u" barcos por "
                                                                                      u"colocar.");
        ShowBox(u"¡Ha ganado!"_s + kCrLf + u"Pulse sobre el tablero.", u"Enhorabuena"_s);
        const auto reason = u"No se puede escuchar en el puerto %1: %2"_s.arg(port);
        Add(u"&Abrir Partida...");
        if (key == Qt::Key_F3) Deploy();
    """
    _TEST = 'EXPECT_EQ(status, u"Colocado Submarino, quedan 2 barcos por colocar."_s);'

    def _unknown(self, chapter):
        return unknown_in(chapter, [self._SOURCE], [self._TEST])[0]

    def test_knows_what_the_program_has(self):
        for quote in (
            "«Colocado …, quedan … barcos por colocar.»",
            "«¡Ha ganado!»",
            "«¡Ha ganado! Pulse sobre\n el tablero.»",
            "«Pulse sobre …»",
            "«No se puede escuchar en el puerto …»",
            "«Abrir Partida...»",
            "«Enhorabuena» y «Aceptar»",
            "`Colocado Submarino, quedan 2 barcos por colocar.`",
            "**F3** y **Alt+A**",
        ):
            with self.subTest(quote):
                self.assertEqual(self._unknown(quote), [])

    def test_finds_what_it_has_not(self):
        for quote in (
            "«Colocado …, faltan … barcos por colocar.»",
            "«por colocar.»",
            "«Ha ganado»",
            "«Pulse sobre»",
            "«¡Ha ganado! … Enhorabuena»",
            "«Abrir partida...»",
            "«Un comentario»",
            "`Colocado Acorazado, quedan 2 barcos por colocar.`",
            "`Colocado …`",
            "**F2**",
            "**F33**",
            "**Alt+X**",
            "**Entrar**",
        ):
            with self.subTest(quote):
                self.assertEqual(len(self._unknown(quote)), 1)

    def test_finds_what_only_another_game_has(self):
        quote = "«Ficha retirada»"
        self.assertEqual(unknown_in(quote, _sources_for("estratega.md"), [])[0], [])
        self.assertEqual(unknown_in(quote, _sources_for("ajedrez.md"), [])[0], [quote])

    def test_passes_over_blocks_of_code(self):
        self.assertEqual(self._unknown("Escriba:\n\n    «nada»\n\nY ya está.\n"), [])

    def test_reads_statements(self):
        self.assertEqual(statements_of('a(u"x"_s + u\'y\', b);'), ["\0\0xy\1\0\0"])


if __name__ == "__main__":
    unittest.main()
