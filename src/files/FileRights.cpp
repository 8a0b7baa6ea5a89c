#include "files/FileRights.h"

#include "files/FileAccess.h"

#include <acl/libacl.h>
#include <attr/error_context.h>
#include <attr/libattr.h>
#include <cerrno>
#include <memory>
#include <sys/acl.h>
#include <sys/stat.h>
#include <type_traits>
#include <unistd.h>

namespace strativo {

namespace {

constexpr mode_t permissionBits = 0777;

using Acl = std::unique_ptr<std::remove_pointer_t<acl_t>, int (*)(void*)>;

/// Empty if the file system has no such lists.
Acl ReadAcl(const std::string& path, acl_type_t type) {
    Acl acl(acl_get_file(path.c_str(), type), acl_free);
    CheckCall(acl || errno == ENOTSUP || errno == ENOSYS);
    return acl;
}

/// Calls action(tag, permissions) for each entry.
template <class Action>
void ForEachEntry(const Acl& acl, Action action) {
    acl_entry_t entry{};
    int which = ACL_FIRST_ENTRY;
    while (acl_get_entry(acl.get(), which, &entry) == 1) {
        acl_tag_t tag = ACL_UNDEFINED_TAG;
        acl_permset_t permissions{};
        CheckCall(acl_get_tag_type(entry, &tag) == 0 && acl_get_permset(entry, &permissions) == 0);
        action(tag, permissions);
        which = ACL_NEXT_ENTRY;
    }
}

/// A default list gives the most that is allowed; data files are not executable, though.
void TakeAwayExecution(const Acl& acl) {
    acl_tag_t groupLimit = ACL_GROUP_OBJ;
    ForEachEntry(acl, [&](acl_tag_t tag, acl_permset_t) {
        groupLimit = tag == ACL_MASK ? ACL_MASK : groupLimit;
    });
    ForEachEntry(acl, [&](acl_tag_t tag, acl_permset_t permissions) {
        if (tag == ACL_USER_OBJ || tag == groupLimit || tag == ACL_OTHER)
            acl_delete_perm(permissions, ACL_EXECUTE);
    });
}

bool IsRefusal(int systemError) {
    return systemError == EPERM || systemError == EACCES || systemError == ENOTSUP
           || systemError == ENOSYS;
}

/// A file system that knows no permissions leaves the file private, or as its mount says.
void SetPermissions(int file, mode_t permissions) {
    struct stat status {};
    if (fstat(file, &status) == 0 && (status.st_mode & permissionBits) == permissions)
        return;
    CheckCall(fchmod(file, permissions) == 0 || IsRefusal(errno));
}

/// Some file systems show permissions as a list and take none. Permissions do as well then, unless
/// the new file has a list of its own by its folder's default.
void SetAcl(int file, const Acl& acl) {
    if (acl_set_fd(file, acl.get()) == 0)
        return;
    const int systemError = errno;
    mode_t permissions = 0;
    mode_t ofNewFile = 0;
    const Acl present(acl_get_fd(file), acl_free);
    if (IsRefusal(systemError) && present && acl_equiv_mode(present.get(), &ofNewFile) == 0
        && acl_equiv_mode(acl.get(), &permissions) == 0)
        return SetPermissions(file, permissions);
    errno = systemError;
    CheckCall(false);
}

/// Only a privileged user can keep the owner; the group is kept wherever possible.
bool KeepsGroup(int file, const struct stat& status) {
    constexpr uid_t anyOwner = static_cast<uid_t>(-1);
    return fchown(file, status.st_uid, status.st_gid) == 0
           || fchown(file, anyOwner, status.st_gid) == 0;
}

struct AttributeErrors : error_context {
    int systemError = 0;
};

/// Attributes that the user may not set or the file system does not support are left out, like the
/// owner.
void NoteError(error_context* context, const char*, ...) {
    if (errno != EPERM && errno != EACCES && errno != ENOTSUP)
        static_cast<AttributeErrors*>(context)->systemError = errno;
}

} // namespace

void CarryAttributes(const std::string& oldFile, const std::string& newFile) {
    AttributeErrors errors;
    errors.error = NoteError;
    errors.quote = nullptr;
    errors.quote_free = nullptr;
    attr_copy_file(oldFile.c_str(), newFile.c_str(), attr_copy_check_permissions, &errors);
    errno = errors.systemError;
    CheckCall(errors.systemError == 0);
}

void CarryRights(const std::string& oldFile, const struct stat& oldStatus, int newFile) {
    const bool groupKept = KeepsGroup(newFile, oldStatus);
    const Acl acl = ReadAcl(oldFile, ACL_TYPE_ACCESS);
    if (!acl) {
        const mode_t mode = oldStatus.st_mode & permissionBits;
        SetPermissions(newFile, groupKept ? mode : mode & ~S_IRWXG);
        return;
    }
    // With a list, the permission bits of the group are only the list's mask, so the list itself
    // decides.
    if (!groupKept)
        ForEachEntry(acl, [](acl_tag_t tag, acl_permset_t permissions) {
            if (tag == ACL_GROUP_OBJ)
                acl_clear_perms(permissions);
        });
    SetAcl(newFile, acl);
}

void GiveUsualRights(const std::string& folder, int newFile) {
    const Acl acl = ReadAcl(folder, ACL_TYPE_DEFAULT);
    if (!acl || acl_entries(acl.get()) == 0) {
        const mode_t mask = umask(0);
        umask(mask);
        SetPermissions(newFile, 0666 & ~mask);
        return;
    }
    TakeAwayExecution(acl);
    CheckCall(acl_set_fd(newFile, acl.get()) == 0);
}

} // namespace strativo
