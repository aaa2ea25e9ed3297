/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Vorn camera framework utilities: the vendor allocator. Memory handed across the vendor camera
 * stack's library boundaries is allocated and freed here.
 */
#pragma once

#include <stddef.h>

/* Zero-filled allocation of num * size bytes; null on failure. */
void* VornCalloc(size_t num, size_t size);

/* Frees memory from VornCalloc; null is ignored. */
void VornFree(void* pMemory);
