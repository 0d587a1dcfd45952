#include "commands/service_stand_in.h"

#include <cstring>
#include <memory>

#include "platform/ipc_client.h"

namespace {
service_stand_in::Answer theAnswer;
std::vector<ComParam> sent;
// A new piece of memory of exactly its size each time, so that a use behind its end or after its release is seen.
std::unique_ptr<unsigned char[]> response;
std::size_t responseSize;
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
    if (record::attachedPosition.get(record) == 0) record::attachedPosition.set(record, kRecordSize);
    responseSize = kRecordSize + table.size();
    response.reset(new unsigned char[responseSize]);
    std::memcpy(response.get(), record.bytes, kRecordSize);
    if (!table.empty()) std::memcpy(response.get() + kRecordSize, table.data(), table.size());
    *answer = response.get();
    return 0;
}

extern "C" std::uint32_t IPCServiceDone(void*)
{
    response.reset();
    responseSize = 0;
    return 0;
}

extern "C" std::size_t IPCResponseSize(void) { return responseSize; }
