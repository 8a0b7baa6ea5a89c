#pragma once

#include "files/ProjectSnapshot.h"

#include <cstdint>
#include <string_view>

namespace strativo {

// The fields of each record in the order in which a snapshot holds them. An archive either writes
// the fields or reads into them; only in the second case does it need changeable records.

template <class Archive, class Record>
using RecordOf = typename Archive::template Record<Record>;

template <class Archive>
void LayerFields(Archive& archive, RecordOf<Archive, Layer>& layer) {
    archive(layer.name, layer.density, layer.specificHeat, layer.thickness, layer.conductivity,
            layer.absorption, layer.materialCode, layer.library);
}

template <class Archive>
void WindowFields(Archive& archive, RecordOf<Archive, WindowRecord>& window) {
    archive(window.open, window.edited, window.shownThickness, window.lastActive);
}

template <class Archive>
void MaterialFields(Archive& archive, RecordOf<Archive, Material>& material) {
    archive(material.code, material.name, material.conductivity, material.density,
            material.specificHeat);
}

template <class Archive, class Glass>
void GlassFields(Archive& archive, Glass& type) {
    archive(type.name, type.hasDiffusion, type.transmission, type.absorption, type.diffusion);
}

template <class Archive>
void HeadFields(Archive& archive, RecordOf<Archive, SnapshotHead>& head) {
    archive(head.time, head.originalPath, head.standardLibraryPath, head.userLibraryPath,
            head.savedContent);
}

template <class Archive>
void FileFields(Archive& archive, RecordOf<Archive, Project>& project) {
    archive(project.standardLibraryFile, project.userLibraryFile, project.constructionFile,
            project.stampedFile, project.stamp.device, project.stamp.inode, project.stamp.size,
            project.stamp.modified);
}

template <class Archive>
void StateFields(Archive& archive, RecordOf<Archive, Project>& project) {
    archive(project.standardLoaded, project.userLoaded, project.userLibraryNeeded,
            project.shownLibrary, project.currentConstruction, project.activations,
            project.currentGlassType, project.currentGlassType2D, project.glassSectionsRead,
            project.glassSectionsRead2D, project.changed);
}

template <class Archive>
void CommentFields(Archive& archive, RecordOf<Archive, Comments>& comments) {
    archive(comments.fileHead, comments.standardLibrary, comments.userLibrary, comments.noSection);
}

/// The start of every snapshot; its version and the digest of the rest follow.
inline constexpr std::string_view snapshotMark = "Strativo recovery copy\n";
inline constexpr std::uint32_t snapshotVersion = 1;

} // namespace strativo
