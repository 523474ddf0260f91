C     SPDX-License-Identifier: MIT
C
C     Steam throttled from 6 MPa, 450 degC: temperature behind the
C     valve, in FORTRAN 77 with external procedures.
      PROGRAM THROTL
      INTEGER ECODETUL, I
      DOUBLE PRECISION P(4), H, T, HOPT, TOPH
      EXTERNAL ECODETUL, HOPT, TOPH
      DATA P /4.D0, 1.D0, 0.1D0, -1.D0/
      H = HOPT(6.D0, 723.15D0)
      DO 10 I = 1, 4
         T = TOPH(P(I), H)
         IF (T .GT. -99998.D0) THEN
            WRITE (*, '(F6.2, A, F8.2, A)') P(I), ' MPa', T - 273.15D0,
     *         ' degC'
         ELSE
            WRITE (*, '(F6.2, A, I7)') P(I), ' MPa  code', ECODETUL()
         END IF
   10 CONTINUE
      END
