#include "platform/x11/appearance/X11Appearance.h"

#include "support/InProcessNotificationCenter.h"
#include "tests/linux/appearance/FakePortal.h"
#include "tests/x11/appearance/FakeXSettingsManager.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QPalette>
#include <gtest/gtest.h>

namespace roomlattice::tests {

/// What D-Bus calls (ddd).
struct Components {
  double red = 0.0;
  double green = 0.0;
  double blue = 0.0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Components& components) {
  argument.beginStructure();
  argument << components.red << components.green << components.blue;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Components& components) {
  argument.beginStructure();
  argument >> components.red >> components.green >> components.blue;
  argument.endStructure();
  return argument;
}

namespace {

using platform::Appearance;
using platform::linux::MessageBus;
using platform::x11::X11Appearance;

const QString colorScheme = QStringLiteral("color-scheme");
const QVariant prefersDark = 1U;
const QVariant prefersLight = 2U;
const QVariant noPreference = 0U;

class X11AppearanceTest : public ::testing::Test {
 protected:
  void start() { appearance_ = std::make_unique<X11Appearance>(qt_.connection(), bus_, center_); }
  bool becomes(Appearance appearance) {
    return waitFor([&] { return appearance_->current() == appearance; });
  }
  static bool looksDark() {
    const QPalette palette = QApplication::palette();
    return palette.color(QPalette::Text).lightnessF() > palette.color(QPalette::Base).lightnessF();
  }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  InProcessNotificationCenter center_;
  int posts_ = 0;
  platform::Registration observation_ =
      center_.observe(platform::notification::interfaceThemeChanged, [this] { ++posts_; });
  MessageBus bus_{MessageBus::Kind::Session};
  FakePortal portal_{session_.busAddress()};
  std::unique_ptr<X11Appearance> appearance_;
};

TEST_F(X11AppearanceTest, IsThatOfTheQtThemeWhenNothingElseTells) {
  start();
  EXPECT_EQ(appearance_->current(), Appearance::Light);
  EXPECT_FALSE(looksDark());
}

TEST_F(X11AppearanceTest, FollowsTheThemeOfTheXSettings) {
  const FakeXSettingsManager manager(FakeXSettingsManager::theme("Greybird-Dark-compact"));
  start();
  EXPECT_EQ(appearance_->current(), Appearance::Dark);
  EXPECT_TRUE(looksDark());
}

TEST_F(X11AppearanceTest, FollowsChangesOfTheXSettings) {
  FakeXSettingsManager manager(FakeXSettingsManager::theme("Adwaita"));
  start();
  EXPECT_EQ(appearance_->current(), Appearance::Light);
  manager.publish(FakeXSettingsManager::theme("Adwaita-dark"));
  EXPECT_TRUE(becomes(Appearance::Dark));
  EXPECT_TRUE(looksDark());
  manager.publish(FakeXSettingsManager::theme("Adwaita"));
  EXPECT_TRUE(becomes(Appearance::Light));
  EXPECT_FALSE(looksDark());
  EXPECT_EQ(posts_, 2);
}

TEST_F(X11AppearanceTest, FollowsAnXSettingsManagerThatComesAndGoes) {
  start();
  {
    const FakeXSettingsManager manager(FakeXSettingsManager::theme("Adwaita-dark"));
    EXPECT_TRUE(becomes(Appearance::Dark));
  }
  EXPECT_TRUE(becomes(Appearance::Light));
}

TEST_F(X11AppearanceTest, SurvivesGarbageForXSettings) {
  FakeXSettingsManager manager("\x01garbage");
  start();
  EXPECT_EQ(appearance_->current(), Appearance::Light);
  manager.publish(FakeXSettingsManager::theme("dark"));
  EXPECT_TRUE(becomes(Appearance::Dark));
}

TEST_F(X11AppearanceTest, IsWhatThePortalSaysRatherThanTheXSettings) {
  const FakeXSettingsManager manager(FakeXSettingsManager::theme("Adwaita-dark"));
  portal_.set(colorScheme, prefersLight);
  portal_.appear();
  start();
  EXPECT_TRUE(becomes(Appearance::Light));
}

TEST_F(X11AppearanceTest, FollowsChangesByThePortal) {
  portal_.set(colorScheme, prefersLight);
  portal_.appear();
  start();
  portal_.set(colorScheme, prefersDark);
  EXPECT_TRUE(becomes(Appearance::Dark));
  EXPECT_TRUE(looksDark());
  EXPECT_EQ(posts_, 1);
}

TEST_F(X11AppearanceTest, IsLeftToTheOthersWhenThePortalHasNoPreference) {
  const FakeXSettingsManager manager(FakeXSettingsManager::theme("Adwaita"));
  portal_.set(colorScheme, prefersDark);
  portal_.appear();
  start();
  ASSERT_TRUE(becomes(Appearance::Dark));
  portal_.set(colorScheme, noPreference);
  EXPECT_TRUE(becomes(Appearance::Light));
}

TEST_F(X11AppearanceTest, FollowsAPortalThatComesAndGoes) {
  start();
  portal_.set(colorScheme, prefersDark);
  portal_.appear();
  EXPECT_TRUE(becomes(Appearance::Dark));
  portal_.disappear();
  EXPECT_TRUE(becomes(Appearance::Light));
}

TEST_F(X11AppearanceTest, IsLeftToTheOthersWhenTheBusGoes) {
  portal_.set(colorScheme, prefersDark);
  portal_.appear();
  start();
  ASSERT_TRUE(becomes(Appearance::Dark));
  session_.stopBus();
  EXPECT_TRUE(becomes(Appearance::Light));
}

TEST_F(X11AppearanceTest, TakesNothingButAPreferenceFromThePortal) {
  portal_.set(colorScheme, prefersDark);
  portal_.appear();
  start();
  ASSERT_TRUE(becomes(Appearance::Dark));
  portal_.set(colorScheme, QStringLiteral("dark"));
  EXPECT_TRUE(becomes(Appearance::Light));
}

TEST_F(X11AppearanceTest, HasTheAccentColourOfThePortal) {
  qDBusRegisterMetaType<Components>();
  start();
  portal_.set(QStringLiteral("accent-color"), QVariant::fromValue(Components{0.25, 0.5, 1.0}));
  portal_.appear();
  EXPECT_TRUE(waitFor([&] { return appearance_->accentColor() == platform::Color{0.25, 0.5, 1.0}; }));
}

TEST_F(X11AppearanceTest, HasTheHighlightForAccentColourWhenThePortalHasNone) {
  qDBusRegisterMetaType<Components>();
  start();
  portal_.set(QStringLiteral("accent-color"), QVariant::fromValue(Components{0.25, 0.5, 1.0}));
  portal_.appear();
  ASSERT_TRUE(waitFor([&] { return appearance_->accentColor() == platform::Color{0.25, 0.5, 1.0}; }));
  portal_.set(QStringLiteral("accent-color"), QVariant::fromValue(Components{-1.0, -1.0, -1.0}));
  const QColor highlight = QApplication::palette().color(QPalette::Highlight);
  EXPECT_TRUE(waitFor([&] { return appearance_->accentColor().red == highlight.redF(); }));
}

}  // namespace
}  // namespace roomlattice::tests
Q_DECLARE_METATYPE(roomlattice::tests::Components)
