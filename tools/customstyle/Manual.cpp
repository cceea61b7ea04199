#include "tools/customstyle/Manual.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "tools/customstyle/HelpText.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

constexpr char kEnvironment[] = R"(.Sh ENVIRONMENT
.Bl -tag -width NO_COLOR
.It Ev NO_COLOR
When set and not empty, output to a terminal has no colours.
.It Ev TERM
.Ql dumb
is a terminal without colours.
.El
)";

constexpr char kAbout[] = R"(.Sh DESCRIPTION
.Nm
works on the two files that give a map its look: the style file, a list of rules in JSON, and the mapping file
.Pa CustomIndex ,
which lists the renderer's style ids for each feature type.
It asks the very component that the map engine draws with, so what it says is what will be drawn.
.Pp
Rules can name the zoom levels 4 to 21; all other levels behave alike.
Without
.Fl -mapping ,
feature type T has the one style id 1000 + T; where a claim can be proven for every mapping, it is.
.Pp
A style file named
.Pa \-
is standard input.
Each subcommand has a page of its own and a help,
.Nm
.Ar command
.Fl -help .
)";

constexpr char kFiles[] = R"(.Sh FILES
.Bl -tag -width Ds
.It Pa CustomIndex
The mapping file, a JSON object with a list of style ids for each feature type.
.El
)";

std::string upper(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; });
    return text;
}

// A text as it is: none of it is markup.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '\\')
            result += "\\e";
        else if (c == '-')
            result += "\\-";
        else
            result += c;
    }
    const bool isRequest = result.starts_with('.') || result.starts_with('\'');
    return isRequest ? "\\&" + result : result;
}

// Each sentence on a line of its own, as manual pages have it.
std::string sentences(std::string_view text) {
    std::string lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(". "), text.find(".\n"));
        lines += escaped(text.substr(0, end == std::string_view::npos ? end : end + 1)) + "\n";
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    }
    return lines;
}

std::string literal(const std::string& text) {
    std::string lines = ".Bd -literal -offset indent\n";
    for (const std::string& line : split(text, '\n')) lines += escaped(line) + "\n";
    return lines + ".Ed\n";
}

std::string troffParagraph(const std::string& text) {
    const bool keepsLines = text.starts_with(' ') || text.find('\n') != std::string::npos;
    return keepsLines ? literal(text) : ".Pp\n" + sentences(text);
}

// "Fl o , Fl -output Ar OUT", "Ar FILE ..."
std::string macrosOf(const Option& option, const char* between) {
    if (option.isArgument())
        return fmt::format("Ar {}{}", option.names.substr(0, option.names.find(',')),
                           option.isRepeatable() ? " ..." : "");
    std::string macros;
    for (const std::string& name : split(option.names, ',')) {
        macros += fmt::format("{}Fl {}", macros.empty() ? "" : between, name.substr(1));
    }
    return option.value.empty() ? macros : fmt::format("{} Ar {}", macros, option.value);
}

std::string synopsisOf(const Command& command) {
    std::string text = fmt::format(".Nm\n.Cm {}\n", command.name);
    for (const bool arguments : {false, true}) {
        for (const Option& option : command.options) {
            if (option.isHidden || option.isArgument() != arguments) continue;
            text += fmt::format(".{}{}\n", option.isRequired ? "" : "Op ", macrosOf(option, " | "));
        }
    }
    return text;
}

std::string optionsOf(const Command& command) {
    std::string text = ".Bl -tag -width Ds\n";
    for (const Option& option : command.options) {
        if (!option.isHidden) text += fmt::format(".It {}\n{}.\n", macrosOf(option, " , "), escaped(option.help));
    }
    return text + ".It Fl h , Fl -help\nPrint a help.\n.El\n";
}

std::string glossaryOf(const Glossary& glossary) {
    if (glossary.terms.empty()) return {};
    std::string text = ".Pp\n" + glossary.title + ":\n.Bl -tag -width Ds\n";
    for (const Glossary::Term& term : glossary.terms) {
        text += fmt::format(".It {}\n{}.\n", escaped(term.name), escaped(term.meaning));
    }
    return text + ".El\n";
}

std::string statusesOf(const Command& command) {
    std::string text = ".Sh EXIT STATUS\n.Bl -tag -width Ds\n";
    for (const ExitStatus& each : command.statuses) {
        text += fmt::format(".It {}\n{}.\n", each.status, escaped(each.meaning));
    }
    return text + ".El\n";
}

std::string examplesOf(const Command& command) {
    if (command.examples.empty()) return {};
    std::string text = ".Sh EXAMPLES\n";
    const char* separator = "";
    for (const ExampleCall& each : command.examples) {
        std::string what = each.what;
        what.front() = upper(what.substr(0, 1)).front();
        text += fmt::format("{}{}:\n.Dl {}\n", separator, escaped(what), escaped(each.call));
        separator = ".Pp\n";
    }
    return text;
}

std::string headOf(const std::string& page, const std::string& summary) {
    return fmt::format(".Dd {}\n.Dt {} 1\n.Os\n.Sh NAME\n.Nm {}\n.Nd {}\n.Sh SYNOPSIS\n", CUSTOMSTYLE_DATE, upper(page),
                       page, escaped(summary));
}

std::string lowerFirst(std::string text) {
    if (!text.empty() && text[0] >= 'A' && text[0] <= 'Z') text[0] = static_cast<char>(text[0] - 'A' + 'a');
    return text;
}

std::string listOf(std::span<const Command> commands) {
    std::string text = ".Bl -tag -width completion\n";
    for (const Command& command : commands) {
        if (command.isHidden) continue;
        text += fmt::format(".It Cm {}\n{}; see\n.Xr customstyle\\-{} 1 .\n", command.name, escaped(command.summary),
                            command.name);
    }
    return text + ".El\n";
}

std::string allExamples(std::span<const Command> commands) {
    std::string text;
    for (const Command& command : commands) {
        if (command.isHidden || command.examples.empty()) continue;
        const std::string examples = examplesOf({.examples = {command.examples.front()}});
        text += text.empty() ? examples : ".Pp\n" + examples.substr(examples.find('\n') + 1);
    }
    return text;
}

}  // namespace

std::string programManual(std::span<const Command> commands) {
    std::string summary = lowerFirst(programSummary());
    summary.pop_back();
    std::string text = headOf("customstyle", summary);
    text += ".Nm\n.Fl -help | Fl -version\n.Nm\n.Ar command\n.Op Ar option ...\n.Op Ar argument ...\n";
    text += kAbout;
    text += ".Pp\nThe subcommands are:\n" + listOf(commands) + kEnvironment + kFiles;
    const Command statuses{.statuses = {{0, "All is well"},
                                        {1, "The files are not good, or not equal"},
                                        {2, "Wrong usage, or a file that cannot be read or written"}}};
    return text + statusesOf(statuses) + allExamples(commands);
}

std::string commandManual(const Command& command) {
    const std::string page = "customstyle-" + command.name;
    std::string text = headOf(page, lowerFirst(command.summary));
    std::string synopsis = synopsisOf(command);
    synopsis.replace(0, std::string_view(".Nm\n").size(), ".Nm customstyle\n");
    text += synopsis + fmt::format(".Sh DESCRIPTION\n{}.\n", escaped(command.summary));
    for (const std::string& each : command.description) text += troffParagraph(each);
    text += ".Pp\nThe arguments and options are:\n" + optionsOf(command) + glossaryOf(command.glossary);
    text += statusesOf(command) + examplesOf(command);
    return text + ".Sh SEE ALSO\n.Xr customstyle 1\n";
}

}  // namespace customstyle_tool
