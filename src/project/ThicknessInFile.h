#pragma once

#include "edit/ConstructionEntry.h"
#include "model/Project.h"
#include "port/Prompts.h"

#include <string_view>

namespace strativo {

/// EnterThickness, which also says where a construction file will hold another thickness than the
/// one entered.
EntryResult EnterThicknessForFile(Project& project, int number, std::string_view text,
                                  Prompts& prompts);

} // namespace strativo
