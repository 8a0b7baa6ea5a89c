#pragma once

#include "model/Project.h"
#include "support/ScriptedPrompts.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// A folder of its own that is the working directory while it lives and is removed at its end.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path; }
    /// Writes a file, making folders as needed, and returns its path.
    std::string Write(const std::string& name, std::string_view bytes) const;
    std::string Read(const std::string& name) const;
    std::vector<std::string> Entries() const;

private:
    std::filesystem::path path;
    std::filesystem::path before;
};

/// Opens a construction with one layer for each name, 100 mm thick with conductivity 0.5 W/m C and
/// material codes 1, 2, ... of the standard library; layer 1 is current. Returns its number.
int AddConstruction(Project& project, const std::vector<std::string>& layerNames);

/// Names of the layers of a construction, in slot order, joined without separator.
std::string LayerNames(const Project& project, int number);

/// Numbers of the marked layers.
std::vector<int> MarkedLayers(const Project& project, int number);

/// Marks exactly these layers and makes one current.
void Mark(Project& project, int number, const std::vector<int>& layers, int current);

} // namespace strativo
