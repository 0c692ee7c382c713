# SPDX-License-Identifier: MIT
"""The WebAssembly module plays scenarios exactly as the program `scenario` does. CHIFFROLO_SCENARIO is that program,
CHIFFROLO_WEB the tool scenario.mjs, beside the module."""

import json
import os
import re
import subprocess
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from random import Random

from random_learner import RandomLearner

ROOT = Path(__file__).resolve().parents[2]
SCENARIO = os.environ.get("CHIFFROLO_SCENARIO", str(ROOT / "build" / "scenario"))
WEB = os.environ.get("CHIFFROLO_WEB", str(ROOT / "build" / "web" / "scenario.mjs"))

# Each is a fault. A line need not be UTF-8: \udc80 to \udcff stand for the bytes 80 to FF.
MALFORMED = [
    "jouer", "Key 1", "key\0", "constructor", "__proto__ 1", " # not a comment", "\udcff", "\ufeffstate", "état",
    "rnd", "key", "click", "front", "close 1", "wait", "set", "state now", "layout", "layout FIN FIN2",
    "rnd +0.5", "rnd 1", "rnd -0.1", "rnd 0.5 1e400", "rnd 1e-400", "rnd inf", "rnd -Infinity", "rnd nan(x_1)",
    "rnd nan(x-1)", "rnd 0x0", "rnd .", "rnd 1e", "rnd 0,5", "rnd ٣", "rnd 0.99999999999999999", "rnd 0.5\0", "rnd ''",
    "key Entre", "key enter", "key 12", "key \x1f", "key \x7f\x7f", "key 😀", "key e\u0301", "key \udcff",
    "key \udcc3\udcff", "key \udced\udca0\udc80", "key \udcc0\udca1", "key \udce2\udc82", "key 1 \udcff", "key 1 2 3",
    "click a b", "front Accueil", "layout FIN3", "layout toString", "wait -1", "wait 86400001", "wait 1.0", "wait +1",
    "wait 1e3", "wait 2147483648", "wait -2147483649", "wait 4294967297", "wait 0x10", "wait 99999999999999999999",
    "wait 1\v", "wait 1\u00a0", "set score", "set score 1 2", "set score -1", "set score 32768", "set couleur 16",
    "set enAttente 2", "set touche 1", "set reussies 1 2 3", "set reussies 1 2 3 4 5", "set effectuees 0 0 0 32768",
    "set length 1", "set effectuees 0 zéro 99999 0", "front record\nwait 1\nrnd 0.1 0.2 3",
]
# Each is played. Nothing is read after the end.
UNUSUAL = [
    "", "\r", " \t\r ", "#", "#\udcff", "\tlayout\t \rFIN\r", "key \ufeff", "key \uffff", "key \ufffd", "key ~",
    "click \udcff", "click \ufeffCommande1", "click constructor", "rnd -0 -0.0 .5 0. 0e999 5E-1 4e-324 000.5",
    "wait -0", "wait 000086400000", "set ligne -0", "set reussies 00 1 2 32767", "close\njouer",
    # Prints 10036.2, because 10036.25 is as far from 10036.2 as from 10036.3.
    "click Commande1\nset essai 2\nset colonne 10000\nfront accueil\nfront addition",
]
# What the random scenarios print; about half of what they print at present.
LEAST_COUNTS = {
    **{f"^activate {screen}$": least for screen, least in [
        ("accueil", 350), ("addition", 150), ("multiplication", 60), ("division", 60), ("record", 60), ("FIN", 20),
        ("FIN2", 10), ("Aurevoir", 4),
    ]},
    "^end$": 15,
    "^unload ": 100,
    "Bravo": 500,
    "FAUX": 900,
    "^division segment": 100,  # a long division
    "^record timer Minuterie1 off$": 100,
    "^FIN2 box 195 25": 9,  # the time of a complete challenge
    "^(addition|multiplication|division) timer Minuterie on": 100,
    r"^\w+ text \d{5}\.\d ": 10,  # at a place that was assigned
    "^state .* rnd=[1-9]": 100,
}
LONG = b"layout accueil\nlayout division\n" * 3000


def played(command: list[str], scenario: bytes) -> tuple[int, bytes, bytes]:
    """Exit status, standard output and standard error."""
    process = subprocess.run(command, input=scenario, capture_output=True)
    return process.returncode, process.stdout, process.stderr


def played_interleaved(scenarios: list[bytes]) -> list[tuple[bytes, bytes]]:
    """Of each scenario standard output and standard error. All are played at once in one instance of the module."""
    with tempfile.TemporaryDirectory() as folder:
        program = f"{folder}/interleaved.mjs"
        options = ["--bundle", "--format=esm", "--platform=node", "--target=node18", "--log-level=warning"]
        source = str(Path(__file__).with_name("interleaved.ts"))
        subprocess.run(["esbuild", *options, source, f"--outfile={program}"], check=True)
        command = ["node", program, str(Path(WEB).with_name("chiffrolo.wasm"))]
        question = json.dumps([scenario.decode("latin-1") for scenario in scenarios]).encode()
        answer = subprocess.run(command, input=question, stdout=subprocess.PIPE, check=True).stdout
    return [
        ("".join(f"{line}\n" for line in session["transcript"]).encode(), session["message"].encode("latin-1"))
        for session in json.loads(answer)
    ]


class ScenarioTest(unittest.TestCase):
    maxDiff = 2000

    def test_stored_scenarios_give_their_transcripts(self) -> None:
        paths = sorted((ROOT / "tests" / "scenarios").glob("*.scenario"))
        self.assertTrue(paths)
        for path in paths:
            with self.subTest(path.name):
                status, printed, messages = played(["node", WEB], path.read_bytes())
                self.assertEqual((status, messages), (0, b""))
                self.assertEqual(printed, path.with_suffix(".transcript").read_bytes())

    def test_malformed_and_unusual_lines(self) -> None:
        # The line is the last of the scenario or not.
        lines = [(line, 2) for line in MALFORMED] + [(line, 0) for line in UNUSUAL]
        scenarios = [f"layout FIN\n\n{line}{end}".encode(errors="surrogateescape")
                     for line, _ in lines for end in ("", "\nstate\n")]
        statuses = [status for _, status in lines for _ in range(2)]
        for scenario, status, web in zip(scenarios, statuses, played_interleaved(scenarios), strict=True):
            with self.subTest(scenario=scenario):
                self.assertEqual((status, *web), played([SCENARIO], scenario))

    def test_whole_tool(self) -> None:
        """Faults, an early end, and a transcript that is longer than the buffer of a pipe."""
        for scenario in (b"", b"#\njouer \xff", b"key \xc3\xa9\x80\n", b"close\nkey", LONG, LONG + b"rnd 0\0\n"):
            self.assertTrue(played(["node", WEB], scenario) == played([SCENARIO], scenario), scenario[-100:])

    def test_reader_that_stops_reading(self) -> None:
        command = f"node '{WEB}' | head -n 1"
        shell = subprocess.run(command, shell=True, input=LONG, capture_output=True)
        self.assertEqual((shell.stdout, shell.stderr), (b"load accueil\n", b""))

    def test_random_scenarios(self) -> None:
        """Games that depended on each other would differ from those that `scenario` has played alone."""
        with ThreadPoolExecutor(os.cpu_count()) as pool:
            learners = list(pool.map(lambda seed: RandomLearner(SCENARIO, Random(seed), 100), range(500)))
        transcripts = played_interleaved([learner.scenario().encode() for learner in learners])
        for learner, (printed, messages) in zip(learners, transcripts, strict=True):
            with self.subTest(scenario=learner.scenario()):
                self.assertEqual((printed.decode(), messages), ("".join(learner.transcript), b""))
        self.assert_reaches_much("".join(line for learner in learners for line in learner.transcript))

    def assert_reaches_much(self, transcript: str) -> None:
        for pattern, least in LEAST_COUNTS.items():
            with self.subTest(pattern):
                self.assertGreaterEqual(len(re.findall(pattern, transcript, re.MULTILINE)), least)


if __name__ == "__main__":
    unittest.main()
