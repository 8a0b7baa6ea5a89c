#include "model/Project.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

MaterialLibrary LibraryOf(int count) {
    MaterialLibrary library;
    for (int slot = 1; slot <= count; ++slot)
        library[slot].name = "MATERIAL";
    library[count + 1].name = endOfLibrary;
    return library;
}

TEST(MaterialLibrary, HasNoMaterialsWhenSlotOneIsTheEndMarker) {
    const MaterialLibrary library = EmptyLibrary();
    EXPECT_EQ(MaterialCount(library), 0);
    EXPECT_EQ(library[1].name, "-999");
}

TEST(MaterialLibrary, EndsAtTheFirstMarkerWhateverStandsBehind) {
    MaterialLibrary library = LibraryOf(5);
    library[3].name = endOfLibrary;
    EXPECT_EQ(MaterialCount(library), 2);
}

TEST(MaterialLibrary, HoldsNinetyNineMaterialsAndTheMarker) {
    EXPECT_EQ(MaterialCount(LibraryOf(99)), 99);
}

TEST(MaterialLibrary, WithoutMarkerEndsWithItsTable) {
    MaterialLibrary library;
    for (Material& material : library)
        material.name = "MATERIAL";
    EXPECT_EQ(MaterialCount(library), 100);
}

TEST(Library, OfNumberTwoIsTheUserLibraryAndAnyOtherTheStandardOne) {
    Project project;
    const Project& constant = project;
    EXPECT_EQ(&Library(project, userLibraryNumber), &project.userLibrary);
    EXPECT_EQ(&Library(project, standardLibraryNumber), &project.standardLibrary);
    EXPECT_EQ(&Library(constant, userLibraryNumber), &project.userLibrary);
    EXPECT_EQ(&Library(constant, 0), &project.standardLibrary);
}

TEST(InUse, MeansThatTheConstructionIsOpen) {
    Project project;
    EXPECT_FALSE(InUse(project, 0));
    EXPECT_FALSE(InUse(project, 1));
    project.constructions.Append();
    EXPECT_FALSE(InUse(project, 1));
    project.constructions[1].window.open = true;
    EXPECT_TRUE(InUse(project, 1));
}

} // namespace
} // namespace strativo
