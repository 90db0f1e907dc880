#!/usr/bin/python3
"""What is heard: the sound goes to the test, which takes it as slowly or as fast as it likes."""
import os
import signal

import case
from servers import await_that

WORDS = 600
SECOND = 2 * 22050  # bytes of a second of speech
# A word takes longer than this, so that the whole text is several minutes of speech.
WHOLE = WORDS * SECOND // 5


class Speech(case.DesktopTest):
    settings = {"General": {"ShowStartupScreen": "1", "Introduce": "1",
                            "IntroductionText": " ".join(["Wonderful"] * WORDS)}}

    def setUp(self):
        super().setUp()
        pipe = self.desktop.folder / "sound"
        os.mkfifo(pipe)
        (self.desktop.home / ".asoundrc").write_text(
            f'pcm.!default {{ type file; slave.pcm null; file "{pipe}"; format raw }}\n',
            encoding="utf-8")
        self.pipe = os.open(pipe, os.O_RDONLY | os.O_NONBLOCK)
        self.addCleanup(os.close, self.pipe)
        self.start()

    def take(self):
        """Some sound; None when there is none at the moment, nothing when the device is closed."""
        try:
            return os.read(self.pipe, 1 << 16)
        except BlockingIOError:
            return None

    def await_sound(self, size):
        heard = 0

        def enough():
            nonlocal heard
            heard += len(self.take() or b"")
            return heard >= size
        await_that(enough, f"{size} bytes of sound", lambda: f"There were {heard}.")

    def sound_until_silence(self):
        """How much comes until the program has nothing to say and closes the device."""
        heard = 0

        def closed():
            nonlocal heard
            while sound := self.take():
                heard += len(sound)
            return sound is not None
        await_that(closed, "the end of the sound", lambda: f"There were {heard} bytes.")
        return heard

    def test_stop_cuts_what_is_being_said(self):
        self.await_sound(SECOND)
        self.assertEqual(self.ask("--stop").returncode, 0)
        self.assertLess(self.sound_until_silence(), WHOLE / 2)
        self.assertTrue(self.program.runs())

    def test_mute_cuts_it_as_well(self):
        self.await_sound(SECOND)
        self.assertEqual(self.ask("--mute").returncode, 0)
        self.assertLess(self.sound_until_silence(), WHOLE / 2)

    def test_goes_on_when_the_engine_dies(self):
        self.await_sound(SECOND)
        engines = self.program.engines()
        self.assertEqual(len(engines), 1)
        os.kill(engines[0], signal.SIGKILL)
        # More than was on its way.
        self.await_sound(30 * SECOND)
        self.assertEqual(len(self.program.engines()), 1)
        self.assertNotEqual(self.program.engines(), engines)
        # Else it would wait at its end for somebody who takes the sound.
        self.assertEqual(self.ask("--stop").returncode, 0)
        self.sound_until_silence()

    def test_end_does_not_wait_for_it(self):
        self.await_sound(SECOND)
        self.assertEqual(self.ask("--quit").returncode, 0)

        def ended():
            self.take()
            return not self.program.runs()
        await_that(ended, "the end of the program")
        self.assertEqual(self.program.process.returncode, 0)


if __name__ == "__main__":
    case.main()
