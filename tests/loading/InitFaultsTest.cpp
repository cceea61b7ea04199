// Reading the two files while memory or the file itself fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <utility>

#include "tests/support/FaultyMemory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/OpenFiles.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestStore.h"
#include "vi/vos/VMem.h"

namespace customstyle_test {
namespace {

using testing::ElementsAre;

class InitWithFaults : public testing::Test {
protected:
    TemporaryDirectory m_directory;
    LogCapture m_log;
    CustomConfig m_config;
};

// ---- Memory ---------------------------------------------------------------------------------------------------------

TEST_F(InitWithFaults, WithoutMemoryForTheMappingFileItIsRefused) {
    m_directory.write("CustomIndex", testMapping());
    const std::string style = m_directory.write("style.json", "[]");
    const int filesBefore = openFiles();
    const MemoryAccounts accounts;
    const FaultyMemory memory(0);
    EXPECT_EQ(m_config.Init(m_directory.prefix().c_str(), style.c_str()), 0);
    EXPECT_THAT(m_log.take(), ElementsAre("ZRX Custom Map: CustomIndex file parse failed"));
    EXPECT_EQ(accounts.blocks(), 0);
    EXPECT_EQ(openFiles(), filesBefore);
}

TEST_F(InitWithFaults, WithoutMemoryForTheStyleFileItIsRefusedAndTheMappingStays) {
    m_directory.write("CustomIndex", testMapping());
    const std::string style = m_directory.write("style.json", "[]");
    const int filesBefore = openFiles();
    const MemoryAccounts accounts;
    const FaultyMemory memory(1 + kTestRecords);
    EXPECT_EQ(m_config.Init(m_directory.prefix().c_str(), style.c_str()), 0);
    EXPECT_THAT(m_log.take(), ElementsAre("ZRX Custom Map: custom config file parse failed"));
    EXPECT_EQ(m_config.m_typeStyleMaps[71].GetCount(), 2);
    EXPECT_EQ(accounts.blocks(), kTestRecords);
    EXPECT_EQ(openFiles(), filesBefore);
}

TEST_F(InitWithFaults, AnyOneAllocationMayFailAndNothingIsLost) {
    m_directory.write("CustomIndex", testMapping());
    const std::string style = m_directory.write("style.json", styleOf({rule("highway", "all").visibility("off"),
                                                                       rule("land", "fill").color("#11").level("9")}));
    const MemoryAccounts accounts;
    bool reached = true;
    for (std::size_t successes = 0; reached; ++successes) {
        const FaultyMemory memory(successes);
        CustomConfig().Init(m_directory.prefix().c_str(), style.c_str());
        reached = memory.hasFailed();
        EXPECT_EQ(m_log.take().size(), successes == 0 || successes == 1 + kTestRecords ? 1U : 0U) << successes;
        ASSERT_LT(successes, 200U);
    }
    EXPECT_EQ(accounts.blocks(), 0);
}

// ---- A file that shrinks while it is read ---------------------------------------------------------------------------

// The buffer is allocated between asking for the length and reading, so its allocation is the moment to cut the file.
struct Cut {
    const TemporaryDirectory* directory;
    std::string content;
};
std::optional<Cut> g_cut;

// Gives memory that is full of closing braces.
void* allocateAndCut(std::size_t size, const char*, int) {
    if (const auto cut = std::exchange(g_cut, std::nullopt)) cut->directory->write("CustomIndex", cut->content);
    void* block = std::malloc(size);
    std::memset(block, '}', size);
    return block;
}

void release(void* block) {
    std::free(block);
}

class ShrinkingMapping : public testing::Test {
protected:
    int loadCut(const std::string& content, std::size_t lengthAfterCut) {
        m_directory.write("CustomIndex", content);
        g_cut = Cut{&m_directory, content.substr(0, lengthAfterCut)};
        const std::string style = m_directory.write("style.json", "[]");
        _orvik_vi::CVMem::SetHostAllocator(allocateAndCut, release);
        const int result = CustomConfig().Init(m_directory.prefix().c_str(), style.c_str());
        _orvik_vi::CVMem::SetHostAllocator(nullptr, nullptr);
        return result;
    }

    TemporaryDirectory m_directory;
    LogCapture m_log;
    MemoryAccounts m_accounts;
};

TEST_F(ShrinkingMapping, LoadsWhenItsTextIsStillWhole) {
    EXPECT_EQ(loadCut(testMapping() + "     ", testMapping().size()), 1);
}

TEST_F(ShrinkingMapping, EndsWhereTheFileEndsAndNotInWhatTheMemoryHeld) {
    EXPECT_EQ(loadCut("{}", 1), 0);
    EXPECT_THAT(m_log.take(), ElementsAre("ZRX Custom Map: CustomIndex file parse failed, format error"));
    EXPECT_EQ(m_accounts.blocks(), 1);
    EXPECT_EQ(m_accounts.bytes(), 2);
}

TEST_F(ShrinkingMapping, WithNothingLeftIsNoJson) {
    EXPECT_EQ(loadCut(testMapping(), 0), 0);
    EXPECT_THAT(m_log.take(), ElementsAre("ZRX Custom Map: CustomIndex file parse failed, format error"));
}

}  // namespace
}  // namespace customstyle_test
