#!/bin/bash
# Prints the hash of a frozen AIDL API version, computed as the Android build does for
# aidl_api/<package>/<N>/.hash: the SHA-1 of the sha1sum lines of every .aidl file below the
# version folder (paths relative to it, byte-sorted), followed by the previous frozen version
# ("latest-version" for the first frozen version of the package).
#
# Usage: compute_hash.sh <version folder> [<previous version|latest-version>]
#   Without the second argument, the previous version is the highest-numbered sibling folder
#   below <N>, or latest-version when there is none. The platform build takes it from the order
#   of versions_with_info in Android.bp; scripts/check_aidl_api.py checks that both agree.
set -euo pipefail

if [[ $# -lt 1 || $# -gt 2 || ! -d "$1" ]]; then
    echo "usage: $0 <version folder> [<previous version|latest-version>]" >&2
    exit 2
fi

dir=$(cd "$1" && pwd)
if [[ $# -eq 2 ]]; then
    previous=$2
else
    version=$(basename "$dir")
    if [[ ! $version =~ ^[0-9]+$ ]]; then
        echo "$0: $1 is not a numbered version folder" >&2
        exit 2
    fi
    previous=latest-version
    for sibling in "$(dirname "$dir")"/*/; do
        n=$(basename "$sibling")
        if [[ $n =~ ^[0-9]+$ ]] && ((n < version)) &&
            { [[ $previous == latest-version ]] || ((n > previous)); }; then
            previous=$n
        fi
    done
fi

cd "$dir"
{
    find ./ -name '*.aidl' -print0 | LC_ALL=C sort -z | xargs -0 -r sha1sum
    echo "$previous"
} | sha1sum | cut -d ' ' -f 1
