#include "configd/revisions.h"

#include <sys/random.h>

namespace {
std::uint32_t random_start()
{
    constexpr std::uint32_t kLow = 0x3FFFFFFF;  // far from where the numbers would begin again
    std::uint32_t number = 0;
    if (getrandom(&number, sizeof number, GRND_NONBLOCK) != sizeof number) number = 0;
    return (number & kLow) + 1;
}
}  // namespace

Revisions::Revisions() : current_(random_start()), oldest_(current_) {}

void Revisions::note(const Model& model, const Configuration& before, const Configuration& after,
                     std::uint64_t connection)
{
    current_++;
    for (const Section* section : model.sections) {
        const Bytes& old = before.values(*section);
        if (old == after.values(*section)) continue;
        past_.push_back({current_, connection, section, old});
        used_ += old.size();
    }
    for (; used_ > kRoom; past_.pop_front()) {
        used_ -= past_.front().values.size();
        oldest_ = past_.front().until;
    }
}

std::optional<Bytes> Revisions::values_known(const Section& section, std::uint32_t revision, std::uint64_t connection,
                                             const Configuration& running) const
{
    if (revision < oldest_ || revision > current_) return {};
    enum class Changed : std::uint8_t { kNot, kByOther, kBySelf };
    std::vector<Changed> last(section.settings.size(), Changed::kNot);
    Bytes known = running.values(section);
    const Bytes* after = &running.values(section);
    for (auto past = past_.rbegin(); past != past_.rend() && past->until > revision; ++past) {
        if (past->section != &section) continue;
        for (std::size_t i = 0; i < last.size(); i++) {
            const Setting& row = section.settings[i];
            const unsigned char* value = past->values.data() + row.at.offset;
            if (last[i] == Changed::kNot && !same_value(row, value, after->data() + row.at.offset))
                last[i] = past->connection == connection ? Changed::kBySelf : Changed::kByOther;
            if (last[i] == Changed::kByOther) copy_value(row, value, known.data() + row.at.offset);
        }
        after = &past->values;
    }
    return known;
}
