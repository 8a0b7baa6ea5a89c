#pragma once

#include "model/Project.h"
#include "port/Prompts.h"
#include "project/WorkKeeper.h"

#include <string>

namespace strativo {

/// The outcome of offering left-over copies.
struct RecoveryResult {
    bool opened = false;
    std::string notice; ///< UTF-8, for the status bar: copies wait for a start without a file
};

/// Offers the copies that earlier programs left, the latest first, until one is opened. A refused
/// copy is set aside, an unreadable one is reported, and one without an answer waits for the next
/// start. So do the copies of other files when the command line names a file.
RecoveryResult OfferRecovery(Project& project, WorkKeeper& keeper, const std::string& commandLine,
                             Prompts& prompts);

} // namespace strativo
