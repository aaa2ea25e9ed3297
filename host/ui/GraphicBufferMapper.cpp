/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The host's graphics buffer mapper: imports memfd-backed buffer handles, maps them for CPU
 * access and hands out release fences, with the controls of <hostplatform/GrallocTesting.h>.
 */
#define LOG_TAG "GraphicBufferMapper"

#include <fcntl.h>
#include <hostplatform/GrallocTesting.h>
#include <log/log.h>
#include <string.h>
#include <sys/eventfd.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <ui/GraphicBufferMapper.h>
#include <unistd.h>

#include <array>
#include <mutex>
#include <unordered_map>

#include "HostGralloc.h"

namespace android {
namespace hostgralloc {
namespace {

constexpr size_t kOpCount = static_cast<size_t>(Op::Unlock) + 1;

// Copy of a handle with duplicated (close-on-exec) descriptors; null on failure.
native_handle_t* duplicateHandle(const native_handle_t* handle) {
    native_handle_t* copy = native_handle_create(handle->numFds, handle->numInts);
    if (copy == nullptr) {
        return nullptr;
    }
    for (int i = 0; i < handle->numFds; ++i) {
        copy->data[i] = fcntl(handle->data[i], F_DUPFD_CLOEXEC, 0);
        if (copy->data[i] < 0) {
            ALOGE("%s: dup of fd %d failed: %s", __FUNCTION__, handle->data[i], strerror(errno));
            for (int j = 0; j < i; ++j) {
                close(copy->data[j]);
            }
            native_handle_delete(copy);
            return nullptr;
        }
    }
    memcpy(&copy->data[handle->numFds], &handle->data[handle->numFds],
           sizeof(int) * static_cast<size_t>(handle->numInts));
    return copy;
}

class Gralloc {
  public:
    static Gralloc& instance() {
        // Never destroyed: buffers may still be freed by static destructors of other libraries.
        static Gralloc* sGralloc = new Gralloc();
        return *sGralloc;
    }

    status_t importBuffer(const native_handle_t* rawHandle, buffer_handle_t* outHandle) {
        std::lock_guard<std::mutex> guard(mLock);
        status_t status;
        if (takeInjectedFailure(Op::Import, &status)) {
            return status;
        }
        BufferDescription description;
        if (outHandle == nullptr || !readDescription(rawHandle, &description)) {
            ALOGE("%s: not a buffer handle of this platform", __FUNCTION__);
            return BAD_VALUE;
        }
        struct stat st;
        if (fstat(rawHandle->data[0], &st) != 0) {
            ALOGE("%s: buffer fd %d is not valid: %s", __FUNCTION__, rawHandle->data[0],
                  strerror(errno));
            return BAD_VALUE;
        }
        if (st.st_size < static_cast<off_t>(description.size)) {
            ALOGE("%s: buffer fd holds %lld bytes, the handle describes %zu", __FUNCTION__,
                  static_cast<long long>(st.st_size), description.size);
            return BAD_VALUE;
        }
        native_handle_t* imported = duplicateHandle(rawHandle);
        if (imported == nullptr) {
            return NO_MEMORY;
        }
        mImports[imported] = Import{description, nullptr, 0};
        *outHandle = imported;
        return OK;
    }

    status_t freeBuffer(buffer_handle_t handle) {
        std::lock_guard<std::mutex> guard(mLock);
        status_t status;
        if (takeInjectedFailure(Op::Free, &status)) {
            return status;
        }
        auto it = mImports.find(handle);
        if (it == mImports.end()) {
            ALOGE("%s: %p is not an imported buffer", __FUNCTION__, handle);
            return BAD_VALUE;
        }
        if (it->second.mapping != nullptr) {
            munmap(it->second.mapping, it->second.description.size);
        }
        mImports.erase(it);
        native_handle_close(handle);
        native_handle_delete(const_cast<native_handle_t*>(handle));
        return OK;
    }

    status_t lock(buffer_handle_t handle, uint32_t usage, const Rect& bounds, void** vaddr) {
        std::lock_guard<std::mutex> guard(mLock);
        mLastLockRect = bounds;
        mLastLockUsage = usage;
        status_t status;
        if (takeInjectedFailure(Op::Lock, &status)) {
            return status;
        }
        if (vaddr == nullptr) {
            return BAD_VALUE;
        }
        Import* import = nullptr;
        status = mapLocked(__FUNCTION__, handle, bounds, &import);
        if (status == OK) {
            *vaddr = import->mapping;
        }
        return status;
    }

    status_t lockYCbCr(buffer_handle_t handle, uint32_t usage, const Rect& bounds,
                       android_ycbcr* ycbcr) {
        std::lock_guard<std::mutex> guard(mLock);
        mLastLockRect = bounds;
        mLastLockUsage = usage;
        status_t status;
        if (takeInjectedFailure(Op::LockYCbCr, &status)) {
            return status;
        }
        if (ycbcr == nullptr) {
            return BAD_VALUE;
        }
        Import* import = nullptr;
        status = mapLocked(__FUNCTION__, handle, bounds, &import);
        if (status != OK) {
            return status;
        }
        if (!ycbcrLayout(import->description, static_cast<uint8_t*>(import->mapping), bounds,
                         ycbcr)) {
            ALOGE("%s: format 0x%x has no YCbCr planes", __FUNCTION__, import->description.format);
            import->lockCount--;
            return BAD_VALUE;
        }
        return OK;
    }

    status_t unlock(buffer_handle_t handle, int* outFence) {
        std::lock_guard<std::mutex> guard(mLock);
        *outFence = -1;
        status_t status;
        if (!takeInjectedFailure(Op::Unlock, &status)) {
            auto it = mImports.find(handle);
            if (it == mImports.end() || it->second.lockCount == 0) {
                ALOGE("%s: %p is not a locked buffer", __FUNCTION__, handle);
                return BAD_VALUE;
            }
            it->second.lockCount--;
            status = OK;
        }
        if (mProduceUnlockFence) {
            // A signalled eventfd stands in for a release fence.
            *outFence = eventfd(1, EFD_CLOEXEC);
        }
        return status;
    }

    size_t liveImportCount() {
        std::lock_guard<std::mutex> guard(mLock);
        return mImports.size();
    }

    void failNext(Op op, status_t status, int count) {
        std::lock_guard<std::mutex> guard(mLock);
        mFailures[static_cast<size_t>(op)] = Failure{status, count > 0 ? count : 0};
    }

    void clearFailures() {
        std::lock_guard<std::mutex> guard(mLock);
        mFailures = {};
    }

    void setUnlockFence(bool produceFence) {
        std::lock_guard<std::mutex> guard(mLock);
        mProduceUnlockFence = produceFence;
    }

    Rect lastLockRect() {
        std::lock_guard<std::mutex> guard(mLock);
        return mLastLockRect;
    }

    uint32_t lastLockUsage() {
        std::lock_guard<std::mutex> guard(mLock);
        return mLastLockUsage;
    }

    size_t callCount(Op op) {
        std::lock_guard<std::mutex> guard(mLock);
        return mCallCounts[static_cast<size_t>(op)];
    }

    void resetCounters() {
        std::lock_guard<std::mutex> guard(mLock);
        mCallCounts = {};
        mLastLockRect = Rect();
        mLastLockUsage = 0;
    }

  private:
    struct Import {
        BufferDescription description;
        void* mapping;  // Mapped on first lock, unmapped when the buffer is freed.
        int lockCount;
    };

    struct Failure {
        status_t status = OK;
        int remaining = 0;
    };

    Gralloc() = default;

    // Counts a call of op and consumes one injected failure of it, if any. mLock held.
    bool takeInjectedFailure(Op op, status_t* status) {
        const size_t index = static_cast<size_t>(op);
        mCallCounts[index]++;
        Failure& failure = mFailures[index];
        if (failure.remaining == 0) {
            return false;
        }
        failure.remaining--;
        *status = failure.status;
        return true;
    }

    // Checks bounds, maps the buffer if it is not mapped yet and counts the lock. mLock held.
    status_t mapLocked(const char* operation, buffer_handle_t handle, const Rect& bounds,
                       Import** locked) {
        auto it = mImports.find(handle);
        if (it == mImports.end()) {
            ALOGE("%s: %p is not an imported buffer", operation, handle);
            return BAD_VALUE;
        }
        Import& import = it->second;
        if (!boundsInside(import.description, bounds)) {
            ALOGE("%s: bounds [%d,%d,%d,%d] are outside the %ux%u buffer", operation, bounds.left,
                  bounds.top, bounds.right, bounds.bottom, import.description.width,
                  import.description.height);
            return BAD_VALUE;
        }
        if (import.mapping == nullptr) {
            void* mapping = mmap(nullptr, import.description.size, PROT_READ | PROT_WRITE,
                                 MAP_SHARED, handle->data[0], 0);
            if (mapping == MAP_FAILED) {
                ALOGE("%s: mmap of %zu bytes failed: %s", operation, import.description.size,
                      strerror(errno));
                return NO_MEMORY;
            }
            import.mapping = mapping;
        }
        import.lockCount++;
        *locked = &import;
        return OK;
    }

    // Guards every member below: the live imports with their mappings and lock counts, the
    // injected failures, the fence setting, the call counters and the last lock request.
    std::mutex mLock;
    std::unordered_map<buffer_handle_t, Import> mImports;
    std::array<Failure, kOpCount> mFailures{};
    std::array<size_t, kOpCount> mCallCounts{};
    bool mProduceUnlockFence = false;
    Rect mLastLockRect;
    uint32_t mLastLockUsage = 0;
};

}  // namespace

size_t liveImportCount() {
    return Gralloc::instance().liveImportCount();
}

void failNext(Op op, status_t status, int count) {
    Gralloc::instance().failNext(op, status, count);
}

void clearFailures() {
    Gralloc::instance().clearFailures();
}

void setUnlockFence(bool produceFence) {
    Gralloc::instance().setUnlockFence(produceFence);
}

Rect lastLockRect() {
    return Gralloc::instance().lastLockRect();
}

uint32_t lastLockUsage() {
    return Gralloc::instance().lastLockUsage();
}

size_t callCount(Op op) {
    return Gralloc::instance().callCount(op);
}

void resetCounters() {
    Gralloc::instance().resetCounters();
}

}  // namespace hostgralloc

GraphicBufferMapper& GraphicBufferMapper::get() {
    // Guards the creation of the process-wide instance.
    static std::mutex sInstanceLock;
    static GraphicBufferMapper* sInstance = nullptr;
    std::lock_guard<std::mutex> guard(sInstanceLock);
    if (sInstance == nullptr) {
        sInstance = new GraphicBufferMapper();
    }
    return *sInstance;
}

status_t GraphicBufferMapper::importBuffer(const native_handle_t* rawHandle, uint32_t width,
                                           uint32_t height, uint32_t layerCount, PixelFormat format,
                                           uint64_t usage, uint32_t stride,
                                           buffer_handle_t* outHandle) {
    hostgralloc::BufferDescription description;
    if (!hostgralloc::readDescription(rawHandle, &description) || layerCount != 1 ||
        description.width != width || description.height != height || description.format != format ||
        description.stride != stride || (description.usage & usage) != usage) {
        ALOGE("%s: buffer does not match %ux%u format 0x%x stride %u usage 0x%llx", __FUNCTION__,
              width, height, format, stride, static_cast<unsigned long long>(usage));
        return BAD_VALUE;
    }
    return importBufferNoValidate(rawHandle, outHandle);
}

status_t GraphicBufferMapper::importBufferNoValidate(const native_handle_t* rawHandle,
                                                     buffer_handle_t* outHandle) {
    return hostgralloc::Gralloc::instance().importBuffer(rawHandle, outHandle);
}

status_t GraphicBufferMapper::freeBuffer(buffer_handle_t handle) {
    return hostgralloc::Gralloc::instance().freeBuffer(handle);
}

status_t GraphicBufferMapper::lock(buffer_handle_t handle, uint32_t usage, const Rect& bounds,
                                   void** vaddr) {
    return hostgralloc::Gralloc::instance().lock(handle, usage, bounds, vaddr);
}

status_t GraphicBufferMapper::lockYCbCr(buffer_handle_t handle, uint32_t usage, const Rect& bounds,
                                        android_ycbcr* ycbcr) {
    return hostgralloc::Gralloc::instance().lockYCbCr(handle, usage, bounds, ycbcr);
}

status_t GraphicBufferMapper::unlock(buffer_handle_t handle, base::unique_fd* outFence) {
    int fence = -1;
    const status_t status = hostgralloc::Gralloc::instance().unlock(handle, &fence);
    if (outFence != nullptr) {
        outFence->reset(fence);
    } else if (fence >= 0) {
        // The fence is signalled from the start, so waiting for it is a no-op.
        close(fence);
    }
    return status;
}

}  // namespace android
