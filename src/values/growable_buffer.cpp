#include "values/growable_buffer.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {
constexpr std::size_t kStep = 1024;

std::size_t rounded(std::size_t length) { return (length + kStep + 1) / kStep * kStep; }

// What stands first in the buffer stays, then come the bytes, then the blanks. New storage is complete before the old
// one goes: the bytes may lie in it, and without memory nothing has changed.
int put(GrowableBuffer* buffer, std::size_t kept, const void* bytes, std::size_t size, std::size_t blanks = 0)
{
    constexpr std::size_t kMost = SIZE_MAX / 4;  // no sum below can wrap
    InitBuffer(buffer);
    if (buffer->capacity == 0 || kept > kMost || size > kMost || blanks > kMost) return 1;

    const std::size_t length = kept + size + blanks;
    char* storage = buffer->storage;
    if (length >= buffer->capacity) {
        storage = static_cast<char*>(std::malloc(rounded(length)));
        if (!storage) return 1;
        std::memcpy(storage, buffer->storage, kept);
    }
    if (size > 0) std::memmove(storage + kept, bytes, size);
    std::memset(storage + kept + size, ' ', blanks);
    storage[length] = 0;
    if (storage != buffer->storage) {
        std::free(buffer->storage);
        buffer->storage = storage;
        buffer->capacity = rounded(length);
    }
    buffer->length = length;
    return 0;
}
}  // namespace

void InitBuffer(GrowableBuffer* buffer)
{
    if (buffer->capacity == 0) alloc_mem(buffer, 0);
}

char* alloc_mem(GrowableBuffer* buffer, std::size_t size)
{
    if (size > SIZE_MAX - 2 * kStep) return nullptr;
    char* storage = static_cast<char*>(std::malloc(rounded(size)));
    if (!storage) return nullptr;
    mem_free(buffer);
    *storage = 0;
    *buffer = {.length = 0, .capacity = rounded(size), .storage = storage};
    return storage;
}

GrowableBuffer* mem_free(GrowableBuffer* buffer)
{
    if (buffer->capacity != 0) std::free(buffer->storage);
    *buffer = {};
    return buffer;
}

int str_Copy(GrowableBuffer* buffer, const char* text) { return put(buffer, 0, text, std::strlen(text)); }
int str_Cat(GrowableBuffer* buffer, const char* text) { return bin_Cat(buffer, text, std::strlen(text)); }

int str_Cat_str(GrowableBuffer* buffer, const GrowableBuffer* source)
{
    return source->capacity == 0 ? 0 : bin_Cat(buffer, source->storage, source->length);
}

int str_CatX(GrowableBuffer* buffer, const char* text, std::size_t width)
{
    InitBuffer(buffer);
    const std::size_t size = std::strlen(text);
    return put(buffer, buffer->length, text, size, width > size ? width - size : 0);
}

int bin_Copy(GrowableBuffer* buffer, const void* bytes, std::size_t size) { return put(buffer, 0, bytes, size); }

int bin_Cat(GrowableBuffer* buffer, const void* bytes, std::size_t size)
{
    InitBuffer(buffer);
    return put(buffer, buffer->length, bytes, size);
}

std::size_t get_Length(const GrowableBuffer* buffer) { return buffer->capacity ? buffer->length : 0; }
char* get_Buffer(const GrowableBuffer* buffer) { return buffer->capacity ? buffer->storage : nullptr; }
