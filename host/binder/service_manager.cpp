/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Service manager of the host libbinder_ndk: a table of named services in this process, each
 * holding a strong reference to its binder, and the instances that VINTF manifests declare.
 */
#include <android/binder_manager.h>
#include <hostplatform/BinderTesting.h>

#include <chrono>
#include <condition_variable>
#include <fstream>
#include <map>
#include <mutex>
#include <set>
#include <sstream>
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
    // Instances of the VINTF manifests read since the last reset. Once one is read, they alone
    // are declared.
    std::set<std::string> manifestDeclared;
    bool manifestRead = false;
    binder_exception_t nextAddFailure = EX_NONE;
};

ServiceManager& serviceManager() {
    // Never destroyed: services may be looked up from static destructors of other libraries.
    static ServiceManager* sManager = new ServiceManager;
    return *sManager;
}

/* Whether the instance is declared. Call with the lock held. */
bool isDeclaredLocked(const std::string& instance) {
    ServiceManager& sm = serviceManager();
    return sm.manifestRead ? sm.manifestDeclared.count(instance) != 0
                           : sm.declared.count(instance) != 0;
}

/* The text of every <tag>...</tag> element in xml, in order. */
std::vector<std::string> elements(const std::string& xml, const std::string& tag) {
    std::vector<std::string> found;
    const std::string open = "<" + tag;
    const std::string close = "</" + tag + ">";
    for (size_t pos = xml.find(open); pos != std::string::npos; pos = xml.find(open, pos)) {
        const size_t end = xml.find('>', pos);
        const char next = end == std::string::npos ? 0 : xml[pos + open.size()];
        if (next != '>' && next != ' ' && next != '\n' && next != '\t') {
            pos += open.size();
            continue;  // another tag that begins with the same letters
        }
        const size_t last = xml.find(close, end);
        if (last == std::string::npos) return {};
        found.push_back(xml.substr(pos, last + close.size() - pos));
        pos = last + close.size();
    }
    return found;
}

/* The trimmed text inside an element's tags. */
std::string content(const std::string& element) {
    const size_t begin = element.find('>') + 1;
    const size_t end = element.rfind("</");
    std::string text = element.substr(begin, end - begin);
    const size_t first = text.find_first_not_of(" \t\n");
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(" \t\n") - first + 1);
}

/*
 * Instances ("<package>.<interface>/<instance>") of the AIDL HALs of a manifest: the <fqname>
 * entries of each <hal format="aidl">, and its <interface> entries with their <instance>s.
 * False when the text is not one <manifest>, or an AIDL HAL has no name or no instance.
 */
bool aidlInstances(std::string xml, std::vector<std::string>* instances) {
    for (size_t pos = xml.find("<!--"); pos != std::string::npos; pos = xml.find("<!--", pos)) {
        const size_t end = xml.find("-->", pos);
        if (end == std::string::npos) return false;
        xml.erase(pos, end + 3 - pos);
    }
    if (elements(xml, "manifest").size() != 1) return false;
    for (const std::string& hal : elements(xml, "hal")) {
        const std::string head = hal.substr(0, hal.find('>'));
        if (head.find("format=\"aidl\"") == std::string::npos) continue;
        const std::vector<std::string> names = elements(hal, "name");
        if (names.empty()) return false;
        const std::string package = content(names.front());
        size_t count = 0;
        for (const std::string& fqname : elements(hal, "fqname")) {
            instances->push_back(package + "." + content(fqname));
            count++;
        }
        for (const std::string& interface : elements(hal, "interface")) {
            const std::vector<std::string> interfaceNames = elements(interface, "name");
            if (interfaceNames.empty()) return false;
            for (const std::string& instance : elements(interface, "instance")) {
                instances->push_back(package + "." + content(interfaceNames.front()) + "/" +
                                     content(instance));
                count++;
            }
        }
        if (count == 0) return false;
    }
    return true;
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
        // As the device's service manager refuses a VINTF service that no manifest declares.
        if (sm.manifestRead && sm.manifestDeclared.count(instance) == 0) {
            return EX_ILLEGAL_ARGUMENT;
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
    return isDeclaredLocked(instance);
}

void AServiceManager_forEachDeclaredInstance(const char* interface, void* context,
                                             void (*callback)(const char*, void*)) {
    if (interface == nullptr || callback == nullptr) return;
    ServiceManager& sm = serviceManager();
    const std::string prefix = std::string(interface) + "/";
    std::vector<std::string> instances;
    {
        std::lock_guard<std::mutex> lock(sm.lock);
        for (const std::string& name : sm.manifestRead ? sm.manifestDeclared : sm.declared) {
            if (name.compare(0, prefix.size(), prefix) == 0 && name.size() > prefix.size()) {
                instances.push_back(name.substr(prefix.size()));
            }
        }
    }
    // Called without the lock: a callback may use the service manager.
    for (const std::string& instance : instances) callback(instance.c_str(), context);
}

namespace ndk::host {

void failNextAddService(binder_exception_t exception) {
    ServiceManager& sm = serviceManager();
    std::lock_guard<std::mutex> lock(sm.lock);
    sm.nextAddFailure = exception;
}

int addVintfManifest(const char* path) {
    if (path == nullptr) return -1;
    std::ifstream file(path);
    if (!file) return -1;
    std::stringstream text;
    text << file.rdbuf();
    std::vector<std::string> instances;
    if (!aidlInstances(text.str(), &instances) || instances.empty()) return -1;
    ServiceManager& sm = serviceManager();
    std::lock_guard<std::mutex> lock(sm.lock);
    sm.manifestRead = true;
    sm.manifestDeclared.insert(instances.begin(), instances.end());
    return static_cast<int>(instances.size());
}

void resetServiceManager() {
    ServiceManager& sm = serviceManager();
    std::vector<AIBinder*> released;
    {
        std::lock_guard<std::mutex> lock(sm.lock);
        for (const auto& entry : sm.services) released.push_back(entry.second);
        sm.services.clear();
        sm.declared.clear();
        sm.manifestDeclared.clear();
        sm.manifestRead = false;
        sm.nextAddFailure = EX_NONE;
    }
    for (AIBinder* binder : released) AIBinder_decStrong(binder);
}

}  // namespace ndk::host
