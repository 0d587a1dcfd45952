#include <functional>
#include <gtest/gtest.h>

#include "configd/sample_model.h"
#include "configd/settings.h"

namespace {
const Section& kAlone = sample::kSections[0];

ComParam record_of(const Bytes& image)
{
    ComParam record{};
    give_values(kAlone, image, record);
    return record;
}

Bytes factory()
{
    Bytes image;
    set_factory(kAlone, image);
    return image;
}

void fill(ComParam& record, TextField field, const char* text)
{
    std::memcpy(record.bytes + field.at.offset, text, field.at.width);
}

struct Case {
    const char* name;
    void (*change)(ComParam&);
    ServiceStatus status;
};
// clang-format off
const Case kCases[] = {
    {"NothingChanged",       [](ComParam&) {},                                           kStatusOk},
    {"TextWithoutEnd",       [](ComParam& r) { fill(r, sample::title, "12345678"); },    kStatusValueRefused},
    {"EscapeSequence",       [](ComParam& r) { fill(r, sample::title, "a\x1b[2J\0\0"); },  kStatusValueRefused},
    {"EightBitCharacter",    [](ComParam& r) { fill(r, sample::title, "caf\xe9\0\0\0"); }, kStatusValueRefused},
    {"PortZero",             [](ComParam& r) { sample::port.set(r, 0); },                kStatusValueRefused},
    {"BelowSigned",          [](ComParam& r) { sample::zone.set(r, -2); },               kStatusValueRefused},
    {"FlagIsNeither",        [](ComParam& r) { sample::enabled.set(r, 2); },             kStatusValueRefused},
    {"NoSuchChoice",         [](ComParam& r) { sample::mode.set(r, 3); },                kStatusValueRefused},
    {"ValuesDoNotGoTogether",[](ComParam& r) { sample::mode.set(r, 2); },                kStatusAddressOutOfRange},
};
// clang-format on

class TakeValues : public testing::TestWithParam<Case> {};

TEST_P(TakeValues, AppliesAllOrNothing)
{
    const Bytes before = factory();
    ComParam record = record_of(before);
    sample::address.set(record, 0x0A000001);  // a good change beside it
    GetParam().change(record);
    if (GetParam().status == kStatusAddressOutOfRange) sample::address.set(record, 0);

    Bytes image = before;
    EXPECT_EQ(take_values(kAlone, kAlone.settings, record, image), GetParam().status);
    if (GetParam().status != kStatusOk)
        EXPECT_EQ(image, before);
    else
        EXPECT_EQ(sample::address.get(image.data()), 0x0A000001u);
}
INSTANTIATE_TEST_SUITE_P(Writes, TakeValues, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

TEST(TakeValues, EmptyTextKeepsOnlyWhereTheRowSaysSo)
{
    Bytes image = factory();
    ComParam record = record_of(image);
    sample::secret.set(record, "s3cret");
    ASSERT_EQ(take_values(kAlone, kAlone.settings, record, image), kStatusOk);

    sample::title.clear(record);
    sample::secret.clear(record);
    ASSERT_EQ(take_values(kAlone, kAlone.settings, record, image), kStatusOk);
    EXPECT_STREQ(sample::title.get(image.data()), "box");
    EXPECT_STREQ(sample::secret.get(image.data()), "");
}

TEST(TakeValues, WhatStandsBehindATextIsNotKept)
{
    Bytes image = factory();
    ComParam record = record_of(image);
    fill(record, sample::title, "ab\0pass");
    ASSERT_EQ(take_values(kAlone, kAlone.settings, record, image), kStatusOk);
    EXPECT_EQ(std::memcmp(image.data() + sample::title.at.offset, "ab\0\0\0\0\0\0", sample::title.at.width), 0);
}
}  // namespace
