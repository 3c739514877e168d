// Ends the program as soon as it is loaded.
#include <csignal>
#include <unistd.h>

namespace {

struct Crash
{
    Crash()
    {
        std::signal(SIGSEGV, SIG_DFL);
        ::kill(::getpid(), SIGSEGV);
    }
};

const Crash crash;

} // namespace
