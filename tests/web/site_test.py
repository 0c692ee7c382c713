#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The folder for web servers in Chromium: play without network, new versions, storage that fails, installation.

The variable CHIFFROLO_SITE is the folder; by default, the one that packaging/web makes.
"""

import os
import re
import shutil
import tempfile
import unittest
from collections import Counter
from functools import partial
from hashlib import sha256
from http.server import SimpleHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path
from threading import Thread

from browser import PAGE, ROOT, wait_for
from page_test import answer, browser, press, screen, setUpModule, texts

__all__ = ["setUpModule"]

SITE = Path(os.environ.get("CHIFFROLO_SITE", ROOT / "build/web/site")).absolute()
FOLDER = "/ecole/calcul/"
# Whether no worker is on its way, and the state of the one that answers the next start.
WORKER = """navigator.serviceWorker.getRegistration().then((site) =>
    !site ? "none" : site.installing || site.waiting ? "on its way" : site.active?.state)"""


class Handler(SimpleHTTPRequestHandler):
    server: "Server"

    def log_request(self, code: int | str = "-", size: int | str = "-") -> None:
        self.server.answers[self.path, int(code)] += 1

    def log_error(self, *_: object) -> None:
        pass


class Server(ThreadingHTTPServer):
    """Serves a copy of the site, at a port and so an origin of its own. `answers` counts pairs of path and status."""

    def __init__(self) -> None:
        self.answers: Counter[tuple[str, int]] = Counter()
        self.root = Path(tempfile.mkdtemp())
        self.site = self.root / FOLDER[1:]
        shutil.copytree(SITE, self.site)
        super().__init__(("127.0.0.1", 0), partial(Handler, directory=str(self.root)))
        self.origin = f"http://127.0.0.1:{self.server_port}"
        Thread(target=self.serve_forever, args=[0.02]).start()

    def count(self, file: str, *codes: int) -> int:
        return sum(self.answers[FOLDER + file, code] for code in codes or (200, 304))

    def stop(self) -> None:
        if self.socket.fileno() >= 0:
            self.shutdown()
            self.server_close()

    def publish(self, title: str) -> None:
        """Another version: another title, the same script."""
        page, worker = self.site / "index.html", self.site / "service-worker.js"
        before, script = page.read_bytes(), worker.read_text(encoding="utf-8")
        page.write_bytes(before.replace(b"<title>Chiffrolo<", f"<title>{title}<".encode()))
        old, new = (sha256(content).hexdigest() for content in (before, page.read_bytes()))
        assert old in script and old != new
        worker.write_text(script.replace(old, new), encoding="utf-8")


class SiteCase(unittest.TestCase):
    def setUp(self) -> None:
        browser.set_display(1280, 1024)
        self.server = Server()
        self.addCleanup(shutil.rmtree, self.server.root)
        self.addCleanup(self.server.stop)

    def tearDown(self) -> None:
        self.assertEqual(browser.console(), [])

    def start(self, file: str = "") -> None:
        browser.driver.get(self.server.origin + FOLDER + file)
        wait_for(lambda: screen() == "accueil", "the home screen")

    def start_and_keep(self) -> None:
        self.start()
        wait_for(lambda: browser.evaluate(WORKER) == "activated", "the worker")

    def wait_for_update(self) -> None:
        """Of its own accord, the browser looks for another version soon after a start."""
        page = (self.server.site / "index.html").read_bytes()
        has_come = f"caches.keys().then((names) => names.some((name) => name.endsWith('{sha256(page).hexdigest()}')))"
        wait_for(lambda: browser.evaluate(has_come) and browser.evaluate(WORKER) == "activated", "the new version")

    def assert_plays(self) -> None:
        browser.click("#accueil .button")
        answer()
        self.assertIn("Bravo", texts())

    def assert_plays_offline(self) -> None:
        self.server.stop()
        self.start()
        self.assert_plays()


class Offline(SiteCase):
    def test_after_the_first_visit(self) -> None:
        self.assertEqual((SITE / "index.html").read_bytes(), PAGE.read_bytes())
        self.start_and_keep()
        self.assertEqual(self.server.count("", 200) + self.server.count("index.html", 200), 1, "transfers of the page")
        for file in "", "index.html", "?depuis=accueil":
            self.assert_plays_offline()
            self.start(file)
        browser.driver.refresh()
        wait_for(lambda: screen() == "accueil", "reload")

    def test_only_the_page_on_the_server(self) -> None:
        """As the single file, under its name."""
        for file in self.server.site.iterdir():
            file.rename(file.with_name("chiffrolo.html")) if file.name == "index.html" else file.unlink()
        self.start("chiffrolo.html")
        self.assert_plays()
        self.assertEqual({path for path, _ in self.server.answers}, {FOLDER + "chiffrolo.html"})


class Update(SiteCase):
    def test_with_two_tabs_and_a_running_game(self) -> None:
        self.start_and_keep()
        browser.evaluate("Promise.all(['autre', 'chiffrolo https://ailleurs/ 1'].map((name) => caches.open(name)))")
        browser.click("#accueil .button")
        press("1")
        before, first = texts(), browser.driver.current_window_handle
        self.server.publish("Deux")
        browser.open_tab()
        self.start()
        self.assertEqual(browser.driver.title, "Chiffrolo")
        self.wait_for_update()
        self.start()
        self.assertEqual(browser.driver.title, "Deux")
        self.assertEqual(len(browser.evaluate("caches.keys()")), 3, "the new version and what is not of this folder")
        browser.driver.close()
        browser.driver.switch_to.window(first)
        self.assertEqual((screen(), texts()), ("addition", before))
        press("Backspace")
        answer()
        self.assertIn("Bravo", texts())
        self.assert_plays_offline()
        self.assertEqual(browser.driver.title, "Deux")

    def test_half_published_or_replaced_by_a_login_page(self) -> None:
        """The old version stays, online and offline, until the new one is complete."""
        self.start_and_keep()
        self.server.publish("Deux")
        page = self.server.site / "index.html"
        new = page.read_bytes()
        page.write_text("<title>Connexion</title>", encoding="utf-8")
        self.start()
        wait_for(lambda: self.server.count("index.html"), "the download of the page")
        self.start()
        self.assertEqual(browser.driver.title, "Chiffrolo")
        page.write_bytes(new)
        os.utime(page, (0, 0))  # as a copy that is older than what it replaces
        self.start()
        self.wait_for_update()
        self.assert_plays_offline()
        self.assertEqual(browser.driver.title, "Deux")

    def test_taken_back(self) -> None:
        """By the worker that the document for hosts gives."""
        self.start_and_keep()
        document = (ROOT / "docs/heberger.md").read_text(encoding="utf-8")
        script = re.search(r"```js\n(.*?)```", document, re.DOTALL)[1]
        (self.server.site / "service-worker.js").write_text(script, encoding="utf-8")
        (self.server.site / "index.html").write_text('<title>Fini</title><link rel="icon" href="data:,">')
        self.start()
        wait_for(lambda: browser.evaluate(WORKER) == "none", "the end of the worker")
        self.assertEqual(browser.evaluate("caches.keys()"), [])
        browser.driver.refresh()
        self.assertEqual(browser.driver.title, "Fini")


class Storage(SiteCase):
    def test_cleared_while_playing(self) -> None:
        is_kept = "caches.match('index.html').then(Boolean)"
        self.start_and_keep()
        browser.command("Storage.clearDataForOrigin", origin=self.server.origin, storageTypes="cache_storage")
        self.assertFalse(browser.evaluate(is_kept))
        self.assert_plays()
        self.start()
        wait_for(lambda: browser.evaluate(is_kept), "the files are kept again")
        self.assert_plays_offline()

    def test_full(self) -> None:
        browser.command("Storage.overrideQuotaForOrigin", origin=self.server.origin, quotaSize=1000)
        for requests in 2, 3:  # of the page, by the tab and the worker; at a second start the tab need not ask
            self.start()
            wait_for(lambda: self.server.count("") >= requests, "the download of the page by the worker")
            wait_for(lambda: browser.evaluate(WORKER) == "none", "the end of the worker")
            self.assert_plays()


class Installation(SiteCase):
    def test_manifest(self) -> None:
        self.start_and_keep()
        manifest = browser.command("Page.getAppManifest")
        self.assertEqual(manifest["errors"], [])
        self.assertEqual(manifest["url"], self.server.origin + FOLDER + "manifest.webmanifest")
        self.assertEqual(browser.command("Page.getInstallabilityErrors")["installabilityErrors"], [])


if __name__ == "__main__":
    unittest.main()
