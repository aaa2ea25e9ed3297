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
