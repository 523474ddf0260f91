#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The command as a shell runs it: test.py VAPRIX [TEST ...]."""
import csv
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
TOOL = pathlib.Path(sys.argv.pop(1)).resolve()


class Shell(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_in_shell(self, command, status=0, given=None):
        """What it prints and what it says on stderr, as text; bytes are kept as Latin-1."""
        given = given.encode() if isinstance(given, str) else given
        done = subprocess.run(["bash", "-c", "set -o pipefail; " + command.replace("vaprix", str(TOOL), 1)],
                              input=given, capture_output=True, cwd=self.folder, timeout=300)
        out, err = done.stdout.decode("latin-1"), done.stderr.decode("latin-1")
        self.assertEqual(done.returncode, status, f"{command[:200]}\n{out[-2000:]}\n{err[-2000:]}")
        return out, err


class Calls(Shell):
    def test_published_values(self):
        with open(HERE.parent / "VAPRIX" / "exports" / "examples.csv", newline="", encoding="utf-8") as file:
            for row in csv.DictReader(file):
                out, _ = self.run_in_shell(f"vaprix call {row['export']} {row['arguments']}")
                digits = len(re.sub(r"^0*\.?0*|\.", "", row["value"]))
                self.assertLessEqual(abs(float(out) / float(row["value"]) - 1), 0.51 * 10.0 ** (1 - digits), row)

    def test_every_function_is_explained_with_an_example_that_runs(self):
        names = self.run_in_shell("vaprix list --names")[0].split()
        self.assertEqual(len(names), 438)  # all but the code, which each answer has
        pages = self.run_in_shell("for n in $(vaprix list --names); do " + f"{TOOL} help $n; done")[0]
        examples = re.findall(r"Example:\n  (vaprix call \S+[^#\n]*)", pages)
        self.assertEqual([e.split()[2] for e in examples], names)
        self.assertLessEqual(max(map(len, re.sub("  vaprix call.*", "", pages).splitlines())), 80)
        for example in examples:
            self.run_in_shell(example)

    def test_units_and_failures(self):
        kelvin = self.run_in_shell("vaprix call TOPH 15 3583")[0]
        self.assertAlmostEqual(float(self.run_in_shell("vaprix call TOPH 150bar 3583kJ/kg -u F")[0]),
                               float(kelvin) * 1.8 - 459.67, 9)
        for command, status, reason in (
                ("HBPT 200 300", 1, "outside the range"),
                ("TOPH -5 300", 1, "outside the range of validity (code -10055)"),
                ("HBPT 15", 2, "HBPT(p, T) takes 2 arguments, not 1"),
                ("HBPT 15 300bar", 2, "no unit 'bar' here; there are: K, C, F, R"),
                ("HBPT 1,5 300", 2, "no unit ',5' here"),
                ("HBPT fifteen 300", 2, "'fifteen' does not begin with a number"),
                ("HBPT nan 300", 2, "'nan' does not begin with a number"),
                ("NONE 1", 2, "no function 'NONE'")):
            out, err = self.run_in_shell("vaprix call " + command, status)
            self.assertEqual(out, "")
            self.assertIn(reason, err)


class States(Shell):
    def test_values_in_the_units_asked_for(self):
        state = json.loads(self.run_in_shell("vaprix state p=30bar T=80.33F --json -u psi")[0])["O"]
        self.assertEqual((state["region"], state["phase"]), (1, "subcooled liquid"))
        self.assertAlmostEqual(state["T"]["value"], 80.33, 10)
        self.assertAlmostEqual(state["p"]["value"], 435.1132, 4)
        state = json.loads(self.run_in_shell("vaprix state p=3 T=300 --json")[0])["O"]
        for symbol, published in (("v", 0.100215168e-2), ("h", 115.331273), ("u", 112.324818), ("s", 0.392294792),
                                  ("cp", 4.17301218), ("w", 1507.73921)):  # IAPWS R7-97(2012), Table 5
            self.assertAlmostEqual(state[symbol]["value"] / published, 1, 8)
        self.assertAlmostEqual(state["sigma"]["value"] if "sigma" in state else 0, 0)

    def test_every_pair_and_phase(self):
        state = json.loads(self.run_in_shell("vaprix state p=25 T=650 --json")[0])["O"]
        given = {symbol: state[symbol]["value"] for symbol in "pTvdhs"}
        for pair in ("pT", "ph", "ps", "pv", "pd", "Td", "Tv", "Th", "Ts", "hs", "vh", "vs", "dh", "ds", "sd"):
            words = " ".join(f"{symbol}={given[symbol]!r}" for symbol in pair)
            again = json.loads(self.run_in_shell(f"vaprix state {words} --json")[0])["O"]
            self.assertAlmostEqual(again["u"]["value"] / state["u"]["value"], 1, 9, pair)
        for words, phase in (("p=1 T=300", "Subcooled liquid, 153.04 K below"), ("p=30 T=300", "Compressed liquid"),
                             ("p=1 T=500", "Superheated steam"), ("p=1 x=0", "Saturated liquid"),
                             ("T=500 x=1", "Saturated steam"), ("p=1 x=0.3", "Wet steam"),
                             ("p=30 T=700", "Supercritical fluid")):
            out, _ = self.run_in_shell("vaprix state " + words)
            self.assertTrue(out.startswith(phase), out)
            self.assertLessEqual(max(map(len, out.splitlines())), 80)
        out, _ = self.run_in_shell("vaprix state p=1 h=1000 --both")
        self.assertIn("O-family", out)
        self.assertIn("have a second state, at 8.0915", self.run_in_shell("vaprix state T=300 h=120")[0])

    def test_what_is_no_state(self):
        for words, status, reason in (("p=200 T=300", 1, "p = 200 MPa, T = 300 K: outside the range of validity"),
                                      ("p=1", 2, "takes two variables"), ("p=1 p=2", 2, "takes two variables"),
                                      ("p=1 T=3 h=5", 2, "takes two variables"), ("v=1 d=1", 2, "no state is found by"),
                                      ("p=1psig T=300", 2, "no unit 'psig'"), ("q=1 T=300", 2, "'q=1' is not p, T"),
                                      ("p= T=300", 2, "does not begin with a number"), ("", 2, "required"),
                                      ("p=1 T=300 -u smoot", 2, "no unit 'smoot'"), ("p=1 T=300 -f C", 2, "family")):
            out, err = self.run_in_shell("vaprix state " + words, status)
            self.assertEqual(out, "")
            self.assertIn(reason, err)

    def test_output_that_cannot_be_written(self):
        for command in ("state p=1 T=300", "list", "--help"):
            self.assertIn("cannot write: No space left", self.run_in_shell(f"vaprix {command} >/dev/full", 2)[1])


if __name__ == "__main__":
    unittest.main()
