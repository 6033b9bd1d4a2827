#include "platform/linux/control/ControlService.h"

#include "platform/linux/control/ControlNames.h"
#include "tests/linux/control/FakeCommands.h"
#include "tests/linux/session/BusFixture.h"
#include "tests/linux/session/TextFile.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QTimer>
#include <QXmlStreamReader>
#include <gmock/gmock.h>
#include <memory>
#include <optional>

namespace roomlattice::tests {
namespace {

using platform::CommandErrorKind;
using platform::DesktopChangeKind;
using platform::linux::BusMessage;
using platform::linux::controlInterface;
using platform::linux::controlName;
using platform::linux::controlPath;
using platform::linux::ControlService;
using platform::linux::MessageBus;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using namespace std::chrono_literals;

const QString service = QStringLiteral("org.roomlattice.Roomlattice");
const QString objectPath = QStringLiteral("/org/roomlattice/Roomlattice");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

/// The service, and another program on its bus.
class ControlServiceTest : public BusTest {
 protected:
  ~ControlServiceTest() override { QDBusConnection::disconnectFromBus(QStringLiteral("control-test")); }

  void serve() {
    service_.emplace(bus_, "org.roomlattice.Roomlattice.Display_7_0", commands_,
                     [this](const std::string& line) { log_.push_back(line); });
  }

  /// Serves, and waits until the bus has given it its name.
  void serveAndBeFound() {
    serve();
    EXPECT_TRUE(waitFor([this] { return errorOf("Ping", {}, QStringLiteral("org.freedesktop.DBus.Peer")).empty(); }));
  }

  QDBusMessage wait(const QDBusMessage& call) {
    const QDBusPendingCall pending = other_.asyncCall(call);
    EXPECT_TRUE(waitFor([&] { return pending.isFinished(); }));
    return pending.reply();
  }

  QDBusMessage call(const char* method, const QVariantList& arguments = {}, const QString& interface = service) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, objectPath, interface, QLatin1String(method));
    message.setArguments(arguments);
    return wait(message);
  }

  std::string errorOf(const char* method, const QVariantList& arguments = {}, const QString& interface = service) {
    return call(method, arguments, interface).errorName().toStdString();
  }

  std::string introspection() {
    return call("Introspect", {}, QStringLiteral("org.freedesktop.DBus.Introspectable"))
        .arguments()
        .value(0)
        .toString()
        .toStdString();
  }

  FakeCommands commands_;
  std::vector<std::string> log_;
  MessageBus bus_{MessageBus::Kind::Session};
  std::optional<ControlService> service_;
  QDBusConnection other_ =
      QDBusConnection::connectToBus(QString::fromStdString(daemon_.address()), QStringLiteral("control-test"));
};

TEST_F(ControlServiceTest, CarriesOutEachMethod) {
  serveAndBeFound();
  call("SwitchTo", {QStringLiteral("Größe")});
  call("SwitchToNext");
  call("SwitchToPrevious");
  call("Rename", {QStringLiteral("1"), QStringLiteral("Web")});
  call("RenameCurrent", {QString()});
  for (const char* method : {"ShowLabels", "HideLabels", "OpenMenu", "OpenPreferences", "StartTour", "Quit"}) {
    EXPECT_EQ(call(method).type(), QDBusMessage::ReplyMessage) << method;
  }
  EXPECT_THAT(commands_.record, ElementsAre("switch Größe", "next", "previous", "rename 1 to Web", "rename to ",
                                            "show labels", "hide labels", "menu", "preferences", "tour", "quit"));
}

TEST_F(ControlServiceTest, RefusesWithErrorsOfItsOwn) {
  serveAndBeFound();
  const std::vector<std::pair<CommandErrorKind, std::string>> rows{
      {CommandErrorKind::NoSuchDesktop, "NoSuchDesktop"},
      {CommandErrorKind::AmbiguousDesktop, "AmbiguousDesktop"},
      {CommandErrorKind::FullScreenDesktop, "FullScreenDesktop"},
      {CommandErrorKind::NoFurtherDesktop, "NoFurtherDesktop"},
      {CommandErrorKind::InvalidName, "InvalidName"},
      {CommandErrorKind::NotPossible, "NotPossible"}};
  for (const auto& [kind, name] : rows) {
    commands_.result = platform::CommandError{kind, "the reason"};
    const QDBusMessage answer = call("SwitchTo", {QStringLiteral("x")});
    EXPECT_EQ(answer.errorName().toStdString(), "org.roomlattice.Roomlattice.Error." + name);
    EXPECT_EQ(answer.errorMessage().toStdString(), "the reason");
  }
}

TEST_F(ControlServiceTest, RefusesWhatItDoesNotKnow) {
  serveAndBeFound();
  const std::string invalid = "org.freedesktop.DBus.Error.InvalidArgs";
  EXPECT_EQ(errorOf("SwitchTo"), invalid);
  EXPECT_EQ(errorOf("SwitchTo", {1}), invalid);
  EXPECT_EQ(errorOf("SwitchTo", {QStringLiteral("a"), QStringLiteral("b")}), invalid);
  EXPECT_EQ(errorOf("SwitchTo", {QStringList{QStringLiteral("a")}}), invalid);
  EXPECT_EQ(errorOf("Rename", {QStringLiteral("a")}), invalid);
  EXPECT_EQ(errorOf("Quit", {true}), invalid);
  EXPECT_EQ(errorOf("Explode"), "org.freedesktop.DBus.Error.UnknownMethod");
  EXPECT_EQ(errorOf("Get", {service, QStringLiteral("Nothing")}, properties),
            "org.freedesktop.DBus.Error.UnknownProperty");
  const QVariant version = QVariant::fromValue(QDBusVariant(QStringLiteral("9")));
  EXPECT_EQ(errorOf("Set", {service, QStringLiteral("Version"), version}, properties),
            "org.freedesktop.DBus.Error.PropertyReadOnly");
  EXPECT_THAT(commands_.record, IsEmpty());
}

TEST_F(ControlServiceTest, GivesDesktopsAsDictionaries) {
  serveAndBeFound();
  const QDBusMessage answer = call("Get", {service, QStringLiteral("Desktops")}, properties);
  const auto list = answer.arguments().value(0).value<QDBusVariant>().variant().value<QDBusArgument>();
  QList<QVariantMap> desktops;
  list >> desktops;
  ASSERT_EQ(desktops.size(), 3);
  const auto text = [](const char* value) { return QVariant(QString::fromUtf8(value)); };
  const auto key = [](const char* name) { return QString::fromLatin1(name); };
  EXPECT_EQ(desktops[2], (QVariantMap{{key("number"), 2U},
                                      {key("name"), text("Größe")},
                                      {key("color"), text("#0000ff")},
                                      {key("active"), false},
                                      {key("fullscreen"), false},
                                      {key("uuid"), text("c")},
                                      {key("display"), text("E")}}));
  EXPECT_FALSE(desktops[1].contains(key("number")));
  EXPECT_EQ(desktops[1][key("fullscreen")], true);
  EXPECT_EQ(desktops[0][key("active")], true);
}

TEST_F(ControlServiceTest, GivesAnEmptyDictionaryWhereNoDesktopIsInFront) {
  commands_.list.clear();
  serveAndBeFound();
  const QDBusMessage answer = call("Get", {service, QStringLiteral("CurrentDesktop")}, properties);
  const auto current = answer.arguments().value(0).value<QDBusVariant>().variant().value<QDBusArgument>();
  EXPECT_EQ(current.currentType(), QDBusArgument::MapType);
  EXPECT_TRUE(qdbus_cast<QVariantMap>(current).isEmpty());
}

TEST_F(ControlServiceTest, SendsTextThatIsNotUtf8WithoutItsBytes) {
  commands_.list[0].name = "\xffg";
  commands_.result = platform::CommandError{CommandErrorKind::NoSuchDesktop, "no \xfe"};
  serveAndBeFound();
  const QDBusMessage answer = call("Get", {service, QStringLiteral("CurrentDesktop")}, properties);
  const auto current = answer.arguments().value(0).value<QDBusVariant>().variant().value<QDBusArgument>();
  EXPECT_EQ(qdbus_cast<QVariantMap>(current)[QStringLiteral("name")].toString(), QStringLiteral("\uFFFDg"));
  EXPECT_EQ(call("SwitchTo", {QStringLiteral("x")}).errorMessage(), QStringLiteral("no \uFFFD"));
}

TEST_F(ControlServiceTest, TellsChanges) {
  serveAndBeFound();
  MessageBus listening(MessageBus::Kind::Session);
  std::vector<std::string> heard;
  const auto changes = listening.observeSignal(
      {.sender = controlName, .path = controlPath, .interface = controlInterface, .name = "Changed"},
      [&](const BusMessage& message) { heard.push_back(message.argument<std::string>(0).value_or("?")); });
  const auto propertyChanges = listening.observeSignal(
      {.sender = controlName, .path = controlPath, .interface = properties.toStdString(), .name = "PropertiesChanged"},
      [&](const BusMessage& message) {
        const auto invalidated = message.argument<std::vector<std::string>>(2);
        heard.push_back(invalidated && !invalidated->empty() ? invalidated->front() : "?");
      });
  // Whoever has been answered after that hears.
  bool isAnswered = false;
  const auto answer = listening.call(
      {.service = controlName, .path = controlPath, .interface = controlInterface, .method = "SwitchToNext"}, 10s,
      [&](const BusMessage& message) { isAnswered = !message.isError(); });
  ASSERT_TRUE(waitFor([&] { return isAnswered; }));
  commands_.tell({{DesktopChangeKind::Removed, commands_.list[0]}, {DesktopChangeKind::Renamed, commands_.list[2]}});
  EXPECT_TRUE(waitFor([&] { return heard.size() == 3; }));
  EXPECT_THAT(heard, ElementsAre("removed", "renamed", "Desktops"));
}

/// The interface of the program in XML, an element a line.
std::vector<std::string> elementsOf(const std::string& xml) {
  QXmlStreamReader reader(QString::fromStdString(xml));
  std::vector<std::string> elements;
  bool isOurs = false;
  while (!reader.atEnd()) {
    reader.readNext();
    if (reader.isStartElement()) {
      std::string element = reader.name().toString().toStdString();
      std::map<std::string, std::string> attributes;
      for (const QXmlStreamAttribute& attribute : reader.attributes()) {
        attributes[attribute.name().toString().toStdString()] = attribute.value().toString().toStdString();
      }
      isOurs = isOurs || attributes["name"] == "org.roomlattice.Roomlattice";
      for (const auto& [name, value] : attributes) {
        element += " " + name + "=" + value;
      }
      if (isOurs) {
        elements.push_back(element);
      }
    } else if (reader.isEndElement() && reader.name() == QLatin1String("interface")) {
      isOurs = false;
    }
  }
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
  return elements;
}

TEST_F(ControlServiceTest, IsDescribedByItsInstalledInterface) {
  serveAndBeFound();
  const std::vector<std::string> live = elementsOf(introspection());
  EXPECT_GT(live.size(), 20U);
  EXPECT_THAT(elementsOf(textOf(CONTROL_INTERFACE_FILE)), ::testing::UnorderedElementsAreArray(live));
}

TEST_F(ControlServiceTest, AnswersAFloodInOrderAndLeavesOthersTheirTurn) {
  constexpr int flood = 10000;
  serveAndBeFound();
  std::vector<QDBusPendingCall> pending;
  for (int count = 0; count < flood; ++count) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, objectPath, service, QStringLiteral("SwitchTo"));
    message.setArguments({QString::number(count)});
    pending.push_back(other_.asyncCall(message));
  }
  int turns = 0;
  QTimer timer;
  timer.callOnTimeout([&] { turns += commands_.record.size() < flood ? 1 : 0; });
  timer.start(0);
  EXPECT_TRUE(waitFor([&] { return pending.back().isFinished(); }));
  std::map<std::string, int> errors;
  for (QDBusPendingCall& one : pending) {
    one.waitForFinished();
    errors[one.error().name().toStdString()] += one.isError() ? 1 : 0;
  }
  EXPECT_THAT(errors, ElementsAre(std::pair(std::string(), 0)));
  ASSERT_EQ(commands_.record.size(), static_cast<std::size_t>(flood));
  for (int count = 0; count < flood; ++count) {
    ASSERT_EQ(commands_.record[static_cast<std::size_t>(count)], "switch " + std::to_string(count));
  }
  EXPECT_GE(turns, 10);
}

TEST_F(ControlServiceTest, LeavesTheCommonNameToWhoRunsLongest) {
  serveAndBeFound();
  MessageBus secondBus(MessageBus::Kind::Session);
  FakeCommands secondCommands;
  const ControlService second(secondBus, "org.roomlattice.Roomlattice.Display_8_0", secondCommands,
                              [this](const std::string& line) { log_.push_back(line); });
  EXPECT_TRUE(waitFor([this] { return log_.size() == 1; }));
  EXPECT_THAT(log_[0], HasSubstr("org.roomlattice.Roomlattice "));
  QDBusMessage toSecond = QDBusMessage::createMethodCall(QStringLiteral("org.roomlattice.Roomlattice.Display_8_0"),
                                                         objectPath, service, QStringLiteral("OpenMenu"));
  EXPECT_EQ(wait(toSecond).type(), QDBusMessage::ReplyMessage);
  call("StartTour");
  EXPECT_THAT(secondCommands.record, ElementsAre("menu"));
  EXPECT_THAT(commands_.record, ElementsAre("tour"));
  service_.reset();
  EXPECT_TRUE(waitFor([&] {
    call("StartTour");
    return secondCommands.record.size() > 1;
  }));
}

TEST_F(ControlServiceTest, IsFoundByTheNameOfItsDisplayWhereAStrangerHasTheCommonOne) {
  const FakeService stranger(daemon_.address(), service.toStdString());
  serve();
  EXPECT_TRUE(waitFor([this] { return log_.size() == 1; }));
  const QDBusMessage message = QDBusMessage::createMethodCall(QStringLiteral("org.roomlattice.Roomlattice.Display_7_0"),
                                                              objectPath, service, QStringLiteral("OpenMenu"));
  EXPECT_EQ(wait(message).type(), QDBusMessage::ReplyMessage);
  EXPECT_THAT(commands_.record, ElementsAre("menu"));
}

TEST_F(ControlServiceTest, IsNoLongerFoundWhenItHasEnded) {
  serveAndBeFound();
  service_.reset();
  EXPECT_TRUE(waitFor([this] { return errorOf("SwitchToNext") == "org.freedesktop.DBus.Error.ServiceUnknown"; }));
  commands_.tell({{DesktopChangeKind::Switched, commands_.list[0]}});
}

TEST_F(ControlServiceTest, DoesWithoutABus) {
  daemon_.stop();
  serve();
  commands_.tell({{DesktopChangeKind::Switched, commands_.list[0]}});
  EXPECT_THAT(log_, IsEmpty());
}

}  // namespace
}  // namespace roomlattice::tests
