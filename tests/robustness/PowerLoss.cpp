#include "robustness/PowerLoss.h"

#include <filesystem>

namespace strativo {

namespace {

std::string FromHex(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
        bytes += static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16));
    return bytes;
}

std::string FileName(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

} // namespace

FragileDisk::FragileDisk(const DiskContent& content) {
    for (const auto& [name, bytes] : content) {
        names[name] = files.size();
        files.push_back({bytes, bytes});
    }
    possibleNames = {names};
}

void FragileDisk::Create(const std::string& name) {
    names[name] = files.size();
    files.emplace_back();
    possibleNames.push_back(names);
}

void FragileDisk::Write(const std::string& name, const std::string& bytes) {
    files[names.at(name)].bytes += bytes;
}

void FragileDisk::Rename(const std::string& from, const std::string& to) {
    names[to] = names.at(from);
    names.erase(from);
    possibleNames.push_back(names);
}

void FragileDisk::SyncFile(const std::string& name) {
    File& file = files[names.at(name)];
    file.certain = file.bytes;
}

void FragileDisk::SyncFolder() {
    possibleNames = {names};
}

std::vector<std::string> FragileDisk::PossibleBytes(const File& file) const {
    if (file.certain == file.bytes)
        return {file.bytes};
    return {file.certain, file.bytes.substr(0, file.bytes.size() / 2), file.bytes,
            std::string(file.bytes.size(), '\0')};
}

std::vector<DiskContent> FragileDisk::AfterPowerLoss() const {
    std::vector<DiskContent> contents;
    for (const Names& kept : possibleNames) {
        std::vector<DiskContent> partial = {{}};
        for (const auto& [name, number] : kept) {
            std::vector<DiskContent> next;
            for (const DiskContent& content : partial)
                for (const std::string& bytes : PossibleBytes(files[number])) {
                    next.push_back(content);
                    next.back()[name] = bytes;
                }
            partial = std::move(next);
        }
        contents.insert(contents.end(), partial.begin(), partial.end());
    }
    return contents;
}

void Replay(FragileDisk& disk, const LoggedCall& call) {
    if (call.name == "made")
        disk.Create(FileName(call.arguments.at(0)));
    else if (call.name == "write")
        disk.Write(FileName(call.arguments.at(0)), FromHex(call.arguments.at(1)));
    else if (call.name == "rename")
        disk.Rename(FileName(call.arguments.at(0)), FileName(call.arguments.at(1)));
    else if (call.name == "fsync" && std::filesystem::is_directory(call.arguments.at(0)))
        disk.SyncFolder();
    else if (call.name == "fsync")
        disk.SyncFile(FileName(call.arguments.at(0)));
}

} // namespace strativo
