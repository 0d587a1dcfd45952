// The IPC client against a service of the test's own, which answers as well or as badly as a case asks for.
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "platform/ipc_client.h"
#include "platform/ipc_timeout.h"
#include "platform/socket_path.h"
#include "support/socket_server.h"

const char kServiceSocket[] = "configd.sock";  // in the folder that each test makes for itself

namespace {
using std::chrono::milliseconds;
using std::chrono::steady_clock;
using Bytes = std::string;

constexpr std::uint16_t kSomeCode = 200;

Bytes answer_with_table(std::uint32_t length, const Bytes& table)
{
    ComParam record{};
    record::code.set(record, kSomeCode);
    record::attachedLength.set(record, length);
    record::attachedPosition.set(record, kRecordSize);
    return Bytes(reinterpret_cast<const char*>(record.bytes), kRecordSize) + table;
}

Bytes answer() { return answer_with_table(0, ""); }

// Every request on every connection gets these bytes.
std::function<void(int)> always(const Bytes& bytes)
{
    return [bytes](int client) {
        for (ComParam request; take_request(client, request);) say(client, bytes);
    };
}

sockaddr_un socket_address()
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, kServiceSocket, sizeof kServiceSocket - 1);
    return address;
}

class IpcClient : public testing::Test {
protected:
    void SetUp() override
    {
        char folder[] = "/tmp/ipc_client_XXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        folder_ = folder;
        ASSERT_EQ(chdir(folder), 0);
        ipcTimeoutMilliseconds = IPC_TIMEOUT_SECONDS * 1000;
    }

    void TearDown() override
    {
        request();  // nobody listens any more: drops the connection that the library keeps
        EXPECT_EQ(chdir("/"), 0);
        EXPECT_EQ(rmdir(folder_.c_str()), 0);
    }

    std::uint32_t request()
    {
        ComParam record{};
        record::kind.set(record, record::kRequest);
        record::code.set(record, kSomeCode);
        void* response = &record;
        const std::uint32_t failed = IPCServiceClient(&record, &response);
        EXPECT_EQ(response == nullptr, failed != IPC_OK);
        received_ = response ? Bytes(static_cast<char*>(response), IPCResponseSize()) : Bytes();
        EXPECT_EQ(IPCServiceDone(response), 0u);
        EXPECT_EQ(IPCResponseSize(), 0u);
        return failed;
    }

    Bytes received_;  // record and table of the last request
    std::string folder_;
};

TEST_F(IpcClient, SendsTheCallersRecordWithItsAttachedWordsZero)
{
    std::optional<ComParam> seen;
    ComParam sent;
    std::memset(sent.bytes, 0xA5, sizeof sent.bytes);
    const ComParam before = sent;
    {
        SocketServer service(kServiceSocket, [&](int client) {
            ComParam request;
            if (!take_request(client, request)) return;
            seen = request;
            say(client, answer());
        });
        void* response = nullptr;
        ASSERT_EQ(IPCServiceClient(&sent, &response), std::uint32_t{IPC_OK});
        IPCServiceDone(response);
    }
    EXPECT_EQ(std::memcmp(&sent, &before, sizeof sent), 0) << "the caller's record was changed";
    ASSERT_TRUE(seen);
    EXPECT_EQ(record::attachedLength.get(*seen), 0u);
    EXPECT_EQ(record::attachedPosition.get(*seen), 0u);
    EXPECT_EQ(std::memcmp(seen->bytes, sent.bytes, record::kPayloadEnd), 0);
}

struct Answer {
    const char* name;
    Bytes bytes;
    std::size_t piece;  // bytes sent at a time; 0: all at once
    std::uint32_t result;
};
const Answer kAnswers[] = {
    {"Record", answer(), 0, IPC_OK},
    {"RecordInPieces", answer(), 1000, IPC_OK},
    {"TableOfItsOwnPiece", answer_with_table(96, Bytes(96, 't')), kRecordSize, IPC_OK},
    {"LargestTable", answer_with_table(IPC_MAX_TABLE, Bytes(IPC_MAX_TABLE, 't')), 0, IPC_OK},
    {"TableAboveTheLimit", answer_with_table(IPC_MAX_TABLE + 1, Bytes(96, 't')), 0, IPC_BAD_ANSWER},
    {"LengthOfAllOnes", answer_with_table(0xFFFFFFFF, Bytes(96, 't')), 0, IPC_BAD_ANSWER},
    {"MoreThanItsTable", answer_with_table(96, Bytes(97, 't')), 0, IPC_BAD_ANSWER},
    {"HalfARecord", answer().substr(0, kRecordSize / 2), 0, IPC_BROKEN},
    {"HalfATable", answer_with_table(96, Bytes(48, 't')), 0, IPC_BROKEN},
    {"Nothing", "", 0, IPC_BROKEN},
};
class IpcAnswer : public IpcClient, public testing::WithParamInterface<Answer> {};
TEST_P(IpcAnswer, IsTakenWholeOrRefusedAndTheNextRequestWorks)
{
    const Answer& given = GetParam();
    bool first = true;
    SocketServer service(kServiceSocket, [&](int client) {
        for (ComParam request; take_request(client, request);) {
            if (!first) {
                say(client, answer());
                continue;
            }
            first = false;
            const std::size_t piece = given.piece ? given.piece : given.bytes.size();
            for (std::size_t sent = 0; sent < given.bytes.size(); sent += piece) {
                if (sent) std::this_thread::sleep_for(milliseconds(5));
                say(client, given.bytes.substr(sent, piece));
            }
            if (given.result == IPC_BROKEN) return;
        }
    });

    EXPECT_EQ(request(), given.result);
    EXPECT_TRUE(received_ == (given.result == IPC_OK ? given.bytes : "")) << received_.size() << " bytes";
    EXPECT_EQ(request(), std::uint32_t{IPC_OK});
    EXPECT_TRUE(received_ == answer());
    EXPECT_EQ(service.connections(), given.result == IPC_OK ? 1 : 2);
}
INSTANTIATE_TEST_SUITE_P(Answers, IpcAnswer, testing::ValuesIn(kAnswers), [](const auto& c) { return c.param.name; });

TEST_F(IpcClient, SaysThatNobodyListens)
{
    EXPECT_EQ(request(), std::uint32_t{IPC_NOT_RUNNING});  // no socket at all
    {
        SocketServer service(kServiceSocket, always(answer()));
    }
    const int abandoned = socket(AF_UNIX, SOCK_STREAM, 0);
    const sockaddr_un address = socket_address();
    ASSERT_EQ(bind(abandoned, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(abandoned);
    EXPECT_EQ(request(), std::uint32_t{IPC_NOT_RUNNING});  // the socket of a service that is gone
    unlink(kServiceSocket);
}

TEST_F(IpcClient, MeetsARestartedServiceWithoutAnError)
{
    std::atomic<int> executed = 0;
    const auto count = [&](int client) {
        for (ComParam request; take_request(client, request); say(client, answer())) ++executed;
    };
    for (int restart = 0; restart < 3; ++restart) {
        SocketServer service(kServiceSocket, count);
        EXPECT_EQ(request(), std::uint32_t{IPC_OK});
        EXPECT_EQ(request(), std::uint32_t{IPC_OK});
        EXPECT_EQ(service.connections(), 1);
    }
    EXPECT_EQ(executed, 6);
}

TEST_F(IpcClient, DoesNotSendARequestTwiceThatMayHaveBeenCarriedOut)
{
    std::atomic<int> executed = 0;
    SocketServer service(kServiceSocket, [&](int client) {
        ComParam request;
        if (take_request(client, request) && ++executed == 1) say(client, answer());
        take_request(client, request) ? ++executed : 0;  // the second one is taken and never answered
    });
    EXPECT_EQ(request(), std::uint32_t{IPC_OK});
    EXPECT_EQ(request(), std::uint32_t{IPC_BROKEN});
    EXPECT_EQ(executed, 2);
}

TEST_F(IpcClient, GivesUpOnAServiceThatHangs)
{
    SocketServer service(kServiceSocket, [answered = 0](int client) mutable {
        for (ComParam request; take_request(client, request);)
            say(client, answered++ ? answer() : answer().substr(0, 100));
    });
    ipcTimeoutMilliseconds = 100;
    const auto start = steady_clock::now();
    EXPECT_EQ(request(), std::uint32_t{IPC_NO_ANSWER});
    EXPECT_GE(steady_clock::now() - start, milliseconds(95));
    EXPECT_LT(steady_clock::now() - start, milliseconds(5000));

    ipcTimeoutMilliseconds = 5000;
    EXPECT_EQ(request(), std::uint32_t{IPC_OK}) << "the late rest of an answer must not reach the next request";
}

TEST_F(IpcClient, GivesUpOnAnAnswerThatDripsInForEver)
{
    SocketServer service(kServiceSocket, [](int client) {
        ComParam request;
        take_request(client, request);
        for (char byte = 0; send(client, &byte, 1, MSG_NOSIGNAL) == 1;) std::this_thread::sleep_for(milliseconds(10));
    });
    ipcTimeoutMilliseconds = 100;
    const auto start = steady_clock::now();
    EXPECT_EQ(request(), std::uint32_t{IPC_NO_ANSWER});
    EXPECT_LT(steady_clock::now() - start, milliseconds(5000));
}

TEST_F(IpcClient, SurvivesAStormOfSignals)
{
    struct sigaction quiet = {}, before;
    quiet.sa_handler = [](int) {};
    sigaction(SIGALRM, &quiet, &before);  // without SA_RESTART: every wait is interrupted
    const itimerval everyHalfMillisecond{{0, 500}, {0, 500}}, never{};

    const Bytes whole = answer_with_table(960, Bytes(960, 't'));
    SocketServer service(kServiceSocket, [&](int client) {
        for (ComParam request; take_request(client, request);) {
            for (std::size_t sent = 0; sent < whole.size(); sent += 500) {
                std::this_thread::sleep_for(milliseconds(5));
                say(client, whole.substr(sent, 500));
            }
        }
    });
    setitimer(ITIMER_REAL, &everyHalfMillisecond, nullptr);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(request(), std::uint32_t{IPC_OK});
        EXPECT_TRUE(received_ == whole);
    }
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &before, nullptr);
}
}  // namespace
