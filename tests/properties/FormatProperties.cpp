// What format promises: another layout of the same text, and always the same one.
#include <stdexcept>

#include "tests/properties/Properties.h"
#include "tests/properties/Tool.h"

namespace customstyle_test::properties {
namespace {

std::string formatted(const std::string& text) {
    const Run run = runTool({"format", "--stdout", fileWith("style.json", text)});
    if (run.status != 0) throw std::runtime_error("format: " + run.err);
    return run.out;
}

// All but the blanks between the parts.
std::string essence(const std::string& text) {
    std::string kept;
    bool isInText = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') isInText = !isInText;
        if (isInText || std::string(" \t\r\n").find(text[i]) == std::string::npos) kept += text[i];
        if (isInText && text[i] == '\\') kept += text[++i];
    }
    return kept;
}

}  // namespace

std::optional<Failure> formatHolds(const Trial& trial) {
    const std::string text = written(trial.rules).text;
    const std::string laidOut = formatted(text);
    if (essence(laidOut) != essence(text)) return Failure{"format changes blanks only", laidOut};
    if (formatted(laidOut) != laidOut) return Failure{"formatted again it is the same", laidOut};
    return {};
}

}  // namespace customstyle_test::properties
