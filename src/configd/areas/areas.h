// The areas of the service, one file each.
#pragma once

#include "configd/operations.h"

extern const Area kAddressArea;
extern const Area kBridgeArea;
extern const Area kDhcpArea;
extern const Area kEngineeringArea;
extern const Area kDdnsArea;
extern const Area kInterfaceSettingsArea;
extern const Area kInterfacesArea;
extern const Area kLogTableArea;
extern const Area kIpFilterArea;
extern const Area kMacFilterArea;
extern const Area kManagementArea;
extern const Area kNatArea;
extern const Area kOperationModeArea;
extern const Area kPasswordArea;
extern const Area kPersistenceArea;
extern const Area kPortCountersArea;
extern const Area kRadiusArea;
extern const Area kPingArea;
extern const Area kRouteArea;
extern const Area kSnmpArea;
extern const Area kSystemArea;
extern const Area kSystemLogArea;
extern const Area kTimeArea;
extern const Area kUpnpArea;
extern const Area kWdsArea;
extern const Area kWirelessArea;
extern const Area kWirelessClientsArea;
