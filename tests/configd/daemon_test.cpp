// The real program on temporary folders: its files and its end.
#include <sys/stat.h>

#include "configd/daemon.h"
#include "service/fields/management.h"

namespace {
class Daemon : public RunningDaemon {
protected:
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
};

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
}  // namespace
