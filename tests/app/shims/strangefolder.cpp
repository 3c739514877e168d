// Loaded before the C library: makes one folder behave like those of some networks, and lets one of
// the operations on its files fail or be the program's last.
//
// VX_FOLDER: the folder. VX_REFUSES: what it refuses, as words with the number of an error, such as
// "over=17 link=1": over (renaming over an existing file), rename (renaming at all), link (hard
// links), lock (locks of any kind). VX_FAILS_AT: the number of the operation that fails, from 1;
// standard error says so. VX_KILLED_AT: the number of the operation before which the program is
// killed.

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

template <class Function> Function original(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

std::string setting(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

bool isWatched(const char *path)
{
    const std::string folder = setting("VX_FOLDER");
    return !folder.empty() && path && std::strncmp(path, folder.c_str(), folder.size()) == 0;
}

bool isWatched(int handle)
{
    char path[4096] = {};
    const std::string link = "/proc/self/fd/" + std::to_string(handle);
    return readlink(link.c_str(), path, sizeof path - 1) > 0 && isWatched(path);
}

/// The error of a refused kind of operation; 0 when it is not refused.
int refusal(const char *kind)
{
    const std::string words = ' ' + setting("VX_REFUSES");
    const std::string::size_type at = words.find(' ' + std::string(kind) + '=');
    return at == std::string::npos ? 0 : std::atoi(words.c_str() + at + std::strlen(kind) + 2);
}

/// True when the operation fails; the program may end here.
bool fails()
{
    static int count = 0;
    ++count;
    if (std::atoi(setting("VX_KILLED_AT").c_str()) == count)
        kill(getpid(), SIGKILL);
    if (std::atoi(setting("VX_FAILS_AT").c_str()) != count)
        return false;
    static const char message[] = "strangefolder: an operation fails\n";
    if (write(STDERR_FILENO, message, sizeof message - 1) < 0)
        abort();
    errno = EIO;
    return true;
}

bool refuses(const char *kind)
{
    const int error = refusal(kind);
    if (error == 0)
        return false;
    errno = error;
    return true;
}

} // namespace

extern "C" {
#pragma GCC visibility push(default)

int rename(const char *from, const char *to) noexcept
{
    const bool watched = isWatched(to);
    if (watched && (refuses("rename") || (access(to, F_OK) == 0 && refuses("over")) || fails()))
        return -1;
    return original<int (*)(const char *, const char *)>("rename")(from, to);
}

int link(const char *from, const char *to) noexcept
{
    if (isWatched(to) && (refuses("link") || fails()))
        return -1;
    return original<int (*)(const char *, const char *)>("link")(from, to);
}

int unlink(const char *path) noexcept
{
    if (isWatched(path) && fails())
        return -1;
    return original<int (*)(const char *)>("unlink")(path);
}

int fsync(int handle)
{
    if (isWatched(handle) && fails())
        return -1;
    return original<int (*)(int)>("fsync")(handle);
}

ssize_t write(int handle, const void *bytes, size_t size)
{
    const auto write = original<ssize_t (*)(int, const void *, size_t)>("write");
    if (isWatched(handle) && fails()) {
        // A part of it is written before the disk fails.
        write(handle, bytes, size / 2);
        errno = ENOSPC;
        return -1;
    }
    return write(handle, bytes, size);
}

int flock(int handle, int operation) noexcept
{
    if (isWatched(handle) && refuses("lock"))
        return -1;
    return original<int (*)(int, int)>("flock")(handle, operation);
}

int fcntl64(int handle, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    if ((command == F_SETLK || command == F_SETLKW) && isWatched(handle) && refuses("lock"))
        return -1;
    return original<int (*)(int, int, void *)>("fcntl64")(handle, command, argument);
}
#pragma GCC visibility pop
}
