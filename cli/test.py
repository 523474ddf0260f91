#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The command as a shell runs it: test.py VAPRIX [TEST ...]."""
import csv
import itertools
import json
import math
import os
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import unittest
from xml.etree import ElementTree

HERE = pathlib.Path(__file__).resolve().parent
TOOL = pathlib.Path(sys.argv.pop(1)).resolve()
ENVIRONMENT = os.environ | {"PATH": f"{TOOL.parent}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8"}


class Shell(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_in_shell(self, command, status=0, given=None, arguments=()):
        """What it prints and what it says on stderr, as text; bytes are kept as Latin-1."""
        given = given.encode() if isinstance(given, str) else given
        done = subprocess.run(["bash", "-c", "set -o pipefail; " + command, "bash", *arguments],
                              input=given, capture_output=True, cwd=self.folder, env=ENVIRONMENT, timeout=600)
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
        pages = self.run_in_shell("for n in $(vaprix list --names); do vaprix help $n; done")[0]
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


    def test_help_fits_a_terminal(self):
        program = self.run_in_shell("vaprix --help")[0]
        for command in re.findall(r"^  ([a-z]+)  ", program, re.MULTILINE):
            text, _ = self.run_in_shell(f"vaprix {command} --help")
            self.assertLessEqual(max(map(len, (program + text).splitlines())), 80)
            self.assertIn("Examples:\n  vaprix " + command, text)
            self.assertEqual(self.run_in_shell(f"vaprix help {command}")[0], text)


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
        wet = json.loads(self.run_in_shell("vaprix state T=450 x=0.7 --json")[0])["O"]
        for symbol in "hsvd":
            out, _ = self.run_in_shell(f"vaprix state x=0.7 {symbol}={wet[symbol]['value']!r} --json")
            self.assertAlmostEqual(json.loads(out)["O"]["T"]["value"], 450, 8, symbol)
        out, _ = self.run_in_shell("vaprix state x=1 h=2803.2")  # beside the greatest, of 2803.28 kJ/kg
        self.assertIn("Saturated steam", out)
        self.assertIn("have a second state", out)
        self.assertIn("outside the range of the property", self.run_in_shell("vaprix state x=1 h=2804", 1)[1])
        self.assertIn("quality outside 0 to 1", self.run_in_shell("vaprix state x=1.1 h=2000", 1)[1])
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


class Maps(Shell):
    ADD = "vaprix map -d 9 -a 'h = h(p[bar], T[C])'"
    H = "115.331273"  # of 30 bar, 26.85 C; IAPWS R7-97(2012), Table 5

    def mapped(self, given, command=ADD, status=0):
        return self.run_in_shell(command, status, given)

    def test_what_tables_look_like(self):
        h = self.H
        comma = h.replace(".", ",")
        for given, wanted, more in (
                ("p,T\n30,26.85\n", f"p,T,h\n30,26.85,{h}\n", ""),
                ("p\tT\r\n30\t26.85\r\n", f"p\tT\th\r\n30\t26.85\t{h}\r\n", ""),
                ("p;T\n30,0;26,85\n", f"p;T;h\n30,0;26,85;{comma}\n", ""),
                ('p,T\n"30,0","26,85"', f'p,T,h\n"30,0","26,85","{comma}"', ""),
                ("p|T|\n30|26.85|\n", f"p|T||h\n30|26.85||{h}\n", ""),
                ("\ufeffp,T\n 30 , +26.85e0 \n", f"\ufeffp,T,h\n 30 , +26.85e0 ,{h}\n", ""),
                ("# log\n\nn,T,p\na,26.85,30\n#end\n", f"# log\n\nn,T,p,h\na,26.85,30,{h}\n#end\n", ""),
                ('"a, b",p,T\n"x ""1"", y",30,26.85\n', f'"a, b",p,T,h\n"x ""1"", y",30,26.85,{h}\n', "")):
            out, err = self.run_in_shell(self.ADD + more, 0, given)
            self.assertEqual((out.encode("latin-1").decode(), err), (wanted, ""))

    def test_units_and_columns(self):
        for given, command, wanted in (
                ("30,26.85\n", "-a 'h=h(p=#1[bar], T=#2)' -u '#2=C'", f"30,26.85,{self.H}\n"),
                ("p,T\nbar,C\n30,26.85\n", "-a 'h=h(p,T)'", f"p,T,h\nbar,C,kJ/kg\n30,26.85,{self.H}\n"),
                ("a [bar],b/C\n30,26.85\n", "-a 'h=h(a,b)'", f"a [bar],b/C,h [kJ/kg]\n30,26.85,{self.H}\n"),
                ("live p,T\n30,26.85\n", "-a \"h=h(p='live p',T)\" -u 'live p=bar' -u T=C",
                 f"live p,T,h\n30,26.85,{self.H}\n"),
                ("T\n26.85\n", "-a 'h[J/kg]=HOPT(30[bar],T[C])' -d 7", "T,h\n26.85,115331.3\n"),
                ("T\n26.85\n", "-a 'h=h(p=30[bar],T[C])' -a 'T2=T(h,p=30[bar])' -u C -d 6",
                 "T,h,T2\n26.85,115.331,26.85\n"),
                ("h\n115.331\n", "-a 'cp=cp(h, s=0.392295)' -d 4 -f B", "h,cp\n115.331,4.173\n")):
            self.assertEqual(self.run_in_shell(f"vaprix map {command}" + " -d 9" * ("-d" not in command), 0, given)[0],
                             wanted)

    def test_what_cannot_be_done(self):
        for given, command, reason in (
                ("p,T\n", "'h = h(p, q)'", "no column 'q'; there are: p, T"),
                ("1,2\n", "'h=h(p,T)'", "there is no header"),
                ("p,T\n", "'h = h(p,T'", "no ')'"), ("p,T\n", "'h = k(p,T)'", "no property or function 'k'"),
                ("p,T\n", "'T = h(p,T)'", "there is a column 'T' already"), ("", "'h = h(p,T)'", "there is no table"),
                ("a,b\n", "'h = h(a,b)'", "what is a? Write p=a"), ("p,p\n", "'T = T(p)'", "several columns are named"),
                ("p,T\n", "'h = h(p[C],T)'", "no unit 'C' here"),
                ("p,T\n", "'h = h(p[bar],T)' -a 's=s(p[MPa],T)'", "in bar and in MPa"),
                ("p,T\n", "'h=h(#3,T)'", "no column #3"), ("p,T\n", "'h=HOPT(p)'", "HOPT takes p T"),
                ("p\0T\n", "'h=h(p,T)'", "this is no text"), ("p,T\n", "'h=h(p,T)' -i nothing.csv", "cannot open")):
            out, err = self.run_in_shell("vaprix map -a " + command, 2, given)
            self.assertEqual(out, "")
            self.assertIn(reason, err)
        (self.folder / "t.csv").write_text("p,T\n30,26.85\n")
        self.assertIn("is the file that is read", self.run_in_shell(self.ADD + " -i t.csv -o ./t.csv", 2)[1])
        self.assertEqual((self.folder / "t.csv").read_text(), "p,T\n30,26.85\n")

    def test_bad_rows_are_passed_on_and_named(self):
        long = "x" * (1 << 20)
        rows = [("1,234.5,20", ",", "3 cells instead of 2"), ("30", ",,", "1 cells instead of 2"),
                ("p,T", ",", "p is no number: 'p'"), (",20", ",", "p is empty"), ("30,", ",", "T is empty"),
                ("30,2\0" + "0", ",", "T is no number: '2?0'"), ("nan,20", ",", "p is no number"),
                ("30,20 C", ",", "T is no number: '20 C'"), ("1e999,20", ",", "p is no number"),
                ("30,0x20", ",", "T is no number"), ('"30,20', ",,", "1 cells"), ("\xff\xfe,20", ",", "p is no number"),
                (long + ",20", ",", "p is no number: 'xxx"), ("30," + long, ",", "T is no number: 'xxx"),
                ("30,9999", ",", "h: outside the range of validity (code -10055)")]
        given = "p,T\n" + "".join(row + "\n30,26.85\n" for row, *_ in rows)
        out, err = self.mapped(given.encode("latin-1"), status=1)
        lines, said = out.split("\n"), err.splitlines()
        self.assertEqual(lines[2:-1:2], [f"30,26.85,{self.H}"] * len(rows))
        for k, (row, added, reason) in enumerate(rows):
            self.assertTrue(lines[2 * k + 1] == row + added, reason)
            self.assertIn(f"line {2 * k + 2}: {reason}", said[k])
        self.assertEqual(said[-1], f"vaprix: {len(rows)} of {2 * len(rows)} rows have no answer")
        for bad, decimal in (("1.234,5;20", "30,5;20"), ("30.5;20", "30,5;20"),
                             ("1,234.5;20", "30.5;20"), ("1 234;20", "30.5;20")):
            self.assertIn("line 3: p is no number", self.mapped(f"p;T\n{decimal}\n{bad}\n", status=1)[1])

    def test_binary_files(self):
        noise = random.Random(1).randbytes(1 << 20)
        self.assertEqual(self.mapped(noise, status=2)[0], "")
        out, err = self.mapped(b"p,T\n" + noise + b"\n30,26.85\n", status=1)
        self.assertTrue(out.endswith(f"\n30,26.85,{self.H}\n"))
        self.assertEqual(out.count("\n"), noise.count(b"\n") + 3)
        self.assertRegex(err, r"and \d+ more\n.*rows have no answer")
        self.assertIn("longer than 64 MB", self.run_in_shell("head -c 100M /dev/zero | tr '\\0' x | " + self.ADD, 2)[1])

    def test_output_that_ends(self):
        rows = "p,T\n" + "30,26.85\n" * 200000
        self.assertIn("stdout: cannot write: No space left", self.mapped(rows, self.ADD + " >/dev/full", 2)[1])
        self.assertIn("/dev/full: cannot write", self.mapped(rows, self.ADD + " -o /dev/full", 2)[1])
        out, err = self.mapped(rows, self.ADD + " | head -n 2; exit ${PIPESTATUS[0]}", 141)
        self.assertEqual((out, err), (f"p,T,h\n30,26.85,{self.H}\n", ""))
        command = "trap '' PIPE; " + self.ADD + " | true; exit ${PIPESTATUS[0]}"
        self.assertIn("Broken pipe", self.mapped(rows, command, 2)[1])

    def test_what_the_page_of_the_plant_shows(self):
        page = (HERE.parent / "examples" / "plant" / "README.md").read_text(encoding="utf-8")
        command, shown = re.search(r"    \$ (vaprix map .*?')\n(    #.*?)\n\n", page, re.DOTALL).groups()
        command = command.replace("examples/", f"{HERE.parent}/examples/")
        self.assertEqual(self.run_in_shell(command)[0], re.sub("^    ", "", shown, flags=re.MULTILINE) + "\n")
        for published in ("0.0249207,3583.31,6.67973,342.158", "0.00100712,"):  # by steam tables
            self.assertIn(published, shown)
        self.assertIn("2820.836 ", self.run_in_shell("vaprix state p=10bar s=6.67973")[0])

    def test_order_and_bits_over_blocks_and_threads(self):
        rows = [(0.1 + k * 7919 % 160000 / 1000, 20 + k * 104729 % 600000 / 1000) for k in range(100000)]
        given = "n,p,T\n" + "".join(f"{k},{p!r},{T!r}\n" for k, (p, T) in enumerate(rows))
        one = self.mapped(given, self.ADD.replace("-d 9", "-j 1"))[0]
        self.assertEqual(one, self.mapped(given, self.ADD.replace("-d 9", "-j 7"))[0])
        lines = one.splitlines()
        for k in range(0, len(rows), 9973):
            p, T = rows[k]
            h = self.run_in_shell(f"vaprix call HOPT {p!r}bar {T!r}C")[0].strip()
            self.assertEqual(lines[k + 1], f"{k},{p!r},{T!r},{h}")


class Tables(Shell):
    SATURATION = "vaprix table saturation --from 0C --to 370C --step 5"

    def numbers(self, command):
        lines = self.run_in_shell(command + " --format csv")[0].splitlines()
        return lines[0], [[float(cell) for cell in line.split(",")] for line in lines[1:]]

    def check(self, row, published):
        for number, text in zip(row, published.split()):
            places = len(text.partition(".")[2])
            self.assertLessEqual(abs(float(number) - float(text)), 0.51 * 10.0 ** -places, published)

    def test_published_values(self):
        head, (row,) = self.numbers("vaprix table saturation --from 373.1243K --to 374 --step 1")
        self.assertEqual(head, "T [K],p [MPa],v' [m3/kg],v'' [m3/kg],h' [kJ/kg],r [kJ/kg],h'' [kJ/kg],s' [kJ/(kg K)],"
                         "s'' [kJ/(kg K)]")
        for number, published in zip(row, (373.1243, 0.101325, 1 / 958.365, 1 / 0.597586, 419.05, 2256.65, 2675.7,
                                           1.307, 7.355)):  # IAPWS SR1-86(1992), Table 1, of another formulation
            self.assertLess(abs(number / published - 1), 3e-4)
        _, (row,) = self.numbers("vaprix table saturation --by p --from 1MPa --to 1.5 --step 1")
        self.check(row, "1 453.035632")  # IAPWS R7-97(2012), Table 36
        _, (row,) = self.numbers("vaprix table superheated -p 30 --from 700 --to 700.5 --step 1")
        self.check(row, "30 700 0.00542946619 2631.49474 5.17540298")  # Table 15

    def test_layout(self):
        lines = self.run_in_shell(self.SATURATION)[0].splitlines()
        self.assertEqual([line.split()[0] for line in lines], ["T", "C", *map(str, range(0, 371, 5))])
        self.assertEqual({len(line) for line in lines}, {max(map(len, lines))})
        self.assertLessEqual(len(lines[0]), 80)
        out, _ = self.run_in_shell("vaprix table superheated -p 1bar,5bar -p 10bar --from 100C --to 600C --step 50")
        self.assertLessEqual(max(map(len, out.splitlines())), 80)
        self.assertRegex(out, r" 1 bar \(99.60592 C\) +5 bar \(151.8362 C\)\n")
        self.assertRegex(out, r"\n100 +1.69\d+ +2675.77 +7.36\d+ +- +- +-\n")
        out, _ = self.run_in_shell(self.SATURATION + " --format markdown -u bar")
        self.assertEqual({line.count("|") for line in out.splitlines()}, {10})
        self.assertIn("| p, bar |", out)

    def test_what_is_outside(self):
        out, err = self.run_in_shell("vaprix table saturation --from 373C --to 374C --step 1", 1)
        self.assertIn("T = 374 C: temperature outside", err)
        self.assertRegex(out, r"\n374( +-){8}\n")
        self.assertIn("p = 60 MPa, T = 900 C: outside",
                      self.run_in_shell("vaprix table superheated -p 60 --from 900C --to 901C --step 5", 1)[1])
        for more, reason in (("--step 0", "no table"), ("--step -1", "no table"), ("--step 1e-9", "no table"),
                             ("--step 5F", "in the unit of --from, C"), ("--step 5 --by h", "--by")):
            self.assertIn(reason, self.run_in_shell("vaprix table saturation --from 0C --to 9C " + more, 2)[1])


class Charts(Shell):
    PROCESS = ("station,p [bar],T [C],s,x\ncondenser,0.05,,,0\npump,180,33.4,,\nboiler,170,545,,\n"
               "exhaust,0.05,,7.6,\ncondenser,0.05,,,0\n")

    def drawn(self, command, status=0, given=None):
        """The picture as XML, the frame of the plot, and what is said."""
        out, err = self.run_in_shell(f"vaprix chart {command} -o -", status, given)
        picture = ElementTree.fromstring(out.encode("latin-1"))
        for element in picture.iter():
            element.tag = element.tag.partition("}")[2]
        frame = next(e for e in picture.iter("rect") if e.get("stroke"))
        return picture, [float(frame.get(name)) for name in ("x", "y", "width", "height")], err

    def paths(self, picture, kind):
        """The polylines of a kind by what they are called."""
        out = {}
        for path in picture.iter("path"):
            if path.get("class") == kind:
                numbers = [float(number) for number in re.findall(r"[-\d.]+", path.get("d"))]
                out.setdefault(path.findtext("title"), []).append(list(zip(numbers[::2], numbers[1::2])))
        return out

    def distance(self, at, parts):
        def from_piece(a, b):
            x, y = b[0] - a[0], b[1] - a[1]
            t = ((at[0] - a[0]) * x + (at[1] - a[1]) * y) / ((x * x + y * y) or 1)
            t = min(1, max(0, t))
            return math.hypot(a[0] + t * x - at[0], a[1] + t * y - at[1])
        return min(from_piece(a, b) for part in parts for a, b in zip(part, part[1:]))

    def test_lines_pass_published_states(self):
        states = ((300, 3, 115.331273, 0.392294792), (500, 3, 975.542239, 2.58041912),  # IAPWS R7-97(2012), Table 5
                  (700, 30, 2631.49474, 5.17540298), (700, 0.0035, 3335.68375, 10.1749996),  # Table 15
                  (650, 25.5837018, 1863.43019, 4.05427273), (650, 22.2930643, 2375.12401, 4.85438792))  # Table 33
        hs, frame, _ = self.drawn("hs -r s=0:11")
        ph, of_ph, _ = self.drawn("ph")
        for T, p, h, s in states:
            for picture, (x, y, width, height), at in (
                    (hs, frame, (s / 11, h / 4200)), (ph, of_ph, (h / 4200, math.log(p / 0.001) / math.log(1e5)))):
                at = (x + at[0] * width, y + height - at[1] * height)
                self.assertLess(self.distance(at, self.paths(picture, "isotherm")[f"{T} K"]), 0.15, (T, p))
        ts, (x, y, width, height), _ = self.drawn("ts")
        (isobar,) = self.paths(ts, "isobar")["1 MPa"]
        level = y + height - (453.035632 - 273.15) / 800 * height  # Table 36
        self.assertGreater(sum(b[0] - a[0] for a, b in zip(isobar, isobar[1:])
                               if abs(a[1] - level) < 0.02 and abs(b[1] - level) < 0.02), 300)

    def corners(self, text, shrink=0.9):
        x, y, angle = (float(n) for n in re.fullmatch(r"translate\((\S+) (\S+)\)(?: rotate\((\S+)\))?",
                                                      text.get("transform")).groups("0"))
        size = float(text.get("font-size"))
        width = shrink * size * sum(0.3 if c in " .,ijlftI()" else 0.62 for c in "".join(text.itertext()))
        left = {"start": 0, "middle": -width / 2, "end": -width}[text.get("text-anchor", "start")]
        c, s = math.cos(math.radians(angle)), math.sin(math.radians(angle))
        return [(x + c * u - s * v, y + s * u + c * v) for u, v in
                ((left, 0), (left + width, 0), (left + width, -0.72 * size), (left, -0.72 * size))]

    def overlap(self, a, b):
        for box in (a, b):
            for (x, y), (u, v) in zip(box, box[1:]):
                along = [[(p - x) * (u - x) + (q - y) * (v - y) for p, q in other] for other in (a, b)]
                if max(along[0]) < min(along[1]) or max(along[1]) < min(along[0]):
                    return False
        return True

    def test_texts_do_not_overlap(self):
        (self.folder / "p.csv").write_text(self.PROCESS)
        for chart, least in (("ts", 35), ("hs", 35), ("ph", 35), ("pt", 25), ("pv", 25)):
            for more in ("", "--size 450x400", "-l all -u C,bar -p p.csv --size 1400x900"):
                picture, (x, y, width, height), _ = self.drawn(f"{chart} {more}")
                texts = [(text, self.corners(text)) for text in picture.iter("text")]
                labels = [box for text, box in texts if text.get("class", "").startswith("label")]
                self.assertGreater(len(labels), least if not more.startswith("--size") else 10, (chart, more))
                for box in labels:
                    self.assertTrue(all(x <= u <= x + width and y <= v <= y + height for u, v in box), (chart, more))
                for (a, of_a), (b, of_b) in itertools.combinations(texts, 2):
                    self.assertFalse(self.overlap(of_a, of_b),
                                     (chart, more, "".join(a.itertext()), "".join(b.itertext())))

    def test_formats(self):
        for chart in ("ts", "hs", "ph", "pt", "pv"):
            self.run_in_shell(f"for f in svg pdf PNG; do vaprix chart {chart} --size 600x500 -o c.$f || exit; done")
            self.assertTrue((self.folder / "c.pdf").read_bytes().startswith(b"%PDF-"))
            png = (self.folder / "c.PNG").read_bytes()
            self.assertEqual((png[:8], png[16:24]), (b"\x89PNG\r\n\x1a\n", b"\0\0\x02\x58\0\0\x01\xf4"))
            light = ElementTree.parse(self.folder / "c.svg").getroot()
            self.assertEqual((light.get("width"), light.get("height")), ("600", "500"))
        dark, _, _ = self.drawn("ts --dark")
        papers = [next(e.get("fill") for e in picture.iter() if e.tag.endswith("rect")) for picture in (light, dark)]
        self.assertGreater(int(papers[0][1:3], 16), 200)
        self.assertLess(int(papers[1][1:3], 16), 60)

    def test_what_is_drawn_can_be_chosen(self):
        picture, _, _ = self.drawn("ts -l isobar,saturation -u psi,F -r T=100F:1500F")
        self.assertEqual({path.get("class") for path in picture.iter("path")} - {None}, {"isobar", "saturation"})
        self.assertIn("100 psi", self.paths(picture, "isobar"))
        ticks = [text.text for text in picture.iter("text") if text.get("class") == "tick-y"]
        self.assertEqual((ticks[0], ticks[-1]), ("100", "1500") if len(ticks) > 10 else ("200", "1400"))

    def test_processes(self):
        picture, (x, y, width, height), err = self.drawn("ts -p -", 0, self.PROCESS)
        self.assertEqual(err, "")
        paths = self.paths(picture, "process")[None]
        self.assertEqual(len(paths), 4)
        for before, after in zip(paths, paths[1:]):
            self.assertEqual(before[-1], after[0])
        self.assertEqual(paths[-1][-1], paths[0][0])
        self.assertGreater(len(paths[1]), 20)  # through the wet steam, not straight across
        self.assertEqual({len(path) for path in self.paths(self.drawn("ts --straight -p -", 0, self.PROCESS)[0],
                                                           "process")[None]}, {2})
        texts = ["".join(text.itertext()) for text in picture.iter("text")]
        for said in ("1", "4", "1 condenser", "3 boiler"):
            self.assertIn(said, texts)
        self.assertNotIn("5 condenser", texts)
        picture, _, err = self.drawn("ph -p -", 1, "p,h\nbar,kJ/kg\n1,500\n2,600\n\n# other\n3,700\n5000,1\n4,x\n5\n6,\n4,800\n")
        self.assertEqual(len(self.paths(picture, "process")[None]), 1)
        for said in ("line 8: pressure", "line 9: h is no number: 'x'", "line 10: 1 cells instead of 2",
                     "line 11: a state takes two variables", "4 of 8 rows have no answer"):
            self.assertIn(said.replace("pressure", "outside the range of validity"), err)

    def test_what_cannot_be_done(self):
        os.symlink("/dev/full", self.folder / "full.svg")
        for command, reason in (
                ("ts -o full.svg", "full.svg: cannot write: No space left"), ("ts -o full.svg >/dev/full", "No space"),
                ("ts -o - >/dev/full", "stdout: cannot write: No space left"), ("ts -o no/t.svg", "no/t.svg: cannot open"),
                ("ts -o t.jpg", "told by the suffix"), ("ts -o t", "told by the suffix"), ("ts", "--out is required"),
                ("xy -o t.svg", "xy"), ("ts -o t.svg --size 10x10", "no size"), ("ts -o t.svg --size 1000", "no size"),
                ("ts -o t.svg -r p=1:2", "no range of an axis"), ("ts -o t.svg -r T=500:400", "from low to high"),
                ("ph -o t.svg -r p=0:1", "above 0"), ("ts -o t.svg -l isobars", "isobars"),
                ("ts -o t.svg -u smoot", "no unit 'smoot'"), ("ts -o t.svg --dark --light", "excludes"),
                ("ts -o t.svg -p no.csv", "no.csv: cannot open"), ("ts -o t.svg -p - <<<a,p", "names no two of"),
                ("ts -o t.svg -p - <<<'p [C],T'", "p: no unit 'C'"), ("ts -o t.svg -p - </dev/null", "there is no table")):
            self.assertIn(reason, self.run_in_shell("vaprix chart " + command, 2)[1], command)
            self.assertFalse((self.folder / "t.svg").exists(), command)


class Shells(Shell):
    def completed(self, *words):
        out, _ = self.run_in_shell('. <(vaprix completion bash); COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _vaprix; '
                                   'printf "%s\\n" "${COMPREPLY[@]}"', arguments=("vaprix", *words))
        return out.split()

    def test_bash_completes(self):
        self.assertEqual(self.completed("ta"), ["table"])
        self.assertEqual(self.completed("table", ""), ["saturation", "superheated", "-h", "--help"])
        self.assertEqual(self.completed("table", "saturation", "--format", "m"), ["markdown"])
        self.assertEqual(self.completed("state", "p=1", "--family", ""), ["O", "B"])
        self.assertEqual(self.completed("chart", "ts", "--lines", "iso"),
                         ["isobar", "isotherm", "isochore"])
        self.assertEqual(self.completed("chart", "p"), ["ph", "pt", "pv"])
        self.assertEqual(self.completed("help", "HOP"), ["HOPT", "HOPS", "HOPV", "HOPX"])
        self.assertEqual(self.completed("map", "-i", "x"), [])  # a file, by the shell's own rule

    def test_zsh_completes(self):
        (self.folder / "_vaprix").write_text(self.run_in_shell("vaprix completion zsh")[0])
        (self.folder / "test.zsh").write_text("""
            zmodload zsh/zpty
            zpty shell zsh -f -i
            zpty -w shell "fpath=($PWD \\$fpath); autoload -U compinit; compinit -u -D; PS1=type''here"
            zpty -r shell line '*typehere*'
            zpty -w -n shell $'vaprix table sat\\t--fam\\tB --format mark\\t; print do\\'\\'ne\\C-a: \\n'
            zpty -r shell line '*do*ne*' && print -r -- $line""")
        shown = re.sub("\x1b\\[[0-9;?]*[A-Za-z]|\x08", "", self.run_in_shell("zsh -f test.zsh")[0])
        self.assertIn("vaprix table saturation --family B --format markdown", re.sub(" +", " ", shown))

    def test_manual(self):
        out, err = self.run_in_shell("vaprix manual >vaprix.1; MANWIDTH=80 man --warnings -l vaprix.1")
        self.assertEqual(err, "")
        for said in ("NAME", "SYNOPSIS", "table saturation", "--family", "vaprix state p=15MPa T=600C"):
            self.assertIn(said, re.sub(".\x08", "", out))


if __name__ == "__main__":
    unittest.main()
