#pragma once

#include "robustness/FaultyRun.h"

#include <map>
#include <string>
#include <vector>

namespace strativo {

/// What a disk may hold after the power went: file names and their bytes.
using DiskContent = std::map<std::string, std::string>;

/// A disk that is sure to keep only what was brought to it: the bytes of a file after its fsync,
/// names after an fsync of the folder. There is a single folder. New names and renamings may reach
/// the disk by themselves, in their order; bytes may do so in part.
class FragileDisk {
public:
    explicit FragileDisk(const DiskContent& content);

    void Create(const std::string& name);
    void Write(const std::string& name, const std::string& bytes);
    void Rename(const std::string& from, const std::string& to);
    void SyncFile(const std::string& name);
    void SyncFolder();

    /// Everything that the disk may hold when the power goes now.
    std::vector<DiskContent> AfterPowerLoss() const;

private:
    struct File {
        std::string bytes;
        std::string certain;
    };
    using Names = std::map<std::string, std::size_t>;

    std::vector<std::string> PossibleBytes(const File& file) const;

    std::vector<File> files;
    Names names;
    std::vector<Names> possibleNames; ///< the certain ones, then those after each later change
};

/// Does to the disk what a logged call did to the real one.
void Replay(FragileDisk& disk, const LoggedCall& call);

} // namespace strativo
