#include "tools/host/Files.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

constexpr char kStandardInput[] = "-";

// Why there is nothing to read, or nothing.
std::string reasonAgainst(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) return "no such file";
    if (error) return error.message();
    if (fs::is_directory(status)) return "is a directory";
    return fs::is_regular_file(status) || fs::is_fifo(status) ? "" : "is not a regular file";
}

// What has been read from a pipe is gone, so a second reader would find nothing.
std::variant<std::unique_ptr<SourceFile>, ReadFailure> readStandardInput() {
    static bool s_isRead = false;
    if (s_isRead) return ReadFailure{"standard input can be read only once; give - in one place"};
    s_isRead = true;
    std::string text;
    if (!readAll(STDIN_FILENO, text)) {
        return ReadFailure{fmt::format("standard input cannot be read to its end: {}", lastError())};
    }
    return std::make_unique<SourceFile>("<stdin>", std::move(text));
}

}  // namespace

std::string lastError() {
    return std::generic_category().message(errno);
}

bool readAll(int descriptor, std::string& text, std::size_t most) {
    char piece[65536];
    while (text.size() <= most) {
        const ssize_t count = read(descriptor, piece, sizeof piece);
        if (count == 0) return true;
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) text.append(piece, static_cast<std::size_t>(count));
    }
    return true;
}

std::optional<ReadFailure> problemOfFile(const std::string& path, const char* what) {
    if (path == kStandardInput) return {};
    const std::string shown = path.empty() ? "\"\"" : path;
    const std::string reason = reasonAgainst(path);
    if (!reason.empty()) return ReadFailure{fmt::format("{}: {}; give the path of a {}", shown, reason, what)};
    std::error_code error;
    if (fs::is_fifo(path, error)) return {};  // to open it here would end it
    if (!std::ifstream(path)) return ReadFailure{fmt::format("{}: cannot be read; check its permissions", shown)};
    return {};
}

std::variant<std::unique_ptr<SourceFile>, ReadFailure> readSource(const std::string& path, const char* what) {
    if (path == kStandardInput) return readStandardInput();
    if (auto problem = problemOfFile(path, what)) return std::move(*problem);
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::string text;
    const bool isRead = descriptor >= 0 && readAll(descriptor, text);
    const std::string reason = isRead ? "" : lastError();
    if (descriptor >= 0) close(descriptor);
    if (!isRead) return ReadFailure{fmt::format("{}: cannot be read to its end: {}", path, reason)};
    return std::make_unique<SourceFile>(path, std::move(text));
}

}  // namespace customstyle_tool
