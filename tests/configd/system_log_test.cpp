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
#include "service/fields/log_table.h"
#include "service/fields/password.h"
#include "service/fields/system.h"
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

// The log is the process's: each test looks only at what it has added.
class LogArea : public AreaSession {
protected:
    std::vector<std::string> table(std::uint32_t facility = 0)
    {
        ComParam wanted = request_of(code::kReadLogTable);
        log_table_request::facility.set(wanted, facility);
        EXPECT_EQ(ask(wanted), kStatusOk);
        std::vector<std::string> lines;
        for (std::size_t at = 0; at < answer.table.size(); at += log_entry::kSize) {
            unsigned char* entry = answer.table.data() + at;
            lines.push_back(std::to_string(log_entry::level.get(entry)) + " " + log_entry::text.get(entry));
        }
        return lines;
    }
    std::string newest(std::uint32_t facility = 0)
    {
        const std::vector<std::string> lines = table(facility);
        return lines.empty() ? "" : lines.back();
    }
    std::uint32_t write_state(std::uint16_t code, std::uint32_t facility, std::uint8_t state)
    {
        ComParam wanted = request_of(code);
        facility_request::facility.set(wanted, facility);
        facility_request::state.set(wanted, state);
        return ask(wanted);
    }
};

TEST_F(LogArea, KnowsWhatEachOperationIsAbout)
{
    for (const Area* area : areas()) {
        for (const Operation& each : area->operations) EXPECT_TRUE(is_logged(each.code)) << each.code;
    }
}

TEST_F(LogArea, HasAChangeARefusalAndAWrongPassword)
{
    ComParam system = to_write(code::kReadSystem, code::kWriteSystem);
    system_record::name.set(system, "lab-ap");
    ASSERT_EQ(ask(system), kStatusOk);
    EXPECT_EQ(newest(), "5 system.name changed from \"router\" to \"lab-ap\"");

    system_record::name.set(system, "\x01");
    ASSERT_EQ(ask(system), kStatusValueRefused);
    EXPECT_EQ(newest(), "4 system settings refused: A value is not acceptable for its setting");

    ComParam password = request_of(code::kCheckPassword);
    password_record::password.set(password, "hunter2");
    ASSERT_EQ(ask(password), kStatusWrongPassword);
    EXPECT_EQ(newest(facility_bit(Facility::kLogin)), "5 a wrong password was given");
    password_record::password.set(password, "admin");
    ASSERT_EQ(ask(password), kStatusOk);
    EXPECT_EQ(newest(), "6 console password accepted");
    for (const std::string& line : table()) EXPECT_EQ(line.find("hunter2"), std::string::npos);

    ask(code::kSaveConfiguration);
    EXPECT_EQ(newest(facility_bit(Facility::kConfig)), "5 configuration saved");
    EXPECT_EQ(newest(facility_bit(Facility::kLogin)), "6 console password accepted");
}

TEST_F(LogArea, RefusesWhatIsNoFacilityOrNoServer)
{
    for (const std::uint32_t bad : {0u, 8u, 0x80000000u, 0x80000018u, 0xFFFFFFFFu}) {
        EXPECT_EQ(write_state(code::kWriteLogFacility, bad, kFacilityOn), kStatusUnknownName) << bad;
        ComParam wanted = request_of(code::kReadLogTable);
        log_table_request::facility.set(wanted, bad);
        EXPECT_EQ(ask(wanted), bad == 0 ? kStatusOk : kStatusUnknownName) << bad;
    }
    EXPECT_EQ(write_state(code::kWriteLogFacility, facility_bit(Facility::kNat), kFacilityOn + 1), kStatusValueRefused);

    ComParam remote = to_write(code::kReadSystemLog, code::kWriteSyslog);
    system_log_record::remoteEnabled.set(remote, 1);
    EXPECT_EQ(ask(remote), kStatusValueRefused) << "no server";
    system_log_record::remoteAddress.set(remote, 0xE0000001);
    EXPECT_EQ(ask(remote), kStatusValueRefused) << "multicast";
    system_log_record::remoteAddress.set(remote, 0x0A000009);
    system_log_record::remoteEnabled.set(remote, 0);
    EXPECT_EQ(ask(remote), kStatusOk);
    EXPECT_EQ(log_rules(*service).remote.address, 0u);
    system_log_record::remoteEnabled.set(remote, 1);
    EXPECT_EQ(ask(remote), kStatusOk);
    EXPECT_EQ(log_rules(*service).remote.address, 0x0A000009u);
    EXPECT_EQ(log_rules(*service).remote.sender, "router");
}

}  // namespace
