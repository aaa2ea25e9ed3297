/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Declared instances: the host service manager reads VINTF manifests as the device's does, and
 * the tree's manifest fragment declares the instance that the library publishes.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <android/binder_manager.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>
#include <stdio.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "ChildScenario.h"
#include "OfflineCameraAIDLService.h"

namespace offlinecamera::test {
namespace {

using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;

std::vector<std::string> Declared(const char* interface) {
    std::vector<std::string> instances;
    AServiceManager_forEachDeclaredInstance(interface, &instances, [](const char* i, void* c) {
        static_cast<std::vector<std::string>*>(c)->push_back(i);
    });
    return instances;
}

std::string WriteManifest(const std::string& text) {
    char path[] = "/tmp/vintf-manifest-XXXXXX";
    const int fd = mkstemp(path);
    EXPECT_EQ(static_cast<ssize_t>(text.size()), write(fd, text.data(), text.size()));
    close(fd);
    return path;
}

TEST(VintfManifestTest, DeclaresTheAidlInstancesOfAManifest) {
    const std::string hal = "<hal format=\"aidl\"><name>a.b</name>";
    const struct {
        const char* what;
        std::string text;
        int declared;                        // what addVintfManifest returns
        std::vector<std::string> instances;  // of a.b.IFoo, in order
    } cases[] = {
            {"fqnames",
             "<manifest version=\"1.0\" type=\"device\">" + hal +
                     "<version>2</version><fqname>IFoo/default</fqname>"
                     "<fqname> IFoo/extra </fqname></hal></manifest>",
             2,
             {"default", "extra"}},
            {"interfaces with instances",
             "<manifest>" + hal +
                     "<interface><name>IFoo</name><instance>default</instance>"
                     "<instance>x</instance></interface></hal>"
                     "<hal format=\"hidl\"><name>c.d</name><fqname>@1.0::IBar/default</fqname>"
                     "</hal><!-- <hal format=\"aidl\"><name>a.b</name>"
                     "<fqname>IFoo/commented</fqname></hal> --></manifest>",
             2,
             {"default", "x"}},
            {"a compatibility matrix",
             "<compatibility-matrix>" + hal +
                     "<interface><name>IFoo</name><instance>default</instance></interface>"
                     "</hal></compatibility-matrix>",
             -1,
             {}},
            {"an AIDL HAL without a name",
             "<manifest><hal format=\"aidl\"><fqname>IFoo/default</fqname></hal></manifest>",
             -1,
             {}},
            {"an AIDL HAL without an instance", "<manifest>" + hal + "</hal></manifest>", -1, {}},
            {"no AIDL HAL",
             "<manifest><hal format=\"hidl\"><name>c.d</name></hal></manifest>",
             -1,
             {}},
            {"an unclosed element", "<manifest>" + hal + "<fqname>IFoo/default</manifest>", -1, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ::ndk::host::resetServiceManager();
        const std::string path = WriteManifest(c.text);
        EXPECT_EQ(c.declared, ::ndk::host::addVintfManifest(path.c_str()));
        unlink(path.c_str());
        EXPECT_EQ(c.instances, Declared("a.b.IFoo"));
        for (const std::string& instance : c.instances) {
            EXPECT_TRUE(AServiceManager_isDeclared(("a.b.IFoo/" + instance).c_str()));
        }
        EXPECT_FALSE(AServiceManager_isDeclared("a.b.IFoo/commented"));
        EXPECT_TRUE(Declared("a.b.IFo").empty());
    }
    EXPECT_EQ(-1, ::ndk::host::addVintfManifest("/nonexistent/manifest.xml"));
    ::ndk::host::resetServiceManager();
}

TEST(VintfManifestTest, TheTreesManifestDeclaresWhatTheLibraryPublishes) {
    EXPECT_IN_CHILD([](ChildScenario& s) {
        ASSERT_EQ(1, ::ndk::host::addVintfManifest(TEST_VINTF_MANIFEST));
        EXPECT_EQ(std::vector<std::string>{"default"}, Declared(IOfflineCameraService::descriptor));
        RegisterOfflineCameraAIDLService();
        s.Settle();
        const std::string instance = std::string(IOfflineCameraService::descriptor) + "/default";
        ::ndk::SpAIBinder published(AServiceManager_checkService(instance.c_str()));
        ASSERT_NE(nullptr, published.get());
        // Once a manifest is read, a service that it does not declare is refused.
        EXPECT_EQ(EX_ILLEGAL_ARGUMENT, AServiceManager_addService(published.get(), "a.b.IFoo/x"));
        EXPECT_EQ(nullptr, AServiceManager_checkService("a.b.IFoo/x"));
    });
}

}  // namespace
}  // namespace offlinecamera::test
