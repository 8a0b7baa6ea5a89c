#pragma once

#include <string_view>

namespace strativo::fuzz {

// Each runs one input and throws BrokenPromise when something does not hold that should.
void StandardLibrary(std::string_view bytes);
void UserLibrary(std::string_view bytes);
void ConstructionFile(std::string_view bytes);
void GlassImport(std::string_view bytes);
void WriteRead(std::string_view bytes);
void EditStory(std::string_view bytes);
void RecoveryCopy(std::string_view bytes);
void Thermal(std::string_view bytes);

} // namespace strativo::fuzz
