#include "tools/server/WatchedFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <utility>

#include "tools/host/Files.h"
#include "tools/support/Hash.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

constexpr char kNoVersion[] = "none";
constexpr std::time_t kFreshSeconds = 2;  // file systems count time in steps of up to two seconds

FileState withoutText(const std::string& path, const std::string& reason) {
    std::string problem = fmt::format("{}: {}", path, reason);
    std::string version = fmt::format("x{:016x}", hashOf(problem));
    return {.version = std::move(version), .text = {}, .problem = std::move(problem)};
}

FileState stateOf(const std::string& path, std::string text) {
    if (!isUtf8(text)) return withoutText(path, fmt::format("is not UTF-8 ({} bytes)", text.size()));
    std::string version = versionOf(text);
    return {.version = std::move(version), .text = std::move(text)};
}

FileState readRegular(const std::string& path, int descriptor) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0) return withoutText(path, lastError());
    if (!S_ISREG(status.st_mode)) return withoutText(path, "is not a regular file");
    std::string text;
    if (!readAll(descriptor, text, kLargestWatched)) return withoutText(path, lastError());
    if (text.size() > kLargestWatched)
        return withoutText(path, fmt::format("is larger than {} MB", kLargestWatched >> 20));
    return stateOf(path, std::move(text));
}

}  // namespace

std::string versionOf(std::string_view text) {
    return fmt::format("{:016x}-{}", hashOf(text), text.size());
}

FileState readState(const std::string& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0 && errno == ENOENT) {
        return {.version = kNoVersion, .text = {}, .problem = path + ": no such file", .isThere = false};
    }
    if (descriptor < 0) return withoutText(path, lastError());
    FileState state = readRegular(path, descriptor);
    close(descriptor);
    return state;
}

WatchedFile::WatchedFile(std::string path)
    : m_path(std::move(path)),
      m_read(signatureOf(m_path)),
      m_seen(m_read),
      m_wasFresh(isFresh(m_read)),
      m_state(readState(m_path)) {}

WatchedFile::Signature WatchedFile::signatureOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return {};
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim, status.st_ctim};
}

bool WatchedFile::isSame(const Signature& left, const Signature& right) {
    const auto isSameTime = [](const timespec& a, const timespec& b) {
        return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
    };
    return left.device == right.device && left.node == right.node && left.size == right.size &&
           isSameTime(left.modified, right.modified) && isSameTime(left.changed, right.changed);
}

// Written so recently that another write might leave the same times.
bool WatchedFile::isFresh(const Signature& signature) {
    return signature.size >= 0 && std::time(nullptr) - signature.changed.tv_sec <= kFreshSeconds;
}

bool WatchedFile::poll() {
    const Signature now = signatureOf(m_path);
    const bool isStill = isSame(now, std::exchange(m_seen, now));
    const bool isWritten = !isSame(now, m_read);
    if (!isStill || (!isWritten && !m_wasFresh)) return false;
    m_wasFresh = isFresh(now);
    m_read = now;
    FileState state = readState(m_path);
    const bool isOther = state.version != m_state.version;
    m_state = std::move(state);
    return isWritten || isOther;
}

}  // namespace customstyle_tool
