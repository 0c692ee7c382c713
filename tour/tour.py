#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Plays through the screens of the program on a virtual display, and takes a picture of each.

Usage: tour.py PROGRAM FOLDER
"""

import signal
import subprocess
import sys
from pathlib import Path

from desktop import Desktop, NotSeen
from learner import Learner, Operation
from reading import Unreadable
from screens import ARROWS, Sheet

WRONG = 1  # never a right answer
OBJECTIVE = 10  # points pass a level
CHALLENGE = 20  # right answers complete a challenge


class Album:
    """Numbers the pictures in the order in which they are taken."""

    def __init__(self, folder: Path):
        self.folder = folder
        self.count = 0
        folder.mkdir(parents=True, exist_ok=True)
        for picture in folder.glob("[0-9][0-9]-*.png"):
            picture.unlink()

    def add(self, name: str, sheet: Sheet) -> Sheet:
        self.count += 1
        path = self.folder / f"{self.count:02}-{name}.png"
        subprocess.run(["convert", "ppm:-", "-strip", f"png:{path}"], input=sheet.picture.to_ppm(), check=True)
        print(path, flush=True)
        return sheet


class Tour:
    def __init__(self, desktop: Desktop, album: Album):
        self.desktop = desktop
        self.album = album
        self.learner = Learner(desktop)

    def play(self) -> int:
        """The exit status of the program."""
        self.album.add("accueil", self.learner.start())
        self.additions()
        self.multiplications()
        self.divisions()
        self.challenge()
        return self.goodbye()

    def additions(self) -> None:
        self.learner.open("addition")
        self.wrong_addition()
        self.right_addition()
        for _ in range(1, OBJECTIVE):
            self.answer_rightly("addition")
            self.desktop.press("Right")
        sheet = self.album.add("felicitations", self.learner.see("FIN"))
        self.learner.click(sheet, ARROWS["FIN"])

    def wrong_addition(self) -> None:
        sheet, _ = self.learner.see_operation("addition")
        self.album.add("addition", sheet)
        self.answer_wrongly("addition-faux")
        self.desktop.press("Right")
        self.album.add("addition-etape-1", self.learner.see_correction())
        self.answer_wrongly("addition-etape-1-faux")
        self.desktop.press("Right")
        self.album.add("addition-etape-2", self.learner.see_correction())
        self.answer_wrongly("addition-etape-2-faux")
        self.desktop.press("space")
        self.album.add("addition-resultat", self.learner.see_correction())
        self.desktop.press("Right")

    def right_addition(self) -> None:
        sheet, operation = self.learner.see_operation("addition")
        self.album.add("addition-suivante", sheet)
        self.learner.type_answer(operation.result)
        typed = self.learner.wait_for("the answer", lambda seen: seen.picture != sheet.picture)
        self.album.add("addition-reponse", typed)
        self.desktop.press("Return")
        self.album.add("addition-bravo", self.learner.see_bravo("addition"))
        self.desktop.press("Right")

    def multiplications(self) -> None:
        operation = self.right_and_wrong("multiplication")
        number, multiplier = max(operation.left, operation.right), min(operation.left, operation.right)
        self.press("multiplication-etape-2", *str((number - number % 10) * multiplier), "Return")
        self.press("multiplication-somme", *str(number % 10 * multiplier), "Return")
        self.press("multiplication-resultat", *str(operation.result), "Return")
        self.desktop.press("Escape")

    def divisions(self) -> None:
        operation = self.right_and_wrong("division")
        self.press("division-chiffre", str(operation.result)[0])
        self.press("division-reste", str(operation.left // 10 % operation.right))
        self.press("division-chiffre-faux", "x")
        sheet = self.press("division-resultat", "0")
        self.desktop.click_into(sheet.close_box())

    def challenge(self) -> None:
        self.learner.open("record")
        sheet, _ = self.learner.see_operation("record")
        self.album.add("record", sheet)
        self.album.add("record-chronometre", self.learner.see_stopwatch()[0])
        self.album.add("record-bravo", self.answer_rightly("record"))
        self.desktop.press("Right")
        self.wrong_operation_of_challenge()
        for _ in range(1, CHALLENGE):
            self.answer_rightly("record")
            self.desktop.press("Right")
        sheet = self.album.add("record-resultats", self.learner.see("FIN2"))
        self.learner.click(sheet, ARROWS["FIN2"])

    def wrong_operation_of_challenge(self) -> None:
        self.learner.see_operation("record")
        self.answer_wrongly("record-faux")
        self.desktop.press("Right")
        self.album.add("record-correction", self.learner.see_correction())
        self.desktop.press("Right")

    def goodbye(self) -> int:
        self.learner.see("accueil")
        self.desktop.press("Escape")
        sheet = self.album.add("au-revoir", self.learner.see("Aurevoir"))
        self.learner.click(sheet, ARROWS["Aurevoir"])
        return self.desktop.program.exit_status()

    def right_and_wrong(self, screen: str) -> Operation:
        """The operation whose correction has begun then."""
        self.learner.open(screen)
        sheet, _ = self.learner.see_operation(screen)
        self.album.add(screen, sheet)
        self.album.add(f"{screen}-bravo", self.answer_rightly(screen))
        self.desktop.press("Right")
        _, operation = self.learner.see_operation(screen)
        self.answer_wrongly(f"{screen}-faux")
        self.desktop.press("Right")
        self.album.add(f"{screen}-correction", self.learner.see_correction())
        return operation

    def press(self, name: str, *keys: str) -> Sheet:
        """What the keys lead to."""
        before = self.desktop.display.picture()
        self.desktop.press(*keys)
        return self.album.add(name, self.learner.wait_for(name, lambda sheet: sheet.picture != before))

    def answer_rightly(self, screen: str) -> Sheet:
        _, operation = self.learner.see_operation(screen)
        self.learner.submit(operation.result)
        return self.learner.see_bravo(screen)

    def answer_wrongly(self, name: str) -> None:
        self.learner.submit(WRONG)
        self.album.add(name, self.learner.see_faux())


def main(program: Path, folder: Path) -> int:
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # so that nothing is left running
    try:
        with Desktop(program) as desktop:
            return Tour(desktop, Album(folder)).play()
    except (NotSeen, Unreadable) as reason:
        print(f"The tour ended early: {reason}", file=sys.stderr)
        return 1


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(Path(sys.argv[1]).absolute(), Path(sys.argv[2])))
