#include "project/CommandLineHelp.h"

namespace strativo {

namespace {

constexpr char helpText[] =
    "Usage: strativo [FILE.con]\n"
    "\n"
    "Edits multi-layer building constructions and glazing.\n"
    "\n"
    "All arguments together are the path of one construction file, which is opened.\n"
    "\n"
    "  --help     print this help, if it is the only argument\n"
    "  --version  print the version, if it is the only argument\n"
    "\n"
    "The manual is opened by Help > Contents. strativo-cli does the same work from scripts.\n";

} // namespace

std::string HelpOrVersion(const std::vector<std::string>& arguments) {
    if (arguments.size() != 1)
        return "";
    if (arguments[0] == "--help")
        return helpText;
    return arguments[0] == "--version" ? "strativo " STRATIVO_VERSION "\n" : "";
}

} // namespace strativo
