#include "services/text.h"

#include "services/utf8.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(Text, TrimsComparesAndReplaces)
{
    EXPECT_EQ(Trim(" \t a b \r\n"), "a b");
    EXPECT_EQ(Trim("  "), "");
    EXPECT_EQ(Upper("10abc \xC3\xA9"), "10ABC \xC3\xA9");
    EXPECT_TRUE(EqualsIgnoringCase("Remuneration", "REMUNERATION"));
    EXPECT_FALSE(EqualsIgnoringCase("10abc", "10abcd"));
    EXPECT_EQ(Replace("a'b''c", "'", " "), "a b  c");
    EXPECT_EQ(Replace("", "'", " "), "");
}

TEST(Utf8, CountsAndCutsCharacters)
{
    const std::string name = "\xE0\xA4\x86\xE0\xA4\xB6\xE0\xA4\xBE x"; // three Devanagari characters, a blank, a letter
    EXPECT_EQ(CharacterCount(name), 5);
    EXPECT_EQ(ByteOfCharacter(name, 3), 9U);
    EXPECT_EQ(ByteOfCharacter(name, 9), name.size());
    std::string again;
    for (const char32_t character : Characters(name))
        again += Utf8(character);
    EXPECT_EQ(again, name);
    EXPECT_EQ(Utf8(0x1F600), "\xF0\x9F\x98\x80");
}

TEST(Utf8, ReplacesBytesThatAreNone)
{
    for (const char* bad : {"\xFF", "\x80", "\xE0\xA4", "\xC3", "\xF8"})
        EXPECT_EQ(Characters(bad).front(), char32_t{0xFFFD});
    EXPECT_EQ(Characters("a\xFF"
                         "b"),
              U"a\xFFFD"
              U"b");
}
