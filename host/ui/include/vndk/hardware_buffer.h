/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for the vendor's <vndk/hardware_buffer.h> (libnativewindow): the native handle
 * behind an AHardwareBuffer.
 */
#pragma once

#include <android/hardware_buffer.h>
#include <cutils/native_handle.h>
#include <sys/cdefs.h>

__BEGIN_DECLS

/* The buffer's handle, owned by the buffer: valid while the caller holds a reference. */
const native_handle_t* AHardwareBuffer_getNativeHandle(const AHardwareBuffer* buffer);

__END_DECLS
