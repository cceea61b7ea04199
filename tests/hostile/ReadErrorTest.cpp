// Files that break off while they are read, or are not as long as they said.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <limits>

#include "tests/hostile/FaultyFile.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"
#include "vi/vos/VMem.h"

namespace customstyle_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kMappingNotJson[] = "CustomIndex file parse failed, format error";
constexpr char kStyleNotJson[] = "custom config file parse failed, format error";

FaultyFile whole(const std::string& content) {
    return {content, content.size(), content.size()};
}

// Memory that looks as if it was in use before.
void* allocateUsed(std::size_t size, const char*, int) {
    void* block = std::malloc(size);
    if (block != nullptr) std::memset(block, '1', size);
    return block;
}

class ReadError : public testing::Test {
protected:
    ReadError() {
        _orvik_vi::CVMem::SetHostAllocator(allocateUsed, std::free);
        provideFile("map/CustomIndex", whole(testMapping()));
        provideFile("style.json", whole(m_style));
    }
    ~ReadError() override { _orvik_vi::CVMem::SetHostAllocator(nullptr, nullptr); }

    /// Answers as Init does. Text that is not JSON stays allocated, and no file stays open.
    int load() {
        const MemoryAccounts accounts;
        int result = 0;
        {
            CustomConfig config;
            result = config.Init("map/", "style.json");
            EXPECT_EQ(openFaultyFiles(), 0);
        }
        m_lines = m_log.take();
        EXPECT_EQ(accounts.blocks(), !m_lines.empty() && m_lines[0].ends_with("format error") ? 1 : 0);
        return result;
    }

    const std::string m_style = styleOf({rule("highway", "fill").color("#112233").level("15")});
    LogCapture m_log;
    std::vector<std::string> m_lines;
};

TEST_F(ReadError, AtAnyByteOfTheMappingIsNoJson) {
    const std::string mapping = testMapping();
    for (std::size_t readable = 0; readable < mapping.size(); ++readable) {
        provideFile("map/CustomIndex", {mapping, mapping.size(), readable});
        EXPECT_EQ(load(), 0) << readable;
        EXPECT_THAT(m_lines, ElementsAre(logLine(kMappingNotJson)));
    }
}

TEST_F(ReadError, AtAnyByteOfTheStyleIsNoJson) {
    for (std::size_t readable = 0; readable < m_style.size(); ++readable) {
        provideFile("style.json", {m_style, m_style.size(), readable});
        EXPECT_EQ(load(), 0) << readable;
        EXPECT_THAT(m_lines, ElementsAre(logLine(kStyleNotJson)));
    }
}

TEST_F(ReadError, BehindTheTextDoesNotMatter) {
    provideFile("style.json", {m_style + "     ", m_style.size() + 5, m_style.size()});
    EXPECT_EQ(load(), 1);
    EXPECT_THAT(m_lines, IsEmpty());
}

TEST_F(ReadError, AFileThatGrewIsReadAsLongAsItWas) {
    provideFile("style.json", {m_style + ", and more", m_style.size(), m_style.size() + 10});
    EXPECT_EQ(load(), 1);
    EXPECT_THAT(m_lines, IsEmpty());
}

TEST_F(ReadError, AFileThatGrewInTheMiddleOfItsTextIsNoJson) {
    provideFile("style.json", {m_style, m_style.size() - 1, m_style.size()});
    EXPECT_EQ(load(), 0);
    EXPECT_THAT(m_lines, ElementsAre(logLine(kStyleNotJson)));
}

TEST_F(ReadError, AFileThatShrankEndsInZeros) {
    provideFile("map/CustomIndex", {testMapping(), testMapping().size() + 1000, testMapping().size()});
    EXPECT_EQ(load(), 1);
    EXPECT_THAT(m_lines, IsEmpty());
}

// ---- Lengths beyond any memory --------------------------------------------------------------------------------------

void* refuseLarge(std::size_t size, const char*, int) {
    return size > 1U << 30 ? nullptr : std::malloc(size);
}

class UnheldLength : public ReadError, public testing::WithParamInterface<std::size_t> {
protected:
    UnheldLength() { _orvik_vi::CVMem::SetHostAllocator(refuseLarge, std::free); }
};

TEST_P(UnheldLength, OfTheMappingIsRefused) {
    provideFile("map/CustomIndex", {"{}", GetParam(), 2});
    EXPECT_EQ(load(), 0);
    EXPECT_THAT(m_lines, ElementsAre(logLine("CustomIndex file parse failed")));
}

TEST_P(UnheldLength, OfTheStyleIsRefused) {
    provideFile("style.json", {"[]", GetParam(), 2});
    EXPECT_EQ(load(), 0);
    EXPECT_THAT(m_lines, ElementsAre(logLine("custom config file parse failed")));
}

INSTANTIATE_TEST_SUITE_P(Lengths, UnheldLength,
                         testing::Values((std::size_t{1} << 30) + 1, std::numeric_limits<std::size_t>::max() / 2,
                                         std::numeric_limits<std::size_t>::max() - 1,
                                         std::numeric_limits<std::size_t>::max()));

}  // namespace
}  // namespace customstyle_test
