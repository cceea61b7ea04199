// Styles as the tools load them, from texts in a test.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "tools/study/StyleStudy.h"

namespace customstyle_test {

/// A style file "style.json" with the text, over the text of a mapping file.
inline std::unique_ptr<customstyle_tool::StyleStudy> loadedText(customstyle_tool::Mapping mapping, std::string text) {
    auto file = std::make_shared<customstyle_tool::SourceFile>("style.json", std::move(text));
    auto parsed = customstyle_tool::parseJson(file->text());
    auto* document = std::get_if<customstyle_tool::JsonDocument>(&parsed);
    if (document == nullptr) throw std::runtime_error("the style of the test is not JSON");
    return std::make_unique<customstyle_tool::StyleStudy>(std::move(file), *document, std::move(mapping));
}

inline std::unique_ptr<customstyle_tool::StyleStudy> loadedText(std::string mapping, std::string text) {
    return loadedText(customstyle_tool::Mapping::given(std::move(mapping)), std::move(text));
}

inline std::unique_ptr<customstyle_tool::StyleStudy> loadedText(const char* mapping, std::string text) {
    return loadedText(std::string(mapping), std::move(text));
}

}  // namespace customstyle_test
