#include "support/fake_service.h"

#include <filesystem>

#include "support/service.h"

Reply plain_reply(const ComParam& request, std::uint32_t status, std::uint32_t attachedLength)
{
    ComParam answer = request;
    record::status.set(answer, status);
    record::attachedLength.set(answer, attachedLength);
    record::attachedPosition.set(answer, kRecordSize);
    return {.bytes = std::string(reinterpret_cast<const char*>(answer.bytes), sizeof answer.bytes)};
}

namespace {
const std::string& fresh_socket_path()
{
    Service::wipe();
    std::filesystem::create_directories(std::filesystem::path(Service::socket_path()).parent_path());
    return Service::socket_path();
}
}  // namespace

FakeService::FakeService(Answer answer)
    : server_(fresh_socket_path(), [answer = std::move(answer)](int connection) {
          for (ComParam request; take_request(connection, request);) {
              const Reply reply = answer(request);
              if (!say(connection, reply.bytes) || reply.disconnect) return;
          }
      })
{
}
