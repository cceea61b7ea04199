#!/usr/bin/env python3
"""studio_server.py TOOL: what the studio's server answers to its page, to strangers, and to clients that mean ill."""
import contextlib
import http.client
import json
import os
import pathlib
import random
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest

TOOL = sys.argv.pop(1)
SECRET = "nobody outside the folder may read this"
PATIENCE = 20  # seconds, on a busy machine
FIRST = '[{"featureType": "water", "elementType": "all", "stylers": {"color": "#0000ff"}}]\n'
SECOND = FIRST.replace("0000ff", "00ff00")


class Place:
    """A folder with a page, a style, a mapping, and what is nobody's business."""

    def __init__(self):
        self.root = pathlib.Path(tempfile.mkdtemp())
        self.page = self.root / "page"
        (self.page / "tiles").mkdir(parents=True)
        (self.page / "index.html").write_text("<!doctype html><title>page</title>")
        (self.page / "page.js").write_text("export const page = 1;\n")
        (self.page / "tiles" / "1-2-3.pbf").write_bytes(b"\x1a\x00")
        for name in [".hidden", "back\\slash.js", "line\nbreak.js", "no\x7fprint.js", "co:lon.js"]:
            (self.page / name).write_text(SECRET)
        (self.root / "secret").write_text(SECRET)
        (self.page / "link-out").symlink_to(self.root / "secret")
        (self.page / "folder-out").symlink_to(self.root)
        os.mkfifo(self.page / "pipe")
        (self.root / "map").mkdir()
        (self.root / "map" / "CustomIndex").write_text('{"water": [7]}')
        self.style = self.root / "night.json"
        self.style.write_text(FIRST)

    def remove(self):
        shutil.rmtree(self.root)


class Studio:
    """The running program."""

    def __init__(self, *words, page):
        self.process = subprocess.Popen([TOOL, "studio", "--port", "0", "--page", page, *words], text=True,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        line = self.process.stdout.readline()
        self.port = int(re.match(r"http://127\.0\.0\.1:(\d+)/ shows ", line)[1])
        self.host = f"127.0.0.1:{self.port}"

    def ask(self, method="GET", path="/", body=None, headers=()):
        """Status, headers and body of an answer."""
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=PATIENCE)
        with contextlib.closing(connection):
            connection.request(method, path, body, {"Host": self.host} | dict(headers))
            answer = connection.getresponse()
            return answer.status, answer.headers, answer.read()

    def raw(self, text, is_all=False):
        """What comes back for some bytes, after which no more come where they are all."""
        with socket.create_connection(("127.0.0.1", self.port), timeout=PATIENCE) as client:
            with contextlib.suppress(OSError):
                client.sendall(text.encode("latin-1"))
                if is_all:
                    client.shutdown(socket.SHUT_WR)
            answer = b""
            with contextlib.suppress(OSError):
                while piece := client.recv(65536):
                    answer += piece
            return answer.decode("latin-1")

    def status_of(self, target, host=None, lines=""):
        """The status of an answer to a target that no client library would send."""
        host = f"Host: {self.host}\r\n" if host is None else host
        answer = self.raw(f"GET {target} HTTP/1.1\r\n{host}Connection: close\r\n{lines}\r\n")
        return int(answer.split(" ")[1]) if answer else 0, answer

    def style(self):
        return json.loads(self.ask(path="/api/style")[2])

    def token(self):
        return json.loads(self.ask(path="/api/token")[2])["token"]

    def save(self, text, version, token=None, **headers):
        headers = {"X-Studio-Token": self.token() if token is None else token, "Content-Type": "application/json"} | headers
        status, _, body = self.ask("PUT", "/api/style", json.dumps({"text": text, "version": version}), headers)
        return status, json.loads(body)

    def end(self, how=signal.SIGINT):
        self.process.send_signal(how)
        status = self.process.wait(PATIENCE)
        self.process.stdout.close()
        self.process.stderr.close()
        return status


class Stream:
    """Server-sent events."""

    def __init__(self, studio):
        self.connection = http.client.HTTPConnection("127.0.0.1", studio.port, timeout=PATIENCE)
        self.connection.request("GET", "/api/events", headers={"Host": studio.host})
        self.answer = self.connection.getresponse()
        self.status = self.answer.status

    def next(self):
        """The next event's name and data."""
        name = data = None
        while line := self.answer.readline().decode():
            if line.startswith("event: "):
                name = line[7:-1]
            elif line.startswith("data: "):
                data = json.loads(line[6:])
            elif line == "\n" and name is not None:
                return name, data
        return None, None

    def close(self):
        self.answer.close()
        self.connection.close()


class StudioTest(unittest.TestCase):
    def setUp(self):
        self.place = Place()
        self.addCleanup(self.place.remove)
        self.studio = self.start()

    def start(self):
        studio = Studio(str(self.place.style), "--mapping", str(self.place.root / "map"), page=self.place.page)
        self.addCleanup(lambda: studio.process.poll() is None and studio.end(signal.SIGKILL))
        return studio

    def settings(self, text):
        (self.place.root / "customstyle.toml").write_text(text)

    def mapping_with(self, *words):
        """The mapping that a studio without --mapping serves, or None."""
        studio = Studio(str(self.place.style), *words, page=self.place.page)
        status, _, body = studio.ask(path="/api/mapping")
        studio.end()
        return json.loads(body)["text"] if status == 200 else None

    def test_serves_the_mapping_of_the_settings_beside_the_style(self):
        self.assertIsNone(self.mapping_with())
        self.settings('mapping = "map"')
        self.assertEqual(self.mapping_with(), '{"water": [7]}')
        self.assertIsNone(self.mapping_with("--no-config"))

    def test_refuses_broken_settings(self):
        self.settings('maping = "map"')
        words = [TOOL, "studio", "--page", self.place.page, str(self.place.style)]
        done = subprocess.run(words, capture_output=True, text=True, check=False, timeout=PATIENCE)
        self.assertEqual(done.returncode, 2)
        self.assertIn('customstyle.toml:1:1: unknown setting "maping"; did you mean "mapping"?', done.stderr)

    def stream(self):
        stream = Stream(self.studio)
        self.addCleanup(stream.close)
        return stream


class Page(StudioTest):
    def test_is_served_with_its_types_and_guards(self):
        for path, kind in [("/", "text/html; charset=utf-8"), ("/page.js", "text/javascript; charset=utf-8"),
                           ("/tiles/1-2-3.pbf", "application/x-protobuf"), ("/page.js?v=1", "text/javascript; charset=utf-8")]:
            with self.subTest(path=path):
                status, headers, body = self.studio.ask(path=path)
                self.assertEqual((status, headers["Content-Type"]), (200, kind))
                self.assertEqual(int(headers["Content-Length"]), len(body))
                self.assertIn("default-src 'none'", headers["Content-Security-Policy"])
                self.assertNotIn("unsafe-inline", headers["Content-Security-Policy"])
                self.assertIn("frame-ancestors 'none'", headers["Content-Security-Policy"])
                self.assertEqual(headers["X-Content-Type-Options"], "nosniff")
                self.assertEqual(headers["X-Frame-Options"], "DENY")
                self.assertEqual(headers["Referrer-Policy"], "no-referrer")
                self.assertEqual(headers["Cross-Origin-Opener-Policy"], "same-origin")
                self.assertEqual(headers["Cross-Origin-Resource-Policy"], "same-origin")

    def test_has_the_policy_that_it_states_itself(self):
        source = pathlib.Path(__file__).resolve().parents[2] / "studio/page/src/index.html"
        stated = re.search(r'Content-Security-Policy" content="([^"]*)"', source.read_text())[1]
        self.assertEqual(self.studio.ask()[1]["Content-Security-Policy"], f"{stated}; frame-ancestors 'none'")

    def test_refusals_are_guarded_too(self):
        for path in ["/no-such-file", "/api/style"]:
            self.assertEqual(self.studio.ask("DELETE", path)[1]["X-Content-Type-Options"], "nosniff")

    def test_answers_head_without_a_body(self):
        status, headers, body = self.studio.ask("HEAD", "/page.js")
        self.assertEqual((status, body), (200, b""))
        self.assertEqual(headers["Content-Length"], "23")

    def test_has_no_file_outside_its_folder(self):
        targets = ["/../secret", "/%2e%2e/secret", "/..%2fsecret", "/%2e%2e%2fsecret", "/tiles/../../secret", "//secret",
                   "/tiles/..%2f..%2fsecret", f"/{self.place.root}/secret", f"//{self.place.root}/secret",
                   f"/%2f{str(self.place.root)[1:]}/secret", "/link-out", "/folder-out/secret", "/.hidden", "/%2ehidden",
                   "/tiles/../.hidden", "/..\\secret", "/..%5csecret", "/tiles", "/tiles/", "/./page.js", "/page.js%00",
                   "/page.js%00.css", "/page.js/", "/page.js%0a", "/%", "/%zz", "/%2", "/pipe", "/co:lon.js",
                   "/co%3alon.js", "/back%5cslash.js", "/line%0abreak.js", "/no%7fprint.js", "*", "secret",
                   "/" + "a" * 5000, "/" + "../" * 2000 + "secret", "/" + "%2e" * 20000, "http://evil.example/page.js%00"]
        for target in targets:
            with self.subTest(target=target[:60]):
                status, answer = self.studio.status_of(target)
                self.assertIn(status, [400, 403, 404, 405, 414, 431])
                self.assertNotIn(SECRET, answer)

    def test_is_named_when_it_is_missing(self):
        done = subprocess.run([TOOL, "studio", "--page", self.place.root], capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 2)
        self.assertIn("build it with script/studio --build", done.stderr)

    def test_is_written_for_any_web_host(self):
        site = self.place.root / "new" / "site"
        words = [TOOL, "studio", "--page", self.place.page, "--build-site", site]
        (self.place.page / "pipe").unlink()
        self.assertEqual(subprocess.run(words, check=False).returncode, 0)
        self.assertEqual((site / "page.js").read_text(), (self.place.page / "page.js").read_text())
        self.assertTrue((site / "tiles" / "1-2-3.pbf").is_file())
        self.assertFalse((site / "link-out").exists())
        again = subprocess.run(words, capture_output=True, text=True, check=False)
        self.assertEqual(again.returncode, 2)
        self.assertIn("is not an empty folder", again.stderr)


class Strangers(StudioTest):
    def test_of_other_hosts_are_refused(self):
        port = self.studio.port
        for host in ["evil.example", f"evil.example:{port}", "127.0.0.1", f"127.0.0.1:{port + 1}", f"127.0.0.1:{port}.evil.example",
                     f"[::1]:{port}", f"0.0.0.0:{port}", f"LOCALHOST.:{port}", ""]:
            for path in ["/", "/api/token", "/api/style", "/api/events"]:
                with self.subTest(host=host, path=path):
                    self.assertIn(self.studio.status_of(path, f"Host: {host}\r\n")[0], [400, 403])
        self.assertIn(self.studio.status_of("/", "")[0], [400, 403])
        self.assertEqual(self.studio.status_of("/", f"Host: localhost:{port}\r\n")[0], 200)

    def test_of_other_origins_are_refused(self):
        version = self.studio.style()["version"]
        token = self.studio.token()
        for origin in ["http://evil.example", "null", f"https://{self.studio.host}", f"http://127.0.0.1:{self.studio.port + 1}",
                       f"http://localhost:{self.studio.port}"]:
            with self.subTest(origin=origin):
                for path in ["/", "/api/token", "/api/style", "/api/events"]:
                    self.assertEqual(self.studio.ask(path=path, headers={"Origin": origin})[0], 403)
                self.assertEqual(self.studio.save(SECOND, version, token, Origin=origin)[0], 403)
        self.assertEqual(self.place.style.read_text(), FIRST)
        own = {"Origin": f"http://{self.studio.host}", "Sec-Fetch-Site": "same-origin"}
        self.assertEqual(self.studio.ask(path="/api/token", headers=own)[0], 200)
        self.assertNotIn("Access-Control-Allow-Origin", self.studio.ask(path="/api/token", headers=own)[1])

    def test_on_other_sites_may_link_to_the_page_only(self):
        for site in ["cross-site", "same-site"]:
            for path, dest, expected in [("/", "document", 200), ("/", "iframe", 403), ("/page.js", "script", 403),
                                         ("/api/token", "document", 403), ("/api/token", "script", 403),
                                         ("/api/style", "empty", 403)]:
                with self.subTest(site=site, path=path, dest=dest):
                    headers = {"Sec-Fetch-Site": site, "Sec-Fetch-Dest": dest}
                    self.assertEqual(self.studio.ask(path=path, headers=headers)[0], expected)

    def test_find_no_other_address(self):
        with self.assertRaises(OSError):
            socket.create_connection(("127.0.0.2", self.studio.port), timeout=2).close()

    def test_with_other_methods_are_refused(self):
        for method in ["POST", "DELETE", "OPTIONS", "PATCH", "TRACE", "PROPFIND", "FOO"]:
            for path, allowed in [("/", "GET, HEAD"), ("/api/style", "GET, HEAD, PUT"), ("/api/token", "GET, HEAD")]:
                with self.subTest(method=method, path=path):
                    status, headers, _ = self.studio.ask(method, path)
                    self.assertEqual((status, headers["Allow"]), (405, allowed))
        for path in ["/", "/page.js", "/api/token", "/api/events", "/api/mapping"]:
            self.assertEqual(self.studio.ask("PUT", path, "{}", {"X-Studio-Token": self.studio.token()})[0], 405)
        self.assertEqual(self.studio.ask("GET", "/", "a body")[0], 400)


class Saving(StudioTest):
    def test_replaces_the_file_that_the_page_knows(self):
        self.place.style.chmod(0o640)
        status, answer = self.studio.save(SECOND, self.studio.style()["version"])
        self.assertEqual((status, self.place.style.read_text()), (200, SECOND))
        self.assertEqual(self.studio.style(), self.studio.style() | {"text": SECOND, "version": answer["version"]})
        self.assertEqual(self.place.style.stat().st_mode & 0o777, 0o640)
        self.assertEqual([each.name for each in self.place.root.iterdir() if each.name.startswith(".")], [])

    def test_never_overwrites_what_the_page_does_not_know(self):
        version = self.studio.style()["version"]
        self.place.style.write_text("[]")
        status, answer = self.studio.save(SECOND, version)
        self.assertEqual((status, answer["text"], self.place.style.read_text()), (409, "[]", "[]"))
        self.assertEqual(self.studio.save(SECOND, answer["version"])[0], 200)
        self.assertEqual(self.place.style.read_text(), SECOND)

    def test_of_two_pages_lets_one_win(self):
        version = self.studio.style()["version"]
        token = self.studio.token()
        statuses = []

        def save(number):
            statuses.append(self.studio.save(f"[{number}]", version, token)[0])

        threads = [threading.Thread(target=save, args=[number]) for number in range(8)]
        for each in threads:
            each.start()
        for each in threads:
            each.join()
        self.assertEqual(sorted(statuses), [200] + [409] * 7)

    def test_needs_the_token(self):
        version = self.studio.style()["version"]
        token = self.studio.token()
        for wrong in ["", "0" * len(token), token[:-1], token + "0", token.upper() + " "]:
            with self.subTest(token=wrong):
                status, answer = self.studio.save(SECOND, version, wrong)
                self.assertEqual(status, 403)
                self.assertEqual(answer["error"], "saving needs the token of this server in X-Studio-Token")
        self.assertEqual(self.place.style.read_text(), FIRST)
        self.assertNotEqual(token, self.start().token())

    def test_needs_json_with_text_and_version(self):
        headers = {"X-Studio-Token": self.studio.token(), "Content-Type": "application/json"}
        version = self.studio.style()["version"]
        for body in ["", "[", "[]", "{}", '{"text": "x"}', json.dumps({"text": 1, "version": version}),
                     json.dumps({"text": "x", "version": None}), b'{"text": "\xff", "version": "x"}', "[" * 100000]:
            with self.subTest(body=body[:40]):
                self.assertEqual(self.studio.ask("PUT", "/api/style", body, headers)[0], 400)
        self.assertEqual(self.studio.save(SECOND, version, **{"Content-Type": "text/plain"})[0], 415)
        self.assertEqual(self.place.style.read_text(), FIRST)

    def test_refuses_large_bodies(self):
        lines = (f"PUT /api/style HTTP/1.1\r\nHost: {self.studio.host}\r\nX-Studio-Token: {self.studio.token()}\r\n"
                 "Content-Type: application/json\r\nConnection: close\r\n")
        for length in [(32 << 20) + 1, 1 << 40]:
            self.assertIn(" 413 ", self.studio.raw(f"{lines}Content-Length: {length}\r\n\r\n")[:20])
        piece = f"{1 << 20:x}\r\n{'x' * (1 << 20)}\r\n"
        self.assertIn(" 413 ", self.studio.raw(f"{lines}Transfer-Encoding: chunked\r\n\r\n{piece * 34}0\r\n\r\n")[:20])
        self.assertEqual(self.studio.save("x" * ((16 << 20) + 1), self.studio.style()["version"])[0], 413)
        self.assertEqual(self.place.style.read_text(), FIRST)

    def test_follows_a_link_and_keeps_it(self):
        target = self.place.root / "target.json"
        self.place.style.rename(target)
        self.place.style.symlink_to(target)
        self.assertEqual(self.studio.save(SECOND, self.studio.style()["version"])[0], 200)
        self.assertTrue(self.place.style.is_symlink())
        self.assertEqual(target.read_text(), SECOND)

    def test_that_fails_says_why(self):
        if os.geteuid() == 0:
            shutil.rmtree(self.place.root / "map")
            self.place.style.unlink()
            self.place.style.symlink_to(self.place.root / "nowhere" / "night.json")
        else:
            self.place.style.chmod(0o444)
        status, answer = self.studio.save(SECOND, self.studio.style()["version"])
        self.assertEqual(status, 500)
        self.assertIn("night.json: cannot be written", answer["error"])

    def test_cut_short_leaves_the_old_file_or_the_new_one(self):
        texts = ["[" + json.dumps("x" * 3_000_000) + "]", "[" + json.dumps("y" * 3_000_000) + "]"]
        self.place.style.write_text(texts[0])
        chance = random.Random(7)
        seen = set()
        for _ in range(8):
            studio = self.start()
            version, token = studio.style()["version"], studio.token()
            old = self.place.style.read_text()
            new = texts[0] if old == texts[1] else texts[1]

            def save():
                with contextlib.suppress(OSError, http.client.HTTPException, ValueError):
                    studio.save(new, version, token)

            saving = threading.Thread(target=save)
            saving.start()
            time.sleep(chance.uniform(0.005, 0.12))
            studio.end(signal.SIGKILL)
            saving.join()
            found = self.place.style.read_text()
            self.assertIn(found, [old, new])
            seen.add(found == new)
        self.assertLessEqual(len(seen), 2)


class News(StudioTest):
    def expect(self, stream, text):
        """The next style event, which has this text."""
        name, data = stream.next()
        while name not in ("style", None):
            name, data = stream.next()
        self.assertEqual((data or {}).get("text", "nothing"), text)
        return data

    def test_begin_with_what_there_is(self):
        stream = self.stream()
        self.assertEqual(stream.answer.headers["Content-Type"], "text/event-stream")
        self.assertEqual(self.studio.style(), self.studio.style() | {"name": "night.json", "text": FIRST})
        events = dict([stream.next(), stream.next()])
        self.assertEqual(events["style"], self.studio.style())
        self.assertEqual(events["mapping"]["text"], '{"water": [7]}')
        self.assertEqual(events["mapping"], json.loads(self.studio.ask(path="/api/mapping")[2]))

    def test_tell_of_a_file_written_in_place_and_of_one_that_takes_its_place(self):
        stream = self.stream()
        self.expect(stream, FIRST)
        self.place.style.write_text(SECOND)
        self.expect(stream, SECOND)
        other = self.place.root / "night.json.swp"
        other.write_text(FIRST)
        other.replace(self.place.style)
        self.expect(stream, FIRST)
        self.place.style.rename(self.place.root / "night.json~")
        self.assertTrue(self.expect(stream, None)["missing"])
        self.place.style.write_text(SECOND)
        self.expect(stream, SECOND)

    def test_tell_of_writes_of_the_same_length_at_once(self):
        stream = self.stream()
        self.expect(stream, FIRST)
        for number in range(6):
            text = FIRST.replace("0000ff", f"00000{number}")
            self.place.style.write_text(text)
            self.expect(stream, text)

    def test_say_why_a_file_has_no_text(self):
        stream = self.stream()
        self.expect(stream, FIRST)
        self.place.style.write_bytes(b"[\xff]")
        self.assertIn("is not UTF-8", self.expect(stream, None)["problem"])
        self.place.style.unlink()
        self.place.style.mkdir()
        self.assertIn("night.json: is ", self.expect(stream, None)["problem"].replace("Is a", "is a"))

    def test_tell_of_the_mapping(self):
        stream = self.stream()
        stream.next(), stream.next()
        (self.place.root / "map" / "CustomIndex").write_text('{"water": [8]}')
        name, data = stream.next()
        self.assertEqual((name, data["text"]), ("mapping", '{"water": [8]}'))

    def test_reach_twenty_pages(self):
        streams = [self.stream() for _ in range(20)]
        for each in streams:
            self.expect(each, FIRST)
        self.place.style.write_text(SECOND)
        for each in streams:
            self.expect(each, SECOND)

    def test_go_to_so_many_pages_only(self):
        streams = [self.stream() for _ in range(32)]
        refused = self.stream()
        self.assertEqual((refused.status, refused.answer.headers["Retry-After"]), (503, "5"))
        self.assertEqual(self.studio.ask()[0], 200)
        for each in streams[:10]:
            each.close()
        until = time.monotonic() + PATIENCE
        while self.stream().status != 200:
            self.assertLess(time.monotonic(), until, "places of closed streams stay taken")
            time.sleep(0.2)

    def test_do_not_wait_for_a_page_that_does_not_read(self):
        deaf = self.stream()
        hearing = self.stream()
        self.expect(hearing, FIRST)
        for number in range(3):
            text = json.dumps([f"{number}" * 3_000_000])
            other = self.place.root / "night.json.new"  # a busy machine may take long to write it in place
            other.write_text(text)
            other.replace(self.place.style)
            self.expect(hearing, text)
        self.assertEqual(deaf.status, 200)


class Ends(StudioTest):
    def test_cleanly_at_ctrl_c_with_pages_open(self):
        for how in [signal.SIGINT, signal.SIGTERM]:
            studio = self.studio = self.start()
            streams = [self.stream() for _ in range(5)]
            self.assertEqual(streams[0].next()[0] is not None, True)
            began = time.monotonic()
            self.assertEqual(studio.end(how), 0)
            self.assertLess(time.monotonic() - began, 5)

    def test_and_begins_again_on_the_same_port(self):
        port = self.studio.port
        self.studio.ask()
        self.studio.end()
        words = [TOOL, "studio", "--port", str(port), "--page", self.place.page]
        with subprocess.Popen(words, stdout=subprocess.PIPE, text=True) as again:
            self.assertIn(f":{port}/ shows the studio", again.stdout.readline())
            taken = subprocess.run(words, capture_output=True, text=True, check=False)
            self.assertEqual(taken.returncode, 2)
            self.assertIn("Address already in use; choose another with --port", taken.stderr)
            again.send_signal(signal.SIGINT)

    def test_not_without_a_desktop_to_open_a_browser_on(self):
        environment = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY", "BROWSER")}
        words = [TOOL, "studio", "--port", "0", "--page", self.place.page, "--open"]
        with subprocess.Popen(words, env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as studio:
            self.assertIn("no browser could be opened here; open http://127.0.0.1:", studio.stderr.readline())
            studio.send_signal(signal.SIGINT)
            self.assertEqual(studio.wait(PATIENCE), 0)


class Calls(unittest.TestCase):
    def test_that_cannot_work_say_why(self):
        place = Place()
        self.addCleanup(place.remove)
        for words, reason in [(["no/such.json"], "no/such.json: no such file; give the path of a style file"),
                              (["-"], "standard input cannot be watched"), ([str(place.page / "pipe")], "is not a regular file"),
                              ([str(place.style), "--mapping", str(place.page)], "CustomIndex"),
                              (["--port", "70000"], "is not a port"), (["--port", "x"], "is not a port"),
                              (["--build-site", "site", "--open"], "--build-site writes the page only")]:
            with self.subTest(words=words):
                done = subprocess.run([TOOL, "studio", "--page", place.page, *words], capture_output=True, text=True, check=False,
                                      timeout=PATIENCE)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertIn(reason, done.stderr)


class Flood(StudioTest):
    def test_of_requests_is_answered(self):
        statuses = []

        def ask():
            connection = http.client.HTTPConnection("127.0.0.1", self.studio.port, timeout=PATIENCE)
            with contextlib.closing(connection):
                for number in range(40):
                    connection.request("GET", ["/page.js", "/api/style", "/no", "/tiles/1-2-3.pbf"][number % 4],
                                       headers={"Host": self.studio.host})
                    answer = connection.getresponse()
                    answer.read()
                    statuses.append(answer.status)

        threads = [threading.Thread(target=ask) for _ in range(30)]
        for each in threads:
            each.start()
        for each in threads:
            each.join()
        self.assertEqual(sorted(statuses), [200] * 900 + [404] * 300)

    def test_of_nonsense_leaves_it_alive(self):
        chance = random.Random(11)
        for length in [1, 10, 1000, 40000, 200000]:
            self.studio.raw(bytes(chance.randrange(256) for _ in range(length)).decode("latin-1") + "\r\n\r\n", is_all=True)
        for text in ["GET\r\n\r\n", "GET / HTTP/9.9\r\n\r\n", "GET / HTTP/1.1\r\n" + "A: b\r\n" * 20000 + "\r\n",
                     f"GET / HTTP/1.1\r\nHost: {self.studio.host}\r\nContent-Length: -1\r\n\r\n",
                     f"GET / HTTP/1.1\r\nHost: {self.studio.host}\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n"]:
            answer = self.studio.raw(text, is_all=True)
            self.assertNotIn(" 200 ", answer[:20])
        self.assertEqual(self.studio.ask()[0], 200)


if __name__ == "__main__":
    unittest.main(failfast="FAIL_FAST" in os.environ)
