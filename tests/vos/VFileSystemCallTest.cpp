// CVFile between its calls of the system: paths that are replaced meanwhile, reads that a signal interrupts.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>

#include "tests/support/OpenFiles.h"
#include "tests/support/TemporaryDirectory.h"
#include "vi/vos/VFile.h"
#include "vi/vos/VString.h"

namespace {

std::function<void()> g_beforeOpen;
std::function<void()> g_afterOpen;
int g_interruptions = 0;

int openAfterAll(const char* path, int flags) {
    if (g_beforeOpen) std::exchange(g_beforeOpen, nullptr)();
    const int descriptor = static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, 0));
    if (g_afterOpen) std::exchange(g_afterOpen, nullptr)();
    return descriptor;
}

}  // namespace

// In place of the C library's, by the names that the linker knows them by.
extern "C" {
int openInstead(const char* path, int flags, ...) __asm__("open");
int open64Instead(const char* path, int flags, ...) __asm__("open64");
ssize_t readInstead(int descriptor, void* buffer, std::size_t size) __asm__("read");

int openInstead(const char* path, int flags, ...) {
    return openAfterAll(path, flags);
}

int open64Instead(const char* path, int flags, ...) {
    return openAfterAll(path, flags);
}

ssize_t readInstead(int descriptor, void* buffer, std::size_t size) {
    if (g_interruptions > 0) {
        --g_interruptions;
        errno = EINTR;
        return -1;
    }
    return syscall(SYS_read, descriptor, buffer, size);
}
}

namespace customstyle_test {
namespace {

using _orvik_vi::CVFile;

namespace fs = std::filesystem;

class VFileSystemCall : public testing::Test {
protected:
    ~VFileSystemCall() override {
        g_beforeOpen = nullptr;
        g_afterOpen = nullptr;
        g_interruptions = 0;
    }

    /// What opening answers when the path is replaced after the first check.
    int openedWhileReplaced(const std::function<void(const char* path)>& make) {
        g_beforeOpen = [this, make] {
            fs::remove(m_path);
            make(m_path.c_str());
        };
        const int before = openFiles();
        const int answer = m_file.Open(m_path.c_str(), 257);
        EXPECT_FALSE(g_beforeOpen) << "nothing was opened";
        EXPECT_EQ(openFiles(), before);
        return answer;
    }

    TemporaryDirectory m_directory;
    const std::string m_path = m_directory.write("style.json", "[1, 2]");
    CVFile m_file;
};

TEST_F(VFileSystemCall, OpeningRefusesADirectoryThatTookTheFilesName) {
    EXPECT_EQ(openedWhileReplaced([](const char* path) { fs::create_directory(path); }), 0);
}

TEST_F(VFileSystemCall, OpeningRefusesAPipeThatTookTheFilesName) {
    EXPECT_EQ(openedWhileReplaced([](const char* path) { mkfifo(path, 0600); }), 0);
}

TEST_F(VFileSystemCall, OpeningKeepsTheFileWhoseNameIsGivenToAnotherAfterwards) {
    g_afterOpen = [this] {
        fs::remove(m_path);
        m_directory.write("style.json", "something longer");
    };
    ASSERT_EQ(m_file.Open(m_path.c_str(), 257), 1);
    ASSERT_FALSE(g_afterOpen) << "nothing was opened";
    EXPECT_EQ(m_file.GetLength(), 6U);
    std::string text(6, '?');
    EXPECT_EQ(m_file.Read(text.data(), text.size()), 6U);
    EXPECT_EQ(text, "[1, 2]");
}

TEST_F(VFileSystemCall, ReadingGoesOnAfterSignals) {
    ASSERT_EQ(m_file.Open(m_path.c_str(), 257), 1);
    std::string text(6, '?');
    g_interruptions = 3;
    EXPECT_EQ(m_file.Read(text.data(), text.size()), 6U);
    EXPECT_EQ(text, "[1, 2]");
    EXPECT_EQ(g_interruptions, 0);
}

TEST_F(VFileSystemCall, ReadingEndsWithTheFileThoughAnOldErrorNamesASignal) {
    ASSERT_EQ(m_file.Open(m_path.c_str(), 257), 1);
    std::string text(7, '?');
    errno = EINTR;
    EXPECT_EQ(m_file.Read(text.data(), text.size()), 6U);
}

// A host that closes its standard input gets the number 0 for the next file.
TEST_F(VFileSystemCall, OpensReadsAndClosesAFileWithTheNumberOfTheStandardInput) {
    const int input = fcntl(0, F_DUPFD_CLOEXEC, 3);
    close(0);
    const int opened = m_file.Open(m_path.c_str(), 257);
    std::string text(6, '?');
    const std::size_t read = m_file.Read(text.data(), text.size());
    m_file.Close();
    const int left = fcntl(0, F_GETFD);
    if (input >= 0) {
        dup2(input, 0);
        close(input);
    }
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(read, 6U);
    EXPECT_EQ(left, -1) << "it is still open";
}

}  // namespace
}  // namespace customstyle_test
