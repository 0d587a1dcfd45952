#include <gtest/gtest.h>

#include "configd/configuration.h"
#include "configd/sample_model.h"

namespace {
const Model kModel = sample::model();
const Section& kAlone = sample::kSections[0];
const Section& kOther = sample::kSections[2];

Entry entry_of(const char* name, unsigned char lastOfMac)
{
    Entry entry{Bytes(sample::kList.entrySize, 0), {}};
    sample::entry::name.set(entry.bytes.data(), name);
    const unsigned char mac[6] = {2, 0, 0x5e, 0x10, 0, lastOfMac};
    sample::entry::mac.set(entry.bytes.data(), mac);
    return entry;
}

TEST(Configuration, TextIsForPeopleAndComesBackTheSame)
{
    Configuration configuration(kModel);
    unsigned char* alone = configuration.values(kAlone).data();
    sample::title.set(alone, "a \"b\" c");
    sample::mode.set(alone, 2);
    sample::address.set(alone, 0xC0A80101);
    sample::port.set(configuration.values(kOther).data(), 8080);
    ASSERT_EQ(add_entry(sample::kList, configuration.entries(sample::kList), entry_of("desk", 0xAB)), kStatusOk);

    const std::string text = configuration.text();
    for (const char* part : {"\"format\": 1", "\"title\": \"a \\\"b\\\" c\"", "\"mode\": \"static\"", "\"zone\": -1",
                             "\"address\": \"192.168.1.1\"", "\"enabled\": false", "\"mac\": \"02:00:5e:10:00:ab\""})
        EXPECT_NE(text.find(part), text.npos) << part << " in " << text;

    Configuration read(kModel);
    std::string why;
    ASSERT_TRUE(read.parse(text, why)) << why;
    EXPECT_EQ(read.text(), text);
    EXPECT_EQ(read.values(kAlone), configuration.values(kAlone));
    EXPECT_EQ(sample::port.get(read.values(kOther).data()), 8080);
}

TEST(Configuration, UnknownKeysAreKeptAtTheirPlace)
{
    Configuration read(kModel);
    std::string why;
    ASSERT_TRUE(read.parse(R"({"format": 1, "later": [1, {"a": null}], "alone": {"port": 5, "colour": "red"},
        "pair": {"third": {"port": 9}}, "filter": [{"name": "desk", "mac": "02:00:5e:10:00:01", "note": "x"}]})",
                           why))
        << why;
    sample::port.set(read.values(kAlone).data(), 6);

    Configuration again(kModel);
    ASSERT_TRUE(again.parse(read.text(), why)) << why;
    EXPECT_EQ(again.text(), read.text());
    for (const char* part :
         {"\"later\"", "\"a\": null", "\"colour\": \"red\"", "\"third\"", "\"note\": \"x\"", "\"port\": 6"})
        EXPECT_NE(again.text().find(part), std::string::npos) << part << " in " << again.text();
    EXPECT_EQ(again.text().find("\"port\": 5"), std::string::npos);
}

struct Case {
    const char* name;
    std::string text;
};
const Case kBad[] = {
    {"Empty", ""},
    {"Truncated", R"({"format": 1, "alone": {"po)"},
    {"NoObject", "[1]"},
    {"NewerFormat", R"({"format": 2})"},
    {"OlderFormatOfNoObject", R"({"format": 0, "addresses": 1, "lan": {"mode": "static"}, "alone": 1})"},
    {"KeyTwice", R"({"format": 1, "alone": {"port": 1, "port": 2}})"},
    {"NotUtf8", "{\"format\": 1, \"alone\": {\"title\": \"\xff\"}}"},
    {"SectionIsText", R"({"format": 1, "alone": "x"})"},
    {"NumberIsText", R"({"format": 1, "alone": {"port": "80"}})"},
    {"NumberWouldWrap", R"({"format": 1, "alone": {"port": 65616}})"},
    {"NoSuchChoice", R"({"format": 1, "alone": {"mode": "manual"}})"},
    {"AddressOfThreeParts", R"({"format": 1, "alone": {"address": "10.0.1"}})"},
    {"TextTooLong", R"({"format": 1, "alone": {"title": "12345678"}})"},
    {"TextWithControl", R"({"format": 1, "alone": {"title": "a\u001b"}})"},
    {"ValuesDoNotGoTogether", R"({"format": 1, "alone": {"mode": "static"}})"},
    {"EntryTwice", R"({"format": 1, "filter": [{"name": "a", "mac": "02:00:5e:10:00:01"},
                                               {"name": "a", "mac": "02:00:5e:10:00:02"}]})"},
    {"DeepNesting", "{\"format\": 1, \"x\": " + std::string(100000, '[')},
};
TEST(Configuration, ABadTextIsRefusedWithAReasonAndChangesNothing)
{
    for (const Case& each : kBad) {
        Configuration read(kModel);
        const std::string before = read.text();
        std::string why;
        EXPECT_FALSE(read.parse(each.text, why)) << each.name;
        EXPECT_FALSE(why.empty()) << each.name;
        EXPECT_EQ(read.text(), before) << each.name;
    }
}

TEST(Configuration, ARefusalDoesNotQuoteTheFile)
{
    Configuration read(kModel);
    std::string why;
    EXPECT_FALSE(read.parse("{\"format\": 1, \"alone\": {\"key\": \"s3cret\" oops}}", why));
    EXPECT_EQ(why.find("s3cret"), why.npos) << why;
    EXPECT_FALSE(read.parse(R"({"format": 1, "alone": {"key": "s3cret-and-much-too-long"}})", why));
    EXPECT_EQ(why.find("s3cret"), why.npos) << why;
}

}  // namespace
