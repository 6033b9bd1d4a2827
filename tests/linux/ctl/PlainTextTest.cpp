#include "platform/linux/ctl/PlainText.h"

#include <clocale>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::linux::columnsOf;
using platform::linux::plainText;

TEST(PlainTextTest, HasNoControlCharacters) {
  EXPECT_EQ(plainText("a\nb\tc\x1b[0m\x7f"), "a?b?c?[0m?");
  EXPECT_EQ(plainText("\u0085\u009b1m\u00a0\u00e4"), "??1m\u00a0\u00e4");
  EXPECT_EQ(plainText("\xc2"), "\xc2");
}

TEST(PlainTextTest, IsAsWideAsTheTerminalShowsIt) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  EXPECT_EQ(columnsOf("Größe"), 5U);
  EXPECT_EQ(columnsOf("漢字"), 4U);
  EXPECT_EQ(columnsOf("e\u0301"), 1U);
  EXPECT_EQ(columnsOf("a\xff"
                      "b"),
            3U);
  EXPECT_EQ(columnsOf(""), 0U);
  std::setlocale(LC_CTYPE, "C");
}

}  // namespace
}  // namespace roomlattice::tests
