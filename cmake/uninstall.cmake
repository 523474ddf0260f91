# SPDX-License-Identifier: MIT
#
# Removes what `cmake --install` wrote last.
file(STRINGS install_manifest.txt installed)
list(TRANSFORM installed PREPEND "$ENV{DESTDIR}")
file(REMOVE ${installed})
