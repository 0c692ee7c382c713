# SPDX-License-Identifier: MIT
"""Prints measurements as one table with ratios and goals."""

import os


class Table:
    def __init__(self) -> None:
        print(f"Cores: {os.cpu_count()}; load average before: {os.getloadavg()[0]:.1f}\n")
        print("| measurement | Chiffrolo | reference | ratio | goal | met |")
        print("|---|---:|---:|---:|---:|---|", flush=True)

    def add_ratio(self, what: str, ours: float, reference: float, unit: str, maximum: float | None = None) -> None:
        ratio = round(ours / reference, 2)
        goal = "" if maximum is None else f"at most {maximum:.2f} | {_yes_or_no(ratio <= maximum)}"
        self._add(what, f"{ours:.2f} {unit}", f"{reference:.2f} {unit}", f"{ratio:.2f}", goal)

    def add_amount(self, what: str, ours: int, unit: str, maximum: int | None = None) -> None:
        goal = "" if maximum is None else f"at most {maximum:,}{unit} | {_yes_or_no(ours <= maximum)}"
        self._add(what, f"{ours:,}{unit}", "", "", goal)

    def add_time(self, what: str, milliseconds: float, maximum: float) -> None:
        goal = f"at most {maximum} ms | {_yes_or_no(milliseconds <= maximum)}"
        self._add(what, f"{milliseconds:.1f} ms", "", "", goal)

    @staticmethod
    def _add(what: str, ours: str, reference: str, ratio: str, goal_and_met: str) -> None:
        print(f"| {what} | {ours} | {reference} | {ratio} | {goal_and_met or ' | '} |", flush=True)


def _yes_or_no(met: bool) -> str:
    return "yes" if met else "no"
