#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Scenarios that are played in Chromium by the events of the page give the transcripts of the program `scenario`.

CHIFFROLO_RANDOM_SCENARIOS is the number of random ones.
"""

import json
import os
import subprocess
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from random import Random

import random_learner
from browser import PAGE, ROOT, Browser, wait_for
from random_learner import RandomLearner

SCENARIO = os.environ["CHIFFROLO_SCENARIO"]
COUNT = int(os.environ.get("CHIFFROLO_RANDOM_SCENARIOS", "40"))

# Keys that a keyboard types: the page ignores characters that cannot be seen.
random_learner.KEYS[:] = [key for key in random_learner.KEYS if key.isprintable()]


def player_script(folder: str) -> str:
    bundle = Path(folder, "page_player.js")
    source = Path(__file__).with_name("page_player.ts")
    subprocess.run(["esbuild", source, "--bundle", "--log-level=warning", f"--outfile={bundle}"], check=True)
    return bundle.read_text(encoding="utf-8")


class PageScenarioTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = self.enterContext(tempfile.TemporaryDirectory())
        self.browser = self.enterContext(Browser())
        self.browser.run_first(player_script(folder))

    def played_in_page(self, scenario: bytes) -> str:
        self.browser.open(PAGE)
        wait_for(lambda: self.browser.evaluate("!document.getElementById('notice')"), "the home screen")
        argument = json.dumps(scenario.decode("latin-1"))
        answer = self.browser.evaluate(f"playScenario({argument})")
        self.assertEqual(answer["message"], "")
        return "".join(f"{line}\n" for line in answer["transcript"])

    def test_stored_scenarios(self) -> None:
        paths = sorted((ROOT / "tests" / "scenarios").glob("*.scenario"))
        self.assertTrue(paths)
        for path in paths:
            with self.subTest(path.name):
                transcript = path.with_suffix(".transcript").read_text(encoding="utf-8")
                self.assertEqual(self.played_in_page(path.read_bytes()), transcript)

    def test_random_scenarios(self) -> None:
        with ThreadPoolExecutor(os.cpu_count()) as pool:
            learners = list(pool.map(lambda seed: RandomLearner(SCENARIO, Random(seed), 100), range(COUNT)))
        for learner in learners:
            with self.subTest(scenario=learner.scenario()):
                self.assertEqual(self.played_in_page(learner.scenario().encode()), "".join(learner.transcript))


if __name__ == "__main__":
    unittest.main()
