// The system record: identity, prompt and what the device has (code 200), written back with 1200.
#pragma once

#include "service/record.h"

namespace system_record {
inline constexpr TextField prompt{12, 16};
inline constexpr TextField description{28, 112};
inline constexpr TextField location{140, 61};
inline constexpr TextField contact{201, 61};
inline constexpr TextField name{262, 31};
inline constexpr Field<std::uint16_t> links{294};  // kLanUp, kWirelessUp
inline constexpr TextField version{296, 20};
inline constexpr Field<std::uint32_t> lanAddress{316};  // addresses: host order
inline constexpr Field<std::uint32_t> lanNetmask{320};
inline constexpr MacField lanMac{324};
inline constexpr MacField wirelessMac{330};
inline constexpr Field<std::uint32_t> primaryDns{340};
inline constexpr Field<std::uint32_t> secondaryDns{344};
inline constexpr MacField radioMac[2]{MacField{354}, MacField{360}};
inline constexpr Field<std::uint32_t> wanAddress{368};
inline constexpr Field<std::uint32_t> wanNetmask{372};
inline constexpr MacField wanMac{376};
inline constexpr Field<std::uint32_t> upTime{388};  // seconds

inline constexpr std::uint16_t kLanUp = 1, kWirelessUp = 2;
}  // namespace system_record
