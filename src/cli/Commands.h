#pragma once

#include "cli/Invocation.h"

#include <iosfwd>
#include <string>

namespace strativo {

// Each runs one command for the operands given and returns the exit status.
int Show(const Invocation& call, std::ostream& out, std::ostream& err);
int Check(const Invocation& call, std::ostream& out, std::ostream& err);
int Rewrite(const Invocation& call, std::ostream& out, std::ostream& err);
int ImportGlass(const Invocation& call, std::ostream& out, std::ostream& err);
int Build(const Invocation& call, std::ostream& out, std::ostream& err);
int Export(const Invocation& call, std::ostream& out, std::ostream& err);
int MakeLibrary(const Invocation& call, std::ostream& out, std::ostream& err);
int WriteReport(const Invocation& call, std::ostream& out, std::ostream& err);
int Thermal(const Invocation& call, std::ostream& out, std::ostream& err);
int Materials(const Invocation& call, std::ostream& out, std::ostream& err);

/// Whether materials can be listed in an order of this name; "" is the default one.
bool IsSortKey(const std::string& key);

} // namespace strativo
