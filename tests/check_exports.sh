#!/usr/bin/env bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Checks the dynamic symbols that the library defines: the registration entry and the members of
# OfflineCameraService, nothing else of its own.
set -euo pipefail
lib="$1"
nm=${NM:-nm}
defined=$("$nm" -D --defined-only "$lib" | awk '{print $3}' | grep -v '^_init$\|^_fini$' || true)
status=0
if ! grep -qx 'RegisterOfflineCameraAIDLService' <<<"$defined"; then
    echo "missing export: RegisterOfflineCameraAIDLService"
    status=1
fi
for member in GetInstance Initialize GetOfflineStaticCaps RegisterConsumerClient \
        unRegisterConsumerClient RegisterProducerClient UnRegisterProducerClient \
        InitMetaOps DeInitMetaOps OpenSession ConfigureSession ExecuteRequest Flush Dump \
        CloseSession TranslateToKivBuffer TranslateFromKivBuffer CreateAndroidMetadata \
        CreateByAndroidMetadata CreateKivMetaData DestoryKivMetadata ReleaseAndroidMetadata \
        RequestStreamBuffers ProcessCaptureResult; do
    if ! grep -q "^_ZN20OfflineCameraService[0-9]*${member}E" <<<"$defined"; then
        echo "missing export: OfflineCameraService::${member}"
        status=1
    fi
done
# The service implementation is internal. Standard library templates instantiated over its types
# (kept out of line in unoptimised builds) carry the default visibility of namespace std.
internal=$(grep -v '^_ZNSt\|^_ZNKSt\|^_ZSt\|^_ZZNSt\|^_ZNK\?9__gnu_cxx' <<<"$defined" \
    | grep '14implementation\|24OfflineCameraAIDLService' || true)
if [ -n "$internal" ]; then
    echo "internal classes exported:"
    echo "$internal" | c++filt
    status=1
fi
# Everything else the library defines must stay hidden. Instantiations of standard library,
# NDK and generated templates, which their headers declare with default visibility, are allowed.
unexpected=$(grep -v '^RegisterOfflineCameraAIDLService$' <<<"$defined" \
    | grep -v '^_ZN20OfflineCameraService' \
    | grep -v '^_ZN4aidl' | grep -v '^_ZN3ndk' | grep -v '^_ZNSt' | grep -v '^_ZNKSt' \
    | grep -v '^_ZZNSt' | grep -v '^_ZSt' | grep -v '^_ZNK\?9__gnu_cxx' | grep -v '^_ZT[IS][FP]' \
    | grep -v '^_ZT[ISV]N3ndk\|^_ZT[ISV]N4aidl\|^_ZT[ISV]St' || true)
if [ -n "$unexpected" ]; then
    echo "unexpected exports:"
    echo "$unexpected" | c++filt
    status=1
fi
[ $status -eq 0 ] && echo "exports ok"
exit $status
