// SPDX-License-Identifier: MIT
//
// What must be inlined whatever the compiler's estimate: sums that share their powers, and states,
// which exist in registers only.
#pragma once

#if defined(__GNUC__)
#define VAPRIX_INLINE inline __attribute__((always_inline))
#else
#define VAPRIX_INLINE inline
#endif
