#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string>
#include <variant>

#include "tests/host/SystemCalls.h"
#include "tests/support/OpenFiles.h"
#include "tests/support/TemporaryDirectory.h"
#include "tools/host/Files.h"

namespace {

using namespace customstyle_tool;
using customstyle_test::openFiles;
using customstyle_test::systemCalls;
using customstyle_test::TemporaryDirectory;

// The text of a file, or why there is none.
std::string readFrom(const std::string& path) {
    const auto read = readSource(path, "style file");
    if (const auto* failure = std::get_if<ReadFailure>(&read)) return failure->text;
    return std::string(std::get<0>(read)->text());
}

TEST(ReadSource, ReadsFilesThatAreLongerThanAPiece) {
    const TemporaryDirectory directory;
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 300000U}) {
        const std::string text = std::string(size, 'x') + "\r\n";
        EXPECT_EQ(readFrom(directory.write("style.json", text)), text) << size;
    }
}

TEST(ReadSource, GoesOnAfterAnInterruption) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("style.json", "[]");
    systemCalls = {"read", EINTR};
    EXPECT_EQ(readFrom(path), "[]");
    EXPECT_EQ(systemCalls.failing, "");
}

TEST(ReadSource, NamesTheFileThatTheSystemCannotRead) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("style.json", "[]");
    const int before = openFiles();
    systemCalls = {"read", EIO};
    EXPECT_EQ(readFrom(path), path + ": cannot be read to its end: Input/output error");
    EXPECT_EQ(openFiles(), before);
}

TEST(ReadSource, NeverTakesAFailingStandardInputForItsEnd) {
    const int input = dup(STDIN_FILENO);
    const int directory = open("/", O_RDONLY | O_DIRECTORY);
    dup2(directory, STDIN_FILENO);
    const std::string first = readFrom("-");
    const std::string second = readFrom("-");
    dup2(input, STDIN_FILENO);
    close(directory);
    close(input);
    EXPECT_EQ(first, "standard input cannot be read to its end: Is a directory");
    EXPECT_EQ(second, "standard input can be read only once; give - in one place");
}

}  // namespace
