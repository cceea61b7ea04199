#include "tools/customstyle/Console.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

#include "tools/support/PlainText.h"

namespace customstyle_tool {

int complain(std::string_view text, int status) {
    fmt::print(stderr, "customstyle: {}\n", escapedText(text));
    return status;
}

int withOutputWritten(int status) {
    errno = 0;
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    const std::string reason = errno == 0 ? "" : ": " + std::generic_category().message(errno);
    return complain("standard output cannot be written" + reason);
}

}  // namespace customstyle_tool
