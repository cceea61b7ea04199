// What a subcommand is: its words, its text for people, and what it does. Help, manual pages and completion read this.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace customstyle_tool {

/// Exit statuses. The tools judge files, so "the file is not good" is not an error of the tool.
inline constexpr int kGood = 0;
inline constexpr int kFinding = 1;
inline constexpr int kMisuse = 2;

/// Where the words of an option go: a flag, one value, an optional value, or several.
using Target = std::variant<bool*, std::string*, std::optional<std::string>*, std::vector<std::string>*>;

/// What a shell offers as a value.
enum class Offer { Nothing, Files, Directories, Choices };

/// An option ("-o,--output") or an argument ("FILE").
struct Option {
    std::string names{};
    std::string value{};  ///< what the value is called; empty for flags and arguments
    std::string help{};   ///< starts with a capital and has no full stop
    Target target{};
    Offer offer = Offer::Nothing;
    std::vector<std::string> choices{};  ///< the values to offer
    std::function<std::string(const std::string&)> problem =
        {};  ///< what is wrong with a value; empty where nothing is
    bool isRequired = false;
    bool isHidden = false;      ///< works, but is shown nowhere
    bool takesNumbers = false;  ///< several numbers may follow one after the other: --id 1 2 3

    bool isArgument() const { return !names.starts_with('-'); }
    bool isFlag() const { return std::holds_alternative<bool*>(target); }
    bool isRepeatable() const { return std::holds_alternative<std::vector<std::string>*>(target); }
};

struct ExitStatus {
    int status;
    std::string meaning;
};

/// Words that a subcommand prints, and what they mean.
struct Glossary {
    struct Term {
        std::string name;
        std::string meaning;
    };

    std::string title{};  ///< "The losses are"
    std::vector<Term> terms{};
};

struct ExampleCall {
    std::string what;
    std::string call;
};

/// What a subcommand is for; the help has a section for each purpose.
enum class Purpose { Judge, Ask, Write, SetUp };

struct Command {
    std::string name{};
    Purpose purpose = Purpose::Judge;
    std::string summary{};                   ///< one line, an imperative without full stop
    std::vector<std::string> description{};  ///< paragraphs; one that starts with a space keeps its lines
    std::vector<Option> options{};
    Glossary glossary{};
    std::vector<ExitStatus> statuses{};
    std::vector<ExampleCall> examples{};
    std::function<int()> run = {};  ///< prints what there is to print and returns the exit status
    bool isHidden = false;
};

/// Adds a subcommand to the program: each subcommand's file has one such object, and nothing else names the subcommand.
class Registration {
public:
    explicit Registration(Command (*make)()) noexcept;

private:
    friend std::vector<Command> registeredCommands();

    Command (*m_make)();
    const Registration* m_next;
};

/// All subcommands, by purpose and name.
std::vector<Command> registeredCommands();

/// The names of those that are not hidden.
std::vector<std::string> visibleNames(std::span<const Command> commands);

}  // namespace customstyle_tool
