// What the handlers of management access, DDNS and SNMP share: their message group, and the messages of the catalog
// that they raise, by number.
#pragma once

#include "console/messages.h"
#include "service/client.h"

inline constexpr Message kEntryExists{6}, kPortInUse{125}, kHttpPortChanged{149}, kTelnetPortChanged{150},
    kRemoteClientCount{274}, kRemoteClientAddress{275}, kUserNameEmpty{342}, kAddressIsMulticast{389},
    kHostNameEmpty{435};

inline bool report_access(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kManagementGroup);
    return outcome.ok();
}
