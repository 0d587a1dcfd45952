#include <cerrno>
#include <gtest/gtest.h>
#include <memory>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "configd/raw_client.h"
#include "configd/server.h"
#include "configd/temporary_folder.h"

namespace {
constexpr std::uint16_t kBigAnswer = 77;  // the handler answers it with a table
constexpr std::size_t kBigTable = 1 << 20;

void echo(const ComParam& request, Answer& answer, const Asker&)
{
    answer.record = request;
    if (record::code.get(request) != kBigAnswer) return;
    answer.table.assign(kBigTable, 'x');
    record::attachedLength.set(answer.record, kBigTable);
    record::attachedPosition.set(answer.record, kRecordSize);
}

enum Asked : int { kNotConnected, kRefused, kAnswered };

// Runs in a process of its own, which then is somebody else.
Asked ask_as_nobody(const std::string& path)
{
    constexpr unsigned kNobody = 65534;
    if (syscall(SYS_setgroups, 0, nullptr) != 0 || syscall(SYS_setresgid, kNobody, kNobody, kNobody) != 0 ||
        syscall(SYS_setresuid, kNobody, kNobody, kNobody) != 0)
        return kAnswered;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int line = socket(AF_UNIX, SOCK_STREAM, 0);
    if (connect(line, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return kNotConnected;
    const ComParam request = RawClient::request(5);
    send(line, request.bytes, sizeof request.bytes, MSG_NOSIGNAL);
    char byte;
    return recv(line, &byte, 1, 0) > 0 ? kAnswered : kRefused;
}

int exit_status(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
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

TEST_F(RunningServer, AnotherUserIsRefused)
{
    if (geteuid() != 0) GTEST_SKIP() << "only root can become another user";
    start();
    // The modes would keep that user out before the service does.
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    const pid_t child = fork();
    if (child == 0) _exit(ask_as_nobody(path));
    EXPECT_EQ(exit_status(child), kNotConnected);

    ASSERT_EQ(chmod(path.c_str(), 0666), 0);
    testing::internal::CaptureStderr();
    const pid_t second = fork();
    if (second == 0) _exit(ask_as_nobody(path));
    EXPECT_EQ(exit_status(second), kRefused);
    const std::string logged = testing::internal::GetCapturedStderr();
    EXPECT_NE(logged.find("refused process " + std::to_string(second) + " of user 65534"), logged.npos) << logged;
    RawClient own(path);
    EXPECT_TRUE(answers(own));
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

}  // namespace
