"""Drives a headless Chromium over its debugging pipe: opens a page, measures it, looks at its pixels."""
import base64
import json
import os
import shutil
import struct
import subprocess
import tempfile
import zlib

PROGRAMS = ("chromium", "chromium-browser")


def find_browser():
    return next((path for path in map(shutil.which, PROGRAMS) if path), None)


class Browser:
    """One browser with one page. Its messages are JSON, each ended by a zero byte (Chrome DevTools Protocol)."""

    def __init__(self, program, width=1200, height=900):
        self._profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        to_browser, self._to = os.pipe()
        self._from, from_browser = os.pipe()

        def give_pipes():  # the browser reads from descriptor 3 and writes to 4
            high = [os.dup(to_browser), os.dup(from_browser)]
            for number, descriptor in zip((3, 4), high):
                os.dup2(descriptor, number)

        self._process = subprocess.Popen(
            [program, "--headless=new", "--no-sandbox", "--disable-gpu", "--hide-scrollbars", "--no-first-run",
             "--disable-dev-shm-usage", "--force-device-scale-factor=1", "--force-color-profile=srgb",
             "--disable-lcd-text", f"--user-data-dir={self._profile.name}", f"--window-size={width},{height}",
             "--remote-debugging-pipe", "about:blank"],
            close_fds=False, preexec_fn=give_pipes, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        os.close(to_browser)
        os.close(from_browser)
        self._pending, self._number, self._session = b"", 0, None
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self._session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        self.call("Page.enable")
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self._to)
        try:
            self._process.wait(10)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        os.close(self._from)
        self._profile.cleanup()

    def _receive(self):
        while b"\0" not in self._pending:
            chunk = os.read(self._from, 1 << 16)
            if not chunk:
                raise RuntimeError("the browser ended")
            self._pending += chunk
        message, self._pending = self._pending.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, **parameters):
        self._number += 1
        message = {"id": self._number, "method": method, "params": parameters}
        if self._session:
            message["sessionId"] = self._session
        os.write(self._to, json.dumps(message).encode() + b"\0")
        while True:
            answer = self._receive()
            if answer.get("id") == self._number:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]

    def open(self, path, scripts=True):
        """Opens a file, and waits until it is laid out. Without scripts, the page's own ones do not run."""
        self.call("Emulation.setScriptExecutionDisabled", value=not scripts)
        self.call("Page.navigate", url=path if "://" in str(path) else f"file://{path}")
        while self.evaluate("document.readyState") != "complete":
            pass

    def evaluate(self, expression):
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in result:
            raise RuntimeError(f"{expression}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def press(self, key, code=None):
        """Presses and releases a key, named as in KeyboardEvent.key."""
        text = "\r" if key == "Enter" else ""
        codes = {"Tab": 9, "Enter": 13}
        for kind in ("keyDown", "keyUp"):
            self.call("Input.dispatchKeyEvent", type=kind, key=key, code=code or key, text=text,
                      windowsVirtualKeyCode=codes.get(key, 0))

    def screenshot(self):
        return Pixels(base64.b64decode(self.call("Page.captureScreenshot", format="png")["data"]))


class Pixels:
    """The pixels of a PNG file of 8 bits a channel, RGB or RGBA, not interlaced (what browsers write)."""

    def __init__(self, data):
        position, packed = 8, b""
        while position < len(data):
            size, kind = struct.unpack_from(">I4s", data, position)
            body = data[position + 8:position + 8 + size]
            if kind == b"IHDR":
                self.width, self.height, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", body)
                assert depth == 8 and colour in (2, 6) and not interlace
                self._channels = 3 if colour == 2 else 4
            elif kind == b"IDAT":
                packed += body
            position += size + 12
        self._rows = self._unfilter(zlib.decompress(packed))

    def _unfilter(self, raw):
        stride, step = self.width * self._channels, self._channels
        rows, above = [], bytes(stride)
        for y in range(self.height):
            kind = raw[y * (stride + 1)]
            row = bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
            if kind:
                for i in range(stride):
                    left = row[i - step] if i >= step else 0
                    row[i] = (row[i] + self._predict(kind, left, above[i], above[i - step] if i >= step else 0)) & 255
            rows.append(bytes(row))
            above = row
        return rows

    @staticmethod
    def _predict(kind, left, up, corner):
        if kind == 1:
            return left
        if kind == 2:
            return up
        if kind == 3:
            return (left + up) // 2
        estimate = left + up - corner
        distances = (abs(estimate - left), abs(estimate - up), abs(estimate - corner))
        return (left, up, corner)[distances.index(min(distances))]

    def at(self, x, y):
        """The colour as six hexadecimal digits."""
        begin = int(x) * self._channels
        return self._rows[int(y)][begin:begin + 3].hex().upper()
