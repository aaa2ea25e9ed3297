#!/bin/bash
# Prints the hash of a frozen AIDL API version, computed as the Android build does for
# aidl_api/<package>/<N>/.hash: the SHA-1 of the sha1sum lines of every .aidl file below the
# version folder (paths relative to it, byte-sorted), followed by the previous version number
# ("latest-version" for the first frozen version).
#
# Usage: compute_hash.sh <version folder> <previous version>
#   e.g. compute_hash.sh aidl_api/vendor.oru.hardware.camera.offlinecamera/2 1
set -euo pipefail

if [[ $# -ne 2 || ! -d "$1" ]]; then
    echo "usage: $0 <version folder> <previous version|latest-version>" >&2
    exit 2
fi

cd "$1"
{
    find . -name '*.aidl' -print0 | LC_ALL=C sort -z | xargs -0 -r sha1sum
    echo "$2"
} | sha1sum | cut -d ' ' -f 1
