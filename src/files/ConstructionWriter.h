#pragma once

#include "model/Project.h"
#include "text/OutputBuffer.h"

#include <string>

namespace strativo {

/// Passes the project to the sink as the bytes of a construction file: constructions in use, named
/// glass types and the kept comments.
void WriteConstructionText(const Project& project, const ByteSink& sink);

/// The same bytes as one text.
std::string FormatConstructionFile(const Project& project);

/// The layer's thickness as it is read back from a file, where its decimals are limited: mm, or for
/// cavity code -3 a resistance, m2 C/W. The thickness must be finite.
double ThicknessAsWritten(const Layer& layer);

} // namespace strativo
