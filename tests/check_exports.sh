#!/usr/bin/env bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Checks the dynamic symbols that the library defines: the registration entry and the members of
# OfflineCameraService, nothing else of its own.
set -euo pipefail
defined=$("${NM:-nm}" -D --defined-only "$1" | awk '$3 != "_init" && $3 != "_fini" {print $3}')
names=$(c++filt <<<"$defined")
status=0
for name in RegisterOfflineCameraAIDLService OfflineCameraService::{GetInstance,Initialize,\
GetOfflineStaticCaps,RegisterConsumerClient,unRegisterConsumerClient,RegisterProducerClient,\
UnRegisterProducerClient,InitMetaOps,DeInitMetaOps,OpenSession,ConfigureSession,ExecuteRequest,\
Flush,Dump,CloseSession,TranslateToKivBuffer,TranslateFromKivBuffer,CreateAndroidMetadata,\
CreateByAndroidMetadata,CreateKivMetaData,DestoryKivMetadata,ReleaseAndroidMetadata,\
RequestStreamBuffers,ProcessCaptureResult}; do
    grep -q "^$name\((\|$\)" <<<"$names" || { echo "missing export: $name"; status=1; }
done
# Everything else stays hidden, the service implementation above all. Instantiations of standard
# library templates (also over the implementation's types, kept out of line in unoptimised
# builds), and of NDK and generated templates, carry the default visibility of their headers.
unexpected=$(awk '
    /^(_ZN?K?St|_ZZNSt|_ZNK?9__gnu_cxx)/ { next }
    /14implementation|24OfflineCameraAIDLService/ { print; next }
    /^(RegisterOfflineCameraAIDLService$|_ZN20OfflineCameraService|_ZN4aidl|_ZN3ndk)/ { next }
    /^(_ZT[IS][FP]|_ZT[ISV](N3ndk|N4aidl|St))/ { next }
    { print }' <<<"$defined")
if [ -n "$unexpected" ]; then
    echo "unexpected exports:"
    c++filt <<<"$unexpected"
    status=1
fi
exit $status
