# SPDX-License-Identifier: MIT
#
# The beginning of the tests of an installation, in a folder of their own that is removed: what the build installs, moved
# to another folder, where no file names the source, the build or the first folder; for pkg-config.
set -eux
source=$1 build=$2 libdir=$3 exports=$4
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

# --component, of which there is but this one, leaves the list of what the user of the build installed
cmake --install "$build" --component Unspecified --prefix "$scratch/first" >installed.log
mv "$build/install_manifest_Unspecified.txt" .
mv first moved
grep -rn "$scratch/first\|$source\|$build" moved && exit 1
export PKG_CONFIG_PATH="$scratch/moved/$libdir/pkgconfig"
