# SPDX-FileCopyrightText: 2026 The VardexScandata developers
# SPDX-License-Identifier: MIT
"""Drives a headless Chromium through its DevTools protocol, over a pair of pipes."""
import base64
import fcntl
import json
import os
import pathlib
import select
import shutil
import subprocess
import tempfile
import time

# WebGL in software: the same on every machine, with and without a graphics card.
FLAGS = ["--headless=new", "--use-angle=swiftshader", "--enable-unsafe-swiftshader", "--no-sandbox",
         "--no-first-run", "--disable-extensions", "--disable-background-networking",
         "--disable-component-update", "--disable-sync", "--disable-dev-shm-usage",
         "--force-device-scale-factor=1", "--remote-debugging-pipe"]


class BrowserError(Exception):
    """The browser did not do what it was told to, or the page threw."""


def find_browser():
    """The path of a Chromium; None when there is none."""
    for name in ("chromium", "chromium-browser", "google-chrome"):
        if shutil.which(name):
            return shutil.which(name)
    return None


class Browser:
    """One browser with one page. Use it in a with statement: it ends the browser."""

    def __init__(self, width=1280, height=720, flags=()):
        self.size = (width, height)
        self.profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        to_browser, self.out = os.pipe()
        self.inp, from_browser = os.pipe()
        # The browser reads file descriptor 3 and writes 4.
        ends = [fcntl.fcntl(fd, fcntl.F_DUPFD, 10) for fd in (to_browser, from_browser)]
        os.close(to_browser)
        os.close(from_browser)

        def place_ends():
            os.dup2(ends[0], 3)
            os.dup2(ends[1], 4)

        command = [find_browser(), *FLAGS, *flags, f"--user-data-dir={self.profile.name}",
                   f"--window-size={width},{height}", "about:blank"]
        self.process = subprocess.Popen(command, pass_fds=(3, 4), preexec_fn=place_ends,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        for end in ends:
            os.close(end)
        self.buffer = b""
        self.last_id = 0
        self.session = None
        self.events = []
        targets = self.call("Target.getTargets")["targetInfos"]
        page = next(target for target in targets if target["type"] == "page")
        attached = self.call("Target.attachToTarget", targetId=page["targetId"], flatten=True)
        self.session = attached["sessionId"]
        for domain in ("Page", "Runtime", "Network", "Log"):
            self.call(domain + ".enable")
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height,
                  deviceScaleFactor=1, mobile=False)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        try:
            self.process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
        os.close(self.inp)
        os.close(self.out)
        self.profile.cleanup()

    def _read(self, deadline):
        """The next message; what is no answer is also kept in events."""
        while b"\0" not in self.buffer:
            ready, _, _ = select.select([self.inp], [], [], max(0.0, deadline - time.monotonic()))
            chunk = os.read(self.inp, 1 << 20) if ready else b""
            if not chunk:
                raise BrowserError("the browser does not answer")
            self.buffer += chunk
        line, self.buffer = self.buffer.split(b"\0", 1)
        message = json.loads(line)
        if "id" not in message:
            self.events.append(message)
        return message

    def call(self, method, timeout=120, **params):
        """Calls a method of the protocol. Gives its result."""
        self.last_id += 1
        message = {"id": self.last_id, "method": method, "params": params}
        if self.session:
            message["sessionId"] = self.session
        data = json.dumps(message).encode() + b"\0"
        while data:
            data = data[os.write(self.out, data):]
        deadline = time.monotonic() + timeout
        while True:
            answer = self._read(deadline)
            if answer.get("id") == self.last_id:
                if "error" in answer:
                    raise BrowserError(f"{method}: {answer['error']['message']}")
                return answer["result"]

    def eval(self, expression):
        """Value of an expression in the page; a promise is awaited."""
        answer = self.call("Runtime.evaluate", expression=expression, returnByValue=True,
                           awaitPromise=True)
        if "exceptionDetails" in answer:
            details = answer["exceptionDetails"]
            raise BrowserError(details.get("exception", {}).get("description", details["text"]))
        return answer["result"].get("value")

    def wait_for(self, expression, timeout=60):
        """Waits until an expression is true."""
        deadline = time.monotonic() + timeout
        while not self.eval(expression):
            if time.monotonic() > deadline:
                raise BrowserError(f"never true: {expression}")
            time.sleep(0.02)

    def open(self, file):
        """Opens a file and waits until its page is there or says why not."""
        self.events.clear()
        self.call("Page.navigate", url=pathlib.Path(file).resolve().as_uri())
        self.wait_for("document.readyState === 'complete' && document.getElementById('message') && "
                      "!document.getElementById('message').textContent.startsWith('Opening')")
        self.settle()

    def settle(self):
        """Waits until what was asked for is drawn."""
        self.eval("new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(() => "
                  "setTimeout(done))))")

    def click(self, x, y):
        """A click of the left button at a pixel."""
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1)
        self.settle()

    def key(self, key, code="", modifiers=0):
        """Presses a key, as KeyboardEvent names it."""
        text = key if len(key) == 1 else ""
        number = {"Escape": 27, "Enter": 13}.get(key, 0)
        self.call("Input.dispatchKeyEvent", type="keyDown", key=key, code=code, text=text,
                  modifiers=modifiers, windowsVirtualKeyCode=number)
        self.call("Input.dispatchKeyEvent", type="keyUp", key=key, code=code, modifiers=modifiers)
        self.settle()

    def screenshot(self, file=None):
        """The page as PNG bytes, also into a file."""
        png = base64.b64decode(self.call("Page.captureScreenshot", format="png")["data"])
        if file:
            pathlib.Path(file).write_bytes(png)
        return png

    def requests(self):
        """URLs that were asked for, without the page itself and what lies in it."""
        urls = [event["params"]["request"]["url"] for event in self.events
                if event["method"] == "Network.requestWillBeSent"]
        return [url for url in urls[1:] if not url.startswith(("data:", "blob:"))]

    def complaints(self):
        """Errors that the page threw, and what it and the browser logged as errors."""
        found = []
        for event in self.events:
            params = event["params"]
            if event["method"] == "Runtime.exceptionThrown":
                details = params["exceptionDetails"]
                found.append(details.get("exception", {}).get("description", details["text"]))
            elif event["method"] == "Runtime.consoleAPICalled" and \
                    params["type"] in ("error", "warning", "assert"):
                found.append(" ".join(str(argument.get("value")) for argument in params["args"]))
            elif event["method"] == "Log.entryAdded" and params["entry"]["level"] == "error":
                found.append(params["entry"]["text"])
        return found
