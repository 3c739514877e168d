#ifndef KEYS_RECORDMEMORY_H
#define KEYS_RECORDMEMORY_H

#include <cstddef>

/// The memory of the private records of properties. They lie close together, apart from the keys
/// that are allocated between them: playback reads the records of all channels in each frame, and
/// one page of memory a record would cost more than the evaluation. Any thread may call the
/// functions.
///
/// Blocks begin at a cache line. Throws std::bad_alloc without memory.
void *allocateRecord(std::size_t size);
/// Frees a block of allocateRecord() with the same size.
void freeRecord(void *record, std::size_t size);

#endif
