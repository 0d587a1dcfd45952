#include "configd/password.h"

#include <algorithm>
#include <crypt.h>
#include <cstring>
#include <memory>
#include <strings.h>

namespace {
constexpr const char* kMethod = "$y$";  // yescrypt
// The third step of its cost: 4 MiB for about 4 ms on a PC, about a third of a second on the device.
constexpr unsigned long kCost = 3;

struct WipedCrypt {
    void operator()(crypt_data* data) const
    {
        explicit_bzero(data, sizeof *data);
        delete data;
    }
};

// Looks at every byte whatever it finds.
bool equal(const char* a, const char* b, std::size_t size)
{
    unsigned different = 0;
    for (std::size_t i = 0; i < size; i++)
        different |= static_cast<unsigned char>(a[i]) ^ static_cast<unsigned char>(b[i]);
    return different == 0;
}

// A password in a room of one size, so that a comparison tells nothing about its length; wiped in the end.
struct Padded {
    char text[kLongestPassword + 1] = {};

    explicit Padded(std::string_view password) { password.copy(text, std::min(password.size(), kLongestPassword)); }
    ~Padded() { explicit_bzero(text, sizeof text); }
    Padded(const Padded&) = delete;
    Padded& operator=(const Padded&) = delete;
};

std::string hash_with(const char* setting, const Padded& password)
{
    const std::unique_ptr<crypt_data, WipedCrypt> work(new crypt_data{});
    const char* hash = crypt_rn(password.text, setting, work.get(), sizeof(crypt_data));
    return hash ? hash : "";
}
}  // namespace

bool password_matches(const char* hash, std::string_view typed)
{
    if (typed.size() > kLongestPassword) return false;
    const Padded given(typed);
    if (!*hash) return equal(given.text, Padded(kFactoryPassword).text, sizeof given.text);

    const std::string computed = hash_with(hash, given);
    return !computed.empty() && computed.size() == std::strlen(hash) && equal(computed.data(), hash, computed.size());
}

std::string hash_password(std::string_view password)
{
    char salt[CRYPT_GENSALT_OUTPUT_SIZE];
    if (!crypt_gensalt_rn(kMethod, kCost, nullptr, 0, salt, sizeof salt)) return "";
    return hash_with(salt, Padded(password));
}

bool is_password_hash(const char* hash) { return !*hash || crypt_checksalt(hash) == CRYPT_SALT_OK; }
