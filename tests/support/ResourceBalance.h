/*
 * Counts of what a test must give back: descriptors, imported buffers, vendor allocations and
 * the backend's metadata objects.
 */
#pragma once

#include <gtest/gtest.h>
#include <stddef.h>

#include <string>

namespace offlinecamera::test {

struct ResourceCounts {
    size_t openFds = 0;
    size_t liveImports = 0;
    size_t vornAllocations = 0;
    size_t kivMetadata = 0;
    size_t androidMetadata = 0;
    size_t metadataOps = 0;

    static ResourceCounts Take();
    bool operator==(const ResourceCounts& other) const;
    std::string ToString() const;
};

size_t CountOpenFds();

/*
 * Base fixture: captures the log and checks on tear-down that the counts are back where they
 * were. A test that keeps resources on purpose calls KeepResources().
 */
class BalancedTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;
    void KeepResources() { mKeepResources = true; }

  private:
    ResourceCounts mStart;
    bool mKeepResources = false;
};

}  // namespace offlinecamera::test
