C     SPDX-License-Identifier: MIT
C     Every export as an EXTERNAL procedure.
      PROGRAM FIXED
      INTEGER COMPARE
      EXTERNAL COMPARE, INVOKE
      IF (COMPARE(INVOKE) .NE. 0) STOP 1
      END
