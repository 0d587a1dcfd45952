// What the sections held before their latest changes, for records that were read then and are written back now. Old
// values are forgotten, oldest first, when they fill their room: a record that is older than what is left is taken as
// one that was made from nothing.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>

#include "configd/configuration.h"

class Revisions {
public:
    Revisions();

    // The number of the running configuration; it grows with each change and never is 0. Where it begins is random, so
    // that a number from before a restart of the service means nothing.
    std::uint32_t current() const { return current_; }

    // A change, and the connection that asked for it.
    void note(const Model& model, const Configuration& before, const Configuration& after, std::uint64_t connection);

    // The section as a connection knows it that has read it at that revision: what another connection has changed since
    // (and was the last to) as it was then, the rest as it is. Nothing: the revision is too old, or none.
    std::optional<Bytes> values_known(const Section& section, std::uint32_t revision, std::uint64_t connection,
                                      const Configuration& running) const;

    static constexpr std::size_t kRoom = 128 * 1024;

private:
    struct Past {
        std::uint32_t until;  // the revision that changed them
        std::uint64_t connection;
        const Section* section;
        Bytes values;
    };

    std::deque<Past> past_{};         // oldest first
    std::size_t used_ = 0;            // bytes of values in it
    std::uint32_t current_, oldest_;  // what is known: from oldest_ on
};
