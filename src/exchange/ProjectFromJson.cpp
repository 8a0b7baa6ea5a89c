#include "exchange/ProjectFromJson.h"

#include "exchange/ConstructionFromJson.h"
#include "exchange/GlassFromJson.h"
#include "exchange/JsonReader.h"
#include "exchange/StorableText.h"

#include <utility>

namespace strativo {

namespace {

constexpr char encodingNames[] = "\"utf-8\" or \"windows-1252\"";

class CommentsReader {
public:
    CommentsReader(JsonReader& source, Comments& target) : reader(source), comments(target) {}

    void Read(JsonValue object) {
        using Self = CommentsReader;
        static constexpr JsonKey<Self> keys[] = {
            {"fileHead", JsonKind::array, commentLines, false, &Self::FileHead},
            {"standardLibrary", JsonKind::array, commentLines, false, &Self::StandardLibrary},
            {"userLibrary", JsonKind::array, commentLines, false, &Self::UserLibrary},
            {"noSection", JsonKind::array, commentLines, false, &Self::NoSection},
        };
        reader.ReadObject(object, keys, *this);
    }

private:
    void FileHead(JsonValue array) { comments.fileHead = ReadComments(reader, array); }
    void StandardLibrary(JsonValue array) {
        comments.standardLibrary = ReadComments(reader, array);
    }
    void UserLibrary(JsonValue array) { comments.userLibrary = ReadComments(reader, array); }
    void NoSection(JsonValue array) { comments.noSection = ReadComments(reader, array); }

    JsonReader& reader;
    Comments& comments;
};

/// A library's path and the encoding of its bytes, which may come before or after it.
struct PathEntry {
    std::optional<JsonValue> value;
    bool windows1252 = false;
    bool encodingFaulty = false;
};

class ProjectReader {
public:
    ProjectReader(FaultList& faults, Project& target, const NameTest& comesBack)
        : reader(faults), project(target), names{reader, comesBack} {}

    void Read(JsonValue root) {
        if (root.Kind() != JsonKind::array) {
            ReadProject(root);
            return;
        }
        const std::size_t count = root.ItemCount();
        if (count == 1)
            reader.ReadItems(root, [&](JsonValue item) { ReadProject(item); });
        else
            reader.Fail("one-project", root,
                        "expected one project or an array of one, got an array of "
                            + std::to_string(count));
    }

private:
    void ReadProject(JsonValue object) {
        using Self = ProjectReader;
        using Kind = JsonKind;
        static constexpr JsonKey<Self> keys[] = {
            {"schemaVersion", Kind::number, "the number 1", false, &Self::SchemaVersion},
            {"file", Kind::string, "a string", false, nullptr},
            {"messages", Kind::array, "an array", false, nullptr},
            {"ended", Kind::boolean, "true or false", false, &Self::Ended},
            {"readToEnd", Kind::boolean, "true or false", false, &Self::ReadToEnd},
            {"standardLibraryFile", Kind::string, "a string (path of the standard library)", true,
             &Self::StandardFile},
            {"standardLibraryFileEncoding", Kind::string, encodingNames, false,
             &Self::StandardEncoding},
            {"userLibraryFile", Kind::string, "a string (path of the user library)", false,
             &Self::UserFile},
            {"userLibraryFileEncoding", Kind::string, encodingNames, false, &Self::UserEncoding},
            {"standardLoaded", Kind::boolean, "true or false", false, nullptr},
            {"userLoaded", Kind::boolean, "true or false", false, &Self::UserLoaded},
            {"userLibraryNeeded", Kind::boolean, "true or false", false, nullptr},
            {"changed", Kind::boolean, "true or false", false, nullptr},
            {"constructions", Kind::array, "an array of constructions", false,
             &Self::Constructions},
            {"glassTypes", Kind::array, "an array of glass types", false, &Self::GlassTypes},
            {"glassTypes2D", Kind::array, "an array of two-dimensional glass types", false,
             &Self::GlassTypes2D},
            {"comments", Kind::object, "an object of comments", false, &Self::CommentLists},
        };
        userLibraryNamed = object.Kind() == Kind::object
                           && (JsonReader::Has(object, "userLoaded")
                               || JsonReader::Has(object, "userLibraryFile"));
        if (reader.ReadObject(object, keys, *this))
            TakeLibraries();
    }

    void SchemaVersion(JsonValue value) {
        if (JsonReader::Number(value) != 1)
            reader.FailExpecting("schema-version", value, "the number 1");
    }
    void Ended(JsonValue value) {
        if (JsonReader::Boolean(value))
            reader.Fail("incomplete", value, "the program ended while it read the file");
    }
    void ReadToEnd(JsonValue value) {
        if (!JsonReader::Boolean(value))
            reader.Fail("incomplete", value, "the file was not read to its end");
    }
    void StandardFile(JsonValue value) { standard.value = value; }
    void UserFile(JsonValue value) { user.value = value; }
    void StandardEncoding(JsonValue value) { TakeEncoding(value, standard); }
    void UserEncoding(JsonValue value) { TakeEncoding(value, user); }
    void UserLoaded(JsonValue value) { userLoaded = value; }

    void Constructions(JsonValue array) {
        reader.ReadItems(array, [&](JsonValue item) {
            ReadConstruction(names, item, userLibraryNamed, project);
        });
    }
    void GlassTypes(JsonValue array) {
        reader.ReadItems(array, [&](JsonValue item) { ReadGlassType(names, item, project); });
    }
    void GlassTypes2D(JsonValue array) {
        reader.ReadItems(array, [&](JsonValue item) { ReadGlassType2D(names, item, project); });
    }
    void CommentLists(JsonValue object) { CommentsReader(reader, project.comments).Read(object); }

    void TakeEncoding(JsonValue value, PathEntry& entry) {
        const std::string name = value.Text();
        entry.windows1252 = name == "windows-1252";
        entry.encodingFaulty = !entry.windows1252 && name != "utf-8";
        if (entry.encodingFaulty)
            reader.FailExpecting("not-allowed", value, encodingNames);
    }

    /// The path's bytes; nothing when they have a fault.
    std::optional<std::string> PathBytes(const PathEntry& entry) {
        if (!entry.value || entry.encodingFaulty)
            return std::nullopt;
        if (!entry.windows1252)
            return entry.value->Text();
        return reader.Bytes(*entry.value);
    }

    std::optional<std::string> TakePath(const char* key, const PathEntry& entry, NamedPart part,
                                        bool isWritten) {
        std::optional<std::string> path;
        reader.Inside(std::string_view(key), [&] {
            path = PathBytes(entry);
            if (path && !IsStorable(names, *entry.value, *path, part, isWritten))
                path.reset();
        });
        return path;
    }

    void TakeLibraries() {
        const bool givenTrue = userLoaded && JsonReader::Boolean(*userLoaded);
        const bool isWritten = userLoaded ? givenTrue : user.value.has_value();
        project.standardLibraryFile =
            TakePath("standardLibraryFile", standard, NamedPart::standardLibrary, true)
                .value_or("");
        const std::optional<std::string> path =
            TakePath("userLibraryFile", user, NamedPart::userLibrary, isWritten);
        project.userLibraryFile = path.value_or("");
        project.userLoaded = isWritten && !project.userLibraryFile.empty();
        const bool pathMissing = !user.value || (path && path->empty());
        if (givenTrue && pathMissing)
            reader.Inside(std::string_view("userLoaded"), [&] {
                reader.Fail("user-library-missing", *userLoaded,
                            "expected false, since there is no userLibraryFile, got true");
            });
    }

    JsonReader reader;
    Project& project;
    NameRules names;
    PathEntry standard;
    PathEntry user;
    std::optional<JsonValue> userLoaded;
    bool userLibraryNamed = false;
};

} // namespace

BuiltProject BuildProject(std::string_view json, const NameTest& comesBack) {
    BuiltProject built;
    JsonTree tree;
    if (std::optional<Fault> fault = ParseJson(json, tree)) {
        built.faults.push_back(std::move(*fault));
        return built;
    }
    FaultList faults;
    ProjectReader(faults, built.project, comesBack).Read(JsonValue(tree, 0));
    built.faults = faults.First();
    built.moreFaults = faults.More();
    return built;
}

} // namespace strativo
