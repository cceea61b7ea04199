#include "tools/customstyle/Console.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

std::string environment(const char* name) {
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nobody writes the environment
    return value == nullptr ? "" : value;
}

}  // namespace

int complain(std::string_view text) {
    fmt::print(stderr, "customstyle: {}\n", escapedText(text));
    return kMisuse;
}

int withOutputWritten(int status) {
    errno = 0;
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    const std::string reason = errno == 0 ? "" : ": " + std::generic_category().message(errno);
    return complain("standard output cannot be written" + reason);
}

void print(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size()) return;
    throw std::system_error(errno, std::generic_category());
}

bool isColored(const std::string& choice) {
    if (choice != "auto") return choice == "always";
    return ::isatty(STDOUT_FILENO) != 0 && environment("NO_COLOR").empty() && environment("TERM") != "dumb";
}

std::string counted(std::size_t number, std::string_view what) {
    return fmt::format("{} {}{}", number, what, number == 1 ? "" : "s");
}

}  // namespace customstyle_tool
