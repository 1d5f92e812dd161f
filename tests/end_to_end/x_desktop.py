"""An X server of a test's own, and what a person does at its screen."""

import ctypes
import os
import re
import subprocess
import time

PATIENCE = 60  # seconds; a sanitizer's build on a busy machine is slow

IGNORE_X_ERROR = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)


def eventually(question, what):
    """Asks until the answer is true, and returns it."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = question()
        if answer:
            return answer
        time.sleep(0.03)
    raise AssertionError(f"never happened: {what}")


class Desktop:
    """An X server on a free display. `end` says what it does when its last visitor has left,
    `manager` is the command of a window manager."""

    def __init__(self, end="-noreset", manager=None):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1024x768x24",
             "-nolisten", "tcp", end],
            pass_fds=[writing], stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as numbers:
            self.display = ":" + numbers.readline().strip()
        if self.display == ":":
            raise AssertionError("the X server has not started")
        self.manager = manager and subprocess.Popen(
            manager, env={**os.environ, "DISPLAY": self.display}, stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if manager:
            eventually(lambda: "window id" in self.tool("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                       "a window manager")

    def stop(self):
        if self.manager:
            self.manager.terminate()
            self.manager.wait()
        self.server.terminate()
        self.server.wait()

    def tool(self, *command):
        return subprocess.run(command, env={**os.environ, "DISPLAY": self.display},
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              text=True, check=False).stdout

    def windows(self, title):
        """The numbers of the visible windows of that title."""
        found = self.tool("xdotool", "search", "--onlyvisible", "--name",
                          f"^{re.escape(title)}$")
        return [int(number) for number in found.split()]

    def window(self, title):
        return eventually(lambda: self.windows(title), f"a window {title!r}")[0]

    def property(self, window, name):
        return self.tool("xprop", "-id", str(window), name)

    def geometry(self, window):
        """Left, top, width and height of a window without its frame, and with it."""
        told = dict(line.split("=") for line in
                    self.tool("xdotool", "getwindowgeometry", "--shell", str(window)).splitlines())
        left, top, width, height = (int(told[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))
        frame = re.findall(r"\d+", self.property(window, "_NET_FRAME_EXTENTS").split("=")[-1])
        fl, fr, ft, fb = (int(number) for number in frame or (0, 0, 0, 0))
        return ((left, top, width, height),
                (left - fl, top - ft, width + fl + fr, height + ft + fb))

    def colour(self, x, y):
        """The colour of a pixel of the screen, as red, green and blue."""
        told = self.tool("import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8",
                         "txt:-")
        return tuple(int(number) for number in re.findall(r"\((\d+),(\d+),(\d+)", told)[-1])

    def destroy(self, window):
        """What another client may do to any window."""
        x11 = ctypes.CDLL("libX11.so.6")
        x11.XSetErrorHandler(IGNORE_X_ERROR)
        x11.XOpenDisplay.restype = ctypes.c_void_p
        display = ctypes.c_void_p(x11.XOpenDisplay(self.display.encode()))
        x11.XDestroyWindow(display, ctypes.c_ulong(window))
        x11.XSync(display, 0)
        x11.XCloseDisplay(display)

    def press(self, window, key):
        """A key of the keyboard, as if typed by a person whose focus is there."""
        self.tool("xdotool", "windowfocus", "--sync", str(window), "key", key)

    def ask_to_close(self, window):
        """What a window manager sends for a click on the close box."""

        class ClientMessage(ctypes.Structure):
            _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong),
                        ("send_event", ctypes.c_int), ("display", ctypes.c_void_p),
                        ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                        ("format", ctypes.c_int), ("data", ctypes.c_long * 5),
                        ("padding", ctypes.c_long * 24)]

        x11 = ctypes.CDLL("libX11.so.6")
        x11.XSetErrorHandler(IGNORE_X_ERROR)  # a window that has gone would end this process
        x11.XOpenDisplay.restype = ctypes.c_void_p
        x11.XInternAtom.restype = ctypes.c_ulong
        display = ctypes.c_void_p(x11.XOpenDisplay(self.display.encode()))
        event = ClientMessage(type=33, window=window, format=32)
        event.message_type = x11.XInternAtom(display, b"WM_PROTOCOLS", 0)
        event.data[0] = x11.XInternAtom(display, b"WM_DELETE_WINDOW", 0)
        if not x11.XSendEvent(display, ctypes.c_ulong(window), 0, ctypes.c_long(0),
                              ctypes.byref(event)):
            raise AssertionError("no close request could be sent")
        x11.XSync(display, 0)
        x11.XCloseDisplay(display)
