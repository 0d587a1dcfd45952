// The operations of the service: each area has its rows {code, function}, and one table has the areas. Most rows need
// no function of their own: reading and writing a section, reading, adding to and deleting from a list are written once
// here.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "configd/answer.h"
#include "configd/asker.h"
#include "configd/service.h"
#include "configd/settings.h"

struct Operation;

struct Call {
    Service& service;
    const Operation& operation;
    const ComParam& request;
    Answer& answer;  // payload and table begin empty; a refusal empties them again
    std::uint64_t connection = 0;
};

struct Operation {
    std::uint16_t code;
    ServiceStatus (*run)(Call& call);
    std::span<const Section> sections = {};  // read_section, write_section: one of these
    Extent name = {0, 0};                    // where the request says which one; width 0: there is only one
    const List* list = nullptr;              // read_list, add_to_list, delete_from_list
    Extent count = {0, 0};  // where the answer of read_list tells the number of entries; width 0: nowhere
};

// What one file of areas/ contributes.
struct Area {
    std::span<const Section> sections;
    std::span<const List> lists;
    std::span<const Operation> operations;
};

// A write is answered with what a read of the same section would be.
ServiceStatus read_section(Call& call);
ServiceStatus write_section(Call& call);
ServiceStatus read_list(Call& call);
ServiceStatus add_to_list(Call& call);
ServiceStatus delete_from_list(Call& call);

// Parts of them, for operations that do more.
const Section* requested_section(const Call& call);  // nullptr: none of that name
ServiceStatus write_rows(Call& call, const Section& section, std::span<const Setting> rows);

// Two consoles may change one record at the same time: each reads it, asks its operator, and sends all of it back. So
// each answer that shows a section tells which one and as of when, and a record that comes back with that shows which
// of its fields were changed. It does not matter what else its sender read meanwhile, and nothing is kept for a client.
void show_origin(Call& call, const Section& section);

// What its sender knows of the section: as it was when the record was read that the request brings back, but with what
// the sender itself has changed since. Nothing: the record was made from nothing, from a record of something else, or
// too long ago.
std::optional<Bytes> values_known(const Call& call, const Section& section);

// take_values from such a request.
ServiceStatus take_request(const Call& call, const Section& section, std::span<const Setting> rows,
                           Configuration& next);

std::span<const Area* const> areas();
Model model_of(std::span<const Area* const> areas);

// Carries the request out and completes the answer. The log names the asker.
void answer_request(Service& service, const ComParam& request, Answer& answer, const Asker& asker = {});
