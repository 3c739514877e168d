#ifndef FUZZ_REQUIRE_H
#define FUZZ_REQUIRE_H

#include <cstdlib>

/// Ends the process, so that the fuzzer records the input, when a condition does not hold.
inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

#endif
