// The real program on temporary folders of its own, started and ended as a test says.
#pragma once

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "configd/raw_client.h"
#include "configd/temporary_folder.h"
#include "service/codes.h"
#include "service/status.h"
#include "support/process.h"

class RunningDaemon : public testing::Test {
protected:
    RunningDaemon()
    {
        std::ofstream(profile) << R"({"restart": "reload"})";  // this machine is never restarted
        null = open("/dev/null", O_RDWR | O_CLOEXEC);
        log = open((folder.path() + "/log").c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        receive_notices();
    }
    ~RunningDaemon() override
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
