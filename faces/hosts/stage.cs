// SPDX-License-Identifier: MIT
// A turbine stage without losses, from 3 MPa and 400 degC to 0.1 MPa, and a call that fails.
using System;
using System.Globalization;
using System.Runtime.InteropServices;

static class Stage
{
    [DllImport("vaprix")] static extern double HOPT(ref double p, ref double T);
    [DllImport("vaprix")] static extern double SOPT(ref double p, ref double T);
    [DllImport("vaprix")] static extern double HOPS(ref double p, ref double s);
    [DllImport("vaprix")] static extern double XOPS(ref double p, ref double s);
    [DllImport("vaprix")] static extern int ECODETUL();

    static void Print(string format, params object[] values)
    {
        Console.WriteLine(string.Format(CultureInfo.InvariantCulture, format, values));
    }

    static void Main()
    {
        double p1 = 3.0, T1 = 673.15, p2 = 0.1, tooCold = 200.0;  // MPa, K
        double h1 = HOPT(ref p1, ref T1), s = SOPT(ref p1, ref T1);
        double h2 = HOPS(ref p2, ref s), x2 = XOPS(ref p2, ref s);
        Print("inlet   h {0,8:F2} kJ/kg   s {1,7:F4} kJ/(kg K)", h1, s);
        Print("outlet  h {0,8:F2} kJ/kg   x {1,7:F4}", h2, x2);
        Print("work      {0,8:F2} kJ/kg", h1 - h2);

        double failed = HOPT(ref p1, ref tooCold);
        int code = ECODETUL();  // of this thread, directly after the call
        Print("{0:F0} K   {1,9:F1}, code {2}{3}", tooCold, failed, code,
            code == -10055 ? ": outside the range of validity" : "");
    }
}
