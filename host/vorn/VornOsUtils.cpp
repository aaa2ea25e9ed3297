/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Dynamic library mapping of the Vorn camera framework utilities. On the host, "/vendor/..."
 * paths are looked up below a vendor root directory (see <hostplatform/VornTesting.h>).
 */
#define LOG_TAG "VornOsUtils"

#include <dlfcn.h>
#include <hostplatform/VornTesting.h>
#include <log/log.h>
#include <stdlib.h>
#include <string.h>
#include <vorn/VornOsUtils.h>

#include <mutex>
#include <string>

namespace {

constexpr char kVendorPrefix[] = "/vendor/";

// Guards gVendorRoot and gVendorRootSet.
std::mutex gVendorRootLock;
std::string gVendorRoot;
bool gVendorRootSet = false;

const char* dlErrorText() {
    const char* text = dlerror();
    return text != nullptr ? text : "unknown error";
}

}  // namespace

namespace Vorn {
namespace Host {

void SetVendorRoot(const char* root) {
    std::lock_guard<std::mutex> guard(gVendorRootLock);
    gVendorRootSet = root != nullptr;
    gVendorRoot = root != nullptr ? root : "";
}

std::string VendorRoot() {
    {
        std::lock_guard<std::mutex> guard(gVendorRootLock);
        if (gVendorRootSet) {
            return gVendorRoot;
        }
    }
    const char* env = getenv("VORN_VENDOR_ROOT");
    return env != nullptr ? env : "";
}

}  // namespace Host

namespace OsUtils {

void* LibMap(const char* pPath) {
    if (pPath == nullptr) {
        ALOGE("%s: null library path", __FUNCTION__);
        return nullptr;
    }
    std::string path = pPath;
    const std::string root = Host::VendorRoot();
    if (!root.empty() && strncmp(pPath, kVendorPrefix, strlen(kVendorPrefix)) == 0) {
        path = root + pPath;
    }
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        ALOGE("%s: cannot map %s: %s", __FUNCTION__, path.c_str(), dlErrorText());
    }
    return library;
}

void* LibGetAddr(void* hLibrary, const char* pSymbol) {
    if (hLibrary == nullptr || pSymbol == nullptr) {
        ALOGE("%s: null library or symbol", __FUNCTION__);
        return nullptr;
    }
    dlerror();
    void* address = dlsym(hLibrary, pSymbol);
    if (address == nullptr) {
        ALOGE("%s: symbol %s not found: %s", __FUNCTION__, pSymbol, dlErrorText());
    }
    return address;
}

int LibUnmap(void* hLibrary) {
    if (hLibrary == nullptr) {
        ALOGE("%s: null library", __FUNCTION__);
        return -1;
    }
    const int result = dlclose(hLibrary);
    if (result != 0) {
        ALOGE("%s: dlclose failed: %s", __FUNCTION__, dlErrorText());
    }
    return result;
}

}  // namespace OsUtils
}  // namespace Vorn
