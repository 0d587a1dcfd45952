#include "configd/linux/errors.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace device {
namespace {
struct Meaning {
    int error;
    ServiceStatus status;
};
// clang-format off
constexpr Meaning kMeanings[] = {
    {0,             kStatusOk},
    {EPERM,         kStatusNotPermitted},
    {EACCES,        kStatusNotPermitted},
    {ENODEV,        kStatusUnknownInterface},
    {ENXIO,         kStatusUnknownInterface},
    {ENETUNREACH,   kStatusUnreachableGateway},
    {EHOSTUNREACH,  kStatusUnreachableGateway},
    {ENETDOWN,      kStatusUnreachableGateway},   // the interface towards it is off
    {EEXIST,        kStatusDuplicateAddress},
    {ESRCH,         kStatusUnknownAddress},
    {EADDRNOTAVAIL, kStatusUnknownAddress},
    {EINVAL,        kStatusValueRefused},
    {ERANGE,        kStatusValueRefused},
    {EOPNOTSUPP,    kStatusNoDevice},
    {ENOSYS,        kStatusNoDevice},
    {ENOENT,        kStatusNoDevice},
    {ENOSPC,        kStatusStorageFull},
    {EROFS,         kStatusStorageReadOnly},
};
// clang-format on
}  // namespace

ServiceStatus status_of(int error)
{
    const auto known = std::ranges::find(kMeanings, error, &Meaning::error);
    return known == std::end(kMeanings) ? kStatusSystemFailed : known->status;
}
}  // namespace device
