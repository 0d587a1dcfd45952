#include "configd/linux/link.h"

#include <cerrno>
#include <cstdio>
#include <linux/ethtool.h>
#include <linux/sockios.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace device {
namespace {
// 0 or an errno value; most drivers answer some of the questions with EOPNOTSUPP.
template <class Question> int ask_driver(int socket, const char* interface, Question& question)
{
    ifreq request{};
    std::snprintf(request.ifr_name, sizeof request.ifr_name, "%s", interface);
    request.ifr_data = reinterpret_cast<char*>(&question);
    return ioctl(socket, SIOCETHTOOL, &request) == 0 ? 0 : errno;
}

void ask_carrier(int socket, const char* interface, Link& link)
{
    ethtool_value carrier{.cmd = ETHTOOL_GLINK, .data = 0};
    if (ask_driver(socket, interface, carrier) == 0) link.carrier = carrier.data != 0 ? Carrier::kUp : Carrier::kDown;
}

void ask_speed(int socket, const char* interface, Link& link)
{
    ethtool_cmd settings{};
    settings.cmd = ETHTOOL_GSET;
    if (ask_driver(socket, interface, settings) != 0) return;
    const std::uint32_t speed = ethtool_cmd_speed(&settings);
    if (speed != static_cast<std::uint32_t>(SPEED_UNKNOWN) && speed != 0xffff) link.speed = speed;
    if (settings.duplex == DUPLEX_HALF) link.duplex = Duplex::kHalf;
    if (settings.duplex == DUPLEX_FULL) link.duplex = Duplex::kFull;
}

void ask_flow_control(int socket, const char* interface, Link& link)
{
    ethtool_pauseparam pause{};
    pause.cmd = ETHTOOL_GPAUSEPARAM;
    if (ask_driver(socket, interface, pause) != 0) return;
    link.flowControl = pause.rx_pause != 0 || pause.tx_pause != 0 ? FlowControl::kOn : FlowControl::kOff;
}
}  // namespace

int read_link(const char* interface, Link& link)
{
    link = {};
    if (if_nametoindex(interface) == 0) return ENODEV;
    const int any = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (any < 0) return errno;
    ask_carrier(any, interface, link);
    ask_speed(any, interface, link);
    ask_flow_control(any, interface, link);
    close(any);
    return 0;
}
}  // namespace device
