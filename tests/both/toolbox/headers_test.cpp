#include <gtest/gtest.h>

extern "C" int headersServeC(void);

TEST(Headers, ServeCAsWell)
{
    EXPECT_TRUE(headersServeC());
}
