#include "keys/recordmemory.h"

#include <memory_resource>

namespace {

// Never destroyed: objects with static storage may own properties. The sanitizers find accesses to
// freed records only in memory of their own.
std::pmr::memory_resource *records()
{
#ifdef __SANITIZE_ADDRESS__
    return std::pmr::new_delete_resource();
#else
    static auto *const pool = new std::pmr::synchronized_pool_resource;
    return pool;
#endif
}

} // namespace

void *allocateRecord(std::size_t size, std::size_t alignment)
{
    return records()->allocate(size, alignment);
}

void freeRecord(void *record, std::size_t size, std::size_t alignment)
{
    records()->deallocate(record, size, alignment);
}
