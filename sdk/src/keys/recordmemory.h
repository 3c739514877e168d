#ifndef RECORDMEMORY_H
#define RECORDMEMORY_H

#include <cstddef>

/// Bytes that the processor reads from memory at once.
constexpr std::size_t CacheLine = 64;

/// The memory of the private records of properties, and of the controls of nodes. They lie close
/// together, apart from the keys that are allocated between them: playback reads the controls and
/// records of all channels in each frame, and a page of memory each would cost more than the
/// evaluation. Any thread may call the functions.
///
/// Throws std::bad_alloc without memory.
void *allocateRecord(std::size_t size, std::size_t alignment);
/// Frees a block of allocateRecord() with the same size and alignment.
void freeRecord(void *record, std::size_t size, std::size_t alignment);

#endif
