// A style file's rules one at a time, as trees for the component.
#pragma once

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "tools/json/SourceFile.h"
#include "tools/study/StyleSource.h"
#include "vi/vos/VJson.h"

namespace customstyle_tool {

struct TreeDeleter {
    void operator()(_orvik_vi::cJSON* tree) const { _orvik_vi::cJSON_Delete(tree); }
};
using Tree = std::unique_ptr<_orvik_vi::cJSON, TreeDeleter>;

/// The tree of a JSON text as the component reads it; null when the text is not JSON.
Tree componentTree(std::string_view text);

/// A style document with one rule, and the one styler that is left in it.
struct SingleRule {
    std::size_t rule;    ///< index of the rule in the file, from 0
    std::string styler;  ///< empty where the rule has none that the component would act on
    Tree document;       ///< a list with the one rule
};

/// The rules of a style file, each split into its stylers, in the component's order: applying all documents one after
/// the other has the effect and the log of applying the file. A rule without a styler that the component acts on is one
/// document.
/// @param onNoMemory  does not return
std::vector<SingleRule> singleRules(const StyleSource& style, void (*onNoMemory)() = std::abort);

}  // namespace customstyle_tool
