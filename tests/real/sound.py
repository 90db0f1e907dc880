"""What the program says, as a sound card would play it."""
import array

from servers import await_that

RATE = 22050
SAMPLE = 2  # bytes
STRETCH = RATE // 10
AUDIBLE = 300  # of 32767, on average

ALSA = """pcm.!default { type pulse }
ctl.!default { type pulse }
"""


class Recording:
    """All that is played on the private desktop, from now on."""

    def __init__(self, desktop):
        state = desktop.folder / "pulse"
        state.mkdir(mode=0o700)
        socket = desktop.runtime / "pulse.sock"
        desktop.environment.update({
            "PULSE_RUNTIME_PATH": str(state), "PULSE_STATE_PATH": str(state),
            "PULSE_SERVER": f"unix:{socket}", "PULSE_COOKIE": str(state / "cookie")})
        (desktop.home / ".asoundrc").write_text(ALSA, encoding="utf-8")
        desktop.start(["/usr/bin/pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no",
                       "--exit-idle-time=-1",
                       "--load=module-null-sink sink_name=speaker",
                       f"--load=module-native-protocol-unix socket={socket} auth-anonymous=1"])
        await_that(socket.exists, "the sound server")
        self.file = desktop.folder / "sound.raw"
        desktop.start(["/usr/bin/parec", "--device=speaker.monitor", "--format=s16le",
                       f"--rate={RATE}", "--channels=1", "--latency-msec=20", self.file])
        await_that(lambda: self.length() > STRETCH, "the recording")

    def length(self):
        """In samples."""
        return self.file.stat().st_size // SAMPLE if self.file.exists() else 0

    def is_audible(self, begin, end=None):
        """Whether there is a stretch of a tenth of a second with sound in it."""
        with open(self.file, "rb") as file:
            file.seek(begin * SAMPLE)
            data = file.read() if end is None else file.read((end - begin) * SAMPLE)
        samples = array.array("h", data[:len(data) // SAMPLE * SAMPLE])
        return any(sum(map(abs, samples[at:at + STRETCH])) > AUDIBLE * STRETCH
                   for at in range(0, len(samples), STRETCH))

    def is_silent_now(self):
        """Whether the last half second was silent."""
        return not self.is_audible(max(0, self.length() - 5 * STRETCH))
