#include "platform/linux/tray/ExportedMenu.h"

#include "platform/linux/bus/BusName.h"
#include "tests/linux/session/BusFixture.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <gmock/gmock.h>
#include <limits>
#include <optional>
#include <set>

namespace roomlattice::tests {
namespace {

using platform::Registration;
using platform::linux::BusMessage;
using platform::linux::BusName;
using platform::linux::ExportedItem;
using platform::linux::ExportedMenu;
using platform::linux::MenuMark;
using platform::linux::MessageBus;
using ::testing::ElementsAre;

/// An item as another program reads it.
struct ReadItem {
  int identifier = -1;
  QVariantMap properties;
  std::vector<ReadItem> children;

  QString label() const { return properties.value(QStringLiteral("label")).toString(); }
};

ReadItem readItem(const QDBusArgument& argument) {
  ReadItem item;
  argument.beginStructure();
  argument >> item.identifier >> item.properties;
  argument.beginArray();
  while (!argument.atEnd()) {
    QDBusVariant child;
    argument >> child;
    item.children.push_back(readItem(child.variant().value<QDBusArgument>()));
  }
  argument.endArray();
  argument.endStructure();
  return item;
}

class ExportedMenuTest : public BusTest {
 protected:
  ExportedMenuTest() {
    EXPECT_TRUE(waitFor([this] { return named_; }));
    items_ = {{.title = "Mail", .mark = MenuMark{MenuMark::Kind::OneOfSeveral, true}, .activate = choosing("Mail")},
              {.title = "Work", .mark = MenuMark{MenuMark::Kind::OneOfSeveral, false}, .activate = choosing("Work")},
              {},
              {.title = "More_or less",
               .children = {{.title = "Inner",
                             .mark = MenuMark{MenuMark::Kind::Switch, true},
                             .activate = choosing("Inner")}}},
              {.title = "Last", .activate = choosing("Last")}};
  }
  ~ExportedMenuTest() override { QDBusConnection::disconnectFromBus(QStringLiteral("menu-reader")); }

  std::function<void()> choosing(const std::string& title) {
    return [this, title] { chosen_.push_back(title); };
  }

  QDBusMessage ask(const QString& method, const QVariantList& arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("test.Menu"), QStringLiteral("/menu"),
                                                       QStringLiteral("com.canonical.dbusmenu"), method);
    call.setArguments(arguments);
    const QDBusPendingReply<> answer = reader_.asyncCall(call);
    EXPECT_TRUE(waitFor([&] { return answer.isFinished(); }));
    return answer.reply();
  }

  ReadItem layout(int parent = 0) {
    const QDBusMessage answer = ask(QStringLiteral("GetLayout"), {parent, -1, QStringList()});
    EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
    return readItem(answer.arguments().value(1).value<QDBusArgument>());
  }

  /// Of the items whose properties are told.
  static std::vector<int> identifiersIn(const QDBusMessage& answer) {
    const auto list = answer.arguments().value(0).value<QDBusArgument>();
    std::vector<int> told;
    list.beginArray();
    while (!list.atEnd()) {
      QVariantMap properties;
      list.beginStructure();
      list >> told.emplace_back() >> properties;
      list.endStructure();
    }
    list.endArray();
    return told;
  }

  void click(int identifier) {
    ask(QStringLiteral("Event"),
        {identifier, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), QVariant(0U)});
  }

  MessageBus bus_{MessageBus::Kind::Session};
  bool named_ = false;
  std::vector<ExportedItem> items_;
  std::vector<std::string> chosen_;
  int asked_ = 0;
  std::optional<ExportedMenu> menu_{std::in_place, bus_, "/menu", [this] {
                                      ++asked_;
                                      return items_;
                                    }};
  BusName name_{bus_, "test.Menu", [this](BusName::Ownership) { named_ = true; }};
  QDBusConnection reader_ =
      QDBusConnection::connectToBus(QString::fromStdString(daemon_.address()), QStringLiteral("menu-reader"));
};

TEST_F(ExportedMenuTest, TellsItsItemsWithTheirMarks) {
  const ReadItem root = layout();
  ASSERT_EQ(root.children.size(), 5U);
  EXPECT_EQ(root.children[0].label(), QStringLiteral("Mail"));
  EXPECT_EQ(root.children[0].properties.value(QStringLiteral("toggle-type")), QVariant(QStringLiteral("radio")));
  EXPECT_EQ(root.children[0].properties.value(QStringLiteral("toggle-state")), QVariant(1));
  EXPECT_EQ(root.children[1].properties.value(QStringLiteral("toggle-state")), QVariant(0));
  EXPECT_EQ(root.children[2].properties.value(QStringLiteral("type")), QVariant(QStringLiteral("separator")));
  EXPECT_FALSE(root.children[4].properties.contains(QStringLiteral("toggle-type")));
}

TEST_F(ExportedMenuTest, TellsOfSubmenus) {
  const ReadItem root = layout();
  ASSERT_EQ(root.children.size(), 5U);
  const ReadItem& parent = root.children[3];
  EXPECT_EQ(parent.properties.value(QStringLiteral("children-display")), QVariant(QStringLiteral("submenu")));
  ASSERT_EQ(parent.children.size(), 1U);
  EXPECT_EQ(parent.children[0].properties.value(QStringLiteral("toggle-type")), QVariant(QStringLiteral("checkmark")));
  const ReadItem alone = layout(parent.identifier);
  EXPECT_EQ(alone.identifier, parent.identifier);
  ASSERT_EQ(alone.children.size(), 1U);
  EXPECT_EQ(alone.children[0].identifier, parent.children[0].identifier);
}

TEST_F(ExportedMenuTest, HasNoMnemonicsThatNobodyMeant) {
  EXPECT_EQ(layout().children.at(3).label(), QStringLiteral("More__or less"));
}

TEST_F(ExportedMenuTest, CarriesOutWhatIsClicked) {
  const ReadItem root = layout();
  click(root.children.at(1).identifier);
  click(root.children.at(3).children.at(0).identifier);
  click(root.children.at(4).identifier);
  click(root.children.at(2).identifier);
  click(0);
  click(-1);
  click(1000);
  EXPECT_THAT(chosen_, ElementsAre("Work", "Inner", "Last"));
}

TEST_F(ExportedMenuTest, CarriesOutNothingForOtherEvents) {
  const int first = layout().children.at(0).identifier;
  ask(QStringLiteral("Event"), {first, QStringLiteral("hovered"), QVariant::fromValue(QDBusVariant(0)), QVariant(0U)});
  EXPECT_THAT(chosen_, ElementsAre());
}

TEST_F(ExportedMenuTest, IsAskedAnewWhenItIsAboutToOpen) {
  ASSERT_EQ(layout().children.size(), 5U);
  EXPECT_EQ(asked_, 1);
  items_.pop_back();
  EXPECT_EQ(ask(QStringLiteral("AboutToShow"), {0}).arguments(), QVariantList{true});
  EXPECT_EQ(layout().children.size(), 4U);
  EXPECT_EQ(asked_, 2);
  EXPECT_EQ(ask(QStringLiteral("AboutToShow"), {0}).arguments(), QVariantList{false});
}

TEST_F(ExportedMenuTest, GivesNoItemTheIdentifierOfOneThatLookedDifferent) {
  std::set<int> before;
  for (const ReadItem& item : layout().children) {
    before.insert(item.identifier);
  }
  items_.insert(items_.begin(), {.title = "Play", .activate = choosing("Play")});
  menu_->changed();
  const ReadItem root = layout();
  ASSERT_EQ(root.children.size(), 6U);
  for (const ReadItem& item : root.children) {
    EXPECT_FALSE(before.contains(item.identifier)) << item.label().toStdString();
  }
  click(*before.begin());
  EXPECT_THAT(chosen_, ElementsAre());
  click(root.children[0].identifier);
  click(root.children[4].children.at(0).identifier);
  EXPECT_THAT(chosen_, ElementsAre("Play", "Inner"));
}

TEST_F(ExportedMenuTest, TellsOfChangesAndStillKnowsWhatWasShown) {
  int updates = 0;
  const Registration signals = bus_.observeSignal(
      {.sender = "test.Menu", .path = "/menu", .interface = "com.canonical.dbusmenu", .name = "LayoutUpdated"},
      [&](const BusMessage&) { ++updates; });
  const int last = layout().children.at(4).identifier;
  items_.clear();
  menu_->changed();
  EXPECT_TRUE(waitFor([&] { return updates == 1; }));
  click(last);
  EXPECT_THAT(chosen_, ElementsAre("Last"));
  EXPECT_TRUE(layout().children.empty());
}

TEST_F(ExportedMenuTest, RefusesItemsThatItDoesNotHave) {
  EXPECT_EQ(ask(QStringLiteral("GetLayout"), {1000, -1, QStringList()}).type(), QDBusMessage::ErrorMessage);
}

TEST_F(ExportedMenuTest, RefusesIdentifiersThatItHasNeverGiven) {
  layout();
  for (const int identifier : {std::numeric_limits<int>::min(), -1, 6 + 1, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(ask(QStringLiteral("GetLayout"), {identifier, -1, QStringList()}).type(), QDBusMessage::ErrorMessage);
    click(identifier);
  }
  EXPECT_THAT(chosen_, ElementsAre());
}

TEST_F(ExportedMenuTest, TellsThePropertiesOfAnItemOnceHoweverOftenSomebodyAsks) {
  const int first = layout().children.at(0).identifier;
  QList<int> often(1000, first + 1);
  often.push_back(first);
  const std::vector<int> told =
      identifiersIn(ask(QStringLiteral("GetGroupProperties"), {QVariant::fromValue(often), QStringList()}));
  EXPECT_THAT(told, ElementsAre(first + 1, first));
}

TEST_F(ExportedMenuTest, TellsThePropertiesOfAllItemsToWhoeverNamesNone) {
  const auto ofAll = [this] {
    return identifiersIn(ask(QStringLiteral("GetGroupProperties"), {QVariant::fromValue(QList<int>()), QStringList()}));
  };
  EXPECT_EQ(ofAll().size(), 7U) << "before anybody has asked for the layout";
  const ReadItem root = layout();
  EXPECT_THAT(ofAll(), ElementsAre(0, root.children.at(0).identifier, root.children.at(1).identifier,
                                   root.children.at(2).identifier, root.children.at(3).identifier,
                                   root.children.at(3).children.at(0).identifier, root.children.at(4).identifier));
}

TEST_F(ExportedMenuTest, TellsThePropertiesOfSeveralItems) {
  const int first = layout().children.at(0).identifier;
  const QDBusMessage answer =
      ask(QStringLiteral("GetGroupProperties"), {QVariant::fromValue(QList<int>{first, 1000}), QStringList()});
  EXPECT_EQ(answer.signature(), QStringLiteral("a(ia{sv})")) << answer.errorMessage().toStdString();
}

}  // namespace
}  // namespace roomlattice::tests
