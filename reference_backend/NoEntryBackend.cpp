/*
 * Copyright (C) 2026 Oru Camera
 *
 * A backend file that loads but does not export KivOfflineOpenContext.
 */
#include <stdint.h>

extern "C" __attribute__((visibility("default"))) uint32_t KivOfflineBackendVersion(void) {
    return 0x101;
}
