# SPDX-License-Identifier: MIT
"""A turbine stage without losses, from 3 MPa and 400 degC to 0.1 MPa, and a call that fails."""
from ctypes import CDLL, byref, c_double

water = CDLL("libvaprix.so")


def of(name, *given):
    """Calls an export by value; a failure is an exception with the code of this thread."""
    function = getattr(water, name)
    function.restype = c_double
    result = function(*(byref(c_double(value)) for value in given))
    if result == -99999.0:
        code = water.ECODETUL()
        raise ValueError(f"{result}, code {code}" + (": outside the range of validity" if code == -10055 else ""))
    return result


h1, s = of("HOPT", 3.0, 673.15), of("SOPT", 3.0, 673.15)  # MPa, K
h2, x2 = of("HOPS", 0.1, s), of("XOPS", 0.1, s)
print(f"inlet   h {h1:8.2f} kJ/kg   s {s:7.4f} kJ/(kg K)")
print(f"outlet  h {h2:8.2f} kJ/kg   x {x2:7.4f}")
print(f"work      {h1 - h2:8.2f} kJ/kg")
try:
    of("HOPT", 3.0, 200.0)
except ValueError as error:
    print(f"200 K    {error}")
