#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the procedure that calls every export by its number in the catalogue: every_export.py modern|fixed OUTPUT.

modern is of Fortran 2008 through the module, with arguments by name; fixed is of fixed form with EXTERNAL procedures.
The arguments of an export are the first of `given`, in their order, but for region and result.
"""
import pathlib
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from fortran import WRITTEN, procedures, result_type  # noqa: E402

MODERN = """subroutine modern(number, given, region, answer) bind(C)
    use, intrinsic :: iso_c_binding, only: c_double, c_int
    use vaprix
    implicit none
    integer(c_int), intent(in) :: number
    real(c_double), intent(in) :: given(4)
    integer(c_int), intent(inout) :: region
    real(c_double), intent(inout) :: answer
    select case (number)
{cases}    end select
end subroutine
"""
FIXED = """      SUBROUTINE FIXED(NUMBER, GIVEN, REGION, ANSWER)
      INTEGER NUMBER, REGION
      DOUBLE PRECISION GIVEN(4), ANSWER
{declared}      SELECT CASE (NUMBER)
{cases}      END SELECT
      END
"""


def case(number, entry, modern):
    given = iter(range(1, 5))
    values = ["region" if a == "region" else "answer" if a in WRITTEN else f"given({next(given)})"
              for a in entry["arguments"]]
    if modern:
        values = [f"{argument}={value}" for argument, value in zip(entry["arguments"], values)]
    give = "call " if result_type(entry) == "void" else "answer = "
    return f"      case ({number})\n        {give}{entry['name']}({', '.join(values)})\n"


entries = procedures()
declared = "".join(f"      external {e['name']}\n" for e in entries)
for entry in entries:
    if result_type(entry) != "void":
        kind = {"double": "double precision", "int": "integer"}[result_type(entry)]
        declared += f"      {kind} {entry['name']}\n"
cases = "".join(case(number, entry, sys.argv[1] == "modern") for number, entry in enumerate(entries, 1))
text = {"modern": MODERN, "fixed": FIXED}[sys.argv[1]]
pathlib.Path(sys.argv[2]).write_text(text.format(cases=cases, declared=declared), encoding="utf-8")
