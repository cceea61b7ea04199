// Style files on a disk, read for rewriting.
#include "tools/host/Files.h"
#include "tools/layout/StyleText.h"

namespace customstyle_tool {

std::variant<StyleText, ReadFailure> readForRewriting(const std::string& path) {
    auto read = readSource(path, "style file");
    if (auto* failure = std::get_if<ReadFailure>(&read)) return std::move(*failure);
    return forRewriting(std::get<std::unique_ptr<SourceFile>>(std::move(read)));
}

}  // namespace customstyle_tool
