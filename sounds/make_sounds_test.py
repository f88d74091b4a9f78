"""The sounds beside this file are what make_sounds.py makes, and fit for a game."""

import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest
import wave

DIRECTORY = pathlib.Path(__file__).parent
NAMES = {"Agua.wav", "Hundido.wav", "Impacto.wav"}


class SoundsTest(unittest.TestCase):
    def test_script_makes_the_same_bytes(self):
        with tempfile.TemporaryDirectory() as made:
            subprocess.run([sys.executable, DIRECTORY / "make_sounds.py", made], check=True)
            self.assertEqual({path.name for path in pathlib.Path(made).iterdir()}, NAMES)
            for name in NAMES:
                self.assertTrue((pathlib.Path(made) / name).read_bytes() == (DIRECTORY / name).read_bytes(), name)

    def test_small_and_neither_clipped_nor_clicking(self):
        for name in NAMES:
            with self.subTest(name), wave.open(str(DIRECTORY / name)) as file:
                self.assertLess((DIRECTORY / name).stat().st_size, 100 * 1024)
                self.assertEqual((file.getnchannels(), file.getsampwidth(), file.getframerate()), (1, 2, 22050))
                samples = [sample for (sample,) in struct.iter_unpack("<h", file.readframes(file.getnframes()))]
                self.assertLess(max(map(abs, samples)), 30000)
                self.assertGreater(max(map(abs, samples)), 20000)
                self.assertEqual((samples[0], samples[-1]), (0, 0))


if __name__ == "__main__":
    unittest.main()
