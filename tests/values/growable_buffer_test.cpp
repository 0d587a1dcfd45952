#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "values/growable_buffer.h"

namespace {
class Growing : public testing::Test {
protected:
    GrowableBuffer buffer{};
    ~Growing() override { mem_free(&buffer); }
    std::string text() const { return {get_Buffer(&buffer), get_Length(&buffer) + 1}; }
    static std::string ended(std::string text) { return text + '\0'; }
};

TEST_F(Growing, TakesItsOwnTextAsSource)
{
    str_Copy(&buffer, std::string(600, 'x').c_str());
    ASSERT_EQ(str_Cat(&buffer, get_Buffer(&buffer)), 0);
    ASSERT_EQ(str_Cat_str(&buffer, &buffer), 0);
    EXPECT_EQ(text(), ended(std::string(2400, 'x')));
    ASSERT_EQ(str_Copy(&buffer, get_Buffer(&buffer) + 2390), 0);
    EXPECT_EQ(text(), ended(std::string(10, 'x')));
}

TEST_F(Growing, IsEmptyAgainAfterItsStorageWent)
{
    EXPECT_EQ(get_Buffer(&buffer), nullptr);
    str_Copy(&buffer, "old");
    alloc_mem(&buffer, 1024);
    EXPECT_EQ(text(), ended(""));
    EXPECT_EQ(get_Length(mem_free(&buffer)), 0u);
    str_Cat(&buffer, "new");
    EXPECT_EQ(text(), ended("new"));
}
}  // namespace
