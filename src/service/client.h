// The console's gateway to the configuration service: the working records, one request at a time, and the reporter of
// what went wrong. Every request is followed by exactly one release, whatever its outcome.
#pragma once

#include <cstdint>

#include "service/attached_table.h"
#include "service/codes.h"
#include "service/record.h"
#include "service/status.h"

extern ComParam usrComParam;       // the request, and after it a copy of the answer
extern void* sysComParam;          // the answer in the library's memory, until its release
extern ComParam wizardParam;       // what a dialogue edits
extern ComParam oldWizardParam;    // what it began with
extern ComParam OldSettingsParam;  // an earlier record, to compare the new settings with

// mode 0: sends usrComParam with `code`; on success copies the answer into it and returns 0, else returns the exchange
// error and leaves usrComParam as it was but for kind and code. The status word is the caller's to examine.
// mode 1: releases the answer; returns what the library returned. Any other mode: no exchange, returns 0.
std::uint32_t CliServiceRoutine(std::uint32_t mode, std::uint16_t code);

// A bell, the log message library's text for the status within the group, a newline. Returns the last print's result.
int CliPrintServiceError(std::uint32_t status, std::uint32_t group);

// The same text without the bell.
int print_service_text(std::uint32_t status, std::uint32_t group);

// What became of a request: both 0 means done.
struct Outcome {
    std::uint32_t exchange;  // what CliServiceRoutine or the IPC client library returned
    std::uint32_t status;    // the answer's status word; after a failed exchange what the record held before
    bool ok() const { return exchange == 0 && status == 0; }
    std::uint32_t reason() const { return exchange ? exchange : status; }
};

// One request over usrComParam and its release.
Outcome read_record(std::uint16_t code);   // clears usrComParam first
Outcome write_record(std::uint16_t code);  // sends usrComParam as it stands

// A request whose answer is looked at in place, with its attached table, before the release at the end of the scope.
// The answer is also in usrComParam when that was the request.
class Exchange {
public:
    // Sends usrComParam with `code` as it stands.
    explicit Exchange(std::uint16_t code);
    // Sends `request`, a record of the caller's own, with `code`; a good answer is copied back into it.
    Exchange(ComParam& request, std::uint16_t code);
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    const Outcome& outcome() const { return outcome_; }
    bool ok() const { return outcome_.ok(); }
    AttachedTable table(std::size_t entrySize) const;

private:
    Outcome outcome_{};
};
