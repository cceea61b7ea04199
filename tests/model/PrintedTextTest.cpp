// The texts that the walk over the base styles formats, seen where the C library puts them together.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdarg>
#include <string>
#include <vector>

#include "tests/model/BaseRecords.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace {

bool g_isWatched = false;
std::vector<std::string> g_texts;

using Formatter = int (*)(char* text, std::size_t size, const char* format, std::va_list arguments);

int formatAndNote(char* text, std::size_t size, const char* format, std::va_list arguments) {
    static const auto formatter = reinterpret_cast<Formatter>(dlsym(RTLD_NEXT, "vsnprintf"));
    const int length = formatter(text, size, format, arguments);
    if (g_isWatched && size > 0) g_texts.emplace_back(text);
    return length;
}

}  // namespace

// In place of the C library's, by the names that the linker knows them by; the second is for hardened builds.
extern "C" {
int formatInstead(char* text, std::size_t size, const char* format, std::va_list arguments) __asm__("vsnprintf");
int formatCheckedInstead(char* text, std::size_t size, int flag, std::size_t room, const char* format,
                         std::va_list arguments) __asm__("__vsnprintf_chk");

int formatInstead(char* text, std::size_t size, const char* format, std::va_list arguments) {
    return formatAndNote(text, size, format, arguments);
}

int formatCheckedInstead(char* text, std::size_t size, int, std::size_t, const char* format, std::va_list arguments) {
    return formatAndNote(text, size, format, arguments);
}
}

namespace customstyle_test {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::tagCustomStyle;

std::vector<std::string> printedTexts(const CustomConfig& config) {
    g_texts.clear();
    g_isWatched = true;
    config.PrintAllFeartureType();
    g_isWatched = false;
    return g_texts;
}

TEST(PrintedText, NamesEachTypeAndThenItsRecordsFromTheOldest) {
    CustomConfig config;
    tagCustomStyle& first = addBaseRecord(config, 13, 9);
    first.m_fillColor = 0xff112233;
    first.m_borderColor = 4;
    first.m_custom = 5;
    addBaseRecord(config, 13, -2).m_fillColor = 0x1122334455667788;
    config.m_typeStyleMaps[14][recordKey(77)] = nullptr;

    std::vector<std::string> expected;
    for (int type = 0; type <= 71; ++type) {
        expected.push_back("featureType " + std::to_string(type));
        if (type != 13) continue;
        expected.emplace_back("key: 9,  m_ID 9, m_fillColor 4279312947, m_borderColor 4, m_custom 5");
        expected.emplace_back("key: -2,  m_ID -2, m_fillColor 1234605616436508552, m_borderColor 0, m_custom 0");
    }
    EXPECT_EQ(printedTexts(config), expected);
}

// The two differ only where somebody filed a record under another id than its own.
TEST(PrintedText, TellsTheKeyBesideTheRecordsId) {
    CustomConfig config;
    addBaseRecord(config, 0, 9).m_ID = 8;
    EXPECT_THAT(printedTexts(config), testing::Contains("key: 9,  m_ID 8, m_fillColor 0, m_borderColor 0, m_custom 0"));
}

TEST(PrintedText, IsWrittenNowhere) {
    const auto config = loadedWith({rule("highway", "geometry.fill").color("#112233")});
    const LogCapture log;  // objects to any line
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    config->PrintAllFeartureType();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace customstyle_test
