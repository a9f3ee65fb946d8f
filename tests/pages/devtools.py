# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""A browser without a window, steered through the pipe of its developer tools: no port is opened."""

import base64
import json
import os
import select
import subprocess
import tempfile
import time

OPTIONS = ["--headless", "--no-sandbox", "--disable-gpu", "--no-first-run", "--hide-scrollbars", "--disable-extensions",
           "--disable-background-networking", "--disable-component-update", "--disable-sync", "--remote-debugging-pipe"]
PATIENCE = 60  # seconds for an answer
KEYS = {"Tab": 9, "Enter": 13, " ": 32}


class Browser:
    """Use it in a `with` block; the browser ends with it."""

    def __init__(self, program):
        self._folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        from_us, self._to_browser = os.pipe()
        self._from_browser, to_us = os.pipe()
        for number in (from_us, to_us):
            os.set_inheritable(number, True)
        # The browser reads at descriptor 3 and writes at 4.
        command = ["/bin/sh", "-c", f'exec "$@" 3<&{from_us} 4>&{to_us}', "sh", program, *OPTIONS,
                   f"--user-data-dir={self._folder.name}", "about:blank"]
        self._process = subprocess.Popen(command, close_fds=True, pass_fds=(from_us, to_us), stdout=subprocess.DEVNULL,
                                         stderr=subprocess.DEVNULL)
        os.close(from_us)
        os.close(to_us)
        self._received = b""
        self._last = 0
        self.events = []
        target = self.call("Target.createTarget", session=None, url="about:blank")["targetId"]
        self._session = self.call("Target.attachToTarget", session=None, targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.call(f"{domain}.enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self._to_browser)
        try:
            self._process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        os.close(self._from_browser)
        self._folder.cleanup()

    def _next_message(self):
        end = time.monotonic() + PATIENCE
        while b"\0" not in self._received:
            if not select.select([self._from_browser], [], [], max(0, end - time.monotonic()))[0]:
                raise TimeoutError("The browser does not answer")
            part = os.read(self._from_browser, 1 << 20)
            if not part:
                raise EOFError("The browser has ended")
            self._received += part
        message, self._received = self._received.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, session="own", **parameters):
        self._last += 1
        message = {"id": self._last, "method": method, "params": parameters}
        if session is not None:
            message["sessionId"] = self._session
        os.write(self._to_browser, json.dumps(message).encode() + b"\0")
        while True:
            answer = self._next_message()
            if answer.get("id") == self._last:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']['message']}")
                return answer["result"]
            self.events.append(answer)

    def wait_for(self, method):
        while not any(event.get("method") == method for event in self.events):
            self.events.append(self._next_message())

    def open(self, address):
        self.events.clear()
        self.call("Page.navigate", url=address)
        self.wait_for("Page.loadEventFired")

    def show(self, width, height=900, dark=False, media=""):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1,
                  mobile=width < 600)
        self.call("Emulation.setEmulatedMedia", media=media,
                  features=[{"name": "prefers-color-scheme", "value": "dark" if dark else "light"}])

    def evaluate(self, expression):
        """The value of a JavaScript expression, which also makes the browser lay out the page."""
        answer = self.call("Runtime.evaluate", expression=expression, returnByValue=True)
        if "exceptionDetails" in answer:
            raise RuntimeError(answer["exceptionDetails"]["exception"]["description"])
        return answer["result"].get("value")

    def press(self, key):
        code = KEYS[key]
        text = {"Enter": "\r", " ": " "}.get(key, "")
        parameters = {"key": key, "windowsVirtualKeyCode": code}
        self.call("Input.dispatchKeyEvent", type="keyDown", text=text, **parameters)
        self.call("Input.dispatchKeyEvent", type="keyUp", **parameters)

    def messages(self):
        """All that the console has been told, errors of the page included."""
        kinds = ("Runtime.consoleAPICalled", "Runtime.exceptionThrown", "Log.entryAdded")
        return [json.dumps(event["params"]) for event in self.events if event.get("method") in kinds]

    def requests(self):
        return [event["params"]["request"]["url"] for event in self.events
                if event.get("method") == "Network.requestWillBeSent"]

    def picture(self, file, width, height):
        """The upper left part of the page."""
        clip = {"x": 0, "y": 0, "width": width, "height": height, "scale": 1}
        answer = self.call("Page.captureScreenshot", format="png", captureBeyondViewport=True, clip=clip)
        file.write_bytes(base64.b64decode(answer["data"]))
