// What the service answers in the status word (0: done), and the message groups that the texts are looked up in.
// The log message library (platform/log_messages.h) has a text for every one of them.
#pragma once

#include <cstdint>

enum ServiceStatus : std::uint32_t {
    kStatusOk = 0,
    kStatusUnknownOperation = 1,  // no such code
    kStatusBadRequest = 2,        // not a request record
    kStatusValueRefused = 3,      // a field holds a value that its setting does not take
    kStatusUnknownName = 4,       // no entry or interface of that name
    kStatusDuplicateName = 5,
    kStatusUnknownAddress = 6,  // no entry of that address
    kStatusDuplicateAddress = 7,
    kStatusTableFull = 8,
    kStatusWrongPassword = 9,
    kStatusPasswordRefused = 10,  // the new password is not acceptable
    kStatusStorageFull = 11,      // ENOSPC, EDQUOT
    kStatusStorageReadOnly = 12,  // EROFS, EACCES
    kStatusStorageFailed = 13,    // anything else that went wrong with a file
    kStatusNotPermitted = 14,     // the service may not do that to this machine
    kStatusNoDevice = 15,         // the device has no such hardware
    kStatusUnreachableGateway = 16,
    kStatusUnknownInterface = 17,
    kStatusSystemFailed = 18,       // the system refused for another reason
    kStatusAddressOutOfRange = 19,  // an address that is no host address, or outside its network
    kStatusChannelRefused = 20,     // no channel of the radio's regulatory domain or band
    kStatusDuplicatePeer = 21,      // the WDS peers report in the system's group, so they have their own
    kStatusDuplicatePeerAddress = 22,
    kStatusPeerTableFull = 23,
    kStatusPoolRefused,     // the addresses of a pool are no range of hosts in one network
    kStatusNoTimeServer,    // the NTP client is to run and has no server
    kStatusNetmaskRefused,  // its bits are not in one block from the top
    kStatusNotANetwork,     // a route's destination has bits that its netmask does not cover
    kStatusTooManyHops,
    kStatusGatewayRefused,  // no address of another device
    kStatusInterfaceDown,
    kStatusConnectedRoute,  // the route goes with the address of an interface
    kStatusPortInUse,       // another service of the device has that port
    kStatusNotSet,          // a setting that this one needs is not set
    kStatusPortsTaken,      // another redirection has some of these ports
    kStatusEnd
};

// The number that selects a text of an area, as CliPrintServiceError takes it.
enum MessageGroup : std::uint32_t {
    kManagementGroup = 208,  // HTTP and telnet ports
    kSystemGroup = 216,
    kDhcpGroup = 256,
    kWirelessGroup = 280,  // MAC filter, wireless clients
    kLogGroup = 320,
    kAddressGroup = 336,
    kInterfaceGroup = 352,
    kNatGroup = 360,
    kFilterGroup = 368,
    kRadiusGroup = 376,
    kOperationModeGroup = 384,
    kTimeGroup = 416,
};
