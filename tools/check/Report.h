// Findings as text for people, and as JSON and SARIF for programs.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tools/check/Finding.h"
#include "tools/json/SourceFile.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// A file with its findings.
struct CheckedFile {
    std::shared_ptr<const SourceFile> file;
    std::vector<Finding> findings;
    std::shared_ptr<const StyleStudy> study{};  ///< the study that the findings are about
};

/// How many findings there are of each severity.
struct FindingCounts {
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t notes = 0;
};
FindingCounts countFindings(const std::vector<Finding>& findings);
FindingCounts countFindings(const std::vector<CheckedFile>& files);

/// One finding in the form that compilers use: place, severity, message and code, the line with carets, remedy and log.
/// @param isColored  whether the severity, the position and the carets get terminal colours
std::string findingText(const Finding& finding, bool isColored = false);

/// "file:line:column: severity: message [code]", as editors read it.
std::string lineReport(const Finding& finding);

/// A JSON object on one line, with the members of reportJson() and the path of the file as "file".
/// @param study  the study of the finding's style; null for a mapping file
std::string jsonLineReport(const Finding& finding, const StyleStudy* study);

/// A GitHub workflow command, which shows the finding beside the line.
std::string githubReport(const Finding& finding);

/// A row of a Markdown table, and the table's head.
std::string markdownReport(const Finding& finding);
std::string markdownHead();

/// One object: "version" 1, "files" in order with their "findings", "unreadable" and a "summary".
/// @param unreadable  why files could not be read, a sentence each
std::string reportJson(const std::vector<CheckedFile>& files, const std::vector<std::string>& unreadable = {});

/// A SARIF 2.1.0 log with one run, its rules made from the table of codes.
std::string reportSarif(const std::vector<CheckedFile>& files, const std::vector<std::string>& unreadable = {});

/// The description of a code, in Markdown without a heading.
std::string codeMarkdown(const CodeInfo& info);

/// All codes with explanation, remedy and example, as text, and as the page of the documentation.
std::string codesText();
std::string codesMarkdown();

}  // namespace customstyle_tool
