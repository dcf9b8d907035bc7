#!/usr/bin/env python3
"""web_server.py FOLDER: a web server on 127.0.0.1 with every way in which one can misbehave. It prints its two ports,
plain and TLS (with a certificate that nobody has signed), and serves until its standard input ends.

    /good/NAME      a file, also parts of it
    /whole/NAME     a file without the right to ask for parts
    /slow/NAME      a file at 10 kB/s
    /cut/NAME       promises a file and closes the line in its middle
    /stalled/NAME   sends half a file and then nothing
    /live/NAME      a file without a told length, whose line stays open behind it
    /onair/NAME?SECONDS  a file of so many seconds sent as it happens, from the first asker on: who asks later comes in
                    where it stands by then
    /mute           answers with its header lines and then nothing
    /headers        answers with header lines that never end
    /silent         never answers
    /gone           404
    /login          a page of text in place of a video
    /to?ADDRESS     sends the asker on to an address
    /round          sends the asker to itself
    /list?LINE&…    a play list of these lines
    /leads.asx?ADDRESS  an .asx play list that leads to an address
"""

import http.server
import pathlib
import ssl
import subprocess
import sys
import tempfile
import threading
import time
import urllib.parse

CHUNK = 1000
SLOW_PAUSE = CHUNK / 10_000  # seconds
TS_PACKET = 188  # bytes
LEAD = 3  # seconds by which a sender of what is on the air is ahead
LONGEST_SILENCE = 120  # seconds; nobody waits so long


class Answer(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    folder = pathlib.Path()
    ended = threading.Event()
    starting = threading.Lock()
    begins = {}  # of what is on the air, by its name

    def log_message(self, *_):
        pass

    def do_GET(self):
        address = urllib.parse.urlsplit(self.path)
        way, _, name = address.path.strip("/").partition("/")
        try:
            getattr(self, "answer_" + way.partition(".")[0])(name, address.query)
        except (BrokenPipeError, ConnectionResetError):
            pass  # the asker has had enough

    def head(self, status=200, **lines):
        self.send_response(status)
        for key, value in lines.items():
            self.send_header(key.replace("_", "-"), value)
        self.end_headers()

    def bytes_of(self, name):
        return (self.folder / name).read_bytes()

    def answer_good(self, name, _):
        whole = self.bytes_of(name)
        asked = self.headers.get("Range")
        if not asked:
            self.head(Content_Length=len(whole), Accept_Ranges="bytes")
            self.wfile.write(whole)
            return
        first, _, last = asked.removeprefix("bytes=").partition("-")
        part = whole[int(first):int(last) + 1 if last else None]
        self.head(206, Content_Length=len(part), Content_Range=f"bytes {first}-{int(first) + len(part) - 1}/{len(whole)}")
        self.wfile.write(part)

    def answer_whole(self, name, _):
        whole = self.bytes_of(name)
        self.close_connection = True
        self.head(Content_Length=len(whole), Connection="close")
        self.wfile.write(whole)

    def answer_slow(self, name, _):
        whole = self.bytes_of(name)
        self.head(Content_Length=len(whole))
        for place in range(0, len(whole), CHUNK):
            self.wfile.write(whole[place:place + CHUNK])
            self.ended.wait(SLOW_PAUSE)

    def answer_cut(self, name, _):
        whole = self.bytes_of(name)
        self.close_connection = True
        self.head(Content_Length=len(whole))
        self.wfile.write(whole[:len(whole) // 2])

    def answer_stalled(self, name, _):
        whole = self.bytes_of(name)
        self.head(Content_Length=len(whole))
        self.wfile.write(whole[:len(whole) // 2])
        self.ended.wait(LONGEST_SILENCE)

    def answer_live(self, name, _):
        self.close_connection = True
        self.head(Connection="close")
        self.wfile.write(self.bytes_of(name))
        self.wfile.flush()
        self.ended.wait(LONGEST_SILENCE)

    def answer_onair(self, name, seconds):
        whole = self.bytes_of(name)
        self.close_connection = True
        self.head(Connection="close")
        with self.starting:
            began = self.begins.setdefault(name, time.monotonic())
        place = int(len(whole) * (time.monotonic() - began) / float(seconds)) // TS_PACKET * TS_PACKET
        while not self.ended.is_set():
            due = int(len(whole) * (time.monotonic() - began + LEAD) / float(seconds))
            self.wfile.write(whole[place:due])
            place = max(place, due)
            self.ended.wait(SLOW_PAUSE)

    def answer_mute(self, *_):
        self.head(Content_Length=100_000, Content_Type="video/mp4")
        self.ended.wait(LONGEST_SILENCE)

    def answer_headers(self, *_):
        self.send_response(200)
        self.flush_headers()
        while not self.ended.wait(SLOW_PAUSE):
            self.wfile.write(b"X-More: more\r\n")

    def answer_silent(self, *_):
        self.ended.wait(LONGEST_SILENCE)

    def answer_gone(self, *_):
        self.head(404, Content_Length=0)

    def answer_login(self, *_):
        page = b"<html><body>Please log in.</body></html>"
        self.head(Content_Length=len(page), Content_Type="text/html")
        self.wfile.write(page)

    def answer_to(self, _, address):
        self.head(302, Location=urllib.parse.unquote(address), Content_Length=0)

    def answer_round(self, *_):
        self.head(302, Location=self.path, Content_Length=0)

    def answer_leads(self, _, address):
        text = f'<asx version="3.0"><entry><ref href="{urllib.parse.unquote(address)}"/></entry></asx>'
        self.head(Content_Length=len(text))
        self.wfile.write(text.encode())

    def answer_list(self, _, lines):
        text = "#EXTM3U\n#EXT-X-TARGETDURATION:10\n" + "".join(
            f"#EXTINF:5,\n{urllib.parse.unquote(line)}\n" for line in lines.split("&")) + "#EXT-X-ENDLIST\n"
        self.head(Content_Length=len(text), Content_Type="application/vnd.apple.mpegurl")
        self.wfile.write(text.encode())


def unsigned_certificate(folder):
    key, certificate = folder / "key.pem", folder / "certificate.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", key, "-out", certificate,
                    "-days", "2", "-subj", "/CN=localhost"], check=True, capture_output=True)
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(certificate, key)
    return context


def main():
    Answer.folder = pathlib.Path(sys.argv[1])
    plain = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Answer)
    secret = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Answer)
    with tempfile.TemporaryDirectory() as folder:
        secret.socket = unsigned_certificate(pathlib.Path(folder)).wrap_socket(secret.socket, server_side=True)
    for server in (plain, secret):
        server.daemon_threads = True
        threading.Thread(target=server.serve_forever, daemon=True).start()
    print(plain.server_port, secret.server_port, flush=True)
    sys.stdin.read()
    Answer.ended.set()


if __name__ == "__main__":
    main()
