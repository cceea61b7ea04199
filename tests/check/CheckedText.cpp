#include "tests/check/CheckedText.h"

#include <fmt/format.h>

#include <fstream>
#include <iterator>

#include "tools/check/MappingCheck.h"
#include "tools/check/StyleCheck.h"

namespace customstyle_test {

using namespace customstyle_tool;

CheckedFile checkedStyle(std::string_view text, std::string_view mapping, bool effects) {
    auto file = std::make_shared<const SourceFile>("style.json", std::string(text));
    const Mapping over = mapping.empty() ? Mapping::everyMap() : Mapping::given(std::string(mapping));
    CheckedStyle checked = checkStyle(file, over, {.effects = effects});
    return {file, std::move(checked.findings), std::move(checked.study)};
}

CheckedFile checkedMapping(std::string_view text) {
    auto file = std::make_unique<SourceFile>("mapping", std::string(text));
    std::vector<Finding> findings = checkMapping(*file, true);
    return {std::move(file), std::move(findings)};
}

std::vector<std::string> codesWithPlaces(const CheckedFile& checked) {
    std::vector<std::string> texts;
    for (const Finding& finding : checked.findings) {
        const auto [begin, end] = finding.range;
        texts.push_back(
            fmt::format("{}: {}", infoOf(finding.code).name, checked.file->text().substr(begin, end - begin)));
    }
    return texts;
}

std::vector<std::string> messagesOf(const CheckedFile& checked, Code code) {
    std::vector<std::string> messages;
    for (const Finding& finding : checked.findings) {
        if (finding.code == code) messages.push_back(finding.message);
    }
    return messages;
}

std::string contentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string ruleText(std::string_view featureType, std::string_view elementType, std::string_view stylers) {
    return fmt::format(R"({{"featureType": "{}", "elementType": "{}", "stylers": {}}})", featureType, elementType,
                       stylers);
}

}  // namespace customstyle_test
