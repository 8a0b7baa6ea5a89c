#include "files/FileAccess.h"

#include <algorithm>
#include <filesystem>
#include <optional>
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

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

std::string Join(const std::string& folder, const std::string& name) {
    const char* separator = folder.empty() || folder.ends_with('/') ? "" : "/";
    return folder + separator + name;
}

/// The entry of the folder whose name differs at most in letter case; the first in name order.
std::optional<std::string> EntryIgnoringCase(const std::string& folder, const std::string& name) {
    std::vector<std::string> found;
    std::error_code error;
    for (fs::directory_iterator entry(Join(folder, "."), error), end; entry != end;
         entry.increment(error)) {
        const std::string entryName = entry->path().filename().string();
        if (LowerCase(entryName) == LowerCase(name))
            found.push_back(entryName);
    }
    if (found.empty())
        return std::nullopt;
    return *std::min_element(found.begin(), found.end());
}

/// The path spelled as the file system spells it, component by component.
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

std::optional<std::string> FindFrom(const std::string& folder, const std::string& name) {
    std::string slashed = name;
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    for (const std::string& candidate : {name, slashed}) {
        std::string path = candidate.starts_with('/') ? candidate : Join(folder, candidate);
        if (Exists(path))
            return path;
    }
    return FindIgnoringCase(slashed.starts_with('/') ? slashed : Join(folder, slashed));
}

} // namespace

std::string FindFile(const std::string& name, const std::string& folder) {
    if (auto found = FindFrom("", name))
        return *found;
    if (!folder.empty())
        if (auto found = FindFrom(folder, name))
            return *found;
    if (HasDriveLetter(name))
        throw RuntimeError(ErrorNumber::pathNotFound);
    std::string slashed = name;
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    return slashed;
}

} // namespace strativo
