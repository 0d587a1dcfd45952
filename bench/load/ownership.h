// Who may change what, so that with any number of writers each setting has one truth: a client changes only what it
// owns, and the number of its last change says what all of that must be. Numbers begin at 1; 0 is before the first.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "configd/answer.h"

inline constexpr unsigned kMostOwners = 64;

// Sends a request and takes its answer; nothing when the service has gone.
using Ask = std::function<std::optional<Answer>(const ComParam& request)>;

ComParam plain_request(std::uint16_t code);

// The number-th change of a client: adding or deleting an entry, or a setting that is read, changed and written back.
// Nothing when the service has gone.
std::optional<Answer> change(const Ask& ask, unsigned client, unsigned number);

// Everything that is owned, as the service shows it.
class Observed {
public:
    // False when the service has gone.
    bool read(const Ask& ask);
    // The configuration in the text of a stored file, as a service that starts with it would show it.
    bool read_stored(const std::string& text);

    // Whether all that the client owns is as its change number `number` left it.
    bool matches(unsigned client, unsigned number) const;
    // The first number from `first` to `last` that it is as; nothing: as none of them.
    std::optional<unsigned> number_of(unsigned client, unsigned first, unsigned last) const;

    std::string describe(unsigned client) const;

private:
    std::vector<std::string> values_[kMostOwners];  // of the client's own, in its order
};

// A code that is read while others change; a different one for each `choice`.
std::uint16_t reading_code(std::size_t choice);
