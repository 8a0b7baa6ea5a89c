// A library to be preloaded: it makes system calls fail. It counts the calls made while it is
// armed, logs them, and lets those named in STRATIVO_FAULTS fail.
//
// STRATIVO_FAULTS is a list, separated by ";", of CALL:N:EFFECT or CALL:N:EFFECT:always: the N-th
// call of that name ("*": of any name), or all from it on. Effects: errno=NUMBER, short (a part is
// done), zero (nothing is; of a read: the end), shrink and grow (the file read is cut or made
// longer first), kill (the process, before the call), torn (a part is written, then the process is
// killed). STRATIVO_FAULT_LOG is the file that gets a line for each call.

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/acl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace {

struct Fault {
    std::string call;
    int number = 0;
    std::string effect;
    bool always = false;
    int seen = 0;
};

bool armed = false;
int logFile = -1;
constexpr int maxDescriptors = 256;
// Never destroyed, since files are closed after all destructors ran.
std::vector<Fault>& faults = *new std::vector<Fault>;
std::vector<std::string>& paths = *new std::vector<std::string>(maxDescriptors);

template <class Function>
Function* Next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Removes the text up to the separator from the front of the list and returns it.
std::string Take(std::string& list, char separator) {
    const auto end = list.find(separator);
    const std::string part = list.substr(0, end);
    list = end == std::string::npos ? "" : list.substr(end + 1);
    return part;
}

void ReadFaults() {
    const char* variable = std::getenv("STRATIVO_FAULTS");
    std::string list = variable == nullptr ? "" : variable;
    while (!list.empty()) {
        std::string text = Take(list, ';');
        Fault fault;
        fault.call = Take(text, ':');
        fault.number = std::atoi(Take(text, ':').c_str());
        fault.effect = Take(text, ':');
        fault.always = text == "always";
        faults.push_back(fault);
    }
}

void Log(const std::string& line) {
    if (logFile >= 0)
        syscall(SYS_write, logFile, (line + "\n").data(), line.size() + 1);
}

std::string PathOf(int descriptor) {
    return armed && descriptor >= 0 && descriptor < maxDescriptors
               ? paths[static_cast<std::size_t>(descriptor)]
               : "";
}

void Remember(int descriptor, const char* path) {
    if (armed && descriptor >= 0 && descriptor < maxDescriptors)
        paths[static_cast<std::size_t>(descriptor)] = path;
}

/// Logs the call and gives its effect, "" for none.
std::string Effect(const char* call, const std::string& detail) {
    if (!armed)
        return "";
    std::string effect;
    for (Fault& fault : faults)
        if (fault.call == "*" || fault.call == call) {
            ++fault.seen;
            if (fault.seen == fault.number || (fault.always && fault.seen > fault.number))
                effect = fault.effect;
        }
    Log(std::string(call) + " " + detail + (effect.empty() ? "" : " <- " + effect));
    if (effect == "kill")
        syscall(SYS_kill, getpid(), SIGKILL);
    return effect;
}

bool Fails(const std::string& effect) {
    if (effect.rfind("errno=", 0) != 0)
        return false;
    errno = std::atoi(effect.c_str() + 6);
    return true;
}

std::string Hex(const void* data, std::size_t size) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    if (!armed)
        return text;
    for (std::size_t i = 0; i < size; ++i) {
        const unsigned char byte = static_cast<const unsigned char*>(data)[i];
        text += digits[byte / 16];
        text += digits[byte % 16];
    }
    return text;
}

std::size_t Part(std::size_t size) {
    return size < 2 ? size : size / 2;
}

int Open(const char* path, int flags, mode_t mode) {
    if (Fails(Effect("open", path)))
        return -1;
    const int descriptor = Next<int(const char*, int, ...)>("open")(path, flags, mode);
    Remember(descriptor, path);
    return descriptor;
}

/// Another program changes the file that is being read.
void ChangeFile(int descriptor, bool grow) {
    const std::string path = PathOf(descriptor);
    struct stat status {};
    if (path.empty() || stat(path.c_str(), &status) != 0)
        return;
    if (!grow) {
        syscall(SYS_truncate, path.c_str(), status.st_size / 2);
        return;
    }
    const long file = syscall(SYS_openat, AT_FDCWD, path.c_str(), O_WRONLY | O_APPEND);
    const char more[] = "!CONSTRUCTION 'GROWN'\r\n!END\r\n";
    syscall(SYS_write, file, more, sizeof more - 1);
    syscall(SYS_close, file);
}

} // namespace

extern "C" {

void ArmFaults() {
    ReadFaults();
    if (const char* log = std::getenv("STRATIVO_FAULT_LOG"))
        logFile = static_cast<int>(
            syscall(SYS_openat, AT_FDCWD, log, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    armed = true;
}

void DisarmFaults() {
    armed = false;
}

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return Open(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return Open(path, flags, mode);
}

int mkostemp(char* path, int flags) {
    if (Fails(Effect("mkostemp", path)))
        return -1;
    const int descriptor = Next<int(char*, int)>("mkostemp")(path, flags);
    Remember(descriptor, path);
    if (armed)
        Log(std::string("made ") + path);
    return descriptor;
}

ssize_t readlink(const char* path, char* buffer, size_t size) {
    if (Fails(Effect("readlink", path)))
        return -1;
    return Next<ssize_t(const char*, char*, size_t)>("readlink")(path, buffer, size);
}

int stat(const char* path, struct stat* status) noexcept {
    if (Fails(Effect("stat", path)))
        return -1;
    return Next<int(const char*, struct stat*)>("stat")(path, status);
}

int lstat(const char* path, struct stat* status) noexcept {
    if (Fails(Effect("lstat", path)))
        return -1;
    return Next<int(const char*, struct stat*)>("lstat")(path, status);
}

int mkdir(const char* path, mode_t mode) noexcept {
    if (Fails(Effect("mkdir", path)))
        return -1;
    return Next<int(const char*, mode_t)>("mkdir")(path, mode);
}

int access(const char* path, int mode) noexcept {
    if (Fails(Effect("access", path)))
        return -1;
    return Next<int(const char*, int)>("access")(path, mode);
}

int flock(int descriptor, int operation) noexcept {
    if (Fails(Effect("flock", PathOf(descriptor))))
        return -1;
    return Next<int(int, int)>("flock")(descriptor, operation);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
    if (Fails(Effect("fstatat", path)))
        return -1;
    return Next<int(int, const char*, struct stat*, int)>("fstatat")(folder, path, status, flags);
}

int fstat(int descriptor, struct stat* status) noexcept {
    if (Fails(Effect("fstat", PathOf(descriptor))))
        return -1;
    return Next<int(int, struct stat*)>("fstat")(descriptor, status);
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
    if (Fails(Effect("faccessat", path)))
        return -1;
    return Next<int(int, const char*, int, int)>("faccessat")(folder, path, mode, flags);
}

ssize_t read(int descriptor, void* buffer, size_t size) {
    const std::string effect = Effect("read", PathOf(descriptor));
    if (Fails(effect))
        return -1;
    if (effect == "zero")
        return 0;
    if (effect == "shrink" || effect == "grow")
        ChangeFile(descriptor, effect == "grow");
    return Next<ssize_t(int, void*, size_t)>("read")(descriptor, buffer,
                                                     effect == "short" ? Part(size) : size);
}

ssize_t write(int descriptor, const void* buffer, size_t size) {
    const std::string effect = Effect("write", PathOf(descriptor) + " " + Hex(buffer, size));
    if (Fails(effect))
        return -1;
    if (effect == "zero")
        return 0;
    const bool part = effect == "short" || effect == "torn";
    const ssize_t written = Next<ssize_t(int, const void*, size_t)>("write")(
        descriptor, buffer, part ? Part(size) : size);
    if (effect == "torn")
        syscall(SYS_kill, getpid(), SIGKILL);
    return written;
}

int fsync(int descriptor) {
    if (Fails(Effect("fsync", PathOf(descriptor))))
        return -1;
    return Next<int(int)>("fsync")(descriptor);
}

int fchmod(int descriptor, mode_t mode) noexcept {
    if (Fails(Effect("fchmod", PathOf(descriptor))))
        return -1;
    return Next<int(int, mode_t)>("fchmod")(descriptor, mode);
}

int fchown(int descriptor, uid_t user, gid_t group) noexcept {
    if (Fails(Effect("fchown", PathOf(descriptor))))
        return -1;
    return Next<int(int, uid_t, gid_t)>("fchown")(descriptor, user, group);
}

acl_t acl_get_file(const char* path, acl_type_t type) {
    if (Fails(Effect("acl_get_file", path)))
        return nullptr;
    return Next<acl_t(const char*, acl_type_t)>("acl_get_file")(path, type);
}

int acl_set_fd(int descriptor, acl_t acl) {
    if (Fails(Effect("acl_set_fd", PathOf(descriptor))))
        return -1;
    return Next<int(int, acl_t)>("acl_set_fd")(descriptor, acl);
}

ssize_t llistxattr(const char* path, char* names, size_t size) noexcept {
    if (Fails(Effect("llistxattr", path)))
        return -1;
    return Next<ssize_t(const char*, char*, size_t)>("llistxattr")(path, names, size);
}

ssize_t lgetxattr(const char* path, const char* name, void* value, size_t size) noexcept {
    if (Fails(Effect("lgetxattr", path)))
        return -1;
    return Next<ssize_t(const char*, const char*, void*, size_t)>("lgetxattr")(path, name, value,
                                                                               size);
}

int lsetxattr(const char* path, const char* name, const void* value, size_t size,
              int flags) noexcept {
    if (Fails(Effect("lsetxattr", path)))
        return -1;
    return Next<int(const char*, const char*, const void*, size_t, int)>("lsetxattr")(
        path, name, value, size, flags);
}

DIR* fdopendir(int descriptor) {
    if (Fails(Effect("fdopendir", PathOf(descriptor))))
        return nullptr;
    return Next<DIR*(int)>("fdopendir")(descriptor);
}

dirent* readdir(DIR* entries) {
    if (Fails(Effect("readdir", PathOf(dirfd(entries)))))
        return nullptr;
    return Next<dirent*(DIR*)>("readdir")(entries);
}

int closedir(DIR* entries) {
    const std::string effect = Effect("closedir", PathOf(dirfd(entries)));
    const int result = Next<int(DIR*)>("closedir")(entries);
    return Fails(effect) ? -1 : result;
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    if (Fails(Effect("unlinkat", path)))
        return -1;
    return Next<int(int, const char*, int)>("unlinkat")(folder, path, flags);
}

/// A descriptor is free after a close that failed, too.
int close(int descriptor) {
    const std::string effect = Effect("close", PathOf(descriptor));
    const int result = Next<int(int)>("close")(descriptor);
    return Fails(effect) ? -1 : result;
}

int rename(const char* from, const char* to) noexcept {
    if (Fails(Effect("rename", std::string(from) + " " + to)))
        return -1;
    return Next<int(const char*, const char*)>("rename")(from, to);
}

int unlink(const char* path) noexcept {
    if (Fails(Effect("unlink", path)))
        return -1;
    return Next<int(const char*)>("unlink")(path);
}

} // extern "C"
