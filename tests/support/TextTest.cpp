#include "support/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace roomlattice {
namespace {

TEST(TextTrimTest, TakesBlanksAndNewlinesOffBothEnds) {
  EXPECT_EQ(trimWhitespace("  Work \n"), "Work");
}

TEST(TextTrimTest, KeepsWhiteSpaceInside) {
  EXPECT_EQ(trimWhitespace("\tdeep  focus\r\n"), "deep  focus");
}

TEST(TextTrimTest, LeavesNothingOfBlankText) {
  EXPECT_EQ(trimWhitespace(""), "");
  EXPECT_EQ(trimWhitespace(" \t\n\v\f\r\u0085\u00A0\u3000"), "");
}

TEST(TextTrimTest, KnowsEveryUnicodeWhiteSpaceCharacter) {
  for (const char* blank : {"\t",     "\n",     "\v",     "\f",     "\r",     " ",      "\u0085", "\u00A0", "\u1680",
                            "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
                            "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"}) {
    EXPECT_EQ(trimWhitespace(std::string(blank) + "Mail" + blank), "Mail") << blank;
  }
}

TEST(TextTrimTest, KeepsCharactersThatOnlyLookBlank) {
  for (const std::string kept : {"\u200B", "\u2060", "\uFEFF", "\u180E", "\u2800"}) {
    EXPECT_EQ(trimWhitespace(" " + kept + " "), kept);
  }
}

TEST(TextTrimTest, KeepsBytesThatAreNotUtf8) {
  EXPECT_EQ(trimWhitespace(" \xA0 "), "\xA0");
  EXPECT_EQ(trimWhitespace("\xE2\x80"), "\xE2\x80");
}

TEST(TextTrimTest, KeepsCharactersWhoseEncodingsShareBytesWithBlanks) {
  EXPECT_EQ(trimWhitespace("\u3080\u30C0"), "\u3080\u30C0");
  EXPECT_EQ(trimWhitespace("\U0001F600 "), "\U0001F600");
}

TEST(TextUtf8Test, AcceptsEveryLengthOfSequence) {
  EXPECT_TRUE(isUtf8(""));
  EXPECT_TRUE(isUtf8(std::string("a\0b", 3)));
  EXPECT_TRUE(isUtf8("\u00E9\u20AC\U0001F600"));
  EXPECT_TRUE(isUtf8("\xED\x9F\xBF"));                  // U+D7FF
  EXPECT_TRUE(isUtf8("\xF4\x8F\xBF\xBF"));              // U+10FFFF
  EXPECT_TRUE(isUtf8("\xE0\xA0\x80\xF0\x90\x80\x80"));  // the first of three and of four bytes
}

TEST(TextUtf8Test, RefusesWhatIsNotWellFormed) {
  for (const char* bytes : {"\x80", "\xC0\x80", "\xC1\xBF", "\xC3", "\xE0\x80\x80", "\xE2\x82", "\xED\xA0\x80",
                            "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "ok\xFE"}) {
    EXPECT_FALSE(isUtf8(bytes)) << bytes;
  }
}

}  // namespace
}  // namespace roomlattice
