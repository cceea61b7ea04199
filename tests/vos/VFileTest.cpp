// CVFile: what opens, and what reading gives.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>

#include "tests/support/OpenFiles.h"
#include "tests/support/TemporaryDirectory.h"
#include "vi/vos/VFile.h"
#include "vi/vos/VString.h"

namespace customstyle_test {
namespace {

using _orvik_vi::CVFile;

namespace fs = std::filesystem;

std::string readFrom(CVFile& file, std::size_t size) {
    std::string buffer(size, '?');
    buffer.resize(file.Read(buffer.data(), size));
    return buffer;
}

class VFile : public testing::Test {
protected:
    TemporaryDirectory m_directory;
    CVFile m_file;
};

TEST_F(VFile, ReadsARegularFile) {
    const std::string path = m_directory.write("style.json", "[1, 2]");
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    EXPECT_EQ(m_file.GetLength(), 6u);
    EXPECT_EQ(readFrom(m_file, 6), "[1, 2]");
}

TEST_F(VFile, ReadsAFileOfOneByte) {
    EXPECT_EQ(m_file.Open(m_directory.write("text", "x").c_str(), 257), 1);
    EXPECT_EQ(readFrom(m_file, 5), "x");
}

TEST_F(VFile, OpensAnEmptyFile) {
    const std::string path = m_directory.write("empty", "");
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    EXPECT_EQ(m_file.GetLength(), 0u);
    EXPECT_EQ(readFrom(m_file, 10), "");
}

TEST_F(VFile, HandsOutBytesUnchanged) {
    const std::string bytes("\0\r\n\xFF\x1A\0", 6);
    const std::string path = m_directory.write("bytes", bytes);
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    EXPECT_EQ(readFrom(m_file, 6), bytes);
}

TEST_F(VFile, KnowsTheLengthOfAFileBeyond4GigabytesAsFarAsMemoryGoes) {
    constexpr std::uintmax_t kLength = 5'000'000'000;
    const std::string path = m_directory.write("huge", "[1, 2]");
    fs::resize_file(path, kLength);
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    EXPECT_EQ(m_file.GetLength(), std::min<std::uintmax_t>(kLength, std::numeric_limits<std::size_t>::max()));
    EXPECT_EQ(readFrom(m_file, 6), "[1, 2]");
}

TEST_F(VFile, ReadsAFileOfSeveralMegabytesInOneCall) {
    const std::string content(3'000'000, 'x');
    const std::string path = m_directory.write("large", content);
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    EXPECT_EQ(m_file.GetLength(), 3'000'000u);
    EXPECT_TRUE(readFrom(m_file, 3'000'000) == content);
}

TEST_F(VFile, EachReadGoesOnWhereTheLastOneEnded) {
    const std::string path = m_directory.write("text", "abcdef");
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    EXPECT_EQ(readFrom(m_file, 2), "ab");
    EXPECT_EQ(readFrom(m_file, 0), "");
    EXPECT_EQ(readFrom(m_file, 3), "cde");
}

TEST_F(VFile, AReadEndsAtTheEndOfTheFile) {
    const std::string path = m_directory.write("text", "abc");
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    EXPECT_EQ(readFrom(m_file, 100), "abc");
    EXPECT_EQ(readFrom(m_file, 100), "");
}

TEST_F(VFile, TheLengthIsThatOfTheMomentOfOpening) {
    const std::string path = m_directory.write("text", "abcdef");
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    m_directory.write("text", "abc");
    EXPECT_EQ(m_file.GetLength(), 6u);
    EXPECT_EQ(readFrom(m_file, 6), "abc");
}

TEST_F(VFile, AReadErrorGivesNoBytes) {
    // Nothing is mapped at address 0, so reading the memory there fails.
    EXPECT_EQ(m_file.Open("/proc/self/mem", 257), 1);
    EXPECT_EQ(readFrom(m_file, 16), "");
}

TEST_F(VFile, PathsAreUtf8) {
    const std::string path = m_directory.write("carte-\xC3\xA9t\xC3\xA9-\xF0\x9F\x98\x80.json", "{}");
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    EXPECT_EQ(readFrom(m_file, 2), "{}");
}

TEST_F(VFile, ReadingModeIs257) {
    EXPECT_EQ(+CVFile::kReadExisting, 257u);
}

// ---- Closing --------------------------------------------------------------------------------------------------------

TEST_F(VFile, IsClosedAtFirst) {
    char untouched = '?';
    EXPECT_EQ(m_file.GetLength(), 0u);
    EXPECT_EQ(m_file.Read(&untouched, 1), 0u);
    EXPECT_EQ(untouched, '?');
}

TEST_F(VFile, ClosingEndsReading) {
    const std::string path = m_directory.write("text", "abc");
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    m_file.Close();
    EXPECT_EQ(m_file.GetLength(), 0u);
    EXPECT_EQ(readFrom(m_file, 3), "");
}

TEST_F(VFile, ClosingWithoutAnOpenFileDoesNothing) {
    const int before = openFiles();
    m_file.Close();
    m_file.Close();
    EXPECT_EQ(openFiles(), before);
}

// The system gives the descriptor to the next file that is opened.
TEST_F(VFile, ClosingAgainLeavesOtherFilesOpen) {
    const std::string path = m_directory.write("text", "abc");
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    m_file.Close();
    CVFile other;
    EXPECT_EQ(other.Open(path.c_str(), 257), 1);
    m_file.Close();
    EXPECT_EQ(readFrom(other, 3), "abc");
}

TEST_F(VFile, OpeningAgainStartsWithTheNewFile) {
    const std::string first = m_directory.write("first", "first");
    const std::string second = m_directory.write("second", "the second");
    EXPECT_EQ(m_file.Open(first.c_str(), 257), 1);
    EXPECT_EQ(m_file.Open(second.c_str(), 257), 1);
    EXPECT_EQ(m_file.GetLength(), 10u);
    EXPECT_EQ(readFrom(m_file, 10), "the second");
}

TEST_F(VFile, OpeningAgainInVainLeavesNothingOpen) {
    const std::string path = m_directory.write("text", "abc");
    EXPECT_EQ(m_file.Open(path.c_str(), 257), 1);
    EXPECT_EQ(m_file.Open((m_directory.prefix() + "missing").c_str(), 257), 0);
    EXPECT_EQ(m_file.GetLength(), 0u);
    EXPECT_EQ(readFrom(m_file, 3), "");
}

TEST_F(VFile, GivesItsDescriptorBackOnOpeningAgainAndInTheEnd) {
    const std::string path = m_directory.write("text", "abc");
    const int before = openFiles();
    {
        CVFile file;
        EXPECT_EQ(file.Open(path.c_str(), 257), 1);
        EXPECT_EQ(file.Open(path.c_str(), 257), 1);
        EXPECT_EQ(openFiles(), before + 1);
    }
    EXPECT_EQ(openFiles(), before);
}

}  // namespace
}  // namespace customstyle_test
