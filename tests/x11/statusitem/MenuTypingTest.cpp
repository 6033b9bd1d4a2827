#include "platform/x11/statusitem/MenuTyping.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::MenuTyping;
using Row = MenuTyping::Row;

const QStringList names{QStringLiteral("Mail"), QStringLiteral("Web"), QStringLiteral("music"),
                        QStringLiteral("The Mall"), QStringLiteral("مكتب")};

TEST(MenuTypingTest, KnowsAtOnceTheRowOfANumberThatCannotGoOn) {
  EXPECT_EQ(MenuTyping().digit(3, 4), (Row{2, true}));
  EXPECT_EQ(MenuTyping().digit(1, 9), (Row{0, true}));
  EXPECT_EQ(MenuTyping().digit(2, 12), (Row{1, true}));
}

TEST(MenuTypingTest, WaitsWhereAFurtherDigitMayFollow) {
  MenuTyping typing;
  EXPECT_EQ(typing.digit(1, 12), (Row{0, false}));
  EXPECT_EQ(typing.digit(2, 12), (Row{11, true}));
  EXPECT_EQ(MenuTyping().digit(1, 10), (Row{0, false}));
}

TEST(MenuTypingTest, BeginsAnotherNumberWithADigitThatLeadsNowhere) {
  MenuTyping typing;
  EXPECT_EQ(typing.digit(1, 12), (Row{0, false}));
  EXPECT_EQ(typing.digit(5, 12), (Row{4, true}));
}

TEST(MenuTypingTest, HasNoRowForANumberBeyondTheLastOrForNone) {
  MenuTyping typing;
  EXPECT_EQ(typing.digit(0, 20), std::nullopt);
  EXPECT_EQ(typing.digit(5, 4), std::nullopt);
  EXPECT_EQ(typing.digit(4, 4), (Row{3, true}));
  EXPECT_EQ(MenuTyping().digit(1, 0), std::nullopt);
}

TEST(MenuTypingTest, FindsTheNextNameThatBeginsWithTheLetterInEitherCase) {
  EXPECT_EQ(MenuTyping().letter(u'm', names, std::nullopt), 0);
  EXPECT_EQ(MenuTyping().letter(u'M', names, 0), 2);
  EXPECT_EQ(MenuTyping().letter(u'w', names, 4), 1);
  EXPECT_EQ(MenuTyping().letter(u'م', names, 0), 4);
}

TEST(MenuTypingTest, FindsWordsWithinNames) {
  EXPECT_EQ(MenuTyping().letter(u'm', names, 2), 3);
  EXPECT_EQ(MenuTyping().letter(u'a', names, std::nullopt), std::nullopt);
}

TEST(MenuTypingTest, NarrowsByFurtherLetters) {
  MenuTyping typing;
  EXPECT_EQ(typing.letter(u'm', names, std::nullopt), 0);
  EXPECT_EQ(typing.letter(u'u', names, 0), 2);
  EXPECT_EQ(typing.letter(u's', names, 2), 2);
}

TEST(MenuTypingTest, GoesFromNameToNameByTheSameLetter) {
  MenuTyping typing;
  EXPECT_EQ(typing.letter(u'm', names, std::nullopt), 0);
  EXPECT_EQ(typing.letter(u'm', names, 0), 2);
  EXPECT_EQ(typing.letter(u'm', names, 2), 3);
  EXPECT_EQ(typing.letter(u'm', names, 3), 0);
}

TEST(MenuTypingTest, ForgetsLettersAndDigitsWhenItIsToStartAgain) {
  MenuTyping typing;
  EXPECT_EQ(typing.letter(u'm', names, std::nullopt), 0);
  typing.startAgain();
  EXPECT_EQ(typing.letter(u'u', names, 0), std::nullopt);
  EXPECT_EQ(typing.digit(1, 12), (Row{0, false}));
  typing.startAgain();
  EXPECT_EQ(typing.digit(2, 12), (Row{1, true}));
}

}  // namespace
}  // namespace roomlattice::tests
