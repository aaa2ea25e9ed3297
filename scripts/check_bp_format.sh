#!/usr/bin/env bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Fails when an Android.bp of the tree is not formatted as bpfmt (Debian's blueprint-tools)
# formats it, and shows how bpfmt would change it. Usage: check_bp_format.sh [<tree root>]
set -euo pipefail
root=$(cd "${1:-$(dirname "$0")/..}" && pwd)
cd "$root"

if ! command -v bpfmt >/dev/null; then
    echo "check_bp_format: bpfmt not found (install blueprint-tools)" >&2
    exit 1
fi

# Tracked and new files; build folders inside the tree are ignored by git.
if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    mapfile -t files < <(git ls-files -co --exclude-standard -- 'Android.bp' '*/Android.bp' |
        while read -r f; do [ -f "$f" ] && echo "$f"; done | sort -u)
else
    mapfile -t files < <(find . -name Android.bp -not -path '*/.git/*' | sort)
fi
if [ ${#files[@]} -eq 0 ]; then
    echo "check_bp_format: no Android.bp in $root" >&2
    exit 1
fi

# bpfmt -l lists the files whose formatting differs and fails on a file it cannot parse.
if ! unformatted=$(bpfmt -l "${files[@]}"); then
    echo "check_bp_format: bpfmt cannot parse every Android.bp" >&2
    exit 1
fi
if [ -n "$unformatted" ]; then
    echo "check_bp_format: not formatted as bpfmt formats them (fix with bpfmt -w):" >&2
    while read -r f; do bpfmt -d "$f" >&2; done <<<"$unformatted"
    exit 1
fi
echo "Android.bp files formatted: ${#files[@]}"
