// The real program against those who may not: what it runs without, what wrong passwords cost, and where secrets are.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <sys/stat.h>

#include "configd/daemon.h"
#include "service/fields/address.h"
#include "service/fields/ddns.h"
#include "service/fields/engineering.h"
#include "service/fields/management.h"
#include "service/fields/password.h"
#include "service/fields/radius.h"
#include "service/fields/snmp.h"
#include "service/fields/wireless_port.h"
#include "service/fields/wireless_settings.h"
#include "support/fields.h"

namespace {
using Clock = std::chrono::steady_clock;

class Protection : public RunningDaemon {
protected:
    std::string status_line(const char* key) const
    {
        std::ifstream file("/proc/" + std::to_string(daemon.id()) + "/status");
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with(std::string(key) + ":\t")) return line.substr(std::string(key).size() + 2);
        }
        return "";
    }
    static ComParam password_request(const char* password)
    {
        ComParam request = RawClient::request(code::kCheckPassword);
        password_record::password.set(request, password);
        return request;
    }
    Clock::duration time_of(const ComParam& request, std::uint32_t status)
    {
        const auto asked = Clock::now();
        EXPECT_EQ(status_of(client->ask(request)), status);
        return Clock::now() - asked;
    }
    std::string notice()
    {
        auto answer = client->ask(password_request("admin"));
        return answer ? password_record::notice.get(answer->record) : "no answer";
    }
};

TEST_F(Protection, RunsWithoutWhatItDoesNotNeed)
{
    start();
    EXPECT_EQ(status_line("NoNewPrivs"), "1");
    EXPECT_EQ(status_line("Seccomp"), "2");
    for (const char* set : {"CapInh", "CapAmb"}) EXPECT_EQ(std::stoull(status_line(set), nullptr, 16), 0u) << set;
    constexpr unsigned long long kNetAdmin = 1 << 12,
                                 kSysTime = 1 << 25;  // the profile of the tests leaves the clock to it
    EXPECT_EQ(std::stoull(status_line("CapPrm"), nullptr, 16) & ~(kNetAdmin | kSysTime), 0u);
}

TEST_F(Protection, WrongPasswordsCostTheirClientTimeAndARestartDoesNotHelp)
{
    start();
    const ComParam wrong = password_request("wrong"), right = password_request("admin");
    EXPECT_GE(time_of(wrong, kStatusWrongPassword), std::chrono::milliseconds(100));
    EXPECT_GE(time_of(wrong, kStatusWrongPassword), std::chrono::milliseconds(200));
    kill();
    start();
    EXPECT_GE(time_of(wrong, kStatusWrongPassword), std::chrono::milliseconds(400));

    RawClient guesser(runtime + "/configd.sock");
    const auto asked = Clock::now();
    ASSERT_TRUE(guesser.send(wrong));
    for (int i = 0; i < 5; i++) EXPECT_TRUE(client->ask(code::kReadManagement));
    EXPECT_EQ(status_of(client->ask(right)), kStatusOk);
    EXPECT_LT(Clock::now() - asked, std::chrono::milliseconds(800)) << "neither a reader nor the operator waits";
    EXPECT_TRUE(guesser.receive());
    EXPECT_GE(Clock::now() - asked, std::chrono::milliseconds(800));
    EXPECT_LT(time_of(wrong, kStatusWrongPassword), std::chrono::milliseconds(800)) << "it begins anew";
}

struct Unreadable {
    const char* name;
    std::string content;
    std::uintmax_t size = 0;  // when it is more than the content
};
const Unreadable kUnreadable[] = {
    {"Truncated", "{\"format\": 1, \"management\": {\"http_po"},
    {"NewerFormat", R"({"format": 2})"},
    {"NotUtf8", "{\"format\": 1, \"system\": {\"name\": \"caf\xe9\"}}"},
    {"HundredMebibytes", R"({"format": 1})", 100 << 20},
};
class UnreadableFile : public Protection, public testing::WithParamInterface<Unreadable> {};
TEST_P(UnreadableFile, IsSetAsideAndToldAtEachLoginUntilASave)
{
    std::filesystem::create_directories(state);
    const std::string saved = state + "/config.json";
    std::ofstream(state + "/config.previous.json")
        << R"({"format": 1, "management": {"http_port": 8001}, "later": "kept"})";
    std::ofstream(saved) << GetParam().content;
    if (GetParam().size > 0) std::filesystem::resize_file(saved, GetParam().size);

    start();
    EXPECT_EQ(management_record::httpPort.get(client->ask(code::kReadManagement)->record), 8001);
    EXPECT_NE(logged().find(saved + " cannot be used: "), std::string::npos) << logged();
    EXPECT_NE(logged().find("config.rejected-1.json"), std::string::npos) << logged();
    const std::string told = "The saved configuration could not be read and is kept as config.rejected-1.json. "
                             "The one saved before is in force.";
    for (int i = 0; i < 2; i++) EXPECT_EQ(notice(), told);

    kill();
    std::filesystem::remove_all(runtime);
    start();
    EXPECT_EQ(notice(), told);
    EXPECT_EQ(save(), kStatusOk);
    EXPECT_EQ(notice(), "");
    std::ostringstream text;
    text << std::ifstream(saved).rdbuf();
    EXPECT_NE(text.str().find("\"later\": \"kept\""), std::string::npos) << text.str();
}
INSTANTIATE_TEST_SUITE_P(Files, UnreadableFile, testing::ValuesIn(kUnreadable),
                         [](const auto& f) { return f.param.name; });

struct Canary {
    const char* secret;
    std::uint16_t read, write;
    void (*plant)(ComParam& request, const char* secret);
    std::vector<std::uint16_t> carriers;  // whose answers need it: who may change the rest sees it
};
// clang-format off
const Canary kCanaries[] = {
    {"canary-console", 0,                           code::kChangePassword,
     [](ComParam& r, const char* s) { fill(r, password_record::password, "admin", password_record::newPassword, s); }, {}},
    {"canary-radius",  0,                           code::kWriteRadius,
     [](ComParam& r, const char* s) {
         namespace c = radius_record;
         fill(r, c::name, "primary", c::secret, s, c::port, 1812, c::retries, 3, c::reattempt, 60, c::address, 0x0A000009);
     },
     {code::kReadRadius}},
    {"canary-writes",  code::kReadSnmp,             code::kWriteSnmp,
     [](ComParam& r, const char* s) { snmp_record::writeCommunity.set(r, s); }, {}},
    {"canary-ddns",    code::kReadDdns,             code::kWriteDdns,
     [](ComParam& r, const char* s) { ddns_record::password.set(r, s); }, {}},
    {"canary-phrase",  code::kReadWirelessSettings, code::kWriteWirelessSettings,
     [](ComParam& r, const char* s) { wireless_record::passphrase.set(r, s); }, {code::kReadWirelessSettings}},
    {"ca-4a-12-e5-0f", 0,                           code::kWritePresetKey,
     [](ComParam& r, const char* s) { fill(r, preset_key_record::index, 1, preset_key_record::key, s); }, {}},
    {"canary-key-12",  code::kReadWirelessSettings, code::kWriteWirelessSettings,
     [](ComParam& r, const char* s) {
         namespace c = wireless_record;
         fill(r, c::key[0], s, c::keyType[0], c::kAscii128, c::keyLength, c::k128Bit);
     },
     {code::kReadWirelessSettings}},
};
// clang-format on
constexpr std::uint16_t kReads[] = {
    code::kReadRegDomain,     code::kReadPresetKey,
    code::kReadWirelessPort,  code::kReadSystem,
    code::kReadLeases,        code::kReadWirelessClients,
    code::kReadBridgeTable,   code::kReadManagement,
    code::kReadDhcpStatic,    code::kReadMacFilter,
    code::kReadSnmp,          code::kReadWdsPeers,
    code::kReadRadius,        code::kReadDdns,
    code::kReadNatRedirect,   code::kReadIpFilter,
    code::kReadNatTrigger,    code::kReadOperationMode,
    code::kReadDmz,           code::kReadTime,
    code::kReadPort,          code::kReadInterfaces,
    code::kReadNat,           code::kReadWirelessSettings,
    code::kReadLogTable,      code::kReadLogFacilities,
    code::kReadSystemLog,     code::kReadUpnp,
    code::kReadDhcpServer,    code::kReadRoutes,
    code::kReadRip,           code::kReadAddress,
    code::kReadPingAllowance, code::kReadPortStatistics,
    code::kReadLink,          code::kReadMacRegister,
};

class Secrets : public Protection {
protected:
    static bool shows(const Answer& answer, std::string_view secret)
    {
        const std::string_view record(reinterpret_cast<const char*>(answer.record.bytes), kRecordSize);
        const std::string_view table(reinterpret_cast<const char*>(answer.table.data()), answer.table.size());
        return record.find(secret) != record.npos || table.find(secret) != table.npos;
    }
    void search(const ComParam& request)
    {
        const auto answer = client->ask(request);
        ASSERT_TRUE(answer);
        const auto asked = static_cast<std::uint16_t>(record::code.get(request));
        for (const Canary& canary : kCanaries) {
            const bool mayShow = std::ranges::find(canary.carriers, asked) != canary.carriers.end();
            EXPECT_TRUE(mayShow || !shows(*answer, canary.secret)) << canary.secret << " in the answer of " << asked;
        }
    }
    // As the console asks, with the names that its requests may carry.
    void search_answers(std::uint16_t asked)
    {
        ComParam request = RawClient::request(asked);
        search(request);
        radius_record::name.set(request, "primary");
        search(request);
        wireless_port_record::radio.set(request, "radio1");
        search(request);
        address_record::interface.set(request, "lan");
        search(request);
    }
};

TEST_F(Secrets, AreNowhereTheyNeedNotBe)
{
    start();
    for (const Canary& canary : kCanaries) {
        ComParam request = canary.read ? client->ask(canary.read)->record : RawClient::request(canary.write);
        record::code.set(request, canary.write);
        record::attachedLength.set(request, 0);
        canary.plant(request, canary.secret);
        ASSERT_EQ(status_of(client->ask(request)), kStatusOk) << canary.secret;
        search(request);  // the second time it is refused or changes nothing
    }
    ASSERT_EQ(save(), kStatusOk);
    for (const std::uint16_t each : kReads) search_answers(each);
    for (const char* password : {"canary-console", "canary-radius"}) search(password_request(password));
    kill();
    start();
    for (const std::uint16_t each : kReads) search_answers(each);

    const std::string lines = logged();
    std::string kept;
    for (const auto& file : std::filesystem::recursive_directory_iterator(folder.path())) {
        if (!file.is_regular_file()) continue;
        std::ostringstream text;
        text << std::ifstream(file.path()).rdbuf();
        const bool isOwn = (file.status().permissions() & std::filesystem::perms(077)) == std::filesystem::perms::none;
        if (isOwn && file.path().extension() == ".json") kept += text.str();
        for (const Canary& canary : kCanaries) {
            EXPECT_TRUE(isOwn || text.str().find(canary.secret) == std::string::npos) << canary.secret << file.path();
            EXPECT_EQ(lines.find(canary.secret), std::string::npos) << canary.secret << " in " << lines;
        }
    }
    EXPECT_EQ(kept.find("canary-console"), std::string::npos) << "only its hash is kept";
    for (const char* planted : {"canary-radius", "canary-writes", "canary-ddns", "canary-phrase", "ca-4a-12-e5-0f"})
        EXPECT_NE(kept.find(planted), std::string::npos) << planted << " was never there";
}
}  // namespace
