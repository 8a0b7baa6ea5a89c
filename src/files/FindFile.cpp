#include "files/FileAccess.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace strativo {

namespace {

namespace fs = std::filesystem;

bool Exists(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error);
}

bool HasDriveLetter(const std::string& name) {
    if (name.size() < 2 || name[1] != ':')
        return false;
    const char letter = static_cast<char>(name[0] | 0x20);
    return letter >= 'a' && letter <= 'z';
}

/// Other bytes stay: names of the disk are in no certain encoding.
std::string AsciiLowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

std::string Join(const std::string& folder, const std::string& name) {
    const char* separator = folder.empty() || folder.ends_with('/') ? "" : "/";
    return folder + separator + name;
}

/// The folder's entry whose name differs at most in letter case; of several, the first in name
/// order.
std::optional<std::string> EntryIgnoringCase(const std::string& folder, const std::string& name) {
    const std::string wanted = AsciiLowerCase(name);
    std::vector<std::string> found;
    std::error_code error;
    for (fs::directory_iterator entry(Join(folder, "."), error), end; entry != end;
         entry.increment(error)) {
        const std::string_view path = entry->path().native();
        const std::string_view entryName = path.substr(path.rfind('/') + 1);
        if (entryName.size() == wanted.size() && AsciiLowerCase(std::string(entryName)) == wanted)
            found.emplace_back(entryName);
    }
    if (found.empty())
        return std::nullopt;
    return *std::min_element(found.begin(), found.end());
}

/// The path, each component spelled as on the disk.
std::optional<std::string> FindIgnoringCase(const std::string& path) {
    std::string found = path.starts_with('/') ? "/" : "";
    std::size_t start = 0;
    while (start < path.size()) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string part = path.substr(start, end - start);
        start = end + 1;
        if (part.empty())
            continue;
        const auto entry = Exists(Join(found, part)) ? part : EntryIgnoringCase(found, part);
        if (!entry)
            return std::nullopt;
        found = Join(found, *entry);
    }
    return found;
}

std::string WithSlashes(std::string name) {
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

std::string From(const std::string& folder, const std::string& name) {
    return name.starts_with('/') ? name : Join(folder, name);
}

/// The name as it stands, or with "\" as "/".
std::optional<std::string> FindAsWritten(const std::string& folder, const std::string& name) {
    for (const std::string& candidate : {name, WithSlashes(name)}) {
        std::string path = From(folder, candidate);
        if (Exists(path))
            return path;
    }
    return std::nullopt;
}

std::optional<std::string> FindInOtherCase(const std::string& folder, const std::string& name) {
    return FindIgnoringCase(From(folder, WithSlashes(name)));
}

/// The path to report for a file that does not exist: in the first place whose folder exists.
std::string PathOfMissing(const std::string& name, const std::vector<std::string>& places) {
    std::string slashed = WithSlashes(name);
    const std::string subfolder = FolderOf(slashed);
    for (const std::string& place : places)
        if (const auto found = FindInOtherCase(place, subfolder); found && !subfolder.empty())
            return Join(*found, slashed.substr(slashed.rfind('/') + 1));
    return slashed;
}

} // namespace

std::string FindFile(const std::string& name, const std::string& folder) {
    std::vector<std::string> places = {""};
    if (!folder.empty())
        places.push_back(folder);
    for (const auto& find : {FindAsWritten, FindInOtherCase})
        for (const std::string& place : places)
            if (auto found = find(place, name))
                return *found;
    if (HasDriveLetter(name))
        throw RuntimeError(ErrorNumber::pathNotFound);
    return PathOfMissing(name, places);
}

} // namespace strativo
