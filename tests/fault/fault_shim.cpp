// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

// Loaded into a program before the C library: counts its calls to the disk that concern one folder, and lets
// one of them fail, or all from one on, or ends the process there.
// ORVO_FAULT        "NUMBER REASON MODE SECOND": mode o(nce), a(ll from then on), s(hort write), k(ill);
// another
//                   call that fails, or 0
// ORVO_FAULT_FOLDER the folder
// ORVO_FAULT_REPORT a file to which the names of the calls that failed are appended

namespace {

constexpr int MostFiles = 4096;

/// Which calls fail.
struct SPlan
{
    int number = 0; ///< 0: none
    int reason = 0;
    char mode = 'o';
    int second = 0; ///< 0: none
    const char *folder = nullptr;
    const char *report = nullptr;

    SPlan()
    {
        const char *fault = std::getenv("ORVO_FAULT");
        folder = std::getenv("ORVO_FAULT_FOLDER");
        report = std::getenv("ORVO_FAULT_REPORT");
        if (!fault || !folder || !report ||
            std::sscanf(fault, "%d %d %c %d", &number, &reason, &mode, &second) != 4)
            number = 0;
    }
};

const SPlan &plan()
{
    static const SPlan made;
    return made;
}

std::atomic<int> calls{0};
std::atomic<bool> watched[MostFiles];

bool concerns(const char *path)
{
    const char *folder = plan().folder;
    return plan().number > 0 && path && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool concerns(int file)
{
    return plan().number > 0 && file >= 0 && file < MostFiles && watched[file];
}

void report(const char *call)
{
    const long file = syscall(SYS_open, plan().report, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    syscall(SYS_write, file, call, std::strlen(call));
    syscall(SYS_write, file, "\n", 1);
    syscall(SYS_close, file);
}

/// Whether this call, which concerns the folder, is one that fails; then errno is set.
bool fails(const char *call)
{
    const int number = ++calls;
    const bool later = plan().mode == 'a' && number > plan().number;
    if (number != plan().number && number != plan().second && !later)
        return false;
    report(call);
    if (plan().mode == 'k')
        ::kill(getpid(), SIGKILL);
    errno = plan().reason;
    return true;
}

template <typename Function>
Function *real(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

int opened(int file, bool concerned)
{
    if (file >= 0 && file < MostFiles)
        watched[file] = concerned;
    return file;
}

} // namespace

#define ORVO_EXPORT extern "C" __attribute__((visibility("default")))

#define ORVO_OPEN(name)                                                                                      \
    ORVO_EXPORT int name(const char *path, int flags, ...)                                                   \
    {                                                                                                        \
        va_list arguments;                                                                                   \
        va_start(arguments, flags);                                                                          \
        const mode_t mode = va_arg(arguments, mode_t);                                                       \
        va_end(arguments);                                                                                   \
        const bool concerned = concerns(path);                                                               \
        if (concerned && fails("open"))                                                                      \
            return -1;                                                                                       \
        return opened(real<int(const char *, int, ...)>(#name)(path, flags, mode), concerned);               \
    }
ORVO_OPEN(open)
ORVO_OPEN(open64)

ORVO_EXPORT int close(int file)
{
    const bool failing = concerns(file) && fails("close");
    if (file >= 0 && file < MostFiles)
        watched[file] = false;
    const int before = errno;
    const int closed = real<int(int)>("close")(file);
    if (!failing)
        return closed;
    errno = before;
    return -1;
}

ORVO_EXPORT ssize_t write(int file, const void *data, size_t size)
{
    auto *call = real<ssize_t(int, const void *, size_t)>("write");
    if (!concerns(file) || !fails("write"))
        return call(file, data, size);
    return plan().mode == 's' && size > 1 ? call(file, data, size / 2) : -1;
}

#define ORVO_ON_FILE(name, label)                                                                            \
    ORVO_EXPORT int name(int file)                                                                           \
    {                                                                                                        \
        return concerns(file) && fails(label) ? -1 : real<int(int)>(#name)(file);                            \
    }
ORVO_ON_FILE(fsync, "sync")
ORVO_ON_FILE(fdatasync, "sync")

ORVO_EXPORT int fchmod(int file, mode_t mode)
{
    return concerns(file) && fails("fchmod") ? -1 : real<int(int, mode_t)>("fchmod")(file, mode);
}

ORVO_EXPORT int lockFile(int file, int operation) __asm__("flock"); // the name is also that of a record
ORVO_EXPORT int lockFile(int file, int operation)
{
    return concerns(file) && fails("lock") ? -1 : real<int(int, int)>("flock")(file, operation);
}

#define ORVO_READ(name)                                                                                      \
    ORVO_EXPORT ssize_t name(int file, void *data, size_t size, off_t place)                                 \
    {                                                                                                        \
        if (concerns(file) && fails("read"))                                                                 \
            return -1;                                                                                       \
        return real<ssize_t(int, void *, size_t, off_t)>(#name)(file, data, size, place);                    \
    }
ORVO_READ(pread)
ORVO_READ(pread64)

#define ORVO_ON_TWO_PATHS(name)                                                                              \
    ORVO_EXPORT int name(const char *from, const char *to)                                                   \
    {                                                                                                        \
        if ((concerns(from) || concerns(to)) && fails(#name))                                                \
            return -1;                                                                                       \
        return real<int(const char *, const char *)>(#name)(from, to);                                       \
    }
ORVO_ON_TWO_PATHS(rename)
ORVO_ON_TWO_PATHS(link)

ORVO_EXPORT int unlink(const char *path)
{
    return concerns(path) && fails("unlink") ? -1 : real<int(const char *)>("unlink")(path);
}

ORVO_EXPORT int mkdir(const char *path, mode_t mode)
{
    return concerns(path) && fails("mkdir") ? -1 : real<int(const char *, mode_t)>("mkdir")(path, mode);
}
