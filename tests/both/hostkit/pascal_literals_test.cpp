// <hostkit/pascal_literals.h> in C and C++.
#include <hostkit/pascal_literals.h>

#include <gtest/gtest.h>

#include <string>

extern "C" const unsigned char *pascalStringInC(int which);

namespace {

using namespace hostkit::literals;

std::string text(const unsigned char *string)
{
    return {reinterpret_cast<const char *>(string + 1), string[0]};
}

const unsigned char *const atFileScope = PSTRING("At file scope");
static_assert("Text"_p[0] == 4 && "Text"_p[4] == 't' && sizeof(PSTRING("Text")) == 6);

TEST(PascalStringMacro, GivesStringsThatStayInCAndCplusplus)
{
    EXPECT_EQ(text(atFileScope), "At file scope");
    EXPECT_EQ(text("\xA5 two"_p), "\xA5 two");
    EXPECT_EQ(text(""_p), "");
    EXPECT_EQ(text(pascalStringInC(0)), "");
    EXPECT_EQ(text(pascalStringInC(1)), "\xA5 two");
    EXPECT_EQ(text(pascalStringInC(2)), "In a block");
}

} // namespace
