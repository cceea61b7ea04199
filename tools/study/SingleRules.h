// A style file's rules one at a time, as trees for the component.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tools/study/StyleSource.h"
#include "vi/vos/VJson.h"

namespace customstyle_tool {

struct TreeDeleter {
    void operator()(_orvik_vi::cJSON* tree) const { _orvik_vi::cJSON_Delete(tree); }
};
using Tree = std::unique_ptr<_orvik_vi::cJSON, TreeDeleter>;

/// The tree of a JSON text as the component reads it; null when the text is not JSON. May be called by several threads.
Tree componentTree(std::string_view text);

/// A style with one rule, given as text. Ends the program where memory runs out, as operator new does.
Tree listWith(std::string_view rule);

/// A rule of a style file, and the one styler that is left in it.
struct SingleRule {
    std::size_t rule;                  ///< index of the rule in the file, from 0
    std::string styler;                ///< empty where the rule has none that the component would act on
    std::vector<std::string> omitted;  ///< the other stylers that the component acts on
    std::string_view text;             ///< the whole rule, in the file

    /// A list with the one rule. It is made anew each time: those of a large style would take much memory.
    Tree document() const;
};

/// The rules of a style file, each split into its stylers, in the component's order: applying all documents one after
/// the other has the effect and the log of applying the file. A rule without a styler that the component acts on is one
/// document.
/// @param style  has to outlive the rules
std::vector<SingleRule> singleRules(const StyleSource& style);

}  // namespace customstyle_tool
