// The clients of a radio, told by a stand-in for hostapd that answers from a script.
#include <cerrno>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

#include "configd/linux/stations.h"

namespace {
using State = device::Station::State;

// Answers each request with the next row of its script; the last row answers all further ones. An empty script:
// silence.
class AccessPoint {
public:
    explicit AccessPoint(std::vector<std::string> script) : answers(std::move(script))
    {
        at.sun_family = AF_UNIX;
        std::snprintf(at.sun_path, sizeof at.sun_path, "%shostapd-%d", testing::TempDir().c_str(), getpid());
        unlink(at.sun_path);
        socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        EXPECT_EQ(bind(socket, reinterpret_cast<sockaddr*>(&at), sizeof at), 0);
        thread = std::thread([this] { serve(); });
    }
    ~AccessPoint()
    {
        shutdown(socket, SHUT_RD);
        thread.join();
        close(socket);
        unlink(at.sun_path);
    }
    AccessPoint(const AccessPoint&) = delete;
    AccessPoint& operator=(const AccessPoint&) = delete;

    const char* path() const { return at.sun_path; }
    std::vector<std::string> asked;  // read after read_stations came back

private:
    void serve()
    {
        for (std::size_t next = 0;;) {
            char request[256];
            sockaddr_un from{};
            socklen_t size = sizeof from;
            const ssize_t got = recvfrom(socket, request, sizeof request, 0, reinterpret_cast<sockaddr*>(&from), &size);
            if (got <= 0) return;
            if (answers.empty()) continue;
            asked.emplace_back(request, static_cast<std::size_t>(got));
            const std::string& answer = answers[next];
            if (next + 1 < answers.size()) next++;
            sendto(socket, answer.data(), answer.size(), 0, reinterpret_cast<sockaddr*>(&from), size);
        }
    }

    std::vector<std::string> answers;
    sockaddr_un at{};
    int socket = -1;
    std::thread thread;
};

TEST(Stations, AreWalkedToTheEnd)
{
    AccessPoint accessPoint({
        "02:00:5e:00:00:01\nflags=[AUTH][ASSOC][AUTHORIZED][WMM]\naid=1\nrx_packets=7\ntx_packets=9\nrx_bytes="
        "4294967299\n"
        "tx_bytes=1000\nconnected_time=5\n",
        "02:00:5e:00:00:02\nflags=[AUTH][ASSOC]\nrx_packets=\ntx_packets=many\n=\nno sign\n",
        "",
    });
    std::vector<device::Station> stations(3);
    ASSERT_EQ(device::read_stations(accessPoint.path(), stations), 0);
    ASSERT_EQ(stations.size(), 2u);
    EXPECT_EQ(stations[0].mac, (device::Mac{2, 0, 0x5e, 0, 0, 1}));
    EXPECT_EQ(stations[0].state, State::kAuthorized);
    EXPECT_EQ(stations[0].rxFrames, 7u);
    EXPECT_EQ(stations[0].txFrames, 9u);
    EXPECT_EQ(stations[0].rxBytes, 3u) << "the low 32 bits";
    EXPECT_EQ(stations[1].state, State::kAssociated);
    EXPECT_EQ(stations[1].txFrames, 0u);
    EXPECT_EQ(accessPoint.asked,
              (std::vector<std::string>{"STA-FIRST", "STA-NEXT 02:00:5e:00:00:01", "STA-NEXT 02:00:5e:00:00:02"}));
}

TEST(Stations, ThatNeverEndAreBounded)
{
    AccessPoint accessPoint({"02:00:5e:00:00:01\nflags=\n"});
    std::vector<device::Station> stations;
    EXPECT_EQ(device::read_stations(accessPoint.path(), stations), 0);
    EXPECT_EQ(stations.size(), device::kMaxStations);
}

TEST(Stations, OfSilenceEndInTime)
{
    AccessPoint accessPoint({});
    std::vector<device::Station> stations(1);
    EXPECT_EQ(device::read_stations(accessPoint.path(), stations), EAGAIN);
    EXPECT_TRUE(stations.empty());
    EXPECT_EQ(device::read_stations("/nowhere/at/all", stations), ENOENT);
    EXPECT_EQ(device::read_stations(std::string(200, 'x').c_str(), stations), ENAMETOOLONG);
}
}  // namespace
