/*
 * Service manager of the host libbinder_ndk: a table of named services in this process, each
 * holding a strong reference to its binder.
 */
#include <android/binder_manager.h>
#include <hostplatform/BinderTesting.h>

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace {

struct ServiceManager {
    // Guards every member below.
    std::mutex lock;
    // Signalled whenever a service is added.
    std::condition_variable added;
    std::map<std::string, AIBinder*> services;  // one strong reference each
    std::set<std::string> declared;             // every name added since the last reset
    binder_exception_t nextAddFailure = EX_NONE;
};

ServiceManager& serviceManager() {
    // Never destroyed: services may be looked up from static destructors of other libraries.
    static ServiceManager* sManager = new ServiceManager;
    return *sManager;
}

/* New strong reference to a registered service, or null. Call with the lock held. */
AIBinder* findLocked(const std::string& name) {
    ServiceManager& sm = serviceManager();
    auto it = sm.services.find(name);
    if (it == sm.services.end()) return nullptr;
    AIBinder_incStrong(it->second);
    return it->second;
}

}  // namespace

binder_exception_t AServiceManager_addService(AIBinder* binder, const char* instance) {
    if (binder == nullptr || instance == nullptr) return EX_ILLEGAL_ARGUMENT;
    ServiceManager& sm = serviceManager();
    AIBinder* replaced = nullptr;
    {
        std::lock_guard<std::mutex> lock(sm.lock);
        if (sm.nextAddFailure != EX_NONE) {
            binder_exception_t failure = sm.nextAddFailure;
            sm.nextAddFailure = EX_NONE;
            return failure;
        }
        AIBinder_incStrong(binder);
        AIBinder*& slot = sm.services[instance];
        replaced = slot;
        slot = binder;
        sm.declared.insert(instance);
    }
    sm.added.notify_all();
    // Released outside the lock: the last reference runs the binder's destruction.
    if (replaced != nullptr) AIBinder_decStrong(replaced);
    return EX_NONE;
}

binder_exception_t AServiceManager_addServiceWithFlags(
        AIBinder* binder, const char* instance, const AServiceManager_AddServiceFlag /*flags*/) {
    return AServiceManager_addService(binder, instance);
}

AIBinder* AServiceManager_checkService(const char* instance) {
    if (instance == nullptr) return nullptr;
    ServiceManager& sm = serviceManager();
    std::lock_guard<std::mutex> lock(sm.lock);
    return findLocked(instance);
}

AIBinder* AServiceManager_getService(const char* instance) {
    if (instance == nullptr) return nullptr;
    ServiceManager& sm = serviceManager();
    std::unique_lock<std::mutex> lock(sm.lock);
    AIBinder* binder = nullptr;
    sm.added.wait_for(lock, std::chrono::seconds(5),
                      [&] { return (binder = findLocked(instance)) != nullptr; });
    return binder;
}

AIBinder* AServiceManager_waitForService(const char* instance) {
    if (instance == nullptr) return nullptr;
    ServiceManager& sm = serviceManager();
    std::unique_lock<std::mutex> lock(sm.lock);
    AIBinder* binder = nullptr;
    sm.added.wait(lock, [&] { return (binder = findLocked(instance)) != nullptr; });
    return binder;
}

bool AServiceManager_isDeclared(const char* instance) {
    if (instance == nullptr) return false;
    ServiceManager& sm = serviceManager();
    std::lock_guard<std::mutex> lock(sm.lock);
    return sm.declared.count(instance) != 0;
}

namespace ndk::host {

void failNextAddService(binder_exception_t exception) {
    ServiceManager& sm = serviceManager();
    std::lock_guard<std::mutex> lock(sm.lock);
    sm.nextAddFailure = exception;
}

void resetServiceManager() {
    ServiceManager& sm = serviceManager();
    std::vector<AIBinder*> released;
    {
        std::lock_guard<std::mutex> lock(sm.lock);
        for (const auto& entry : sm.services) released.push_back(entry.second);
        sm.services.clear();
        sm.declared.clear();
        sm.nextAddFailure = EX_NONE;
    }
    for (AIBinder* binder : released) AIBinder_decStrong(binder);
}

}  // namespace ndk::host
