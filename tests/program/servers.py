"""A private desktop for one test: display, window manager, session bus, accessibility, home.

Nothing of the user's own desktop is seen or touched, and everything that is started is ended again,
each process by its own id.
"""
import ctypes
import os
import pathlib
import select
import shutil
import signal
import subprocess
import tempfile
import time

# Seconds. Nothing takes a tenth of it; what does not happen at all is told as such.
LIMIT = 60

BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={socket}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
# Sound that nobody hears, and that needs no sound card.
SILENT_SOUND = "pcm.!default { type null }\nctl.!default { type null }\n"


class Failed(AssertionError):
    """The private desktop could not be brought up, or something awaited did not come."""


def await_that(condition, what, seen=lambda: ""):
    """The first true value of the condition, which is asked again and again."""
    end = time.monotonic() + LIMIT
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Failed(f"{what}: not within {LIMIT} seconds. {seen()}")
        time.sleep(0.02)


PR_SET_PDEATHSIG = 1
LIBC = ctypes.CDLL(None)


def end_with_the_test():
    """A test that is killed leaves nothing running."""
    LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


class Server:
    """A process with all that it starts itself, which is its process group."""

    def __init__(self, command, environment, log, **options):
        self.name = pathlib.Path(command[0]).name
        self.log = log
        with open(log, "ab") as output:
            self.process = subprocess.Popen(
                [str(part) for part in command], env=environment, stdin=subprocess.DEVNULL,
                stdout=options.pop("stdout", output), stderr=output, start_new_session=True,
                preexec_fn=end_with_the_test, **options)

    def end(self):
        for number in (signal.SIGTERM, signal.SIGKILL):
            try:
                os.killpg(self.process.pid, number)
            except ProcessLookupError:
                pass
            try:
                self.process.wait(LIMIT / 6)
                break
            except subprocess.TimeoutExpired:
                continue
        # What it started may outlive it by a moment, or ignore the first signal.
        try:
            os.killpg(self.process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass


class PrivateDesktop:
    """bus: whether there is a session bus."""

    def __init__(self, bus=True):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="brenwick-"))
        self.home = self.folder / "home"
        self.runtime = self.folder / "run"
        self.config = self.home / ".config"
        self.documents = self.home / "Documents"
        for folder in (self.home, self.runtime, self.config, self.documents):
            folder.mkdir(mode=0o700)
        (self.home / ".asoundrc").write_text(SILENT_SOUND, encoding="utf-8")
        self.servers = []
        self.environment = {
            "PATH": "/usr/bin:/bin", "HOME": str(self.home), "LANG": "C.UTF-8", "TZ": "UTC",
            "XDG_RUNTIME_DIR": str(self.runtime), "XDG_CONFIG_HOME": str(self.config),
            "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            # Without a bus of its own a program would start one, or find the user's.
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere", "TMPDIR": str(self.folder),
        }
        leaks = pathlib.Path(__file__).with_name("leaks.supp")
        self.environment["LSAN_OPTIONS"] = f"suppressions={leaks}:print_suppressions=0"
        for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS"):
            if name in os.environ:
                self.environment[name] = os.environ[name]
        try:
            self._start_display()
            if bus:
                self._start_session_bus()
                self.start(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])
            self.start_window_manager()
        except BaseException:
            self.end()
            raise

    def start(self, command, **options):
        log = self.folder / (pathlib.Path(command[0]).name + ".log")
        server = Server(command, self.environment, log, **options)
        self.servers.append(server)
        return server

    def stop(self, server):
        self.servers.remove(server)
        server.end()

    def end(self):
        """Ends everything, the last that was started first."""
        for server in reversed(self.servers):
            server.end()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _start_display(self):
        reading, writing = os.pipe()
        command = ["/usr/bin/Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24",
                   "-nolisten", "tcp", "-noreset", "-dpi", "96"]
        self.display = self.start(command, pass_fds=[writing])
        os.close(writing)
        try:
            number = b""
            while not number.endswith(b"\n"):
                ready, _, _ = select.select([reading], [], [], LIMIT)
                more = os.read(reading, 32) if ready else b""
                if not more:
                    raise Failed("the display did not start:\n" + self.display.log.read_text())
                number += more
        finally:
            os.close(reading)
        self.environment["DISPLAY"] = ":" + number.decode().strip()

    def _start_session_bus(self):
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(socket=self.runtime / "bus"))
        reading, writing = os.pipe()
        self.start(["/usr/bin/dbus-daemon", f"--config-file={configuration}", "--nofork",
                    f"--print-address={writing}"], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as lines:
            address = lines.readline().strip()
        if not address:
            raise Failed("the session bus did not start")
        self.session_bus = self.environment["DBUS_SESSION_BUS_ADDRESS"] = address

    def start_window_manager(self):
        self.window_manager = self.start(["/usr/bin/openbox", "--sm-disable"])
        await_that(lambda: b"not found" not in self._root_property("_NET_SUPPORTING_WM_CHECK"),
                   "the window manager")

    def _root_property(self, name):
        return subprocess.run(["/usr/bin/xprop", "-root", name], env=self.environment,
                              capture_output=True, check=True, timeout=LIMIT).stdout
