// Checks a style file: everything that the component refuses, drops or changes in it.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "tools/check/Finding.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

struct CheckOptions {
    bool effects = false;  ///< also report what is shown only on request
    bool proofs = true;    ///< also report what can be left out
    /// Receives the progress of the proofs; called on any thread, on several at a time.
    std::function<void(std::size_t done, std::size_t all)> progress{};
    /// Asked now and then, on any thread, whether to stop making proofs.
    std::function<bool()> isTimeUp{};
};

/// All findings of a studied style, sorted. What is proven is proven for the study's mapping.
std::vector<Finding> checkStyle(const StyleStudy& study, const CheckOptions& options = {});

/// A style file with its findings; no study where nothing of it can be read.
struct CheckedStyle {
    std::unique_ptr<StyleStudy> study;
    std::vector<Finding> findings;
};

/// Reads a file and checks it. If it is not JSON, checks the rules that can be read.
CheckedStyle checkStyle(std::shared_ptr<const SourceFile> file, const Mapping& mapping,
                        const CheckOptions& options = {}, const Spread& spread = {}, const RefusalLog& refusalLog = {});

}  // namespace customstyle_tool
