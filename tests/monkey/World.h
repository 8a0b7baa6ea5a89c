#pragma once

#include "Dice.h"
#include "model/FileStamp.h"
#include "support/TestProject.h"

#include <map>
#include <string>
#include <vector>

namespace strativo::monkey {

/// The files that the program can meet, in a temporary folder: sound ones, damaged ones, and what
/// is no file at all.
class World {
public:
    /// Writes all files anew; from time to time also forgets what earlier sittings left.
    void Prepare(Dice& dice);
    /// Plays another program that changes the files.
    std::string Meddle(Dice& dice, const std::string& constructionFile);

    std::string AnyConstructionFile(Dice& dice) const;
    std::string AnyLibrary(Dice& dice) const;
    /// Anything that a path can lead to.
    std::string AnyPath(Dice& dice) const;
    std::string NameToSave(Dice& dice) const;

    /// Whether the file differs from what the world last wrote or was told about.
    bool WasWritten(const std::string& path) const;
    void Know(const std::string& path);
    bool HasRecoveryCopy() const;

    /// The path without the temporary folder, which is another one each time.
    std::string ShortName(const std::string& path) const;

private:
    void WriteGoldenFiles();
    void WriteLibraries();
    void WriteLargeFile();
    void WriteOddities();
    void WriteDamaged(Dice& dice);
    void WriteSettings(Dice& dice);
    std::string Add(const std::string& name, const std::string& bytes);

    TemporaryFolder folder;
    std::vector<std::string> constructionFiles;
    std::vector<std::string> libraries;
    std::vector<std::string> oddities;
    std::map<std::string, FileStamp> known;
};

} // namespace strativo::monkey
