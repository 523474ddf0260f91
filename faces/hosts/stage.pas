{ SPDX-License-Identifier: MIT }
{ A turbine stage without losses, from 3 MPa and 400 degC to 0.1 MPa, and a call that fails. }
{ Free Pascal traps floating-point exceptions, of which the library raises none. }
program Stage;

function HOPT(constref p, T: Double): Double; cdecl; external 'vaprix' name 'HOPT';
function SOPT(constref p, T: Double): Double; cdecl; external 'vaprix' name 'SOPT';
function HOPS(constref p, s: Double): Double; cdecl; external 'vaprix' name 'HOPS';
function XOPS(constref p, s: Double): Double; cdecl; external 'vaprix' name 'XOPS';
function ECODETUL: Integer; cdecl; external 'vaprix' name 'ECODETUL';

const
  p1 = 3.0; T1 = 673.15; p2 = 0.1; TooCold = 200.0;  { MPa, K }
var
  h1, s, h2, x2, Failed: Double;
  Code: Integer;
  Meaning: string;

begin
  h1 := HOPT(p1, T1);
  s := SOPT(p1, T1);
  h2 := HOPS(p2, s);
  x2 := XOPS(p2, s);
  WriteLn('inlet   h ', h1:8:2, ' kJ/kg   s ', s:7:4, ' kJ/(kg K)');
  WriteLn('outlet  h ', h2:8:2, ' kJ/kg   x ', x2:7:4);
  WriteLn('work      ', h1 - h2:8:2, ' kJ/kg');

  Failed := HOPT(p1, TooCold);
  Code := ECODETUL;  { of this thread, directly after the call }
  Meaning := '';
  if Code = -10055 then Meaning := ': outside the range of validity';
  WriteLn(TooCold:0:0, ' K   ', Failed:9:1, ', code ', Code, Meaning);
end.
