// Attribution: the styler that changed an answer.
#pragma once

#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "tools/diff/StyleDiff.h"
#include "tools/explain/Explainer.h"

namespace customstyle_tool {

/// Explains answers of one style. Style ids that are listed under the same feature types get the same styles, so one of
/// them is explained for all.
class Attribution {
public:
    /// @param style  must outlive the attribution
    explicit Attribution(const StyleStudy& style) : m_explainer(style) {}

    /// The styler that made the answer in this style, where one did.
    std::optional<StylerPlace> stylerOf(const ChangedAnswer& answer);

private:
    const Explanation& explanationFor(const ChangedAnswer& answer);

    Explainer m_explainer;
    std::map<std::pair<std::vector<int>, std::size_t>, Explanation> m_explanations;  // by types and level class
    std::map<std::size_t, StylerPlace> m_places;                                     // by step
};

}  // namespace customstyle_tool
