// CVFile: what does not open.
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <string>

#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryDirectory.h"
#include "vi/vos/VFile.h"
#include "vi/vos/VString.h"

namespace customstyle_test {
namespace {

using _orvik_vi::CVFile;

namespace fs = std::filesystem;

class VFileRefusal : public testing::Test {
protected:
    std::string path(const std::string& name) const { return m_directory.prefix() + name; }

    static int opened(const std::string& path, unsigned mode = 257) {
        CVFile file;
        const int answer = file.Open(path.c_str(), mode);
        EXPECT_EQ(file.GetLength(), 0u);
        return answer;
    }

    TemporaryDirectory m_directory;
};

TEST_F(VFileRefusal, OfAMissingFile) {
    EXPECT_EQ(opened(path("missing")), 0);
    EXPECT_FALSE(fs::exists(path("missing")));
}

TEST_F(VFileRefusal, OfTheEmptyPath) {
    EXPECT_EQ(opened(""), 0);
}

TEST_F(VFileRefusal, OfADirectory) {
    EXPECT_EQ(opened(m_directory.path().string()), 0);
    EXPECT_EQ(opened(m_directory.prefix()), 0);
}

TEST_F(VFileRefusal, OfAPathThroughAFile) {
    EXPECT_EQ(opened(m_directory.write("text", "abc") + "/inside"), 0);
}

TEST_F(VFileRefusal, OfADevice) {
    EXPECT_EQ(opened("/dev/null"), 0);
    EXPECT_EQ(opened("/dev/zero"), 0);
}

TEST_F(VFileRefusal, OfAPipeComesAtOnce) {
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    alarm(20);  // an open that waits for a writer ends the program
    EXPECT_EQ(opened(path("pipe")), 0);
    alarm(0);
}

TEST_F(VFileRefusal, OfAPipeDoesNotDisturbIt) {
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    const int watch = inotify_init1(IN_NONBLOCK);
    ASSERT_GE(inotify_add_watch(watch, path("pipe").c_str(), IN_OPEN), 0);
    EXPECT_EQ(opened(path("pipe")), 0);
    char events[512];
    EXPECT_EQ(read(watch, events, sizeof events), -1) << "somebody opened the pipe";
    close(watch);
}

TEST_F(VFileRefusal, OfASocket) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path("socket").size(), sizeof address.sun_path);
    std::strcpy(address.sun_path, path("socket").c_str());
    const int socketDescriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(socketDescriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(opened(path("socket")), 0);
    close(socketDescriptor);
}

TEST_F(VFileRefusal, OfLinksThatLeadToNoRegularFile) {
    fs::create_symlink(path("loop"), path("loop"));
    fs::create_symlink(path("missing"), path("dangling"));
    fs::create_symlink("/dev/null", path("device"));
    fs::create_directory_symlink(m_directory.path(), path("directory"));
    for (const char* name : {"loop", "dangling", "device", "directory"}) EXPECT_EQ(opened(path(name)), 0) << name;
}

TEST_F(VFileRefusal, DoesNotMeetALinkToARegularFile) {
    fs::create_symlink(m_directory.write("text", "abc"), path("link"));
    CVFile file;
    EXPECT_EQ(file.Open(path("link").c_str(), 257), 1);
    EXPECT_EQ(file.GetLength(), 3u);
}

TEST_F(VFileRefusal, OfEveryOtherMode) {
    const std::string text = m_directory.write("text", "abc");
    for (const unsigned mode : {0u, 1u, 2u, 256u, 258u, 513u, 65793u, ~0u}) EXPECT_EQ(opened(text, mode), 0) << mode;
}

TEST_F(VFileRefusal, OfEveryOtherModeCreatesNothing) {
    for (const unsigned mode : {0u, 1u, 2u, 256u, 258u, 4097u}) opened(path("missing"), mode);
    EXPECT_FALSE(fs::exists(path("missing")));
}

TEST_F(VFileRefusal, OfTheOtherModeClosesTheFileThatWasOpen) {
    CVFile file;
    EXPECT_EQ(file.Open(m_directory.write("text", "abc").c_str(), 257), 1);
    EXPECT_EQ(file.Open(path("text").c_str(), 258), 0);
    char untouched = '?';
    EXPECT_EQ(file.Read(&untouched, 1), 0u);
    EXPECT_EQ(untouched, '?');
}

TEST_F(VFileRefusal, OfAFileThatMayNotBeRead) {
    const std::string text = m_directory.write("text", "abc");
    fs::permissions(m_directory.path(), fs::perms(0755));
    fs::permissions(text, fs::perms::none);
    const OrdinaryUser user;
    EXPECT_EQ(opened(text), 0);
}

TEST_F(VFileRefusal, WhenTheProcessHasNoDescriptorLeft) {
    const std::string text = m_directory.write("text", "abc");
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &usual), 0);
    const rlimit none{0, usual.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const int answer = opened(text);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &usual), 0);
    EXPECT_EQ(answer, 0);
}

}  // namespace
}  // namespace customstyle_test
