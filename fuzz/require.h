#ifndef REQUIRE_H
#define REQUIRE_H

#include <cstdlib>

/// Ends the process, so that the fuzzer records the input, when a condition does not hold.
inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

#endif
