#include "vi/vos/VFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <limits>

#include "vi/vos/VString.h"

namespace _orvik_vi {
namespace {

bool isRegular(const struct stat& status) {
    return S_ISREG(status.st_mode);
}

}  // namespace

CVFile::~CVFile() {
    Close();
}

int CVFile::Open(const CVString& path, unsigned mode) {
    Close();
    const std::string name = path.ToUtf8();
    struct stat status {};
    // Checked before it is opened, because opening alone can already disturb a device.
    if (mode != kReadExisting || stat(name.c_str(), &status) != 0 || !isRegular(status)) return 0;
    m_descriptor = open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_descriptor < 0) return 0;
    // Checked again, because the name may refer to something else by now.
    if (fstat(m_descriptor, &status) != 0 || !isRegular(status)) {
        Close();
        return 0;
    }
    // A file larger than the address space is reported to fill it: allocating its buffer then fails, instead of
    // succeeding for the remainder.
    constexpr std::uintmax_t kLongest = std::numeric_limits<std::size_t>::max();
    m_length = static_cast<std::size_t>(std::min(static_cast<std::uintmax_t>(status.st_size), kLongest));
    return 1;
}

std::size_t CVFile::Read(void* buffer, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t part = read(m_descriptor, static_cast<char*>(buffer) + done, size - done);
        if (part < 0 && errno == EINTR) continue;
        if (part <= 0) break;
        done += static_cast<std::size_t>(part);
    }
    return done;
}

void CVFile::Close() {
    if (m_descriptor >= 0) close(m_descriptor);
    m_descriptor = -1;
    m_length = 0;
}

}  // namespace _orvik_vi
