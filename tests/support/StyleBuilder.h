// Style rules as a test writes them: rule("highway", "labels.text.fill").color("#ff0000").level("15").
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vi/vos/VJson.h"

namespace customstyle_test {

struct TreeDeleter {
    void operator()(_orvik_vi::cJSON* tree) const { _orvik_vi::cJSON_Delete(tree); }
};
using Tree = std::unique_ptr<_orvik_vi::cJSON, TreeDeleter>;

/// The tree of a JSON text; throws when the text is not JSON.
Tree parsed(std::string_view json);

/// A text as a JSON string, quoted and escaped.
std::string quoted(std::string_view text);

/// One rule of a style file, as JSON text.
class RuleBuilder {
public:
    RuleBuilder(std::string_view featureType, std::string_view elementType);

    RuleBuilder& color(std::string_view text) { return styler("color", quoted(text)); }
    RuleBuilder& visibility(std::string_view text) { return styler("visibility", quoted(text)); }
    RuleBuilder& weight(std::string_view text) { return styler("weight", quoted(text)); }
    RuleBuilder& fontsize(std::string_view text) { return styler("fontsize", quoted(text)); }
    RuleBuilder& level(std::string_view text) { return styler("level", quoted(text)); }

    /// Any member of "stylers", its value given as JSON text.
    RuleBuilder& styler(std::string_view name, std::string_view json);

    std::string json() const;

private:
    std::string m_head;
    std::string m_stylers;
};

RuleBuilder rule(std::string_view featureType, std::string_view elementType);

/// A style file's text.
std::string styleOf(const std::vector<RuleBuilder>& rules);

}  // namespace customstyle_test
