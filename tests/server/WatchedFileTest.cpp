#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "tests/support/CaseName.h"
#include "tests/support/TemporaryDirectory.h"
#include "tools/server/WatchedFile.h"

namespace {

using customstyle_test::caseName;
using customstyle_tool::FileState;
using customstyle_tool::kLargestWatched;
using customstyle_tool::readState;
using customstyle_tool::versionOf;
using customstyle_tool::WatchedFile;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Optional;

class WatchedFileTest : public testing::Test {
protected:
    WatchedFileTest() { write("old"); }

    void write(const std::string& text) const { std::ofstream(m_path, std::ios::binary) << text; }

    customstyle_test::TemporaryDirectory m_directory;
    const std::string m_path = (m_directory.path() / "night.json").string();
};

TEST_F(WatchedFileTest, HasNoNewsOfAFileThatNobodyWrites) {
    WatchedFile file(m_path);
    for (int i = 0; i < 5; ++i) EXPECT_FALSE(file.poll());
    EXPECT_THAT(file.state().text, Optional(std::string("old")));
}

TEST_F(WatchedFileTest, TakesAChangeAtTheSecondLook) {
    WatchedFile file(m_path);
    write("newer");
    EXPECT_FALSE(file.poll());
    EXPECT_TRUE(file.poll());
    EXPECT_THAT(file.state().text, Optional(std::string("newer")));
    EXPECT_FALSE(file.poll());
}

TEST_F(WatchedFileTest, WaitsWhileAFileIsWrittenOn) {
    WatchedFile file(m_path);
    for (const char* text : {"a", "ab", "abc", "abcd"}) {
        write(text);
        EXPECT_FALSE(file.poll());
    }
    EXPECT_TRUE(file.poll());
    EXPECT_THAT(file.state().text, Optional(std::string("abcd")));
}

TEST_F(WatchedFileTest, SeesWhatHappensWithinTheSameTick) {
    WatchedFile file(m_path);
    for (int i = 0; i < 200; ++i) {
        const std::string text = i % 2 == 0 ? "one" : "two";
        write(text);
        for (int look = 0; look < 3; ++look) file.poll();
        ASSERT_THAT(file.state().text, Optional(text));
    }
}

TEST_F(WatchedFileTest, SeesAFileThatTakesThePlaceAndHasItsTimeAndLength) {
    WatchedFile file(m_path);
    const std::string other = m_path + ".other";
    std::ofstream(other) << "new";
    std::filesystem::last_write_time(other, std::filesystem::last_write_time(m_path));
    std::filesystem::rename(other, m_path);
    file.poll();
    EXPECT_TRUE(file.poll());
    EXPECT_THAT(file.state().text, Optional(std::string("new")));
}

// Who has read "between" must be notified that it is gone.
TEST_F(WatchedFileTest, TellsOfTheSameContentAfterAnother) {
    WatchedFile file(m_path);
    write("between");
    write("old");
    file.poll();
    EXPECT_TRUE(file.poll());
    EXPECT_THAT(file.state().text, Optional(std::string("old")));
    EXPECT_FALSE(file.poll());
}

TEST_F(WatchedFileTest, SeesAFileGoAndComeBack) {
    WatchedFile file(m_path);
    std::filesystem::remove(m_path);
    file.poll();
    EXPECT_TRUE(file.poll());
    EXPECT_FALSE(file.state().isThere);
    write("old");
    file.poll();
    EXPECT_TRUE(file.poll());
    EXPECT_THAT(file.state().text, Optional(std::string("old")));
}

// The file gets the process's descriptor 0 then.
TEST_F(WatchedFileTest, IsReadWithoutAStandardInput) {
    const int input = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    errno = ENOENT;
    const FileState state = readState(m_path);
    dup2(input, STDIN_FILENO);
    close(input);
    EXPECT_THAT(state.text, Optional(std::string("old")));
}

TEST_F(WatchedFileTest, HasTheVersionOfItsContent) {
    EXPECT_EQ(readState(m_path).version, versionOf("old"));
    EXPECT_NE(versionOf("old"), versionOf("new"));
    EXPECT_NE(versionOf(""), readState(m_path + ".none").version);
}

struct NoText {
    const char* name;
    const char* problem;
    void (*prepare)(const std::string& path);
};

class FileWithoutText : public WatchedFileTest, public testing::WithParamInterface<NoText> {};

TEST_P(FileWithoutText, SaysWhy) {
    std::filesystem::remove(m_path);
    GetParam().prepare(m_path);
    const FileState state = readState(m_path);
    EXPECT_EQ(state.text, std::nullopt);
    EXPECT_THAT(state.problem, HasSubstr("night.json: "));
    EXPECT_THAT(state.problem, EndsWith(GetParam().problem));
}

INSTANTIATE_TEST_SUITE_P(
    WatchedFiles, FileWithoutText,
    testing::Values(NoText{"Missing", "no such file", [](const std::string&) {}},
                    NoText{"Directory", "is not a regular file",
                           [](const std::string& path) { std::filesystem::create_directory(path); }},
                    NoText{"LinkToItself", "Too many levels of symbolic links",
                           [](const std::string& path) { std::filesystem::create_symlink(path, path); }},
                    NoText{"Malformed", "is not UTF-8 (3 bytes)",
                           [](const std::string& path) { std::ofstream(path) << "[\xff]"; }},
                    NoText{"Large", "is larger than 16 MB",
                           [](const std::string& path) {
                               std::ofstream(path) << "x";
                               std::filesystem::resize_file(path, kLargestWatched + 1);
                           }}),
    caseName);

}  // namespace
