#!/usr/bin/python3
"""The process of the speech engine: one a program, and it goes with it."""
import os
import pathlib
import signal
from unittest import mock

import case
from program import with_engine
from servers import await_that


class Engine(case.DesktopTest):
    settings = {"General": {"ShowStartupScreen": "1"}}

    def test_goes_with_a_program_that_is_killed(self):
        self.start()
        engines = self.program.engines()
        self.assertEqual(len(engines), 1)
        # One that hangs does not see that nobody listens any more.
        os.kill(engines[0], signal.SIGSTOP)
        self.program.signal(signal.SIGKILL)
        self.program.await_end()

        def gone():
            try:
                state = pathlib.Path(f"/proc/{engines[0]}/stat").read_text(encoding="utf-8")
            except FileNotFoundError:
                return True
            # Whoever inherits it may leave it at that.
            return state.rpartition(")")[2].split()[0] == "Z"
        await_that(gone, "the end of the engine")

    def test_is_not_started_by_a_second_program(self):
        starts = self.desktop.folder / "starts"
        program = with_engine(self.desktop, case.PROGRAM,
                              f'echo started >>"{starts}"\nexec "$ENGINE"')
        with mock.patch.object(case, "PROGRAM", program):
            self.start()
            self.assertEqual(starts.read_text(encoding="utf-8"), "started\n")
            self.assertEqual(self.ask().returncode, 0)
        self.assertEqual(starts.read_text(encoding="utf-8"), "started\n")


if __name__ == "__main__":
    case.main()
