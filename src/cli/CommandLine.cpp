#include "cli/CommandLine.h"

#include "cli/CommandTable.h"
#include "cli/ExitStatus.h"
#include "cli/InputOutput.h"
#include "cli/TextOutput.h"
#include "cli/UsageRules.h"
#include "files/FileAccess.h"
#include "files/Finding.h"
#include "text/RuntimeError.h"

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

std::string FirstName(const Option& option) {
    const std::string names = option.names;
    return names.substr(0, names.find(','));
}

void AddOptions(CLI::App& app, Invocation& call) {
    app.set_help_flag();
    for (const Option& option : options) {
        if (option.flag != nullptr)
            app.add_flag(option.names, call.*option.flag);
        else if (option.list != nullptr)
            app.add_option(option.names, call.*option.list)->allow_extra_args(false);
        else
            app.add_option(option.names, call.*option.text);
    }
}

/// The arguments that are not options, in their order. Collected by hand: CLI11 would take a path
/// in square brackets for a list of paths.
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

struct Arguments {
    Invocation call;
    std::vector<const Option*> given;
};

/// Records the given options and refuses empty texts.
void CheckGiven(const CLI::App& app, Arguments& arguments) {
    for (const Option& option : options) {
        if (app.count(FirstName(option)) == 0)
            continue;
        arguments.given.push_back(&option);
        if (option.text != nullptr && (arguments.call.*option.text).empty())
            throw WrongUsage(FirstName(option) + " needs a text that is not empty", nullptr);
    }
}

Arguments Parse(int argc, const char* const* argv) {
    Arguments arguments;
    CLI::App app;
    AddOptions(app, arguments.call);
    app.allow_extras();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        throw WrongUsage(PathToUtf8(error.what()), nullptr);
    }
    arguments.call.operands = Operands(app);
    CheckGiven(app, arguments);
    return arguments;
}

/// Removes the command's name from the operands; null if there are none.
const Command* TakeCommand(Invocation& call) {
    if (call.operands.empty())
        return nullptr;
    const Command* command = FindCommand(call.operands.front());
    if (command == nullptr)
        throw WrongUsage("unknown command " + PathToUtf8(call.operands.front()), nullptr);
    call.operands.erase(call.operands.begin());
    return command;
}

void CheckRules(const Option& option, const Invocation& call, const Command& command) {
    for (const std::string& rule : call.*option.list)
        if (FindFindingRule(rule) == nullptr)
            throw WrongUsage(FirstName(option) + " knows no rule " + PathToUtf8(rule), &command);
}

void CheckOptions(const Arguments& arguments, const Command& command) {
    for (const Option* option : arguments.given)
        if ((option->ownOption & ~command.options) != 0)
            throw WrongUsage(FirstName(*option) + " is no option of " + command.name, &command);
    for (const Option& option : options)
        if (option.list != nullptr)
            CheckRules(option, arguments.call, command);
    const std::string fault = OptionFault(arguments.call, command);
    if (!fault.empty())
        throw WrongUsage(fault, &command);
}

void CheckOperands(const Invocation& call, const Command& command) {
    const std::size_t count = call.operands.size();
    const std::size_t least = call.filesFrom.empty() ? command.operandCount : 0;
    if (count < least || (count > command.operandCount && !command.moreOperands))
        throw WrongUsage(std::string(command.name) + " takes " + command.operands, &command);
    for (const std::string& operand : call.operands)
        if (operand.empty())
            throw WrongUsage("a file name is empty", &command);
}

/// The output of -o must not replace an input, which is another kind of file.
void CheckOutput(const Invocation& call, const Command& command) {
    if (call.output == standardStream)
        return;
    std::vector<std::string> inputs = call.operands;
    inputs.insert(inputs.end(), {call.standardLibrary, call.userLibrary, call.filesFrom});
    for (const std::string& input : inputs)
        if (IsSameFile(call.output, input))
            throw WrongUsage(PathToUtf8(call.output) + outputIsInput, &command);
}

int Dispatch(int argc, const char* const* argv, std::ostream& out, std::ostream& err) {
    Arguments arguments = Parse(argc, argv);
    Invocation& call = arguments.call;
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
    CheckOptions(arguments, *command);
    CheckOperands(call, *command);
    CheckOutput(call, *command);
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
        PrintError(err, FailureText(error));
        status = exitFailure;
    }
    if (!out.flush()) {
        PrintError(err, "standard output could not be written");
        status = exitFailure;
    }
    return status;
}

} // namespace strativo
