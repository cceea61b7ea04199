#include "tools/customstyle/Arguments.h"

#include <fmt/format.h>

#include <charconv>
#include <limits>

namespace customstyle_tool {
namespace {

// CLI11 takes an empty text for "good", and would read a number with a zero in front as octal.
template <typename Number>
std::string problemOfNumber(const std::string& text) {
    Number number{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc() && text == std::to_string(number)) return {};
    using Limits = std::numeric_limits<Number>;
    return fmt::format("\"{}\" is no whole number from {} to {}", text, Limits::min(), Limits::max());
}

std::string problemOfOutput(const std::string& path) {
    return path == "-" ? "\"-\" is no file; to print, use --stdout" : "";
}

}  // namespace

void addMapping(CLI::App& command, std::optional<std::string>& directory) {
    command
        .add_option("--mapping", directory,
                    "Directory of the mapping file CustomIndex; without it, feature type T has the style id 1000 + T")
        ->type_name("DIR");
}

void addFormat(CLI::App& command, std::string& format, const std::vector<std::string>& values,
               const std::string& description) {
    command.add_option("--format", format, description)->check(CLI::IsMember(values))->capture_default_str();
}

CLI::Validator isStyleId() {
    return CLI::Validator(problemOfNumber<unsigned int>, "");
}

CLI::Validator isLevel() {
    return CLI::Validator(problemOfNumber<int>, "");
}

CLI::Validator isOutputFile() {
    return CLI::Validator(problemOfOutput, "");
}

}  // namespace customstyle_tool
