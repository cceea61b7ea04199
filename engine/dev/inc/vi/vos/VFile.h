// CVFile: reading files.
#pragma once

#include <cstddef>

namespace [[gnu::visibility("default")]] _orvik_vi {

class CVString;

/// One open file, closed by its destructor at the latest.
class CVFile {
public:
    /// Open mode: an existing regular file, for reading only.
    static constexpr unsigned kReadExisting = 257;

    CVFile() = default;
    ~CVFile();
    CVFile(const CVFile&) = delete;
    CVFile& operator=(const CVFile&) = delete;

    /// Opens a file; a file that this object held open is closed first.
    /// @param path  complete path
    /// @param mode  kReadExisting; other modes do not open anything
    /// @return 1, or 0 when nothing was opened: no such file, no permission, or not a regular file but a directory, a
    /// device or a pipe
    int Open(const CVString& path, unsigned mode);

    /// Length in bytes as it was when the file was opened, at most what std::size_t holds; 0 while no file is open.
    std::size_t GetLength() const { return m_length; }

    /// Reads on from where the last read ended.
    /// @return bytes read: fewer than `size` at the end of the file or after a read error, 0 while no file is open
    std::size_t Read(void* buffer, std::size_t size);

    /// Closes the file. Without an open file it does nothing.
    void Close();

private:
    int m_descriptor = -1;
    std::size_t m_length = 0;
};

}  // namespace _orvik_vi
