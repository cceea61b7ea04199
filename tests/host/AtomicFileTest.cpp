#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/host/SystemCalls.h"
#include "tests/support/CaseName.h"
#include "tests/support/OpenFiles.h"
#include "tests/support/TemporaryDirectory.h"
#include "tools/host/AtomicFile.h"

namespace {

namespace fs = std::filesystem;
using customstyle_test::caseName;
using customstyle_test::openFiles;
using customstyle_test::systemCalls;
using customstyle_test::TemporaryDirectory;
using customstyle_tool::writeWhole;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Optional;

std::string contentOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::ptrdiff_t filesIn(const fs::path& directory) {
    return std::distance(fs::directory_iterator(directory), fs::directory_iterator());
}

TEST(WriteWhole, MakesANewFile) {
    const TemporaryDirectory directory;
    const fs::path path = directory.path() / "new.json";
    EXPECT_EQ(writeWhole(path.string(), "[]\n"), std::nullopt);
    EXPECT_EQ(contentOf(path), "[]\n");
}

TEST(WriteWhole, GivesANewFileThePermissionsThatTheUserWants) {
    const TemporaryDirectory directory;
    const fs::path path = directory.path() / "new.json";
    const mode_t before = umask(027);
    EXPECT_EQ(writeWhole(path.string(), "[]"), std::nullopt);
    umask(before);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST(WriteWhole, KeepsThePermissionsOfAFile) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("old.json", "old");
    fs::permissions(path, fs::perms(0604));
    EXPECT_EQ(writeWhole(path, "new"), std::nullopt);
    EXPECT_EQ(contentOf(path), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0604));
}

TEST(WriteWhole, KeepsTheOldFileWhenTheNewOneIsNoLongerWanted) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("old.json", "old");
    EXPECT_THAT(writeWhole(path, "new", [] { return false; }), Optional(HasSubstr("it was changed meanwhile")));
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(filesIn(directory.path()), 1);
    EXPECT_EQ(writeWhole(path, "new", [] { return true; }), std::nullopt);
    EXPECT_EQ(contentOf(path), "new");
}

TEST(WriteWhole, LeavesNothingElseBehind) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("old.json", "old");
    EXPECT_EQ(writeWhole(path, std::string(1 << 20, 'x')), std::nullopt);
    EXPECT_EQ(filesIn(directory.path()), 1);
}

TEST(WriteWhole, ReplacesTheFileBehindALink) {
    const TemporaryDirectory directory;
    fs::create_directory(directory.path() / "inner");
    const std::string target = directory.write("inner/target.json", "old");
    fs::create_symlink("inner/target.json", directory.path() / "second");
    fs::create_symlink("second", directory.path() / "link");
    EXPECT_EQ(writeWhole((directory.path() / "link").string(), "new"), std::nullopt);
    EXPECT_EQ(contentOf(target), "new");
    EXPECT_TRUE(fs::is_symlink(directory.path() / "link"));
    EXPECT_TRUE(fs::is_symlink(directory.path() / "second"));
}

TEST(WriteWhole, MakesTheFileThatALinkPointsTo) {
    const TemporaryDirectory directory;
    fs::create_symlink("target.json", directory.path() / "link");
    EXPECT_EQ(writeWhole((directory.path() / "link").string(), "new"), std::nullopt);
    EXPECT_EQ(contentOf(directory.path() / "target.json"), "new");
    EXPECT_TRUE(fs::is_symlink(directory.path() / "link"));
}

TEST(WriteWhole, WritesIntoTheWorkingDirectory) {
    const TemporaryDirectory directory;
    const fs::path before = fs::current_path();
    fs::current_path(directory.path());
    EXPECT_EQ(writeWhole("new.json", "[]"), std::nullopt);
    fs::current_path(before);
    EXPECT_EQ(contentOf(directory.path() / "new.json"), "[]");
}

TEST(WriteWhole, RefusesADirectory) {
    const TemporaryDirectory directory;
    EXPECT_THAT(writeWhole(directory.path().string(), "x"), Optional(HasSubstr("it is a directory")));
}

TEST(WriteWhole, RefusesADevice) {
    EXPECT_THAT(writeWhole("/dev/null", "x"), Optional(HasSubstr("it is not a regular file")));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(WriteWhole, SaysWhyADirectoryIsMissing) {
    const TemporaryDirectory directory;
    EXPECT_THAT(writeWhole((directory.path() / "missing" / "new.json").string(), "x"),
                Optional(HasSubstr("missing/new.json: cannot be written: No such file or directory")));
}

TEST(WriteWhole, GivesUpOnLinksInACircle) {
    const TemporaryDirectory directory;
    fs::create_symlink("second", directory.path() / "first");
    fs::create_symlink("first", directory.path() / "second");
    EXPECT_THAT(writeWhole((directory.path() / "first").string(), "x"),
                Optional(HasSubstr("cannot be written: Too many levels of symbolic links")));
    EXPECT_EQ(filesIn(directory.path()), 2);
}

// What a program with the same id left when it was killed.
TEST(WriteWhole, TakesAnotherNameWhereADraftIsLeft) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("old.json", "old");
    for (int i = 0; i < 3; ++i)
        directory.write(".old.json." + std::to_string(getpid()) + "-" + std::to_string(i), "left");
    EXPECT_EQ(writeWhole(path, "new"), std::nullopt);
    EXPECT_EQ(contentOf(path), "new");
    EXPECT_EQ(filesIn(directory.path()), 4);
}

// A file size limit makes the disk look full.
class SmallDisk {
public:
    SmallDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{1000, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, SIG_DFL);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit m_before{};
};

TEST(WriteWhole, KeepsTheOldFileWhenTheNewOneDoesNotFit) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("old.json", "old");
    std::optional<std::string> problem;
    {
        const SmallDisk small;
        problem = writeWhole(path, std::string(5000, 'x'));
    }
    EXPECT_THAT(problem, Optional(HasSubstr("cannot be written: File too large")));
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(filesIn(directory.path()), 1);
}

// The draft is the process's descriptor 0 then.
TEST(WriteWhole, WorksWithoutAStandardInput) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("old.json", "old");
    const int input = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    const bool isKept = writeWhole(path, "new", [] { return false; }).has_value() && contentOf(path) == "old";
    const std::ptrdiff_t left = filesIn(directory.path());
    const bool isClosed = fcntl(STDIN_FILENO, F_GETFD) == -1;
    const std::optional<std::string> problem = writeWhole(path, "new");
    dup2(input, STDIN_FILENO);
    close(input);
    EXPECT_TRUE(isKept);
    EXPECT_TRUE(isClosed);
    EXPECT_EQ(left, 1);
    EXPECT_EQ(problem, std::nullopt);
    EXPECT_EQ(contentOf(path), "new");
    EXPECT_EQ(filesIn(directory.path()), 1);
}

TEST(WriteWhole, IsSafeAfterALossOfPower) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("old.json", "old");
    systemCalls = {};
    EXPECT_EQ(writeWhole(path, "new"), std::nullopt);
    EXPECT_THAT(systemCalls.made, ElementsAre("fsync file", "rename", "fsync directory"));
}

struct FailingCall {
    const char* name;
    const char* call;
    int error;
    const char* problem;
};

class WriteWholeWhenACallFails : public testing::TestWithParam<FailingCall> {};

TEST_P(WriteWholeWhenACallFails, LeavesTheOldFileOrTheNewOneAndNothingElse) {
    const FailingCall& failing = GetParam();
    const TemporaryDirectory directory;
    const std::string path = directory.write("old.json", "old");
    const int open = openFiles();
    systemCalls = {failing.call, failing.error};
    const std::optional<std::string> problem = writeWhole(path, "new");
    EXPECT_EQ(systemCalls.failing, "");
    EXPECT_EQ(problem.value_or("none"), failing.problem[0] == ':' ? path + failing.problem : failing.problem);
    EXPECT_EQ(contentOf(path), problem ? "old" : "new");
    EXPECT_EQ(filesIn(directory.path()), 1);
    EXPECT_EQ(openFiles(), open);
}

INSTANTIATE_TEST_SUITE_P(
    Host, WriteWholeWhenACallFails,
    testing::Values(FailingCall{"NotTheOwner", "fchown", EPERM, "none"},
                    FailingCall{"OwnerBeyondTheDisksQuota", "fchown", EDQUOT,
                                ": cannot be written: Disk quota exceeded"},
                    FailingCall{"InterruptedWrite", "write", EINTR, "none"},
                    FailingCall{"FullDisk", "write", ENOSPC, ": cannot be written: No space left on device"},
                    FailingCall{"BrokenDisk", "fsync", EIO, ": cannot be written: Input/output error"},
                    FailingCall{"FolderWithoutWriting", "rename", EACCES, ": cannot be written: Permission denied"}),
    caseName);

}  // namespace
