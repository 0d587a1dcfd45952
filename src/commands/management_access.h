// What the handlers of management access, DDNS and SNMP share: how they report.
#pragma once

#include "service/client.h"

inline bool report_access(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kManagementGroup);
    return outcome.ok();
}
