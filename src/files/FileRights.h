#pragma once

#include <string>

struct stat;

namespace strativo {

/// Gives a new file the extended attributes of the old one that it is to replace, as far as the
/// user may set them. Throws WriteError when there is no room for them, or none can be read.
void CarryAttributes(const std::string& oldFile, const std::string& newFile);

/// Gives a new file the owner, as far as that is allowed, and the rights of the old one that it is
/// to replace: its access control list, or its permissions where the file system has no such
/// lists. Where the group cannot be kept, its rights are not given to another. Throws WriteError.
void CarryRights(const std::string& oldFile, const struct stat& oldStatus, int newFile);

/// Gives a new file the rights that the system gives to files made in that folder: those of the
/// folder's default access control list, else the usual permissions. Throws WriteError.
void GiveUsualRights(const std::string& folder, int newFile);

} // namespace strativo
