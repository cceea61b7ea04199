#include "tests/host/SystemCalls.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>

namespace customstyle_test {

SystemCalls systemCalls;

namespace {

template <typename Call, typename... Arguments>
auto realCall(const char* name, Arguments... arguments) {
    return reinterpret_cast<Call*>(dlsym(RTLD_NEXT, name))(arguments...);
}

bool fails(const char* name) {
    if (systemCalls.failing != name) return false;
    systemCalls.failing.clear();
    errno = systemCalls.error;
    return true;
}

std::string kindOf(int descriptor) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0) return "closed";
    return S_ISDIR(status.st_mode) ? "directory" : "file";
}

}  // namespace
}  // namespace customstyle_test

using customstyle_test::fails;
using customstyle_test::kindOf;
using customstyle_test::realCall;
using customstyle_test::systemCalls;

// These stand before those of the C library.
extern "C" {

int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
    return fails("fchown") ? -1 : realCall<int(int, uid_t, gid_t)>("fchown", descriptor, owner, group);
}

ssize_t read(int descriptor, void* bytes, std::size_t size) {
    return fails("read") ? -1 : realCall<ssize_t(int, void*, std::size_t)>("read", descriptor, bytes, size);
}

ssize_t write(int descriptor, const void* bytes, std::size_t size) {
    return fails("write") ? -1 : realCall<ssize_t(int, const void*, std::size_t)>("write", descriptor, bytes, size);
}

int fsync(int descriptor) {
    systemCalls.made.push_back("fsync " + kindOf(descriptor));
    return fails("fsync") ? -1 : realCall<int(int)>("fsync", descriptor);
}

int rename(const char* from, const char* to) noexcept {
    systemCalls.made.emplace_back("rename");
    return fails("rename") ? -1 : realCall<int(const char*, const char*)>("rename", from, to);
}
}
