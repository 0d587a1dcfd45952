#include "commands/service_stand_in.h"

#include <cstring>

#include "platform/ipc_client.h"

namespace {
service_stand_in::Answer theAnswer;
std::vector<ComParam> sent;
std::string* response;
}  // namespace

namespace service_stand_in {
void reset(Answer answer)
{
    theAnswer = std::move(answer);
    sent.clear();
}

std::vector<ComParam>& requests() { return sent; }

std::vector<std::uint16_t> codes_sent()
{
    std::vector<std::uint16_t> codes;
    for (const ComParam& request : sent) codes.push_back(static_cast<std::uint16_t>(record::code.get(request)));
    return codes;
}

int unreleased() { return response ? 1 : 0; }
}  // namespace service_stand_in

extern "C" std::uint32_t IPCServiceClient(const void* request, void** answer)
{
    ComParam record;
    std::memcpy(&record, request, sizeof record);
    sent.push_back(record);

    std::string table;
    record::status.set(record, 0);
    *answer = nullptr;
    if (const std::uint32_t failed = theAnswer ? theAnswer(record, table) : 0) return failed;

    record::attachedLength.set(record, static_cast<std::uint32_t>(table.size()));
    record::attachedPosition.set(record, kRecordSize);
    delete response;
    response = new std::string(reinterpret_cast<const char*>(record.bytes), sizeof record.bytes);
    *response += table;
    *answer = response->data();
    return 0;
}

extern "C" std::uint32_t IPCServiceDone(void*)
{
    delete response;
    response = nullptr;
    return 0;
}

extern "C" std::size_t IPCResponseSize(void) { return response ? response->size() : 0; }
