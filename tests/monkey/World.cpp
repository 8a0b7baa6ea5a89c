#include "World.h"

#include "files/FileAccess.h"
#include "fuzz/ProjectSupport.h"
#include "support/Mutation.h"
#include "support/Samples.h"

#include <cstdlib>
#include <sys/stat.h>

namespace strativo::monkey {

namespace fs = std::filesystem;

namespace {

constexpr const char* goldenFolders[] = {
    "broken-name", "cavities",     "comments",    "glass",        "glass-2d",
    "odd-lines",   "plain-opaque", "transparent", "user-library", "wrong-library"};

std::string Source(const std::string& path) {
    return SourceFile("tests/golden/" + path);
}

} // namespace

std::string World::Add(const std::string& name, const std::string& bytes) {
    std::string path = folder.Write(name, bytes);
    Know(path);
    return path;
}

void World::WriteGoldenFiles() {
    for (const std::string name : goldenFolders) {
        constructionFiles.push_back(Add(name + "/input.con", Source(name + "/input.con")));
        for (const char* library : {"/stdmat.lby", "/user.lby"})
            if (const std::string bytes = Source(name + library); !bytes.empty())
                libraries.push_back(Add(name + library, bytes));
    }
}

void World::WriteLibraries() {
    libraries.push_back(Add("library/stdmat.lby", standardLibraryBytes));
    libraries.push_back(Add("library/user.lby", userLibraryBytes));
    libraries.push_back(Add("library/odd.lby", fuzz::standardMaterials));
    libraries.push_back(Add("library/odd-user.lby", fuzz::userMaterials));
    libraries.push_back(Add("library/breaks-off.lby", "5'X' 1 2"));
    libraries.push_back(Add("library/empty.lby", ""));
}

/// More windows than the menu lists, and one construction with every layer slot taken.
void World::WriteLargeFile() {
    constexpr int many = 40;
    std::string text =
        "!MATERIALS FILE = '" + (folder.Path() / "library/stdmat.lby").string() + "'\r\n";
    for (int number = 1; number <= many; ++number) {
        text += "!CONSTRUCTION 'Wall & " + std::to_string(number) + "'\r\n";
        for (int layer = 1; layer <= number % 16; ++layer)
            text += "_ " + std::to_string(layer) + " = 12 0.105 0 *\r\n";
        text += "!END\r\n";
    }
    constructionFiles.push_back(Add("large.con", text));
}

void World::WriteOddities() {
    const std::string pipe = (folder.Path() / "pipe.con").string();
    fs::remove(pipe);
    mkfifo(pipe.c_str(), 0600);
    fs::create_directories(folder.Path() / "folder.con");
    const std::string link = (folder.Path() / "linked.con").string();
    fs::remove(link);
    fs::create_symlink(folder.Path() / "glass/input.con", link);
    oddities = {pipe,
                (folder.Path() / "folder.con").string(),
                link,
                (folder.Path() / "no/such/file.con").string(),
                (folder.Path() / "missing.con").string(),
                Add("na\xc3\xafve \xe2\x82\xac 'x'.con", Source("glass/input.con")),
                Add("nothing.con", ""),
                Add("zero.con", std::string(3, '\0')),
                "relative.con"};
    for (const std::string& path : oddities)
        Know(path);
}

void World::WriteDamaged(Dice& dice) {
    Mutation mutation(static_cast<unsigned>(dice.Below(1'000'000)));
    const std::string name = dice.Pick(goldenFolders);
    constructionFiles.push_back(Add("damaged.con", mutation.Of(Source(name + "/input.con"))));
    libraries.push_back(Add("library/damaged.lby", mutation.Of(standardLibraryBytes)));
}

void World::WriteSettings(Dice& dice) {
    const std::string library = (folder.Path() / "library/stdmat.lby").string();
    const std::string gone = (folder.Path() / "library/gone.lby").string();
    std::string text = "[Files]\nStdMat=" + (dice.OneIn(8) ? gone : library) + "\n";
    if (dice.OneIn(3))
        text += "Help=" + AnyPath(dice) + "\n";
    folder.Write("settings/Stratv.ini", text);
    setenv("HOME", folder.Path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", (folder.Path() / "settings").c_str(), 1);
    setenv("XDG_STATE_HOME", (folder.Path() / "state").c_str(), 1);
}

void World::Prepare(Dice& dice) {
    constructionFiles.clear();
    libraries.clear();
    WriteGoldenFiles();
    WriteLibraries();
    WriteLargeFile();
    WriteOddities();
    WriteDamaged(dice);
    WriteSettings(dice);
    if (dice.OneIn(5))
        fs::remove_all(folder.Path() / "state");
}

std::string World::Meddle(Dice& dice, const std::string& constructionFile) {
    const bool ofProject = dice.OneIn(2) && fs::is_regular_file(constructionFile);
    const std::string path = ofProject ? constructionFile : dice.Pick(constructionFiles);
    if (dice.OneIn(4)) {
        fs::remove(path);
        return "removes " + ShortName(path);
    }
    const std::string bytes = Source(dice.Pick(goldenFolders) + std::string("/input.con"));
    Add(fs::relative(path, folder.Path()).string(), bytes);
    return "overwrites " + ShortName(path);
}

std::string World::AnyConstructionFile(Dice& dice) const {
    return dice.Pick(constructionFiles);
}

std::string World::AnyLibrary(Dice& dice) const {
    return dice.Pick(libraries);
}

std::string World::AnyPath(Dice& dice) const {
    switch (dice.Below(3)) {
    case 0:
        return AnyConstructionFile(dice);
    case 1:
        return AnyLibrary(dice);
    default:
        return dice.Pick(oddities);
    }
}

std::string World::NameToSave(Dice& dice) const {
    if (dice.OneIn(8))
        return AnyPath(dice);
    constexpr const char* names[] = {"one",       "two.con", "three.CON",   "a name of ours.con",
                                     "gap/x.con", "four.x",  "it's one.con"};
    return (folder.Path() / dice.Pick(names)).string();
}

std::string World::ShortName(const std::string& path) const {
    const std::string inside = folder.Path().string();
    return path.starts_with(inside) ? path.substr(inside.size()) : path;
}

bool World::WasWritten(const std::string& path) const {
    const FileStamp now = StampOf(path);
    const auto before = known.find(path);
    return now != FileStamp() && (before == known.end() || now != before->second);
}

void World::Know(const std::string& path) {
    known[path] = StampOf(path);
    // Some paths lead to the same file.
    for (auto& [other, stamp] : known)
        stamp = StampOf(other);
}

bool World::HasRecoveryCopy() const {
    const fs::path copies = folder.Path() / "state/strativo/recovery";
    if (!fs::exists(copies))
        return false;
    for (const auto& entry : fs::directory_iterator(copies))
        if (entry.path().extension() == ".copy")
            return true;
    return false;
}

} // namespace strativo::monkey
