#include "configd/operations.h"

#include <algorithm>

#include "configd/areas/areas.h"
#include "configd/request_log.h"

namespace {
// The order is that of the stored file.
constexpr const Area* kAreas[] = {
    &kSystemArea,
    &kPasswordArea,
    &kManagementArea,
    &kAddressArea,
    &kDhcpArea,
    &kTimeArea,
    &kWirelessArea,
    &kMacFilterArea,
    &kWdsArea,
    &kOperationModeArea,
    &kRadiusArea,
    &kRouteArea,
    &kSnmpArea,
    &kSystemLogArea,
    &kUpnpArea,
    &kInterfacesArea,
    &kInterfaceSettingsArea,
    &kPortCountersArea,
    &kWirelessClientsArea,
    &kPersistenceArea,
    &kDdnsArea,
    &kPingArea,
    &kLogTableArea,
    &kEngineeringArea,
    &kBridgeArea,
    &kNatArea,
    &kIpFilterArea,
};

const Operation* operation_of(std::uint32_t code)
{
    for (const Area* area : kAreas) {
        const auto found = std::ranges::find(area->operations, code, &Operation::code);
        if (found != area->operations.end()) return &*found;
    }
    return nullptr;
}

ServiceStatus carry_out(Service& service, const ComParam& request, Answer& answer, const Asker& asker)
{
    if (record::kind.get(request) != record::kRequest) return kStatusBadRequest;
    if (record::attachedLength.get(request) != 0) return kStatusBadRequest;  // a request carries no table
    const Operation* operation = operation_of(record::code.get(request));
    if (!operation) return kStatusUnknownOperation;

    Call call{service, *operation, request, answer, asker.connection};
    return operation->run(call);
}

Bytes entry_of(const List& list, const ComParam& request)
{
    Bytes bytes(list.entrySize, 0);
    for (const Column& column : list.columns)
        copy_value(column.setting, request.bytes + column.inRequest.offset, bytes.data() + column.setting.at.offset);
    return bytes;
}

bool takes_entry(const List& list, const ComParam& request)
{
    return std::ranges::all_of(list.columns, [&](const Column& column) {
        return takes(column.setting, request.bytes + column.inRequest.offset);
    });
}

// Counted from 1, as the record has it.
std::uint16_t number_of(const Model& model, const Section& section)
{
    const auto found = std::ranges::find(model.sections, &section);
    return static_cast<std::uint16_t>(found - model.sections.begin() + 1);
}
}  // namespace

std::span<const Area* const> areas() { return kAreas; }

Model model_of(std::span<const Area* const> areas)
{
    Model model;
    for (const Area* area : areas) {
        for (const Section& section : area->sections) model.sections.push_back(&section);
        for (const List& list : area->lists) model.lists.push_back(&list);
    }
    return model;
}

const Section* requested_section(const Call& call)
{
    const Operation& operation = call.operation;
    if (operation.name.width == 0) return operation.sections.data();
    const auto* name = reinterpret_cast<const char*>(call.request.bytes + operation.name.offset);
    const std::string_view wanted{name, strnlen(name, operation.name.width)};
    const auto found =
        std::ranges::find_if(operation.sections, [&](const Section& each) { return wanted == each.name; });
    return found == operation.sections.end() ? nullptr : &*found;
}

void show_origin(Call& call, const Section& section)
{
    const Store& store = call.service.store;
    origin_record::revision.set(call.answer.record, store.revision());
    origin_record::section.set(call.answer.record, number_of(store.model(), section));
}

std::optional<Bytes> values_known(const Call& call, const Section& section)
{
    const Store& store = call.service.store;
    const Section* subject = requested_section(call);
    if (!subject || origin_record::section.get(call.request) != number_of(store.model(), *subject)) return {};
    return store.values_known(section, origin_record::revision.get(call.request), call.connection);
}

ServiceStatus take_request(const Call& call, const Section& section, std::span<const Setting> rows, Configuration& next)
{
    return take_values(section, rows, call.request, next.values(section), values_known(call, section));
}

ServiceStatus read_section(Call& call)
{
    const Section* section = requested_section(call);
    if (!section) return kStatusUnknownName;
    give_values(*section, call.service.store.running().values(*section), call.answer.record);
    show_origin(call, *section);
    const std::string_view name = section->name;
    std::memcpy(call.answer.record.bytes + call.operation.name.offset, name.data(),
                std::min(name.size(), call.operation.name.width));
    return kStatusOk;
}

ServiceStatus write_rows(Call& call, const Section& section, std::span<const Setting> rows)
{
    Configuration next = call.service.store.running();
    if (const ServiceStatus refused = take_request(call, section, rows, next)) return refused;
    if (next.values(section) == call.service.store.running().values(section)) return kStatusOk;
    return call.service.store.change(std::move(next));
}

ServiceStatus write_section(Call& call)
{
    const Section* section = requested_section(call);
    if (!section) return kStatusUnknownName;
    if (const ServiceStatus refused = write_rows(call, *section, section->settings)) return refused;
    return read_section(call);
}

ServiceStatus read_list(Call& call)
{
    const std::vector<Entry>& entries = call.service.store.running().entries(*call.operation.list);
    for (const Entry& entry : entries)
        call.answer.table.insert(call.answer.table.end(), entry.bytes.begin(), entry.bytes.end());
    if (call.operation.count.width == 0) return kStatusOk;

    const auto count = static_cast<std::uint16_t>(entries.size());
    std::memcpy(call.answer.record.bytes + call.operation.count.offset, &count, sizeof count);
    return kStatusOk;
}

ServiceStatus add_to_list(Call& call)
{
    const List& list = *call.operation.list;
    if (!takes_entry(list, call.request)) return kStatusValueRefused;
    Configuration next = call.service.store.running();
    if (const ServiceStatus refused = add_entry(list, next.entries(list), {entry_of(list, call.request), {}}))
        return refused;
    return call.service.store.change(std::move(next));
}

ServiceStatus delete_from_list(Call& call)
{
    const List& list = *call.operation.list;
    Configuration next = call.service.store.running();
    std::vector<Entry>& entries = next.entries(list);
    const std::size_t found = find_entry(list, entries, 0, entry_of(list, call.request));
    if (found == entries.size()) return list.identities[0].unknown;
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(found));
    return call.service.store.change(std::move(next));
}

void answer_request(Service& service, const ComParam& request, Answer& answer, const Asker& asker)
{
    answer = {};
    RequestLog log(service, request, asker);
    const ServiceStatus status = carry_out(service, request, answer, asker);
    log.done(status);
    if (status != kStatusOk) answer = {.delay = answer.delay};

    record::kind.set(answer.record, record::kRequest);
    record::code.set(answer.record, record::code.get(request));
    record::status.set(answer.record, status);
    if (answer.table.empty()) return;
    record::attachedLength.set(answer.record, static_cast<std::uint32_t>(answer.table.size()));
    record::attachedPosition.set(answer.record, kRecordSize);
}
