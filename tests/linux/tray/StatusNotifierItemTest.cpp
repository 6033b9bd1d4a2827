#include "platform/linux/tray/StatusNotifierItem.h"

#include "tests/linux/session/BusFixture.h"
#include "tests/linux/tray/FakeTray.h"

#include <QDBusArgument>
#include <gmock/gmock.h>
#include <limits>
#include <optional>

namespace roomlattice::tests {
namespace {

using platform::Registration;
using platform::linux::BusMessage;
using platform::linux::MessageBus;
using platform::linux::ObjectPath;
using platform::linux::ScrollStep;
using platform::linux::StatusNotifierItem;
using platform::linux::TrayPicture;
using platform::linux::TrayWatch;
using ::testing::ElementsAre;

/// A picture as it came over the bus.
struct ShownPicture {
  int width = 0;
  int height = 0;
  QByteArray pixels;

  bool operator==(const ShownPicture&) const = default;
};

std::vector<ShownPicture> picturesOf(const QVariant& property) {
  std::vector<ShownPicture> pictures;
  const auto argument = property.value<QDBusArgument>();
  argument.beginArray();
  while (!argument.atEnd()) {
    ShownPicture picture;
    argument.beginStructure();
    argument >> picture.width >> picture.height >> picture.pixels;
    argument.endStructure();
    pictures.push_back(picture);
  }
  argument.endArray();
  return pictures;
}

class StatusNotifierItemTest : public BusTest {
 protected:
  void showItem(const std::optional<ObjectPath>& menu = std::nullopt) {
    item_.emplace(
        bus_, watch_,
        platform::linux::TrayHandlers{
            .pictures = [this] { return pictures_; },
            .activate = [this](int x, int y) { note("activate", x, y); },
            .openContextMenu = [this](int x, int y) { note("context menu", x, y); },
            .scroll =
                [this](ScrollStep step) { heard_.emplace_back(step == ScrollStep::Forward ? "forward" : "back"); }},
        menu);
  }

  bool isRegistered() {
    return waitFor([this] { return tray_.items().size() == 1; });
  }

  Registration count(const char* signal, int& counter) {
    return bus_.observeSignal({.sender = tray_.items().value(0).toStdString(),
                               .path = "/StatusNotifierItem",
                               .interface = "org.kde.StatusNotifierItem",
                               .name = signal},
                              [&counter](const BusMessage&) { ++counter; });
  }

  void note(const std::string& what, int first, int second) {
    heard_.push_back(what + " " + std::to_string(first) + " " + std::to_string(second));
  }

  FakeTray tray_{daemon_.address()};
  MessageBus bus_{MessageBus::Kind::Session};
  TrayWatch watch_{bus_};
  std::vector<TrayPicture> pictures_;
  std::vector<std::string> heard_;
  std::optional<StatusNotifierItem> item_;
};

TEST_F(StatusNotifierItemTest, RegistersWithTheWatcherUnderANameOfItsOwn) {
  tray_.appear(TrayHost::Registered);
  showItem();
  ASSERT_TRUE(isRegistered());
  EXPECT_TRUE(tray_.items().front().startsWith(
      QStringLiteral("org.kde.StatusNotifierItem-%1-").arg(QCoreApplication::applicationPid())));
  EXPECT_TRUE(tray_.isOnTheBus(tray_.items().front()));
}

TEST_F(StatusNotifierItemTest, RegistersAgainWithEveryWatcherThatComes) {
  showItem();
  for (int times = 0; times < 3; ++times) {
    tray_.appear(TrayHost::Registered);
    EXPECT_TRUE(waitFor([this] { return !tray_.items().isEmpty(); }));
    tray_.disappear();
    EXPECT_TRUE(waitFor([this] { return watch_.state() == TrayWatch::State::Absent; }));
  }
}

TEST_F(StatusNotifierItemTest, LeavesTheBusWithItsObject) {
  tray_.appear(TrayHost::Registered);
  showItem();
  ASSERT_TRUE(isRegistered());
  item_.reset();
  EXPECT_TRUE(waitFor([this] { return !tray_.isOnTheBus(tray_.items().front()); }));
}

TEST_F(StatusNotifierItemTest, TellsItsTexts) {
  tray_.appear(TrayHost::Registered);
  showItem();
  item_->setTexts({.title = "Büro 🏢", .label = "Büro"});
  ASSERT_TRUE(isRegistered());
  EXPECT_EQ(tray_.property(QStringLiteral("Title")).toString(), QStringLiteral("Büro 🏢"));
  EXPECT_EQ(tray_.property(QStringLiteral("XAyatanaLabel")).toString(), QStringLiteral("Büro"));
  EXPECT_EQ(tray_.property(QStringLiteral("Status")).toString(), QStringLiteral("Active"));
  EXPECT_EQ(tray_.property(QStringLiteral("Id")).toString(), QStringLiteral("roomlattice"));
  EXPECT_EQ(tray_.property(QStringLiteral("Category")).toString(), QStringLiteral("ApplicationStatus"));
  EXPECT_EQ(tray_.property(QStringLiteral("ItemIsMenu")), QVariant(false));

  QString icon;
  QString title;
  QString text;
  const auto toolTip = tray_.property(QStringLiteral("ToolTip")).value<QDBusArgument>();
  EXPECT_EQ(toolTip.currentSignature(), QStringLiteral("(sa(iiay)ss)"));
  toolTip.beginStructure();
  toolTip >> icon;
  toolTip.beginArray();
  EXPECT_TRUE(toolTip.atEnd());
  toolTip.endArray();
  toolTip >> title >> text;
  EXPECT_EQ(title, QStringLiteral("Büro 🏢"));
}

TEST_F(StatusNotifierItemTest, HandsOutItsPicturesByteForByte) {
  pictures_ = {{.width = 1, .height = 2, .pixels = {255, 1, 2, 3, 0, 0, 0, 0}},
               {.width = 2, .height = 1, .pixels = {9, 8, 7, 6, 5, 4, 3, 2}}};
  tray_.appear(TrayHost::Registered);
  showItem();
  ASSERT_TRUE(isRegistered());
  EXPECT_THAT(picturesOf(tray_.property(QStringLiteral("IconPixmap"))),
              ElementsAre(ShownPicture{1, 2, QByteArray("\xff\1\2\3\0\0\0\0", 8)},
                          ShownPicture{2, 1, QByteArray("\x9\x8\7\6\5\4\3\2", 8)}));
}

TEST_F(StatusNotifierItemTest, HasAMenuOnlyWhereThereIsOne) {
  tray_.appear(TrayHost::Registered);
  showItem();
  ASSERT_TRUE(isRegistered());
  EXPECT_FALSE(tray_.property(QStringLiteral("Menu")).isValid());
  item_.reset();
  tray_.appear(TrayHost::Registered);
  showItem(ObjectPath{"/Menu"});
  ASSERT_TRUE(isRegistered());
  EXPECT_EQ(tray_.property(QStringLiteral("Menu")).value<QDBusObjectPath>().path(), QStringLiteral("/Menu"));
}

TEST_F(StatusNotifierItemTest, HearsWhatTheHostAsks) {
  tray_.appear(TrayHost::Registered);
  showItem();
  ASSERT_TRUE(isRegistered());
  tray_.call(QStringLiteral("Activate"), {10, 20});
  tray_.call(QStringLiteral("ContextMenu"), {-1, 30});
  EXPECT_THAT(heard_, ElementsAre("activate 10 20", "context menu -1 30"));
}

TEST_F(StatusNotifierItemTest, CountsStepsOfTheWheelHoweverTheHostDoes) {
  tray_.appear(TrayHost::Registered);
  showItem();
  ASSERT_TRUE(isRegistered());
  const auto scroll = [this](int amount) {
    heard_.clear();
    tray_.call(QStringLiteral("Scroll"), {amount, QStringLiteral("Vertical")});
    return heard_;
  };
  EXPECT_THAT(scroll(-1), ElementsAre("forward"));
  EXPECT_THAT(scroll(2), ElementsAre("back", "back"));
  EXPECT_THAT(scroll(-120), ElementsAre("forward"));
  EXPECT_THAT(scroll(0), ElementsAre());
  EXPECT_THAT(scroll(70), ElementsAre());
  EXPECT_THAT(scroll(70), ElementsAre("back"));
  EXPECT_LE(scroll(std::numeric_limits<int>::min()).size(), 10U);
}

TEST_F(StatusNotifierItemTest, RefusesCallsThatMakeNoSense) {
  tray_.appear(TrayHost::Registered);
  showItem();
  ASSERT_TRUE(isRegistered());
  EXPECT_EQ(tray_.call(QStringLiteral("Activate"), {QStringLiteral("here")}).type(), QDBusMessage::ErrorMessage);
  EXPECT_EQ(tray_.call(QStringLiteral("Explode"), {}).type(), QDBusMessage::ErrorMessage);
  EXPECT_THAT(heard_, ElementsAre());
}

TEST_F(StatusNotifierItemTest, TellsOfWhatHasChangedAndOfNothingElse) {
  tray_.appear(TrayHost::Registered);
  showItem();
  ASSERT_TRUE(isRegistered());
  int titles = 0;
  int labels = 0;
  int icons = 0;
  const Registration onTitle = count("NewTitle", titles);
  const Registration onLabel = count("XAyatanaNewLabel", labels);
  const Registration onIcon = count("NewIcon", icons);
  item_->setTexts({.title = "Mail", .label = "Mail"});
  item_->setTexts({.title = "Mail", .label = "Mail"});
  item_->setTexts({.title = "Post", .label = "Mail"});
  item_->picturesChanged();
  EXPECT_TRUE(waitFor([&] { return icons == 1; }));
  EXPECT_EQ(titles, 2);
  EXPECT_EQ(labels, 1);
}

}  // namespace
}  // namespace roomlattice::tests
