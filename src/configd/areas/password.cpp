// Checking and changing the console password.
#include "configd/areas/password.h"

#include "configd/areas/areas.h"
#include "configd/log.h"
#include "configd/password.h"
#include "service/codes.h"
#include "service/fields/password.h"

namespace {
// No answer carries the hash: its image is laid out like no record of the console.
constexpr TextField kHash{12, 128};

constexpr auto kRows = std::to_array<Setting>({
    row::secret("password_hash", kHash, {.takes = is_password_hash}),
});
constexpr Section kSections[] = {section("console", "", kRows)};

const char* hash_of(const Service& service)
{
    return reinterpret_cast<const char*>(service.store.running().values(kSections[0]).data() + kHash.at.offset);
}

// The whole field where its NUL is missing: longer than any password.
std::string_view typed(const ComParam& request, TextField field)
{
    return {reinterpret_cast<const char*>(request.bytes + field.at.offset), field.length(request)};
}

void warn() { log_line(LOG_WARNING, "the factory password is still in force; change it"); }

// The answer to a wrong one is held back.
bool is_right(Call& call, const char* purpose)
{
    Attempts& attempts = call.service.attempts;
    if (password_matches(hash_of(call.service), typed(call.request, password_record::password))) {
        attempts.right();
        return true;
    }
    call.answer.delay = attempts.wrong();
    log_line(LOG_NOTICE, "a wrong password was given%s", purpose);
    return false;
}

ServiceStatus check_password(Call& call)
{
    if (!is_right(call, "")) return kStatusWrongPassword;
    if (typed(call.request, password_record::password) == kFactoryPassword) warn();
    password_record::notice.set(call.answer.record, call.service.store.notice().c_str());
    return kStatusOk;
}

ServiceStatus change_password(Call& call)
{
    if (!is_right(call, " to change it")) return kStatusWrongPassword;
    const std::string_view fresh = typed(call.request, password_record::newPassword);
    if (fresh.empty() || fresh.size() > kLongestPassword) return kStatusPasswordRefused;
    const std::string hash = hash_password(fresh);
    if (hash.empty()) return kStatusSystemFailed;

    Configuration next = call.service.store.running();
    kHash.set(next.values(kSections[0]).data(), hash.c_str());
    const ServiceStatus status = call.service.store.change(std::move(next));
    if (status == kStatusOk) log_line(LOG_NOTICE, "the password was changed");
    return status;
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kCheckPassword,  .run = check_password},
    {.code = code::kChangePassword, .run = change_password},
};
// clang-format on
}  // namespace

const Area kPasswordArea{.sections = kSections, .lists = {}, .operations = kOperations};

void warn_of_factory_password(const Service& service)
{
    if (password_matches(hash_of(service), kFactoryPassword)) warn();
}
