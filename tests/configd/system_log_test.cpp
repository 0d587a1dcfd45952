#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <syslog.h>
#include <unistd.h>

#include "configd/area_session.h"
#include "configd/areas/system_log.h"
#include "configd/request_log.h"
#include "configd/system_log.h"
#include "platform/log_messages.h"
#include "service/fields/system_log.h"

namespace {
constexpr std::uint32_t kLoopback = 0x7F000001;

TEST(SystemLog, KeepsWhatItsRulesWant)
{
    SystemLog log;
    LogRules rules;
    rules.logUpTo[static_cast<std::size_t>(Facility::kDhcp)] = LOG_WARNING;
    rules.logUpTo[static_cast<std::size_t>(Facility::kNat)] = 0;
    rules.traceUpTo[static_cast<std::size_t>(Facility::kNat)] = LOG_INFO;
    log.follow(rules);
    log.log(Facility::kDhcp, LOG_WARNING, "warning");
    log.log(Facility::kDhcp, LOG_NOTICE, "dropped");
    log.log(Facility::kNat, LOG_ALERT, "dropped");
    log.trace(Facility::kNat, LOG_DEBUG, "dropped");
    log.trace(Facility::kNat, LOG_INFO, "traced");
    log.trace(Facility::kRip, LOG_INFO, "dropped");
    ASSERT_EQ(log.entries().size(), 2u);
    EXPECT_EQ(log.entries()[0].text, "warning");
    EXPECT_EQ(log.entries()[1].text, "traced");
}

TEST(SystemLog, AnEntryIsOneLineOfItsLength)
{
    SystemLog log;
    log.log(Facility::kSystem, LOG_NOTICE, "two\nlines\x1b[2J\xff" + std::string(200, 'x'));
    const std::string& text = log.entries().back().text;
    EXPECT_TRUE(text.starts_with("two?lines?[2J?x")) << text;
    EXPECT_EQ(text.size(), SystemLog::kLongestText);
    EXPECT_TRUE(text.ends_with("xxx...")) << text;
}

TEST(RemoteLog, SendsOneDatagramAnEntry)
{
    const int receiver = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(kLoopback);
    socklen_t size = sizeof address;
    ASSERT_EQ(bind(receiver, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(getsockname(receiver, reinterpret_cast<sockaddr*>(&address), &size), 0);

    SystemLog log;
    LogRules rules;
    rules.remote = {.address = kLoopback, .port = ntohs(address.sin_port), .sender = "lab ap"};
    log.follow(rules);
    log.log(Facility::kDhcp, LOG_DEBUG, "not kept, not sent");
    log.log(Facility::kDhcp, LOG_NOTICE, "new static address accepted");

    pollfd wait{receiver, POLLIN, 0};
    ASSERT_EQ(poll(&wait, 1, 5000), 1);
    char datagram[512];
    const ssize_t got = recv(receiver, datagram, sizeof datagram, 0);
    const std::string message(datagram, got > 0 ? static_cast<std::size_t>(got) : 0);
    constexpr std::string_view kHead = "<133>1 ",
                               kTail = "Z lab-ap router-manager - dhcp - new static address accepted";
    EXPECT_TRUE(message.starts_with(kHead) && message.ends_with(kTail)) << message;
    EXPECT_EQ(message.size(), kHead.size() + sizeof "2026-11-21T12:31:36" - 1 + kTail.size()) << message;
    EXPECT_EQ(poll(&wait, 1, 0), 0);
    close(receiver);
}

class LogArea : public AreaSession {};

TEST_F(LogArea, KnowsWhatEachOperationIsAbout)
{
    for (const Area* area : areas()) {
        for (const Operation& each : area->operations) EXPECT_TRUE(is_logged(each.code)) << each.code;
    }
}

TEST_F(LogArea, IsSentOnlyWhenThatIsSwitchedOn)
{
    ComParam remote = to_write(code::kReadSystemLog, code::kWriteSyslog, system_log_record::remoteAddress, 0x0A000009);
    EXPECT_EQ(ask(remote), kStatusOk);
    EXPECT_EQ(log_rules(*service).remote.address, 0u);
    system_log_record::remoteEnabled.set(remote, 1);
    EXPECT_EQ(ask(remote), kStatusOk);
    EXPECT_EQ(log_rules(*service).remote.address, 0x0A000009u);
    EXPECT_EQ(log_rules(*service).remote.sender, "router");
}
}  // namespace
