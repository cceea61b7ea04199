// Styles that are known to work or not.
#pragma once

#include <string>
#include <vector>

namespace customstyle_test {

/// A style file's text.
struct CorpusStyle {
    std::string text;
    bool isAsked;  ///< whether the check is to be asked, too, which takes its time
};

/// Every styler on usual and odd element paths of every feature type, a rule a style.
std::vector<CorpusStyle> singleStylers();

/// Values, members and frames, right and wrong.
std::vector<CorpusStyle> peculiarStyles();

/// Styles of one random rule with several stylers.
std::vector<CorpusStyle> randomStyles();

}  // namespace customstyle_test
