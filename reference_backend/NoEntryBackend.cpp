/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * A backend file that loads but does not export KivOfflineOpenContext.
 */
#include <stdint.h>

extern "C" __attribute__((visibility("default"))) uint32_t KivOfflineBackendVersion(void) {
    return 0x101;
}
