// Values as the stored file has them: addresses dotted, choices as words, flags as true and false.
#pragma once

#include <jansson.h>
#include <utility>

#include "configd/settings.h"

// Shares one JSON value; nobody changes a value that is shared.
class Json {
public:
    Json() = default;
    explicit Json(json_t* owned) : value_(owned) {}
    Json(const Json& other) : value_(json_incref(other.value_)) {}
    Json(Json&& other) noexcept : value_(std::exchange(other.value_, nullptr)) {}
    Json& operator=(Json other)
    {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Json() { json_decref(value_); }

    json_t* get() const { return value_; }
    explicit operator bool() const { return value_ != nullptr; }

private:
    json_t* value_ = nullptr;
};

// A new reference.
json_t* value_to_json(const Setting& row, const unsigned char* value);

// false: not a value of the row's kind, or not one that it takes; what stands at `value` is then undefined.
bool value_from_json(const Setting& row, const json_t* json, unsigned char* value);
