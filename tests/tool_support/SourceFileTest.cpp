#include <gtest/gtest.h>

#include <filesystem>
#include <variant>

#include "tests/support/TemporaryDirectory.h"
#include "tools/host/Files.h"
#include "tools/json/SourceFile.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

std::string reasonOf(const std::string& path) {
    const auto problem = problemOfFile(path, "style file");
    return problem ? problem->text : "none";
}

TEST(ProblemOfFile, IsNoneForAFileThatCanBeRead) {
    const TemporaryDirectory directory;
    EXPECT_EQ(reasonOf(directory.write("style.json", "[]")), "none");
}

TEST(ProblemOfFile, TellsWhatStandsUnderThePathAndWhatIsMissing) {
    const TemporaryDirectory directory;
    const std::string there = directory.path().string();
    EXPECT_EQ(reasonOf(there), there + ": is a directory; give the path of a style file");
    EXPECT_EQ(reasonOf(there + "/no"), there + "/no: no such file; give the path of a style file");
    EXPECT_EQ(reasonOf("/dev/null"), "/dev/null: is not a regular file; give the path of a style file");
    EXPECT_EQ(reasonOf(""), "\"\": no such file; give the path of a style file");
}

TEST(ProblemOfFile, IsNoneForTheDashThatMeansStandardInput) {
    EXPECT_EQ(reasonOf("-"), "none");
}

TEST(ProblemOfFile, TellsALinkThatLeadsNowhereFromAFile) {
    const TemporaryDirectory directory;
    const std::filesystem::path link = directory.path() / "link";
    std::filesystem::create_symlink("link", link);
    EXPECT_EQ(reasonOf(link.string()),
              link.string() + ": Too many levels of symbolic links; give the path of a style file");
}

TEST(ReadSource, ReadsEveryByte) {
    const TemporaryDirectory directory;
    const std::string text("a\0\r\n\xff", 5);
    const auto source = readSource(directory.write("style.json", text), "style file");
    ASSERT_TRUE(std::holds_alternative<std::unique_ptr<SourceFile>>(source));
    EXPECT_EQ(std::get<0>(source)->text(), text);
}

std::string failureOfDocument(const char* text) {
    const SourceFile file("style.json", text);
    const auto document = documentOf(file, "style file");
    const auto* const failure = std::get_if<ReadFailure>(&document);
    return failure == nullptr ? "none" : failure->text;
}

TEST(DocumentOfAFile, IsItsValue) {
    const SourceFile file("style.json", " [1, 2]");
    const auto document = documentOf(file, "style file");
    ASSERT_TRUE(std::holds_alternative<JsonDocument>(document));
    EXPECT_EQ(std::get<JsonDocument>(document).root().source(), "[1, 2]");
}

TEST(DocumentOfAFile, FailsAtThePlaceOfTheMistake) {
    EXPECT_EQ(failureOfDocument("[\n  1 2]"), "style.json:2:4: is not JSON: a comma or ] is missing here");
    EXPECT_EQ(failureOfDocument(""), "style.json: is empty; a style file holds JSON");
}

}  // namespace
}  // namespace customstyle_test
