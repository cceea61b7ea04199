#include "tools/host/AtomicFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "tools/host/Files.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;
using WriteProblem = std::optional<std::string>;

constexpr int kLinkLimit = 40;
constexpr int kNameLimit = 100;

WriteProblem problemOf(const fs::path& path, std::string_view reason) {
    return fmt::format("{}: cannot be written: {}", path.string(), reason);
}

// Where the links lead, even when there is no file yet.
fs::path behindLinks(fs::path path) {
    std::error_code error;
    for (int i = 0; i < kLinkLimit && fs::is_symlink(path, error); ++i) {
        const fs::path target = fs::read_symlink(path, error);
        if (error) break;
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

// What prevents the file from being replaced.
WriteProblem problemOfTarget(const fs::path& path, const fs::path& target) {
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    if (status.type() == fs::file_type::not_found) return {};
    if (error) return problemOf(path, error.message());
    if (fs::is_directory(status)) return problemOf(path, "it is a directory");
    if (!fs::is_regular_file(status)) return problemOf(path, "it is not a regular file");
    if (access(target.c_str(), W_OK) != 0) return problemOf(path, "it is write-protected");
    return {};
}

// A new file that vanishes again unless it takes the target's place.
class Draft {
public:
    explicit Draft(fs::path target) : m_target(std::move(target)) {
        for (int i = 0; i < kNameLimit && m_descriptor < 0; ++i) {
            m_path = m_target.parent_path() / fmt::format(".{}.{}-{}", m_target.filename().string(), getpid(), i);
            m_descriptor = open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (m_descriptor < 0 && errno != EEXIST) break;
        }
        m_isThere = m_descriptor >= 0;
    }
    ~Draft() {
        if (m_descriptor >= 0) close(m_descriptor);
        if (m_isThere) unlink(m_path.c_str());
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }

    /// False with errno when a step fails.
    bool fill(std::string_view content) { return takeAttributes() && writeAll(content) && fsync(m_descriptor) == 0; }

    bool takePlace() {
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        if (close(descriptor) != 0 || std::rename(m_path.c_str(), m_target.c_str()) != 0) return false;
        m_isThere = false;
        syncDirectory();
        return true;
    }

private:
    bool takeAttributes() {
        struct stat old {};
        if (stat(m_target.c_str(), &old) != 0) return true;
        // Only the superuser may give files away; without that right the file becomes the writer's.
        if (fchown(m_descriptor, old.st_uid, old.st_gid) != 0 && errno != EPERM) return false;
        return fchmod(m_descriptor, old.st_mode & 07777) == 0;
    }

    bool writeAll(std::string_view content) {
        while (!content.empty()) {
            const ssize_t written = write(m_descriptor, content.data(), content.size());
            if (written < 0 && errno != EINTR) return false;
            if (written > 0) content.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }

    // The content is safe by now, and some file systems cannot do this, so failures are ignored.
    void syncDirectory() const {
        const fs::path directory = m_target.has_parent_path() ? m_target.parent_path() : ".";
        const int descriptor = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (descriptor < 0) return;
        fsync(descriptor);
        close(descriptor);
    }

    fs::path m_target;
    fs::path m_path;
    int m_descriptor = -1;
    bool m_isThere = false;
};

}  // namespace

std::optional<std::string> writeWhole(const std::string& path, std::string_view content,
                                      const std::function<bool()>& isStillWanted) {
    const fs::path target = behindLinks(path);
    if (WriteProblem problem = problemOfTarget(path, target)) return problem;
    Draft draft(target);
    if (!draft.isOpen() || !draft.fill(content)) return problemOf(path, lastError());
    if (isStillWanted && !isStillWanted()) return problemOf(path, "it was changed meanwhile");
    if (!draft.takePlace()) return problemOf(path, lastError());
    return {};
}

}  // namespace customstyle_tool
