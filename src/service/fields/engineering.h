// What the engineering commands read and write: the regulatory domain (codes 50 and 51), the preset WEP keys (52 and
// 53), and the device's base register (4500 and 4501).
#pragma once

#include "service/record.h"

namespace reg_domain_record {
inline constexpr Field<std::uint16_t> domain{12};  // wireless_record::Domain
}

namespace preset_key_record {
inline constexpr unsigned kKeys = 4, kShortKey = 5, kLongKey = 13;  // octets of a key
inline constexpr Field<std::uint8_t> length[kKeys]{Field<std::uint8_t>{12}, Field<std::uint8_t>{13},
                                                   Field<std::uint8_t>{14}, Field<std::uint8_t>{15}};  // 52; 0: not set
inline constexpr Field<std::uint8_t> index{16};                                                        // 53: 1 to kKeys
inline constexpr TextField key{17, 39};  // 53 only, never answered: "0a-1b-2c-3d-4e"
}  // namespace preset_key_record

namespace base_register_record {
inline constexpr MacField mac{12};                    // the LAN interface's own while nothing was written
inline constexpr Field<std::uint8_t> macWritten{18};  // 4501 takes the MAC address only where this is 1
inline constexpr Field<std::uint8_t> signatureCheck{19};
}  // namespace base_register_record
