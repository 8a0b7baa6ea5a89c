#pragma once

#include <string>

struct stat;

namespace strativo {

/// Gives a new file the extended attributes of the old one that it will replace, as far as the user
/// may set them. Throws WriteError when there is no room for them or they cannot be read.
void CarryAttributes(const std::string& oldFile, const std::string& newFile);

/// Gives a new file the owner (if allowed) and the rights of the old one that it will replace: its
/// access control list or, on file systems without such lists, its permissions. If the group cannot
/// be kept, its rights are not given to another group. Throws WriteError.
void CarryRights(const std::string& oldFile, const struct stat& oldStatus, int newFile);

/// Gives a new file the rights that the system gives to files created in that folder: those of the
/// folder's default access control list, or else the usual permissions. Throws WriteError.
void GiveUsualRights(const std::string& folder, int newFile);

} // namespace strativo
