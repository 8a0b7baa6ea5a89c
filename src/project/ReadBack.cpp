#include "project/ReadBack.h"

#include "edit/ConstructionSlots.h"
#include "files/ConstructionParser.h"
#include "files/ConstructionWriter.h"
#include "text/RuntimeError.h"

namespace strativo {

namespace {

/// The reader leaves a name without any of these alone, which spares most names the full trial.
bool IsHarmless(const std::string& name) {
    return name.find_first_of("'*!/}\t\r\n\x1a") == std::string::npos
           && name.find("2D") == std::string::npos;
}

/// Writes the project and reads it back; an empty project when a reader would give up.
Project WrittenAndRead(const Project& written) {
    Project read;
    ParserEvents events;
    events.createConstruction = [&] { CreateUnnamedConstruction(read); };
    try {
        ParseConstructionFile(FormatConstructionFile(written), read, events);
    } catch (const RuntimeError&) {
        read = Project();
    }
    return read;
}

bool ConstructionComesBack(const std::string& name) {
    Project trial;
    OpenConstructionWindow(trial);
    trial.constructions[1].name = name;
    const Project read = WrittenAndRead(trial);
    return read.constructions.Size() == 1 && read.constructions[1].name == name;
}

bool GlassTypeComesBack(const std::string& name) {
    Project trial;
    trial.glassTypes[1].name = name;
    const Project read = WrittenAndRead(trial);
    return read.glassTypes.Size() == 1 && read.glassTypes[1].name == name;
}

bool GlassType2DComesBack(const std::string& name) {
    Project trial;
    trial.glassTypes2D[1].name = name;
    const Project read = WrittenAndRead(trial);
    return read.glassTypes2D.Size() == 1 && read.glassTypes2D[1].name == name;
}

bool LibraryPathsComeBack(const std::string& standard, const std::string& user) {
    Project trial;
    trial.standardLibraryFile = standard;
    trial.userLibraryFile = user;
    trial.userLoaded = true;
    const Project read = WrittenAndRead(trial);
    return read.standardLibraryFile == standard && read.userLibraryFile == user;
}

} // namespace

bool ComesBack(NamedPart part, const std::string& name) {
    if (IsHarmless(name))
        return true;
    switch (part) {
    case NamedPart::standardLibrary:
        return LibraryPathsComeBack(name, "");
    case NamedPart::userLibrary:
        return LibraryPathsComeBack(singleBlank, name);
    case NamedPart::construction:
        return ConstructionComesBack(name);
    case NamedPart::glassType:
        return GlassTypeComesBack(name);
    case NamedPart::glassType2D:
        return GlassType2DComesBack(name);
    }
    return false;
}

std::vector<std::string> UnreadableNames(const Project& project) {
    std::vector<std::string> names;
    const auto test = [&](NamedPart part, const std::string& name) {
        if (!ComesBack(part, name))
            names.push_back(name);
    };
    test(NamedPart::standardLibrary, project.standardLibraryFile);
    if (project.userLoaded)
        test(NamedPart::userLibrary, project.userLibraryFile);
    for (const int number : ConstructionsInUse(project))
        test(NamedPart::construction, project.constructions[number].name);
    for (const GlassType& type : project.glassTypes)
        test(NamedPart::glassType, type.name);
    for (const GlassType2D& type : project.glassTypes2D)
        test(NamedPart::glassType2D, type.name);
    return names;
}

} // namespace strativo
