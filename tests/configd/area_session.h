// The operations of the service over a machine and a storage that a test describes.
#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string_view>

#include "configd/machine_stand_in.h"
#include "configd/memory_storage.h"
#include "configd/operations.h"
#include "service/codes.h"

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

    static ComParam request(std::uint16_t code)
    {
        ComParam made{};
        record::kind.set(made, record::kRequest);
        record::code.set(made, code);
        return made;
    }
    std::uint32_t ask(const ComParam& request)
    {
        answer_request(*service, request, answer, asker);
        return record::status.get(answer.record);
    }
    std::uint32_t ask(std::uint16_t code) { return ask(request(code)); }
    // What the code reads, as a console would send it back with another code.
    ComParam to_write(std::uint16_t readCode, std::uint16_t writeCode)
    {
        ask(readCode);
        ComParam made = answer.record;
        record::code.set(made, writeCode);
        record::attachedLength.set(made, 0);
        return made;
    }

    bool answer_shows(std::string_view text) const
    {
        const std::string_view record{reinterpret_cast<const char*>(answer.record.bytes), kRecordSize};
        return record.find(text) != record.npos;
    }

    const Model model = model_of(areas());
    Profile profile = built_in_profile();
    MemoryStorage storage;
    std::optional<Service> service;
    Answer answer;
    Asker asker;
};
