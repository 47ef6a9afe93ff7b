// What is wrong with a command line. A word that nothing takes is told first: what else is amiss
// often follows from it.
#include "usage_errors.hpp"

#include "suggestions.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace orva::tool {
namespace {

bool isOption(const std::string& word) { return word.size() > 1 && word.front() == '-'; }

std::string unknownOption(const CLI::App& command, const std::string& word) {
    const std::string name = word.substr(0, word.find('='));
    std::vector<std::string> known;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& longName : option->get_lnames()) {
            known.push_back("--" + longName);
        }
    }
    return "unknown option '" + name + "'" + suggestion(name, known);
}

std::string unknownCommand(const CLI::App& app, const std::string& word) {
    std::vector<std::string> known;
    for (const CLI::App* command : app.get_subcommands({})) {
        known.push_back(command->get_name());
    }
    return "unknown command '" + word + "'" + suggestion(word, known);
}

// Empty if each is given once.
std::string repeatedOption(const CLI::App& command) {
    const auto repeated = command.get_options([](const CLI::Option* option) {
        return option->get_multi_option_policy() == CLI::MultiOptionPolicy::Throw &&
               option->count() > 1;
    });
    return repeated.empty() ? "" : repeated.front()->get_name() + " is given more than once";
}

std::string whatIsWrong(const CLI::App& app, const CLI::App& command, const std::string& refused) {
    for (const CLI::App* asked : {&app, &command}) {
        const std::vector<std::string> unknown = asked->remaining();
        const auto word = std::ranges::find_if_not(unknown, isOption);
        if (&command == &app && word != unknown.end()) {
            return unknownCommand(app, *word);
        }
        const auto option = std::ranges::find_if(unknown, isOption);
        if (option != unknown.end()) {
            return unknownOption(*asked, *option);
        }
        if (asked != &app && word != unknown.end()) {
            return "one file too many: '" + *word + "'";
        }
    }
    if (&command == &app) {
        return "which command?";
    }
    const std::string repeated = repeatedOption(command);
    return repeated.empty() ? refused : repeated;
}

}  // namespace

std::string usageError(const CLI::App& app, const CLI::ParseError& error) {
    const auto commands = app.get_subcommands();
    const CLI::App& command = commands.empty() ? app : *commands.front();
    const std::string name =
        &command == &app ? app.get_name() : app.get_name() + " " + command.get_name();
    return name + ": " + whatIsWrong(app, command, error.what()) + "\n'" + name +
           " --help' tells more.";
}

}  // namespace orva::tool
