// StoreProbe: finds out from the component whose record answers the narrow questions.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// Asks stores in which the records have been made recognisable, so that only the component knows the order in which it
/// asks its feature types and records.
class StoreProbe {
public:
    explicit StoreProbe(const StyleStudy& style);

    /// The types whose records are asked for the icon flag of a style id, of those given. Only for styles in which no
    /// rule hides every icon: there no record is asked.
    std::vector<int> iconTypes(unsigned int styleId, int level, const std::vector<int>& featureTypes) const;

    /// The style id whose record speaks for the background of the land; none where no record is asked.
    std::optional<int> landStyleId(int level) const;

private:
    std::unique_ptr<_orvik_framework::CustomConfig> m_icons;  // shows every icon
    std::unique_ptr<_orvik_framework::CustomConfig> m_land;   // each land record customised, its id as its fill
};

}  // namespace customstyle_tool
