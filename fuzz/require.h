#ifndef FUZZ_REQUIRE_H
#define FUZZ_REQUIRE_H

#include <cstdlib>

/// Ends the process, so that the fuzzer records the input, when a promise is not kept.
inline void require(bool promise)
{
    if (!promise)
        std::abort();
}

#endif
