#include "io/worker/vximportlimits.h"

#include <csignal>
#include <cstdio>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// The process's address space in bytes; 0 when unavailable.
qint64 addressSpace()
{
    long pages = 0;
    if (FILE *file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%ld", &pages) != 1)
            pages = 0;
        std::fclose(file);
    }
    return qint64(pages) * sysconf(_SC_PAGESIZE);
}

void setLimit(int resource, rlim_t limit)
{
    const rlimit both{limit, limit};
    setrlimit(__rlimit_resource_t(resource), &both);
}

/** Removes every right to change the file system. On a kernel without this feature, the limit on
 * file sizes alone applies. */
void forbidWriting()
{
    landlock_ruleset_attr rights{};
    rights.handled_access_fs = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                               LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                               LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG |
                               LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                               LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM |
                               LANDLOCK_ACCESS_FS_EXECUTE;
    const long ruleset = syscall(SYS_landlock_create_ruleset, &rights, sizeof rights, 0);
    if (ruleset < 0)
        return;
    syscall(SYS_landlock_restrict_self, int(ruleset), 0);
    close(int(ruleset));
}

} // namespace

void vxLimitProcess(qint64 memory, int seconds)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    setLimit(RLIMIT_CORE, 0);
    setLimit(RLIMIT_FSIZE, 0);
    setLimit(RLIMIT_CPU, rlim_t(seconds));
    setLimit(RLIMIT_AS, rlim_t(addressSpace() + memory));
    forbidWriting();
}
