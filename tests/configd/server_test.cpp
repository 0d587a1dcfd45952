#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "configd/raw_client.h"
#include "configd/server.h"
#include "configd/temporary_folder.h"

namespace {
constexpr std::uint16_t kBigAnswer = 77;  // the handler answers it with a table
constexpr std::size_t kBigTable = 1 << 20;

void echo(const ComParam& request, Answer& answer)
{
    answer.record = request;
    if (record::code.get(request) != kBigAnswer) return;
    answer.table.assign(kBigTable, 'x');
    record::attachedLength.set(answer.record, kBigTable);
    record::attachedPosition.set(answer.record, kRecordSize);
}

class RunningServer : public testing::Test {
protected:
    ~RunningServer() override { stop(); }

    void start(Server::Limits limits = {})
    {
        server = std::make_unique<Server>(echo, limits);
        ASSERT_EQ(server->listen(path), 0);
        thread = std::thread([this] { server->run(ending); });
    }
    void stop()
    {
        if (!thread.joinable()) return;
        eventfd_write(ending, 1);
        thread.join();
        server.reset();
    }
    bool answers(RawClient& client, std::uint16_t code = 5)
    {
        const auto answer = client.ask(code);
        return answer && record::code.get(answer->record) == code;
    }

    TemporaryFolder folder;
    const std::string path = folder.path() + "/socket";
    std::unique_ptr<Server> server;
    std::thread thread;
    const int ending = eventfd(0, EFD_CLOEXEC);
};

TEST_F(RunningServer, OnlyTheOwnerMayOpenTheSocketAndItGoesInTheEnd)
{
    start();
    struct stat about {};
    ASSERT_EQ(stat(path.c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 0777, 0600u);
    stop();
    EXPECT_NE(stat(path.c_str(), &about), 0);
}

TEST_F(RunningServer, AStaleSocketIsReplaced)
{
    ASSERT_GE(open(path.c_str(), O_CREAT | O_CLOEXEC | O_RDWR, 0600), 0);
    start();
    RawClient client(path);
    EXPECT_TRUE(answers(client));
}

TEST_F(RunningServer, ATooLongPathIsRefused)
{
    Server long_path(echo);
    EXPECT_EQ(long_path.listen(folder.path() + "/" + std::string(100, 'x')), ENAMETOOLONG);
}

TEST_F(RunningServer, ARequestMayArriveByteByByteAndSeveralAtOnce)
{
    start();
    RawClient client(path);
    const ComParam request = RawClient::request(9);
    for (const unsigned char& byte : request.bytes) ASSERT_TRUE(client.send(&byte, 1));
    ASSERT_TRUE(client.receive());

    std::vector<unsigned char> several;
    for (std::uint16_t code = 1; code <= 50; code++) {
        const ComParam each = RawClient::request(code);
        several.insert(several.end(), std::begin(each.bytes), std::end(each.bytes));
    }
    ASSERT_TRUE(client.send(several.data(), several.size()));
    client.finish_sending();
    for (std::uint16_t code = 1; code <= 50; code++) {
        const auto answer = client.receive();
        ASSERT_TRUE(answer);
        EXPECT_EQ(record::code.get(answer->record), code);
    }
    EXPECT_TRUE(client.is_closed());
}

TEST_F(RunningServer, HalfARequestIsForgottenWithItsClient)
{
    start();
    for (int i = 0; i < 100; i++) {
        RawClient half(path);
        half.send(RawClient::request(9).bytes, 1000);
    }
    RawClient client(path);
    EXPECT_TRUE(answers(client));
}

TEST_F(RunningServer, AClientThatTakesNoAnswerHoldsUpNobodyAndIsDropped)
{
    start({.clients = 32, .patience = std::chrono::seconds(1)});
    RawClient stuck(path), other(path);
    ASSERT_TRUE(stuck.send(RawClient::request(kBigAnswer)));
    EXPECT_TRUE(answers(other));
    const auto big = other.ask(kBigAnswer);
    ASSERT_TRUE(big);
    EXPECT_EQ(big->table, std::vector<unsigned char>(kBigTable, 'x'));

    while (stuck.send(RawClient::request(1))) ASSERT_TRUE(answers(other));  // until the server lets go of it
    EXPECT_TRUE(stuck.is_closed());
    EXPECT_TRUE(answers(other));
}

TEST_F(RunningServer, HalfARequestHasItsTimeAndAnIdleClientAllOfIt)
{
    start({.clients = 32, .patience = std::chrono::milliseconds(500)});
    RawClient idle(path), half(path);
    EXPECT_TRUE(answers(idle));
    half.send(RawClient::request(9).bytes, 1);
    EXPECT_TRUE(half.is_closed());
    EXPECT_TRUE(answers(idle));
}

TEST_F(RunningServer, ANewClientTakesThePlaceOfTheLongestIdle)
{
    start({.clients = 3});
    RawClient first(path), busy(path), third(path);
    for (RawClient* each : {&first, &busy, &third}) ASSERT_TRUE(answers(*each));
    ASSERT_TRUE(busy.send(RawClient::request(9).bytes, kRecordSize - 1));
    ASSERT_TRUE(answers(third));  // behind it: the half request has been seen

    RawClient fourth(path);
    EXPECT_TRUE(answers(fourth));
    EXPECT_TRUE(first.is_closed());
    const unsigned char last = 0;
    ASSERT_TRUE(busy.send(&last, 1));
    EXPECT_TRUE(busy.receive());
    EXPECT_TRUE(answers(third));
}

TEST_F(RunningServer, WhenAllAreBusyANewClientIsRefused)
{
    start({.clients = 2});
    RawClient a(path), b(path);
    for (RawClient* each : {&a, &b}) {
        ASSERT_TRUE(answers(*each));
        ASSERT_TRUE(each->send(RawClient::request(9).bytes, 5));
    }
    RawClient refused(path);
    EXPECT_TRUE(refused.is_closed());
    a.finish_sending();
    EXPECT_TRUE(a.is_closed());
    RawClient next(path);
    EXPECT_TRUE(answers(next));
}

TEST(Lock, OnlyOneHoldsIt)
{
    TemporaryFolder folder;
    const std::string path = folder.path() + "/lock";
    {
        Lock first, second;
        EXPECT_EQ(first.take(path), 0);
        EXPECT_EQ(second.take(path), EWOULDBLOCK);
    }
    Lock again;
    EXPECT_EQ(again.take(path), 0);
}
}  // namespace
