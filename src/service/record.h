// The record that travels between the console and the configuration service, and the typed fields that reach into it.
// Exactly 3604 bytes in the native byte order of the machine that both run on. Nothing else in the project knows an
// offset: the fields of each area are declared in service/fields/.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

inline constexpr std::size_t kRecordSize = 3604;

struct ComParam {
    unsigned char bytes[kRecordSize];
};
static_assert(sizeof(ComParam) == kRecordSize);

void field_leaves_the_record();  // never defined; naming it in a constant expression is the error

struct Extent {
    std::size_t offset, width;
    constexpr std::size_t end() const { return offset + width; }
};

consteval Extent within(std::size_t offset, std::size_t width, std::size_t room = kRecordSize)
{
    if (offset + width > room) field_leaves_the_record();
    return {offset, width};
}

// Where a field lies: the record itself, or one entry of an attached table. Both are bytes of a known room.
template <std::size_t Room> struct Within {
    static constexpr std::size_t room = Room;

    // A number in native byte order, at any alignment.
    template <class T> struct Field {
        Extent at;
        consteval explicit Field(std::size_t offset) : at(within(offset, sizeof(T), Room)) {}

        T get(const unsigned char* bytes) const
        {
            T value;
            std::memcpy(&value, bytes + at.offset, sizeof value);
            return value;
        }
        void set(unsigned char* bytes, T value) const { std::memcpy(bytes + at.offset, &value, sizeof value); }
        T get(const ComParam& record) const { return get(record.bytes); }
        void set(ComParam& record, T value) const { set(record.bytes, value); }
    };

    // A text that ends in NUL within its width, whatever the bytes are. `width` counts the NUL.
    struct TextField {
        Extent at;
        consteval TextField(std::size_t offset, std::size_t width) : at(within(offset, width, Room)) {}

        // Ends the text in place when its NUL is missing, so that the result can be printed.
        const char* get(unsigned char* bytes) const
        {
            bytes[at.offset + at.width - 1] = 0;
            return reinterpret_cast<const char*>(bytes + at.offset);
        }
        const char* get(ComParam& record) const { return get(record.bytes); }

        // Bytes before the NUL; never more than the width.
        std::size_t length(const unsigned char* bytes) const
        {
            return strnlen(reinterpret_cast<const char*>(bytes + at.offset), at.width);
        }
        std::size_t length(const ComParam& record) const { return length(record.bytes); }

        // Cut to the width less one; the rest of the field becomes NUL, so that nothing old stays behind the text.
        void set(unsigned char* bytes, const char* text) const
        {
            const std::size_t used = strnlen(text, at.width - 1);
            std::memcpy(bytes + at.offset, text, used);
            std::memset(bytes + at.offset + used, 0, at.width - used);
        }
        void set(ComParam& record, const char* text) const { set(record.bytes, text); }

        void clear(ComParam& record) const { std::memset(record.bytes + at.offset, 0, at.width); }
    };

    // Six bytes, first octet first.
    struct MacField {
        Extent at;
        consteval explicit MacField(std::size_t offset) : at(within(offset, 6, Room)) {}

        const unsigned char* get(const unsigned char* bytes) const { return bytes + at.offset; }
        const unsigned char* get(const ComParam& record) const { return get(record.bytes); }
        void set(unsigned char* bytes, const void* mac) const { std::memcpy(bytes + at.offset, mac, 6); }
        void set(ComParam& record, const void* mac) const { set(record.bytes, mac); }
    };
};

template <class T> using Field = Within<kRecordSize>::Field<T>;
using TextField = Within<kRecordSize>::TextField;
using MacField = Within<kRecordSize>::MacField;

// The head and the tail that every record has.
namespace record {
inline constexpr Field<std::uint16_t> kind{0};                 // always kRequest in what the console sends
inline constexpr Field<std::uint32_t> code{4};                 // service/codes.h
inline constexpr Field<std::uint32_t> status{8};               // in an answer: service/status.h
inline constexpr Field<std::uint32_t> attachedLength{3596};    // in an answer: bytes of table behind the record
inline constexpr Field<std::uint32_t> attachedPosition{3600};  // from the start of the response memory
inline constexpr std::uint16_t kRequest = 3;
inline constexpr std::size_t kPayload = 12;
inline constexpr std::size_t kPayloadEnd = 3596;
}  // namespace record
