#!/usr/bin/env bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Builds the tree with Clang and a sanitizer and runs its tests. Usage:
#   scripts/stage-sanitizers.sh asan <build-dir>   every test under AddressSanitizer,
#                                                  UndefinedBehaviorSanitizer and LeakSanitizer
#   scripts/stage-sanitizers.sh tsan <build-dir>   the tests labelled "threads" under ThreadSanitizer
# Every ELF file of the build must carry the sanitizer's instrumentation, so that no target can
# silently drop the flags. No suppressions are used.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
kind=$1
dir=$2

case $kind in
    asan)
        flags="-fsanitize=address,undefined -fno-sanitize-recover=all"
        marker=__asan_init
        ctest_args=()
        # The library and the platform stand-ins have static initialisers, so their order is
        # checked too. Undefined behaviour ends the process (-fno-sanitize-recover) like any
        # address error, also in the children of death tests.
        export ASAN_OPTIONS=detect_leaks=1:check_initialization_order=1:strict_init_order=1:detect_stack_use_after_return=1:strict_string_checks=1
        export UBSAN_OPTIONS=print_stacktrace=1
        ;;
    tsan)
        flags="-fsanitize=thread"
        marker=__tsan_init
        ctest_args=(-L threads)
        # The first report ends the test program, so it is the last thing in the test's output.
        export TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1
        ;;
    *)
        echo "usage: $0 asan|tsan <build-dir>" >&2
        exit 2
        ;;
esac
flags="$flags -fno-omit-frame-pointer"

bash "$root/scripts/setup.sh" libclang-rt-14-dev
bash "$root/scripts/build.sh" "$dir" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_C_FLAGS=$flags" "-DCMAKE_CXX_FLAGS=$flags"

uninstrumented=()
while IFS= read -r -d '' file; do
    [ "$(head -c 4 "$file" | od -An -c | tr -d ' ')" = '177ELF' ] || continue
    grep -q " $marker\$" < <(nm "$file" 2>/dev/null) || uninstrumented+=("${file#"$dir"/}")
done < <(find "$dir" -name CMakeFiles -prune -o -type f \( -name '*.so' -o -perm -u+x \) \
    -print0)
if [ ${#uninstrumented[@]} -gt 0 ]; then
    echo "built without $kind instrumentation: ${uninstrumented[*]}" >&2
    exit 1
fi

ctest --test-dir "$dir" --output-on-failure --no-tests=error -j"$(nproc)" "${ctest_args[@]}"
