/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The vendor allocator of the Vorn camera framework utilities, with the allocation bookkeeping
 * and failure injection of <hostplatform/VornTesting.h>.
 */
#include <hostplatform/VornTesting.h>
#include <stdlib.h>
#include <vorn/VornMemory.h>

#include <mutex>

namespace {

// Guards every counter and the failure plan below.
std::mutex gAllocationLock;
size_t gLiveAllocations = 0;
size_t gTotalAllocations = 0;
int gSuccessesBeforeFailure = 0;
int gFailuresLeft = 0;

}  // namespace

void* VornCalloc(size_t num, size_t size) {
    std::lock_guard<std::mutex> guard(gAllocationLock);
    if (gFailuresLeft > 0) {
        if (gSuccessesBeforeFailure > 0) {
            gSuccessesBeforeFailure--;
        } else {
            gFailuresLeft--;
            return nullptr;
        }
    }
    void* memory = calloc(num, size);
    if (memory != nullptr) {
        gLiveAllocations++;
        gTotalAllocations++;
    }
    return memory;
}

void VornFree(void* pMemory) {
    if (pMemory == nullptr) {
        return;
    }
    std::lock_guard<std::mutex> guard(gAllocationLock);
    free(pMemory);
    gLiveAllocations--;
}

namespace Vorn {
namespace Host {

size_t LiveAllocations() {
    std::lock_guard<std::mutex> guard(gAllocationLock);
    return gLiveAllocations;
}

size_t TotalAllocations() {
    std::lock_guard<std::mutex> guard(gAllocationLock);
    return gTotalAllocations;
}

void FailAllocations(int afterSuccesses, int count) {
    std::lock_guard<std::mutex> guard(gAllocationLock);
    gSuccessesBeforeFailure = afterSuccesses > 0 ? afterSuccesses : 0;
    gFailuresLeft = count > 0 ? count : 0;
}

void ClearAllocationFailures() {
    std::lock_guard<std::mutex> guard(gAllocationLock);
    gSuccessesBeforeFailure = 0;
    gFailuresLeft = 0;
}

}  // namespace Host
}  // namespace Vorn
