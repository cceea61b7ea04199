// The built page of the studio: plain files in a folder.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "tools/json/SourceFile.h"
#include "tools/server/HttpServer.h"

namespace customstyle_tool {

class PageFolder {
public:
    /// @param folder  of the page; without it where the page is installed, or where the build tree has it
    static std::variant<PageFolder, ReadFailure> find(const std::optional<std::string>& folder);

    struct File {
        OpenFile file;
        const char* type;  ///< as Content-Type has it
    };

    /// Opens a file of the page.
    /// @param path  starts with "/"; "/" alone is the page itself
    /// @return nothing where the page has no such file; links that lead out of the folder, hidden files and anything
    ///         but regular files do not belong to it
    std::optional<File> open(std::string_view path) const;

    /// Copies the page into a folder, which must be empty or is created.
    /// @return nothing, or why that failed
    std::optional<std::string> copyTo(const std::string& folder) const;

    const std::string& folder() const { return m_folder; }

private:
    explicit PageFolder(std::string folder) : m_folder(std::move(folder)) {}

    std::string m_folder;  // without links
};

}  // namespace customstyle_tool
