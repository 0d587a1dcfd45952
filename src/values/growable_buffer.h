// Text or bytes that grow as they are put together. What is stored is always followed by a NUL. A zeroed buffer is
// empty; its storage comes with the first use. When memory runs out the buffer stays as it was.
#pragma once

#include <cstddef>

struct GrowableBuffer {
    std::size_t length;    // bytes in use, the NUL not counted
    std::size_t capacity;  // 0: no storage yet
    char* storage;
};

void InitBuffer(GrowableBuffer* buffer);                    // first storage, if there is none
char* alloc_mem(GrowableBuffer* buffer, std::size_t size);  // fresh storage for `size` bytes, empty; null: no memory
GrowableBuffer* mem_free(GrowableBuffer* buffer);

// 0, or 1 when there is no memory. The source may lie in the buffer's own storage.
int str_Copy(GrowableBuffer* buffer, const char* text);
int str_Cat(GrowableBuffer* buffer, const char* text);
int str_Cat_str(GrowableBuffer* buffer, const GrowableBuffer* source);
int str_CatX(GrowableBuffer* buffer, const char* text, std::size_t width);  // blanks behind it up to `width`
int bin_Copy(GrowableBuffer* buffer, const void* bytes, std::size_t size);
int bin_Cat(GrowableBuffer* buffer, const void* bytes, std::size_t size);

std::size_t get_Length(const GrowableBuffer* buffer);
char* get_Buffer(const GrowableBuffer* buffer);  // null: no storage yet
