#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "tests/support/TemporaryDirectory.h"
#include "tools/host/LoadLog.h"

namespace {

namespace fs = std::filesystem;
using customstyle_test::TemporaryDirectory;
using customstyle_tool::logOfStyle;
using customstyle_tool::SourceFile;

// Another folder for temporary files.
class TemporaryFiles {
public:
    TemporaryFiles() { setenv("TMPDIR", m_directory.path().c_str(), 1); }
    ~TemporaryFiles() {
        if (m_before) {
            setenv("TMPDIR", m_before->c_str(), 1);
        } else {
            unsetenv("TMPDIR");
        }
    }
    TemporaryFiles(const TemporaryFiles&) = delete;
    TemporaryFiles& operator=(const TemporaryFiles&) = delete;

    bool areNone() const { return fs::is_empty(m_directory.path()); }

private:
    static std::optional<std::string> valueBefore() {
        const char* const value = std::getenv("TMPDIR");
        return value == nullptr ? std::nullopt : std::optional<std::string>(value);
    }

    TemporaryDirectory m_directory;
    std::optional<std::string> m_before = valueBefore();
};

TEST(LogOfStyle, IsWhatTheComponentSaysAndLeavesNoFiles) {
    const TemporaryDirectory directory;
    const std::string text = R"([{"featureType": "lake", "elementType": "all", "stylers": {"color": "#112233"}}])";
    const std::string path = directory.write("style.json", text);
    const TemporaryFiles temporary;
    EXPECT_EQ(logOfStyle(SourceFile(path, text)), R"(ZRX Custom Map: warning, "featureType:lake" is illegal)");
    EXPECT_TRUE(temporary.areNone());
}

TEST(LogOfStyle, IsEmptyWhereThereIsNoFile) {
    EXPECT_EQ(logOfStyle(SourceFile("-", "[")), "");
}

}  // namespace
