#include "support/TestProject.h"

#include "edit/ConstructionSlots.h"
#include "edit/LayerClipboard.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <unistd.h>

namespace strativo {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() : before(fs::current_path()) {
    std::string name = (fs::temp_directory_path() / "strativo-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    path = name;
    fs::current_path(path);
}

TemporaryFolder::~TemporaryFolder() {
    fs::current_path(before);
    std::error_code error;
    fs::remove_all(path, error);
}

std::string TemporaryFolder::Write(const std::string& name, std::string_view bytes) const {
    const fs::path file = path / name;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file.string();
}

std::string TemporaryFolder::Read(const std::string& name) const {
    std::ifstream file(path / name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> TemporaryFolder::Entries() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(path))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

int AddConstruction(Project& project, const std::vector<std::string>& layerNames) {
    OpenConstructionWindow(project);
    const int number = project.currentConstruction;
    Construction& construction = project.constructions[number];
    for (std::size_t i = 0; i < layerNames.size(); ++i) {
        Layer& layer = construction.layers.Edit(static_cast<int>(i) + 1);
        layer.name = layerNames[i];
        layer.thickness = 100;
        layer.conductivity = 0.5F;
        layer.library = standardLibraryNumber;
        layer.materialCode = static_cast<std::int16_t>(i + 1);
    }
    construction.currentLayer = layerNames.empty() ? 0 : 1;
    return number;
}

std::string LayerNames(const Project& project, int number) {
    std::string names;
    for (int slot = 1; slot <= maxLayers; ++slot)
        names += project.constructions[number].layers[slot].name;
    return names;
}

std::vector<int> MarkedLayers(const Project& project, int number) {
    std::vector<int> marked;
    for (int slot = 1; slot <= maxLayers; ++slot)
        if (project.constructions[number].layers[slot].selected)
            marked.push_back(slot);
    return marked;
}

void Mark(Project& project, int number, const std::vector<int>& layers, int current) {
    Construction& construction = project.constructions[number];
    ClearMarks(construction);
    for (const int layer : layers)
        construction.layers.Edit(layer).selected = true;
    construction.currentLayer = static_cast<std::int16_t>(current);
}

} // namespace strativo
