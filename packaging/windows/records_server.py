# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""A records page on this computer, for the updater."""

import contextlib
import http.server
import ssl
import struct
import subprocess
import threading

CERTIFICATE_ITSELF = 32  # the number of that property in the system's store
ROOTS = r"HKCU\Software\Microsoft\SystemCertificates\Root\Certificates"


def handler_of(page):
    class Handler(http.server.BaseHTTPRequestHandler):
        def do_GET(self):  # pylint: disable=invalid-name
            body = page.read_bytes()
            self.send_response(200)
            self.send_header("Content-Length", str(len(body)))
            self.end_headers()
            self.wfile.write(body)

        def log_message(self, *_):
            pass

    return Handler


class Certificate:
    """Of 127.0.0.1, signed by itself."""

    def __init__(self, folder):
        self.file = folder / "server.pem"
        self.key = folder / "server.key"
        command = "openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=127.0.0.1".split()
        command += ["-addext", "subjectAltName=IP:127.0.0.1", "-keyout", str(self.key), "-out", str(self.file)]
        subprocess.run(command, check=True, capture_output=True)

    def registry_key(self):
        command = ["openssl", "x509", "-in", str(self.file), "-noout", "-fingerprint", "-sha1"]
        text = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        return ROOTS + "\\" + text.split("=")[1].strip().replace(":", "")

    def registry_value(self):
        """As the system keeps certificates: the number of a property, a one, its size, itself."""
        content = ssl.PEM_cert_to_DER_cert(self.file.read_text("ascii"))
        return (struct.pack("<III", CERTIFICATE_ITSELF, 1, len(content)) + content).hex()


@contextlib.contextmanager
def serving(page, certificate=None):
    """The address of the page's server."""
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler_of(page))
    if certificate:
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(certificate.file, certificate.key)
        server.socket = context.wrap_socket(server.socket, server_side=True)
    thread = threading.Thread(target=server.serve_forever, daemon=True)
    thread.start()
    try:
        yield f"{'https' if certificate else 'http'}://127.0.0.1:{server.server_port}"
    finally:
        server.shutdown()
        server.server_close()
        thread.join()
