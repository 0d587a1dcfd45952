// The real program on temporary folders: what survives its end, and how it starts and ends.
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "configd/raw_client.h"
#include "configd/temporary_folder.h"
#include "service/codes.h"
#include "service/fields/management.h"
#include "service/status.h"
#include "support/process.h"

namespace {
constexpr const char* kReload = R"({"restart": "reload"})";  // this machine is never restarted

class Daemon : public testing::Test {
protected:
    Daemon()
    {
        std::ofstream(profile) << kReload;
        null = open("/dev/null", O_RDWR | O_CLOEXEC);
        log = open((folder.path() + "/log").c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        receive_notices();
    }
    ~Daemon() override
    {
        for (const int each : {null, log, notices}) close(each);
        unsetenv("NOTIFY_SOCKET");
    }

    Process launch(std::vector<std::string> more = {})
    {
        std::vector<std::string> command = {CONFIGD,       "--log", "stderr",    "--runtime-dir", runtime,
                                            "--state-dir", state,   "--profile", profile};
        command.insert(command.end(), more.begin(), more.end());
        return Process({.command = command, .input = null, .output = log, .errors = log});
    }
    void start()
    {
        daemon = launch();
        ASSERT_EQ(next_notice(), "READY=1") << logged();
        client = std::make_unique<RawClient>(runtime + "/configd.sock");
    }
    void kill()
    {
        daemon.signal(SIGKILL);
        ASSERT_TRUE(daemon.wait_exit(kPatience));
    }

    std::string logged() const
    {
        std::ostringstream text;
        text << std::ifstream(folder.path() + "/log").rdbuf();
        return text.str();
    }

    int http_port()
    {
        const auto answer = client->ask(code::kReadManagement);
        return answer ? management_record::httpPort.get(answer->record) : -1;
    }
    std::uint32_t set_http_port(std::uint16_t port)
    {
        ComParam request = client->ask(code::kReadManagement)->record;
        record::code.set(request, code::kWriteManagement);
        management_record::httpPort.set(request, port);
        return status_of(client->ask(request));
    }
    std::uint32_t save() { return status_of(client->ask(code::kSaveConfiguration)); }
    static std::uint32_t status_of(const std::optional<Answer>& answer)
    {
        return answer ? record::status.get(answer->record) : kStatusEnd;
    }

    std::string next_notice() const
    {
        char text[64];
        const ssize_t got = recv(notices, text, sizeof text, 0);
        return {text, static_cast<std::size_t>(std::max<ssize_t>(got, 0))};
    }

    TemporaryFolder folder;
    const std::string runtime = folder.path() + "/run/router", state = folder.path() + "/state",
                      profile = folder.path() + "/profile.json";
    Process daemon;
    std::unique_ptr<RawClient> client;
    int null, log, notices;

private:
    // The supervisor's end of the notices tells when the service is ready.
    void receive_notices()
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string path = folder.path() + "/notify";
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        notices = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        const timeval limit{.tv_sec = 15, .tv_usec = 0};
        setsockopt(notices, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
        EXPECT_EQ(bind(notices, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        setenv("NOTIFY_SOCKET", path.c_str(), 1);
    }
};

TEST_F(Daemon, ACrashLosesNothingAndADeviceRestartWhatWasNotSaved)
{
    start();
    EXPECT_EQ(set_http_port(8001), kStatusOk);
    EXPECT_EQ(save(), kStatusOk);
    EXPECT_EQ(set_http_port(8002), kStatusOk);
    kill();

    start();
    EXPECT_EQ(http_port(), 8002);
    kill();

    std::filesystem::remove_all(runtime);
    start();
    EXPECT_EQ(http_port(), 8001);
    EXPECT_EQ(set_http_port(8003), kStatusOk);
    EXPECT_EQ(status_of(client->ask(code::kRestart)), kStatusOk);
    EXPECT_EQ(http_port(), 8001);
    EXPECT_EQ(status_of(client->ask(code::kClearConfiguration)), kStatusOk);
    EXPECT_EQ(http_port(), 80);
}

TEST_F(Daemon, KilledAmidChangesAndSavesItHasOneOfTheConfigurations)
{
    std::uint16_t next = 1000, saved = 80, trying = 80;
    for (int round = 0; round < 20; round++) {
        start();
        const int running = http_port();
        ASSERT_TRUE(running == saved || running == trying) << running << " is neither " << saved << " nor " << trying;
        saved = static_cast<std::uint16_t>(running);

        // Some requests answered, then one of each kind on its way when the service dies.
        for (int i = 0; i < round % 5; i++) {
            ASSERT_EQ(set_http_port(++next), kStatusOk);
            ASSERT_EQ(save(), kStatusOk);
            saved = next;
        }
        trying = ++next;
        ComParam request = client->ask(code::kReadManagement)->record;
        record::code.set(request, code::kWriteManagement);
        management_record::httpPort.set(request, trying);
        client->send(request);
        client->send(RawClient::request(code::kSaveConfiguration));
        if (round % 2) client->receive();
        kill();
        if (round % 3 == 0) std::filesystem::remove_all(runtime);
    }
    EXPECT_EQ(logged().find("cannot be used"), std::string::npos) << logged();
}

TEST_F(Daemon, FilesAreTheServicesOwn)
{
    start();
    EXPECT_EQ(set_http_port(8001), kStatusOk);
    EXPECT_EQ(save(), kStatusOk);
    struct {
        std::string path;
        mode_t mode;
    } const wanted[] = {{runtime, 0755},
                        {state, 0700},
                        {runtime + "/configd.sock", 0600},
                        {runtime + "/running.json", 0600},
                        {state + "/config.json", 0600}};
    for (const auto& each : wanted) {
        struct stat about {};
        ASSERT_EQ(stat(each.path.c_str(), &about), 0) << each.path;
        EXPECT_EQ(about.st_mode & 07777, each.mode) << each.path;
    }
}

TEST_F(Daemon, ADamagedFileIsKeptAndReported)
{
    std::filesystem::create_directories(state);
    std::ofstream(state + "/config.json") << "{\"format\": 1, \"management\": {\"http_port\": \"eighty\"}}";
    start();
    EXPECT_EQ(http_port(), 80);
    EXPECT_TRUE(std::filesystem::exists(state + "/config.rejected-1.json"));
    EXPECT_NE(logged().find("management.http_port"), std::string::npos) << logged();
}

TEST_F(Daemon, ASecondServiceDoesNotTakeTheSocket)
{
    start();
    Process second = launch();
    EXPECT_EQ(second.wait_exit(kPatience), EXIT_FAILURE);
    EXPECT_EQ(http_port(), 80);
}

TEST_F(Daemon, EndsCleanlyWhenToldTo)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        start();
        RawClient half(runtime + "/configd.sock");
        half.send("x", 1);
        daemon.signal(signal);
        EXPECT_EQ(daemon.wait_exit(kPatience), EXIT_SUCCESS) << logged();
        EXPECT_FALSE(std::filesystem::exists(runtime + "/configd.sock"));
        EXPECT_EQ(next_notice(), "STOPPING=1");
    }
}

TEST_F(Daemon, WrongOptionsAndFilesAreRefused)
{
    EXPECT_EQ(launch({"--log", "printer"}).wait_exit(kPatience), 2);
    EXPECT_EQ(launch({"word"}).wait_exit(kPatience), 2);
    EXPECT_EQ(launch({"--profile", folder.path() + "/none"}).wait_exit(kPatience), EXIT_FAILURE);
    EXPECT_EQ(launch({"--runtime-dir", folder.path() + "/" + std::string(100, 'x')}).wait_exit(kPatience),
              EXIT_FAILURE);
    EXPECT_EQ(launch({"--runtime-dir", "/proc/none"}).wait_exit(kPatience), EXIT_FAILURE);
    EXPECT_EQ(launch({"--help"}).wait_exit(kPatience), EXIT_SUCCESS);
}

TEST_F(Daemon, RandomBytesDoNotDisturbIt)
{
    start();
    std::uint32_t state_of_random = 1;
    for (int i = 0; i < 300; i++) {
        RawClient hostile(runtime + "/configd.sock");
        ComParam request;
        for (unsigned char& byte : request.bytes) {
            state_of_random = state_of_random * 1664525 + 1013904223;
            byte = static_cast<unsigned char>(state_of_random >> 24);
        }
        record::attachedLength.set(request, 0);
        if (i % 3 != 0) record::kind.set(request, record::kRequest);
        // Each operation but those that restart or clear, with a payload that means nothing.
        constexpr std::uint16_t kCodes[] = {11, 140, 200, 301, 310, 311, 811, 940, 1200, 1312, 1385, 1800, 1805};
        record::code.set(request, kCodes[static_cast<std::size_t>(i) % std::size(kCodes)]);
        ASSERT_TRUE(hostile.ask(request)) << logged();
    }
    EXPECT_EQ(http_port(), 80);
}
}  // namespace
