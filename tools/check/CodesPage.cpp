#include <fmt/format.h>

#include "tools/check/Report.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kWidth = 98;
constexpr std::size_t kMargin = 2;

// A severity consists of small letters.
std::string capitalisedName(Severity severity) {
    std::string text(severityName(severity));
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

std::string codeText(const CodeInfo& info) {
    std::string text = fmt::format("{} ({}): {}\n", info.name, severityName(info.severity), info.title);
    text += wrapped(info.explanation, kWidth, kMargin);
    text += wrapped(fmt::format("Remedy: {}.", info.remedy), kWidth, kMargin);
    const std::string example = shownExample(info);
    if (!example.empty()) text += "  Example:\n" + indented(example, "    ");
    return text;
}

std::string sectionOf(const CodeInfo& info) {
    return fmt::format("### {}\n\n{}\n", info.name, codeMarkdown(info));
}

std::string sectionMarkdown(Trait file, const char* title) {
    std::string text = fmt::format("## {}\n\n", title);
    for (const CodeInfo& info : codeInfos()) {
        if (info.has(file)) text += sectionOf(info);
    }
    return text;
}

}  // namespace

std::string codeMarkdown(const CodeInfo& info) {
    std::string text = fmt::format("*{}*: {}.\n\n{}\n\nRemedy: {}.\n", capitalisedName(info.severity), info.title,
                                   info.explanation, info.remedy);
    const std::string example = shownExample(info);
    if (!example.empty()) text += fmt::format("\n```\n{}\n```\n", example);
    return text;
}

std::string codesText() {
    std::string text;
    for (const CodeInfo& info : codeInfos()) text += (text.empty() ? "" : "\n") + codeText(info);
    return text;
}

std::string codesMarkdown() {
    std::string text =
        "# What `customstyle check` finds\n\n"
        "Made from the tool's own table by `customstyle check --codes-markdown`; a test compares the two.\n\n"
        "An error is dropped or drawn differently for certain; a warning is about something that cannot do what its "
        "author meant; a note is something to know. Examples are whole files; what they name "
        "in parentheses is too long to be written here.\n\n";
    text += sectionMarkdown(Trait::Style, "Style files");
    text += sectionMarkdown(Trait::Mapping, "Mapping files");
    text.pop_back();
    return text;
}

}  // namespace customstyle_tool
