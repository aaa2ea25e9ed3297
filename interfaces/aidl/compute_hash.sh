#!/bin/bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Prints the hash of a frozen AIDL API version, computed as the Android build does for
# aidl_api/<package>/<N>/.hash: the SHA-1 of the sha1sum lines of every .aidl file below the
# version folder (paths relative to it, byte-sorted), followed by the number of the version
# before it (N - 1), or "latest-version" for version 1.
#
# Usage: compute_hash.sh <version folder> [<previous version|latest-version>]
#   Without the second argument, the previous version is N - 1, or latest-version for N = 1.
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
    if ((version > 1)); then
        previous=$((version - 1))
    else
        previous=latest-version
    fi
fi

cd "$dir"
{
    find ./ -name '*.aidl' -print0 | LC_ALL=C sort -z | xargs -0 -r sha1sum
    echo "$previous"
} | sha1sum | cut -d ' ' -f 1
