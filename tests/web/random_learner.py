# SPDX-License-Identifier: MIT
"""A learner who plays at random, but knows most answers, so that the play reaches every screen."""

import re
import subprocess
from collections.abc import Iterator
from random import Random

SCREENS = "accueil addition multiplication division record FIN FIN2 Aurevoir".split()
KEYS = "Enter Escape Backspace Space Right Left = x é ' A z ￿ \ufeff 0 1 2 3 4 5 6 7 8 9".split()
CONTROLS = "flèche arret titre Picture1 Minuterie absent Commande1 Commande2 Commande3 Commande4 Commande5".split()
HIGHEST = {
    "couleur": 15, "ligne": 32767, "colonne": 32767, "chrono": 32767, "score": 11, "essai": 5, "enAttente": 1,
    "nbOperations": 21, "resultat": 32767,
}
OPERATORS = {"+": int.__add__, "-": int.__sub__, "x": int.__mul__, ":": int.__floordiv__}


def result(operation: str) -> int:
    left, sign, right = re.fullmatch(r"(\d+)([-+x:])(\d+)", operation.replace(" ", "")).groups()
    return OPERATORS[sign](int(left), int(right))


class RandomLearner:
    """Plays one scenario with the program `scenario`: `commands` are those that were given, `transcript` is what the
    program printed."""

    def __init__(self, path: str, random: Random, length: int) -> None:
        self.random, self.commands, self.transcript = random, list[str](), list[str]()
        self.state = dict[str, str]()
        with subprocess.Popen([path], stdin=subprocess.PIPE, stdout=subprocess.PIPE, encoding="utf-8") as self.program:
            while len(self.commands) < length and all(self.give(command) for command in self.next_commands()):
                pass
            self.program.stdin.close()
            self.transcript += self.program.stdout

    def scenario(self) -> str:
        return "\n".join(self.commands)

    def give(self, command: str) -> bool:
        """False if the program has ended. The command `state` shows when all has been printed."""
        self.commands += [command, "state"]
        print(command, "state", sep="\n", file=self.program.stdin, flush=True)
        for line in self.program.stdout:
            self.transcript.append(line)
            if line.startswith("state "):
                self.state = dict(re.findall(r'(\w+)=("[^"]*"|\S*)', line))
                return True
        return False

    def next_commands(self) -> Iterator[str]:
        screen = self.state.get("active", "accueil")
        if self.random.random() < 0.3:
            yield self.any_command()
        elif screen == "accueil":
            yield self.random.choice([f"click Commande{self.random.randint(1, 4)}", "key Space"])
        elif screen in ("addition", "multiplication", "division", "record"):
            yield from self.answer()
        else:
            yield self.random.choice(["key Right", "key Enter", "click flèche", "wait 5000"])

    def answer(self) -> Iterator[str]:
        """To the operation or to one of its steps, then on to the next."""
        step = self.random.choice(["operation"] * 6 + ["termes2", "termes3"])
        operation = self.state[step].strip('"')
        number = result(operation) if operation else 0
        for digit in str(number + self.random.choice([0, 0, 0, 0, 1])):
            yield f"key {digit}"
        yield f"key {self.random.choice(['Enter', '=', 'x'])}"
        yield self.random.choice(["key Right", "key Enter", "click flèche"])

    def any_command(self) -> str:
        random = self.random
        variable = random.choice(list(HIGHEST))
        counters = " ".join(str(random.randint(0, 6)) for _ in range(4))
        return random.choice([
            f"key {random.choice(KEYS)}",
            f"key {random.choice(KEYS)}",
            f"click {random.choice(CONTROLS)}",
            f"front {random.choice(SCREENS)}",
            f"wait {random.choice([0, 999, 1000, 20000, random.randint(0, 40000)])}",
            f"set {variable} {random.randint(0, HIGHEST[variable])}",
            f"set {random.choice(['reussies', 'effectuees'])} {counters}",
            "set score 9",
            "set nbOperations 19",
            f"rnd {random.random()} {random.choice(['0', '.5', '25e-2', random.random()])}",
            f"layout {random.choice(SCREENS)}",
            "close",
        ])
