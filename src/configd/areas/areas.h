// The areas of the service, one file each.
#pragma once

#include "configd/operations.h"

extern const Area kAddressArea;
extern const Area kInterfacesArea;
extern const Area kManagementArea;
extern const Area kPasswordArea;
extern const Area kPersistenceArea;
extern const Area kRouteArea;
extern const Area kSnmpArea;
extern const Area kSystemArea;
extern const Area kSystemLogArea;
extern const Area kUpnpArea;
extern const Area kWirelessArea;
