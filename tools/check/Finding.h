// What the check has to say about a place in a file.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/check/FindingCodes.h"
#include "tools/json/JsonDocument.h"
#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// Another place related to a finding.
struct RelatedPlace {
    TextRange range;
    std::string text;
    const SourceFile* file = nullptr;  ///< null for the finding's own file
};

struct Finding {
    /// The remedy is that of the code until a better one is set.
    Finding(Code code_, const SourceFile& file_, TextRange range_, std::string path_, std::string message_)
        : code(code_),
          file(&file_),
          range(range_),
          path(std::move(path_)),
          message(std::move(message_)),
          remedy(infoOf(code_).remedy) {}

    Code code;
    const SourceFile* file;
    TextRange range;
    std::optional<std::size_t> rule{};  ///< counted from 0; none if the finding is about the file
    std::optional<std::size_t> step{};  ///< index of the study's step that it is about, if any
    bool canGo = false;                 ///< whether the rule or styler can be removed: no answer changes, whatever
                                        ///< else that can go is removed too
    std::string path;                   ///< JSON path of the value
    std::string message;                ///< one sentence without a full stop: what happens at run time
    std::string remedy;                 ///< what to do, in this case
    std::string log{};                  ///< the component's own log line; empty where it logs nothing
    std::vector<RelatedPlace> related{};
    std::optional<std::string> replacement{};  ///< JSON to put in place of the range, where that is known
    std::optional<Severity> severity{};        ///< set where the author wants another than the code's
};

/// Returns the line that the component logs when it refuses a file; empty where there is none. Files are the host's.
using RefusalLog = std::function<std::string(const SourceFile& file)>;

/// Gives a finding the remedy "write JSON", and the replacement.
void propose(Finding& finding, const std::string& json);

/// Gives a finding the remedy "did you mean NAME?", and the replacement.
void proposeName(Finding& finding, const std::string& name);

/// The file of a place related to a finding.
const SourceFile& fileOf(const Finding& finding, const RelatedPlace& place);

/// Moves a finding about a text that was made from other files to where it was written.
void leadBack(Finding& finding);

/// How severe a finding is.
Severity severityOf(const Finding& finding);

/// Orders by place, then code, then message, and removes repetitions.
void sortFindings(std::vector<Finding>& findings);

}  // namespace customstyle_tool
