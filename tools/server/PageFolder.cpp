#include "tools/server/PageFolder.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <system_error>
#include <vector>

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

constexpr char kPage[] = "index.html";

struct FileType {
    std::string_view ending;
    const char* type;
};
constexpr std::array kTypes{FileType{".css", "text/css; charset=utf-8"},
                            FileType{".html", "text/html; charset=utf-8"},
                            FileType{".js", "text/javascript; charset=utf-8"},
                            FileType{".json", "application/json"},
                            FileType{".map", "application/json"},
                            FileType{".mjs", "text/javascript; charset=utf-8"},
                            FileType{".pbf", "application/x-protobuf"},
                            FileType{".svg", "image/svg+xml"},
                            FileType{".wasm", "application/wasm"},
                            FileType{".woff2", "font/woff2"}};

const char* typeOf(std::string_view path) {
    for (const FileType& each : kTypes) {
        if (path.ends_with(each.ending)) return each.type;
    }
    return "application/octet-stream";
}

bool isPageIn(const fs::path& folder) {
    std::error_code error;
    return fs::is_regular_file(folder / kPage, error) && fs::is_regular_file(folder / "page.js", error);
}

// Plain names: no way up, nothing hidden, nothing that has a meaning on some systems only.
bool isPlainName(std::string_view name) {
    if (name.empty() || name.front() == '.') return false;
    for (const char c : name) {
        if (static_cast<unsigned char>(c) < ' ' || c == '\\' || c == ':' || c == '\x7f') return false;
    }
    return true;
}

// Whether a path has plain names only; "/" has none.
bool isPlainPath(std::string_view path) {
    while (!path.empty()) {
        const std::size_t end = path.find('/');
        if (!isPlainName(path.substr(0, end))) return false;
        if (end == std::string_view::npos) return true;
        path.remove_prefix(end + 1);
    }
    return false;
}

// Where the page may be by default: installed, and in a build tree.
std::vector<std::string> usualPageFolders() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    if (error) return {};
    const fs::path above = program.parent_path().parent_path();
    return {(above / "share" / "customstyle" / "studio").string(), (above / "studio").string()};
}

}  // namespace

std::variant<PageFolder, ReadFailure> PageFolder::find(const std::optional<std::string>& folder) {
    const std::vector<std::string> folders = folder ? std::vector{*folder} : usualPageFolders();
    for (const std::string& each : folders) {
        std::error_code error;
        const fs::path real = isPageIn(each) ? fs::canonical(each, error) : fs::path();
        if (!real.empty()) return PageFolder(real.string());
    }
    return ReadFailure{
        fmt::format("{}: the studio's page is not there; build it with script/studio --build, or name its "
                    "folder with --page",
                    fmt::join(folders, ", "))};
}

std::optional<PageFolder::File> PageFolder::open(std::string_view path) const {
    const std::string name = path == "/" ? kPage : std::string(path.substr(path.starts_with('/') ? 1 : 0));
    if (!isPlainPath(name)) return {};
    std::error_code error;
    const fs::path real = fs::canonical(fs::path(m_folder) / name, error);
    if (error || !real.string().starts_with(m_folder + "/")) return {};
    const int descriptor = ::open(real.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return {};
    struct stat status {};
    OpenFile file(descriptor, fstat(descriptor, &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0);
    if (!S_ISREG(status.st_mode)) return {};
    return File{std::move(file), typeOf(name)};
}

std::optional<std::string> PageFolder::copyTo(const std::string& folder) const {
    std::error_code error;
    if (fs::exists(folder, error) && !(fs::is_directory(folder, error) && fs::is_empty(folder, error))) {
        return fmt::format("{}: is not an empty folder; name a new one, or empty it", folder);
    }
    fs::create_directories(folder, error);
    if (!error) fs::copy(m_folder, folder, fs::copy_options::recursive | fs::copy_options::skip_symlinks, error);
    if (!error) return {};
    const std::string reason = error.message();
    fs::remove_all(folder, error);
    return fmt::format("{}: the page cannot be copied here: {}", folder, reason);
}

}  // namespace customstyle_tool
