#include "cli/CommandLine.h"

#include "cli/CommandTable.h"
#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/TextOutput.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace strativo {

namespace {

struct WrongUsage : std::runtime_error {
    WrongUsage(const std::string& message, const Command* ofCommand)
        : std::runtime_error(message), command(ofCommand) {}

    const Command* command; ///< null when none is known
};

void AddOptions(CLI::App& app, Invocation& call) {
    app.set_help_flag();
    for (const Option& option : options) {
        if (option.flag != nullptr)
            app.add_flag(option.names, call.*option.flag);
        else
            app.add_option(option.names, call.*option.text);
    }
}

/// What is no option, in order. Collected by hand, since a list of operands would take a path in
/// square brackets for a list of paths.
std::vector<std::string> Operands(const CLI::App& app) {
    std::vector<std::string> operands;
    bool optionsOver = false;
    for (const std::string& argument : app.remaining()) {
        if (!optionsOver && argument == "--")
            optionsOver = true;
        else if (!optionsOver && argument.size() > 1 && argument[0] == '-')
            throw WrongUsage("unknown option " + PathToUtf8(argument), nullptr);
        else
            operands.push_back(argument);
    }
    return operands;
}

Invocation Parse(int argc, const char* const* argv) {
    Invocation call;
    CLI::App app;
    AddOptions(app, call);
    app.allow_extras();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        throw WrongUsage(PathToUtf8(error.what()), nullptr);
    }
    call.operands = Operands(app);
    for (const Option& option : options)
        if (option.text != nullptr && app.count(option.names) > 0 && (call.*option.text).empty())
            throw WrongUsage(std::string(option.names) + " needs a text that is not empty",
                             nullptr);
    return call;
}

/// Takes the command's name off the operands; null where there are none.
const Command* TakeCommand(Invocation& call) {
    if (call.operands.empty())
        return nullptr;
    const Command* command = FindCommand(call.operands.front());
    if (command == nullptr)
        throw WrongUsage("unknown command " + PathToUtf8(call.operands.front()), nullptr);
    call.operands.erase(call.operands.begin());
    return command;
}

void CheckOptions(const Invocation& call, const Command& command) {
    const Invocation defaults;
    for (const Option& option : options) {
        const bool given =
            option.flag != nullptr ? call.*option.flag : call.*option.text != defaults.*option.text;
        if (given && option.ownOption != noOption && (command.options & option.ownOption) == 0)
            throw WrongUsage(std::string(option.names) + " is no option of " + command.name,
                             &command);
    }
    if (!IsSortKey(call.sortKey))
        throw WrongUsage("--sort knows no order " + PathToUtf8(call.sortKey), &command);
}

void CheckOperands(const Invocation& call, const Command& command) {
    const std::size_t count = call.operands.size();
    if (count < command.operandCount || (count > command.operandCount && !command.moreOperands))
        throw WrongUsage(std::string(command.name) + " takes " + command.operands, &command);
    for (const std::string& operand : call.operands)
        if (operand.empty())
            throw WrongUsage("a file name is empty", &command);
}

int Dispatch(int argc, const char* const* argv, std::ostream& out, std::ostream& err) {
    Invocation call = Parse(argc, argv);
    const Command* command = TakeCommand(call);
    if (call.help) {
        PrintHelp(out, command);
        return exitAllWell;
    }
    if (call.version) {
        out << programName << " " << STRATIVO_VERSION << '\n';
        return exitAllWell;
    }
    if (command == nullptr)
        throw WrongUsage("no command given", nullptr);
    CheckOptions(call, *command);
    CheckOperands(call, *command);
    return command->run(call, out, err);
}

} // namespace

int RunCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err) {
    int status = exitAllWell;
    try {
        status = Dispatch(argc, argv, out, err);
    } catch (const WrongUsage& error) {
        PrintError(err, error.what());
        err << UsageLine(error.command) << '\n';
        return exitWrongUsage;
    } catch (const std::exception& error) {
        PrintError(err, error.what());
        status = exitFailure;
    }
    if (!out.flush()) {
        PrintError(err, "standard output could not be written");
        status = exitFailure;
    }
    return status;
}

} // namespace strativo
