/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host-only control of the Vorn utilities: where "/vendor/..." libraries are found, and the
 * bookkeeping and failure injection of the vendor allocator.
 */
#pragma once

#include <stddef.h>

#include <string>

namespace Vorn {
namespace Host {

// Directory that stands in for the device's root when LibMap opens a "/vendor/..." path: the
// library root + path is opened instead. Null clears the setting, and the environment variable
// VORN_VENDOR_ROOT applies again; an empty root (or none at all) opens paths as given.
void SetVendorRoot(const char* root);

// The root in effect: the one set, else VORN_VENDOR_ROOT, else "".
std::string VendorRoot();

// Blocks from VornCalloc not yet passed to VornFree.
size_t LiveAllocations();

// Successful VornCalloc calls since start-up.
size_t TotalAllocations();

// The next afterSuccesses allocations succeed, then count allocations fail (return null).
void FailAllocations(int afterSuccesses, int count = 1);
void ClearAllocationFailures();

}  // namespace Host
}  // namespace Vorn
