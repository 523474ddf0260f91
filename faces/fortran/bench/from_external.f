C     SPDX-License-Identifier: MIT
C     The calls of call_time.f90 as EXTERNAL procedures.
      DOUBLE PRECISION FUNCTION BYNAME(WHICH, N, X, Y)
      INTEGER WHICH, N, I
      DOUBLE PRECISION X(N), Y(N), HBPT, TBPH, PCRIT
      EXTERNAL HBPT, TBPH, PCRIT
      BYNAME = 0
      GOTO (10, 20, 30), WHICH
   10 DO 11 I = 1, N
   11 BYNAME = BYNAME + HBPT(X(I), Y(I))
      RETURN
   20 DO 21 I = 1, N
   21 BYNAME = BYNAME + TBPH(X(I), Y(I))
      RETURN
   30 DO 31 I = 1, N
   31 BYNAME = BYNAME + PCRIT()
      END
