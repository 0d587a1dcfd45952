// The gateway over a library that answers as told and counts what it is asked.
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/ipc_client.h"
#include "service/client.h"

namespace {
struct FakeLibrary {
    std::uint32_t result = IPC_OK;  // of the exchange
    std::uint32_t status = kStatusOk;
    std::vector<unsigned char> memory;
    std::vector<ComParam> requests;
    int releases = 0;
    void* released = nullptr;
} library;

constexpr Field<std::uint32_t> kPayloadWord{12};
constexpr std::uint32_t kAsked = 0x11111111, kAnswered = 0x22222222;
}  // namespace

uint32_t IPCServiceClient(const void* request, void** response)
{
    ComParam copy;
    std::memcpy(&copy, request, sizeof copy);
    library.requests.push_back(copy);
    *response = nullptr;
    if (library.result) return library.result;

    library.memory.assign(kRecordSize + 24, 0);
    record::status.set(library.memory.data(), library.status);
    kPayloadWord.set(library.memory.data(), kAnswered);
    record::attachedLength.set(library.memory.data(), 24);
    record::attachedPosition.set(library.memory.data(), kRecordSize);
    *response = library.memory.data();
    return IPC_OK;
}

uint32_t IPCServiceDone(void* response)
{
    ++library.releases;
    library.released = response;
    return 77;
}

size_t IPCResponseSize(void) { return library.memory.size(); }

namespace {
class Client : public testing::Test {
protected:
    void SetUp() override
    {
        library = {};
        std::memset(usrComParam.bytes, 0xEE, sizeof usrComParam.bytes);
        kPayloadWord.set(usrComParam, kAsked);
    }
};

TEST_F(Client, RequestSendsTheRecordAsItStandsAndTakesTheAnswer)
{
    EXPECT_EQ(CliServiceRoutine(0, code::kReadSystem), 0u);
    ASSERT_EQ(library.requests.size(), 1u);
    EXPECT_EQ(record::kind.get(library.requests[0]), record::kRequest);
    EXPECT_EQ(record::code.get(library.requests[0]), code::kReadSystem);
    EXPECT_EQ(kPayloadWord.get(library.requests[0]), kAsked);
    EXPECT_EQ(kPayloadWord.get(usrComParam), kAnswered);
    EXPECT_EQ(library.releases, 0);

    EXPECT_EQ(CliServiceRoutine(1, 0), 77u) << "the library's own result";
    EXPECT_EQ(library.released, library.memory.data());
    EXPECT_EQ(kPayloadWord.get(usrComParam), kAnswered) << "the copy outlives the release";
}

TEST_F(Client, FailedExchangeChangesKindAndCodeOnly)
{
    ComParam expected = usrComParam;
    record::kind.set(expected, record::kRequest);
    record::code.set(expected, code::kWriteSystem);
    library.result = IPC_NO_ANSWER;

    EXPECT_EQ(CliServiceRoutine(0, code::kWriteSystem), std::uint32_t{IPC_NO_ANSWER});
    EXPECT_EQ(std::memcmp(&usrComParam, &expected, sizeof expected), 0);
    CliServiceRoutine(1, 0);
    EXPECT_EQ(library.released, nullptr);
}

struct Case {
    const char* name;
    std::uint32_t result, status;
    bool ok;
    std::uint32_t reason;
};
constexpr Case kCases[] = {
    {"Done", IPC_OK, kStatusOk, true, 0},
    {"Refused", IPC_OK, kStatusTableFull, false, kStatusTableFull},
    {"NoExchange", IPC_NOT_RUNNING, kStatusOk, false, IPC_NOT_RUNNING},
};
class ClientOutcome : public Client, public testing::WithParamInterface<Case> {};
TEST_P(ClientOutcome, IsTheSameInAllFormsAndReleasesOnce)
{
    library.result = GetParam().result;
    library.status = GetParam().status;

    const Outcome read = read_record(code::kReadSystem);
    EXPECT_EQ(library.releases, 1);
    const Outcome written = write_record(code::kWriteSystem);
    EXPECT_EQ(library.releases, 2);
    ComParam own{};
    const Outcome inPlace = Exchange(own, code::kReadSystem).outcome();
    EXPECT_EQ(library.releases, 3);
    EXPECT_EQ(kPayloadWord.get(own), GetParam().result ? 0 : kAnswered);
    EXPECT_EQ(kPayloadWord.get(library.requests[0]), 0u) << "reading clears the record first";

    EXPECT_EQ(read.ok(), GetParam().ok);
    EXPECT_EQ(read.reason(), GetParam().reason);
    EXPECT_EQ(inPlace.reason(), GetParam().reason);
    EXPECT_EQ(written.exchange, GetParam().result);
}
INSTANTIATE_TEST_SUITE_P(Outcomes, ClientOutcome, testing::ValuesIn(kCases),
                         [](const auto& c) { return c.param.name; });

TEST_F(Client, ErrorIsABellTheTextAndANewline)
{
    testing::internal::CaptureStdout();
    EXPECT_EQ(CliPrintServiceError(kStatusTableFull, kWirelessGroup), 1);
    EXPECT_EQ(print_service_text(kStatusOk, kAddressGroup), 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "\aThe MAC filter table is full\nThe request failed, no reason was given\n");
}
}  // namespace
