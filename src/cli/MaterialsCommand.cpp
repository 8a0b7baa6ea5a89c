#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/InputOutput.h"
#include "cli/JsonRecords.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "edit/MaterialList.h"
#include "exchange/LibraryTable.h"
#include "files/LibraryLoading.h"
#include "text/Printable.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <string_view>

namespace strativo {

namespace {

struct SortOrder {
    std::string_view key;
    void (*sort)(Project&); ///< applied after the name order; null for none
};

constexpr std::string_view asStored = "file";
constexpr std::array<SortOrder, 5> sortOrders = {{
    {"name", nullptr},
    {asStored, nullptr},
    {"conductivity", SortByConductivity},
    {"density", SortByDensity},
    {"specific-heat", SortBySpecificHeat},
}};

/// Whether the whole library was read.
bool Load(Session& session, bool user) {
    Project& project = session.project;
    if (!user) {
        project.standardLibraryFile = CallersPath(session.file);
        return LoadStandardLibrary(project, session.prompts) == LibraryLoad::loaded;
    }
    project.userLibraryFile = CallersPath(session.file);
    const LibraryLoad result = LoadUserLibrary(project, session.prompts);
    if (result == LibraryLoad::givenUp)
        throw ProgramEnd();
    return result == LibraryLoad::loaded;
}

/// The program sorts every library that it loads by name first, so names decide between equal
/// values.
void Sort(Project& project, const std::string& key) {
    if (key == asStored)
        return;
    SortByName(project);
    for (const SortOrder& order : sortOrders)
        if (order.key == key && order.sort != nullptr)
            order.sort(project);
}

void PrintAsJson(std::ostream& out, const Session& session, bool user) {
    const Project& project = session.project;
    const MaterialLibrary& library = Library(project, project.shownLibrary);
    JsonWriter writer(out);
    writer.Begin('{');
    WriteFileMembers(writer, session);
    writer.Member("loaded", user ? project.userLoaded : project.standardLoaded);
    writer.Key("materials");
    writer.Begin('[');
    const int count = MaterialCount(library);
    for (int slot = 1; slot <= count; ++slot)
        writer.Value(JsonOfMaterial(library, slot));
    writer.End(']');
    writer.End('}');
}

/// Prints rows with control characters escaped, apart from the row ends.
void PrintPrintable(std::ostream& out, std::string_view rows) {
    constexpr std::string_view rowEnd = "\r\n";
    while (!rows.empty()) {
        const auto end = rows.find(rowEnd);
        out << Printable(rows.substr(0, end)) << rowEnd;
        rows.remove_prefix(end + rowEnd.size());
    }
}

/// Names are printed unchanged, so that a library made from the table is the same. Only for a
/// terminal are control characters escaped.
void PrintAsCsv(std::ostream& out, const Session& session) {
    if (session.Status() != exitAllWell)
        return;
    const Project& project = session.project;
    const std::string table = FormatLibraryTable(Library(project, project.shownLibrary));
    if (IsTerminal(out))
        PrintPrintable(out, table);
    else
        out << table;
}

} // namespace

bool IsSortKey(const std::string& key) {
    return key.empty()
           || std::any_of(sortOrders.begin(), sortOrders.end(),
                          [&](const SortOrder& order) { return order.key == key; });
}

int Materials(const Invocation& call, std::ostream& out, std::ostream& err) {
    Session session(call.operands[0], call, err);
    Project& project = session.project;
    session.Run([&] { return Load(session, call.user); });
    project.shownLibrary =
        static_cast<std::int16_t>(call.user ? userLibraryNumber : standardLibraryNumber);
    Sort(project, call.sortKey.empty() && call.csv ? std::string(asStored) : call.sortKey);
    if (call.json)
        PrintAsJson(out, session, call.user);
    else if (call.csv)
        PrintAsCsv(out, session);
    else if (!session.prompts.Ended())
        PrintLines(out, MaterialLines(project));
    return session.Status();
}

} // namespace strativo
