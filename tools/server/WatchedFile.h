// A text file that other programs write, too.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace customstyle_tool {

/// A file as it was read.
struct FileState {
    std::string version;              ///< changes with the content; the same content has the same version
    std::optional<std::string> text;  ///< well-formed UTF-8
    std::string problem{};            ///< why the text is missing: one sentence with the path
    bool isThere = true;              ///< false: there is no file of this name, or a link leads nowhere
};

/// The largest file that is read.
inline constexpr std::size_t kLargestWatched = std::size_t{16} << 20;

FileState readState(const std::string& path);

/// The version of a file with this content.
std::string versionOf(std::string_view text);

/// Looks at a file repeatedly, by name, so that a file that replaces it is seen, too.
class WatchedFile {
public:
    /// Reads the file.
    explicit WatchedFile(std::string path);

    const std::string& path() const { return m_path; }
    const FileState& state() const { return m_state; }

    /// Looks at the file. A change counts once two looks have seen the same: files are often written in several steps.
    /// @return whether the file was written. It may have had other content for a moment, which others have seen, so
    ///         that the same state is news, too.
    bool poll();

private:
    // What shows without reading whether a file was written.
    struct Signature {
        dev_t device = 0;
        ino_t node = 0;
        off_t size = -1;  // no such file
        timespec modified{};
        timespec changed{};
    };
    static Signature signatureOf(const std::string& path);
    static bool isSame(const Signature& left, const Signature& right);
    static bool isFresh(const Signature& signature);

    std::string m_path;
    Signature m_read;  // of the file when m_state was read
    Signature m_seen;  // at the last look
    bool m_wasFresh = false;
    FileState m_state;
};

}  // namespace customstyle_tool
