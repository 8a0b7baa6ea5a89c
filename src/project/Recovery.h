#pragma once

#include "model/Project.h"
#include "port/Prompts.h"
#include "project/WorkKeeper.h"

#include <string>

namespace strativo {

/// What became of the copies that were left.
struct RecoveryResult {
    bool opened = false;
    std::string notice; ///< UTF-8, for the status bar: copies wait for a start without a file
};

/// Offers the copies that earlier programs left, the latest first, until one is opened. One that
/// is refused is set aside, one that cannot be read is told, and one without an answer waits for
/// the next start; so do all that are of other files than the one the command line names.
RecoveryResult OfferRecovery(Project& project, WorkKeeper& keeper, const std::string& commandLine,
                             Prompts& prompts);

} // namespace strativo
