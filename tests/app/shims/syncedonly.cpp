// Loaded before the C library: keeps beside a folder what a loss of power would leave of it, and
// makes the disk fail for some time, now and then.
//
// VX_SYNCED_FROM: the folder that is watched. VX_SYNCED_TO: receives the files as they were at the
// last completed synchronisation: the contents of a file at that of the file, its name at that of
// the folder. VX_FAILING: the seed of failures, which fill the disk or break synchronisation.

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Sync = int (*)(int);
using Write = ssize_t (*)(int, const void *, size_t);

std::mutex mutex;

template <class Function> Function original(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

std::string setting(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

std::string pathOf(int handle)
{
    char path[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(handle);
    const ssize_t size = readlink(link.c_str(), path, sizeof path);
    return size > 0 ? std::string(path, size_t(size)) : std::string();
}

bool isWatched(int handle)
{
    const std::string folder = setting("VX_SYNCED_FROM");
    return !folder.empty() && pathOf(handle).compare(0, folder.size(), folder) == 0;
}

/// True in some of the pieces of time of 40 milliseconds, another one for each kind of failure.
bool fails(unsigned kind)
{
    const std::string seed = setting("VX_FAILING");
    if (seed.empty())
        return false;
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const unsigned long piece = static_cast<unsigned long>(now.tv_sec) * 25 +
                                static_cast<unsigned long>(now.tv_nsec) / 40000000;
    unsigned long hash =
        (piece * 2654435761u) ^ (std::strtoul(seed.c_str(), nullptr, 10) * 40503u + kind);
    hash = (hash ^ (hash >> 15)) * 2246822519u;
    return (hash >> 13) % 16 == 0;
}

/// Numbers of files are used again: the time of creation distinguishes them.
std::string dataFile(const std::string &path)
{
    struct statx status
    {
    };
    if (statx(AT_FDCWD, path.c_str(), 0, STATX_INO | STATX_BTIME, &status) != 0 ||
        !(status.stx_mask & STATX_BTIME))
        std::abort();
    return setting("VX_SYNCED_TO") + "/.data-" + std::to_string(status.stx_ino) + '-' +
           std::to_string(status.stx_btime.tv_sec) + '-' + std::to_string(status.stx_btime.tv_nsec);
}

/// Files only grow or are new: what is there already is overwritten by the same bytes.
void keepContents(int handle)
{
    const std::string path = "/proc/self/fd/" + std::to_string(handle);
    const int from = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const int to = open(dataFile(path).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    char buffer[65536];
    ssize_t size = 0;
    off_t end = 0;
    while (from >= 0 && to >= 0 && (size = read(from, buffer, sizeof buffer)) > 0) {
        if (original<Write>("write")(to, buffer, size_t(size)) != size)
            std::abort();
        end += size;
    }
    if (to >= 0 && ftruncate(to, end) != 0)
        std::abort();
    close(from);
    close(to);
}

void keepNames(const std::string &folder)
{
    const std::string to = setting("VX_SYNCED_TO");
    std::set<std::string> names;
    if (DIR *entries = opendir(folder.c_str())) {
        while (const dirent *entry = readdir(entries)) {
            const std::string name = entry->d_name;
            struct stat status
            {
            };
            const std::string path = folder + '/' + name;
            if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
                continue;
            names.insert(name);
            // A name whose contents were never synchronised is that of an empty file.
            close(open(dataFile(path).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
            const std::string link = to + "/.link";
            unlink(link.c_str());
            if (::link(dataFile(path).c_str(), link.c_str()) != 0 ||
                rename(link.c_str(), (to + '/' + name).c_str()) != 0)
                std::abort();
            unlink(link.c_str()); // renaming a link to the same file does nothing
        }
        closedir(entries);
    }
    if (DIR *entries = opendir(to.c_str())) {
        while (const dirent *entry = readdir(entries)) {
            if (entry->d_name[0] != '.' && names.count(entry->d_name) == 0)
                unlink((to + '/' + entry->d_name).c_str());
        }
        closedir(entries);
    }
}

int synchronize(int handle, const char *name)
{
    if (!isWatched(handle))
        return original<Sync>(name)(handle);
    if (fails(1)) {
        errno = EIO;
        return -1;
    }
    const std::lock_guard<std::mutex> lock(mutex);
    const int result = original<Sync>(name)(handle);
    struct stat status
    {
    };
    if (result != 0 || setting("VX_SYNCED_TO").empty() || fstat(handle, &status) != 0)
        return result;
    if (S_ISDIR(status.st_mode))
        keepNames(pathOf(handle));
    else
        keepContents(handle);
    return result;
}

} // namespace

extern "C" {
#pragma GCC visibility push(default)

int fsync(int handle)
{
    return synchronize(handle, "fsync");
}

int fdatasync(int handle)
{
    return synchronize(handle, "fdatasync");
}

ssize_t write(int handle, const void *bytes, size_t size)
{
    if (isWatched(handle) && fails(2)) {
        // A full disk stores a part of what is written.
        if (size > 100)
            return original<Write>("write")(handle, bytes, size / 3);
        errno = ENOSPC;
        return -1;
    }
    return original<Write>("write")(handle, bytes, size);
}
#pragma GCC visibility pop
}
