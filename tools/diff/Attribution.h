// Attribution: the styler behind a changed answer.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "tools/diff/StyleDiff.h"
#include "tools/explain/Explainer.h"

namespace customstyle_tool {

/// Explains answers of one style. Style ids that stand under the same feature types get the same styles, so one of them
/// is traced for all.
class Attribution {
public:
    /// @param style  must outlive the attribution
    Attribution(const LoadedStyle& style, const std::set<unsigned int>& styleIds);

    /// The styler that made the answer in this style, where one did.
    std::optional<StylerPlace> stylerOf(const ChangedAnswer& answer);

private:
    static std::map<unsigned int, unsigned int> speakers(const LoadedStyle& style,
                                                         const std::set<unsigned int>& styleIds);
    const Explanation& explanationFor(const ChangedAnswer& answer);

    std::map<unsigned int, unsigned int> m_speakers;  // style id to the one that is traced for it
    Explainer m_explainer;
    std::map<std::pair<unsigned int, std::size_t>, Explanation> m_explanations;  // by style id and level class
    std::map<std::size_t, StylerPlace> m_places;                                 // by step
};

}  // namespace customstyle_tool
