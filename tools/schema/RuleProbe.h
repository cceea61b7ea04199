// RuleProbe: finds out from the component what a single rule does.
#pragma once

#include <string>
#include <string_view>

#include "customstyle/CustomConfig.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/SingleRules.h"

namespace customstyle_tool {

/// A styler with a value.
struct StylerValue {
    std::string name;
    std::string value;
};

/// Applies rules to empty stores. Drops the component's log while it lives and answers the renderer's questions.
class RuleProbe {
public:
    RuleProbe();

    /// Whether a rule with this one styler does what it says: it is taken without complaint, changes an answer, and
    /// hides no icon by being "on".
    bool works(std::string_view featureType, std::string_view elementType, const StylerValue& styler);

    const _orvik_framework::CustomConfig& component() const { return m_empty; }

private:
    ComponentGuard m_guard;
    Tree m_mapping;
    _orvik_framework::CustomConfig m_empty;
};

}  // namespace customstyle_tool
