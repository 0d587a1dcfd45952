// The operations of the service over a machine and a storage that a test describes.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <string_view>

#include "configd/machine_stand_in.h"
#include "configd/memory_storage.h"
#include "configd/operations.h"
#include "service/codes.h"
#include "support/fields.h"

class AreaSession : public testing::Test {
protected:
    AreaSession()
    {
        machine = {};
        profile.restart = RestartMeans::kReload;
        start();
    }

    // Anew, with the profile as it is now and what is stored.
    void start()
    {
        service.emplace(Service{kMachineStandIn, profile, Store(model, storage.operations(), {"run", "state"}),
                                ClearedCounters(storage.operations(), "run")});
        service->store.start();
    }

    std::uint32_t ask(const ComParam& request)
    {
        answer_request(*service, request, answer, asker);
        return record::status.get(answer.record);
    }
    template <class... Fields> std::uint32_t ask(std::uint16_t code, const Fields&... fields)
    {
        return ask(request_of(code, fields...));
    }
    // What the code reads, as a console would send it back with another code and these changes.
    template <class... Fields>
    ComParam to_write(std::uint16_t readCode, std::uint16_t writeCode, const Fields&... fields)
    {
        ask(readCode);
        ComParam made = answer.record;
        fill(made, record::code, writeCode, record::attachedLength, 0, fields...);
        return made;
    }

    bool answer_shows(std::string_view text) const
    {
        const std::string_view record{reinterpret_cast<const char*>(answer.record.bytes), kRecordSize};
        return record.find(text) != record.npos;
    }

    bool payload_is_empty() const
    {
        const unsigned char* end = answer.record.bytes + record::kPayloadEnd;
        return std::find_if(answer.record.bytes + record::kPayload, end, [](unsigned char b) { return b != 0; }) == end;
    }

    const Model model = model_of(areas());
    Profile profile = built_in_profile();
    MemoryStorage storage;
    std::optional<Service> service;
    Answer answer;
    Asker asker;
};
