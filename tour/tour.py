#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Plays through the screens of the program on a virtual display and saves a picture of each.

Usage: tour.py PROGRAM FOLDER
A PROGRAM that ends in ".html" is the page for browsers, which Chromium shows.
`scenario` must stand beside the program, or CHIFFROLO_SCENARIO must name it.
"""

import signal
import sys
from pathlib import Path

from desktop import Desktop, DesktopEnvironment, WaitFailed
from kiosk import Chromium
from learner import Operation, Learner
from screens import ContentArea
from text_recognition import Unreadable

WRONG = 1  # never the right answer
OBJECTIVE = 10  # points that complete a level
CHALLENGE = 20  # right answers that complete a challenge


class PictureFolder:
    """Saves pictures in the folder, numbered in their order. Removes those of an earlier tour."""

    def __init__(self, folder: Path):
        self.folder = folder
        self.count = 0
        folder.mkdir(parents=True, exist_ok=True)
        for picture in folder.glob("[0-9][0-9]-*.png"):
            picture.unlink()

    def save(self, name: str, content: ContentArea) -> ContentArea:
        self.count += 1
        path = self.folder / f"{self.count:02}-{name}.png"
        content.picture.save(path)
        print(path, flush=True)
        return content


class Tour:
    def __init__(self, desktop: Desktop, pictures: PictureFolder):
        self.desktop = desktop
        self.pictures = pictures
        self.learner = Learner(desktop)

    def play(self) -> int:
        """Returns the exit status of the program."""
        self.pictures.save("accueil", self.learner.wait_for_start())
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
            self.learner.answer_correctly("addition")
            self.desktop.press("Right")
        self.pictures.save("felicitations", self.learner.wait_for_screen("FIN"))
        self.learner.click_arrow("FIN")

    def wrong_addition(self) -> None:
        content, _ = self.learner.wait_for_operation("addition")
        self.pictures.save("addition", content)
        self.answer_incorrectly("addition-faux", "addition-etape-1")
        self.answer_incorrectly("addition-etape-1-faux", "addition-etape-2")
        self.answer_incorrectly("addition-etape-2-faux", "addition-resultat", key="space")
        self.desktop.press("Right")

    def right_addition(self) -> None:
        content, operation = self.learner.wait_for_operation("addition")
        self.pictures.save("addition-suivante", content)
        self.press("addition-reponse", *str(operation.result))
        self.desktop.press("Return")
        self.pictures.save("addition-bravo", self.learner.wait_for_bravo("addition"))
        self.desktop.press("Right")

    def multiplications(self) -> None:
        operation = self.answer_one_right_one_wrong("multiplication")
        number, multiplier = max(operation.left, operation.right), min(operation.left, operation.right)
        self.press("multiplication-etape-2", *str((number - number % 10) * multiplier), "Return")
        self.press("multiplication-somme", *str(number % 10 * multiplier), "Return")
        self.press("multiplication-resultat", *str(operation.result), "Return")
        self.desktop.press("Escape")

    def divisions(self) -> None:
        operation = self.answer_one_right_one_wrong("division")
        self.press("division-chiffre", str(operation.result)[0])
        self.press("division-reste", str(operation.left // 10 % operation.right))
        self.press("division-chiffre-faux", "x")
        content = self.press("division-resultat", "0")
        self.desktop.click_area(content.close_box())

    def challenge(self) -> None:
        self.learner.open("record")
        content, _ = self.learner.wait_for_operation("record")
        self.pictures.save("record", content)
        self.pictures.save("record-chronometre", self.learner.wait_for_stopwatch())
        self.pictures.save("record-bravo", self.learner.answer_correctly("record"))
        self.desktop.press("Right")
        self.wrong_operation_of_challenge()
        for _ in range(1, CHALLENGE):
            self.learner.answer_correctly("record")
            self.desktop.press("Right")
        self.pictures.save("record-resultats", self.learner.wait_for_screen("FIN2"))
        self.learner.click_arrow("FIN2")

    def wrong_operation_of_challenge(self) -> None:
        self.learner.wait_for_operation("record")
        self.answer_incorrectly("record-faux", "record-correction")
        self.desktop.press("Right")

    def goodbye(self) -> int:
        self.learner.wait_for_screen("accueil")
        self.desktop.press("Escape")
        self.pictures.save("au-revoir", self.learner.wait_for_screen("Aurevoir"))
        self.learner.click_arrow("Aurevoir")
        return self.desktop.program.exit_status()

    def answer_one_right_one_wrong(self, screen: str) -> Operation:
        """Returns the wrongly answered operation, whose correction has begun."""
        self.learner.open(screen)
        content, _ = self.learner.wait_for_operation(screen)
        self.pictures.save(screen, content)
        self.pictures.save(f"{screen}-bravo", self.learner.answer_correctly(screen))
        self.desktop.press("Right")
        _, operation = self.learner.wait_for_operation(screen)
        self.answer_incorrectly(f"{screen}-faux", f"{screen}-correction")
        return operation

    def press(self, name: str, *keys: str) -> ContentArea:
        """Presses the keys, waits until the picture changes and saves it."""
        before = self.desktop.display.picture()
        self.desktop.press(*keys)
        return self.pictures.save(name, self.learner.wait_for(name, lambda content: content.picture != before))

    def answer_incorrectly(self, name: str, correction: str, key: str = "Right") -> None:
        """Presses the key to go on to the correction."""
        self.learner.submit(WRONG)
        self.pictures.save(name, self.learner.wait_for_faux())
        self.desktop.press(key)
        self.pictures.save(correction, self.learner.wait_for_correction())


def main(program: Path, folder: Path) -> int:
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # so that all processes are ended
    try:
        with Desktop(program, Chromium if program.suffix == ".html" else DesktopEnvironment) as desktop:
            return Tour(desktop, PictureFolder(folder)).play()
    except (WaitFailed, Unreadable) as reason:
        print(f"The tour failed: {reason}", file=sys.stderr)
        return 1


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(Path(sys.argv[1]).absolute(), Path(sys.argv[2])))
