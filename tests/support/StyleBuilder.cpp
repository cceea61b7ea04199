#include "tests/support/StyleBuilder.h"

#include <stdexcept>

namespace customstyle_test {

Tree parsed(std::string_view json) {
    Tree tree(_orvik_vi::cJSON_Parse(json, 1));
    if (tree == nullptr) throw std::invalid_argument("not JSON: " + std::string(json));
    return tree;
}

std::string quoted(std::string_view text) {
    const Tree string(cJSON_CreateString(std::string(text).c_str()));
    char* printed = cJSON_PrintUnformatted(string.get());
    std::string json = printed;
    cJSON_free(printed);
    return json;
}

RuleBuilder::RuleBuilder(std::string_view featureType, std::string_view elementType)
    : m_head("{\"featureType\":" + quoted(featureType) + ",\"elementType\":" + quoted(elementType)) {}

RuleBuilder& RuleBuilder::styler(std::string_view name, std::string_view json) {
    if (!m_stylers.empty()) m_stylers += ",";
    m_stylers += quoted(name) + ":" + std::string(json);
    return *this;
}

std::string RuleBuilder::json() const {
    return m_head + ",\"stylers\":{" + m_stylers + "}}";
}

RuleBuilder rule(std::string_view featureType, std::string_view elementType) {
    return {featureType, elementType};
}

std::string styleOf(const std::vector<RuleBuilder>& rules) {
    std::string json = "[";
    for (const RuleBuilder& each : rules) {
        if (json.size() > 1) json += ",";
        json += each.json();
    }
    return json + "]";
}

}  // namespace customstyle_test
