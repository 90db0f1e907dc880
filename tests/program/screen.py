"""The user's hands and eyes: real keys and mouse buttons, and what the window manager knows."""
import collections
import ctypes
import re
import subprocess

from servers import LIMIT, Failed, await_that

# taskbar: whether the window has a button there; minimized: whether it is nothing but that button.
Window = collections.namedtuple("Window", "id title pid taskbar minimized")
Rectangle = collections.namedtuple("Rectangle", "x y width height")

LEFT, RIGHT = 1, 3


class Mouse:
    """A mouse whose strokes reach the X server all at once: however busy the machine is, two clicks
    that follow each other are a double click."""

    def __init__(self, display):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.test = ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(display.encode()))
        if not self.display:
            raise Failed(f"no display {display}")

    def click(self, x, y, button, times):
        """Returns when the server has taken it all."""
        at_once, screen = ctypes.c_ulong(0), -1
        self.test.XTestFakeMotionEvent(self.display, screen, x, y, at_once)
        for _ in range(times):
            for pressed in (1, 0):
                self.test.XTestFakeButtonEvent(self.display, button, pressed, at_once)
        self.x11.XSync(self.display, 0)

    def close(self):
        self.x11.XCloseDisplay(self.display)


class Screen:
    def __init__(self, environment):
        self.environment = environment

    def run(self, *command):
        done = subprocess.run(command, env=self.environment, capture_output=True, check=False,
                              timeout=LIMIT)
        if done.returncode != 0:
            raise Failed(f"{' '.join(command)}: {done.stderr.decode()}")
        return done.stdout.decode()

    def keys(self, *keys):
        """Presses keys, in xdotool's words: "Tab", "alt+m", "ctrl+shift+t"."""
        self.run("/usr/bin/xdotool", "key", "--clearmodifiers", *keys)

    def type(self, text):
        self.run("/usr/bin/xdotool", "type", "--clearmodifiers", "--delay", "1", text)

    def click(self, x, y, button=LEFT, times=1):
        mouse = Mouse(self.environment["DISPLAY"])
        mouse.click(x, y, button, times)
        mouse.close()

    def screenshot(self, file):
        self.run("/usr/bin/import", "-window", "root", str(file))

    def windows(self):
        """What the window manager manages: the windows on the screen and in the task bar."""
        found = re.findall(r"0x[0-9a-f]+", self._property("-root", "_NET_CLIENT_LIST"))
        windows = [self._window(int(number, 16)) for number in found]
        return [window for window in windows if window is not None]

    def active(self):
        """The id of the window that has the keyboard, 0 for none."""
        found = re.search(r"0x[0-9a-f]+", self._property("-root", "_NET_ACTIVE_WINDOW"))
        return int(found[0], 16) if found else 0

    def activate(self, window):
        self.run("/usr/bin/xdotool", "windowactivate", str(window.id))
        await_that(lambda: self.active() == window.id, f"the keyboard for {window.title}")

    def minimize(self, window):
        self.run("/usr/bin/xdotool", "windowminimize", str(window.id))

    def ask_to_close(self, window):
        """What the close box of the window's frame does."""
        self.activate(window)
        self.keys("alt+F4")

    def move(self, window, x, y):
        """Moves the window near that place, and returns where it stands then."""
        before = self.place(window)
        self.run("/usr/bin/xdotool", "windowmove", str(window.id), str(x), str(y))
        await_that(lambda: self.place(window) != before, "another place of the window")
        return self.place(window)

    def is_mapped(self, window):
        """Whether the program wants the window on the screen, whatever the window manager does."""
        return "IsViewable" in self.run("/usr/bin/xwininfo", "-id", str(window.id))

    def place(self, window):
        """Where the window's frame stands."""
        text = self.run("/usr/bin/xwininfo", "-id", str(window.id))
        number = {name: int(value) for name, value in re.findall(
            r"(Absolute upper-left [XY]|Relative upper-left [XY]|Width|Height): +(-?\d+)", text)}
        return Rectangle(
            number["Absolute upper-left X"] - number["Relative upper-left X"],
            number["Absolute upper-left Y"] - number["Relative upper-left Y"],
            number["Width"], number["Height"])

    def _property(self, *arguments):
        return self.run("/usr/bin/xprop", *arguments)

    def _window(self, number):
        try:
            text = self._property("-id", str(number), "-notype", "WM_NAME", "_NET_WM_PID",
                                  "_NET_WM_STATE")
        except Failed:
            return None  # It has gone since it was listed.
        title = re.search(r'WM_NAME = "(.*)"', text)
        pid = re.search(r"_NET_WM_PID = (\d+)", text)
        return Window(number, title[1] if title else "", int(pid[1]) if pid else 0,
                      "_NET_WM_STATE_SKIP_TASKBAR" not in text, "_NET_WM_STATE_HIDDEN" in text)
