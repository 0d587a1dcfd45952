// A file of rules that the service hands to one of the device's own services (packet filter, DHCP server, time), in the
// runtime folder. It is replaced whole, so that a reader finds the old rules or the new ones.
#pragma once

#include <string>

#include "configd/storage.h"

class RuleFile {
public:
    RuleFile() = default;  // no file: what is written goes nowhere
    RuleFile(Storage storage, const std::string& folder, const char* name = kName)
        : storage_(std::move(storage)), file_(folder + name)
    {
    }

    // 0 or an errno value; then the file has what it had.
    int write(const std::string& rules) const;

    static constexpr const char *kName = "/firewall.nft", *kDhcpName = "/dnsmasq.conf", *kTimeName = "/timesyncd.conf";

private:
    Storage storage_;
    std::string file_;
};
