#include "tools/layout/StyleText.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

namespace customstyle_tool {
namespace {

std::optional<std::string> lossIn(const SourceFile& file, const JsonDocument& document) {
    if (file.text().starts_with(kByteOrderMark)) {
        return fmt::format("{}: the file starts with a byte order mark, which would be lost; save it without one",
                           file.place(0));
    }
    if (const auto begin = document.ignoredTextBegin()) {
        return fmt::format(
            "{}: text follows the end of the style, which loading ignores and which would be lost; remove it",
            file.place(*begin));
    }
    return {};
}

}  // namespace

std::variant<StyleText, ReadFailure> forRewriting(std::unique_ptr<SourceFile> file) {
    auto parsed = documentOf(*file, "style file");
    if (auto* failure = std::get_if<ReadFailure>(&parsed)) return std::move(*failure);
    auto document = std::get<JsonDocument>(std::move(parsed));
    if (auto loss = lossIn(*file, document)) return ReadFailure{std::move(*loss)};
    return StyleText{std::move(file), std::move(document)};
}

}  // namespace customstyle_tool
