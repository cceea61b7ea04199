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

/// Another place that has to do with a finding.
struct RelatedPlace {
    TextRange range;
    std::string text;
    const SourceFile* file = nullptr;  ///< null for that of the finding
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
    std::optional<std::size_t> rule{};  ///< from 0; none for what concerns the file
    std::optional<std::size_t> step{};  ///< the place of a step of the study, where it is about one
    bool canGo = false;                 ///< whether the rule or styler can be taken out: no answer changes, whatever
                                        ///< else that can go is taken out too
    std::string path;                   ///< JSON path of the value
    std::string message;                ///< one sentence without a full stop: what happens at run time
    std::string remedy;                 ///< what to do, in this case
    std::string log{};                  ///< the component's own line; empty where it says nothing
    std::vector<RelatedPlace> related{};
    std::optional<std::string> replacement{};  ///< JSON that is to stand at the range instead, where that is known
    std::optional<Severity> severity{};        ///< where it is not that of the code, because the author wants another
};

/// Answers the line that the component logs when it refuses a file; empty where there is none. Files are the host's.
using RefusalLog = std::function<std::string(const SourceFile& file)>;

/// Gives a finding the remedy "write JSON", and the replacement.
void propose(Finding& finding, const std::string& json);

/// Gives a finding the remedy "did you mean NAME?", and the replacement.
void proposeName(Finding& finding, const std::string& name);

/// The file of a place that has to do with a finding.
const SourceFile& fileOf(const Finding& finding, const RelatedPlace& place);

/// Moves a finding about a text that was made from other files to where it was written.
void leadBack(Finding& finding);

/// How much a finding weighs.
Severity severityOf(const Finding& finding);

/// Orders by place, then code, then message, and removes repetitions.
void sortFindings(std::vector<Finding>& findings);

}  // namespace customstyle_tool
