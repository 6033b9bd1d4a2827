#include "platform/linux/bus/BusObject.h"

#include "platform/linux/bus/BusName.h"
#include "tests/linux/session/BusFixture.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <map>
#include <tuple>

namespace roomlattice::tests {
namespace {

using platform::Registration;
using platform::linux::BusError;
using platform::linux::BusInterface;
using platform::linux::BusMessage;
using platform::linux::BusName;
using platform::linux::BusObject;
using platform::linux::busProperty;
using platform::linux::BusVariant;
using platform::linux::BusWriter;
using platform::linux::MessageBus;
using platform::linux::ObjectPath;
using Ownership = BusName::Ownership;

// A byte that is not UTF-8, and characters that are none, of which the library takes no more than of that.
constexpr const char* unsendable = "\xff \uFFFE \uFDD0 \U0001FFFF \u20AC";

BusInterface counterInterface() {
  const auto add = [](const BusMessage& call, BusWriter& answer) -> std::optional<BusError> {
    const auto one = call.argument<std::int32_t>(0).value_or(0);
    const auto other = call.argument<std::int32_t>(1).value_or(0);
    if (other < 0) {
      return BusError{"test.Error.Negative", "the second number is negative"};
    }
    if (one < 0) {
      return BusError{"test.Error.Negative", std::string("the first number is ") + unsendable};
    }
    answer.write(one + other);
    return std::nullopt;
  };
  const auto repeat = [](const BusMessage& call, BusWriter& answer) -> std::optional<BusError> {
    answer.write(call.argument<std::string>(0).value_or("nothing"));
    return std::nullopt;
  };
  using Contents = std::map<std::string, BusVariant>;
  return {.name = "test.Counter",
          .methods = {{"Add", "ii", "i", add}, {"Repeat", "s", "s", repeat}},
          .properties = {busProperty("Name", [] { return std::string("Zähler"); }),
                         busProperty("Unsendable", [] { return std::string(unsendable); }),
                         busProperty("Place", [] { return ObjectPath{"/test"}; }),
                         busProperty("Flags",
                                     [] {
                                       return std::vector{true, false};
                                     }),
                         busProperty("Contents",
                                     [] {
                                       return Contents{{"number", BusVariant(std::uint32_t{7})},
                                                       {"pair", BusVariant(std::tuple(1.5, std::string("x")))}};
                                     })},
          .signalTypes = {{"Counted", "i"}}};
}

class BusObjectTest : public BusTest {
 protected:
  BusObjectTest() {
    EXPECT_TRUE(waitFor([this] { return ownership_ == Ownership::Ours; }));
  }
  ~BusObjectTest() override { QDBusConnection::disconnectFromBus(QStringLiteral("caller")); }

  QDBusMessage ask(const QString& interface, const QString& method, const QVariantList& arguments) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("test.Service"), QStringLiteral("/test"), interface, method);
    call.setArguments(arguments);
    const QDBusPendingReply<> answer = caller_.asyncCall(call);
    EXPECT_TRUE(waitFor([&] { return answer.isFinished(); }));
    return answer.reply();
  }

  QVariant property(const char* name) {
    const QDBusMessage answer = ask(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                                    {QStringLiteral("test.Counter"), QString::fromLatin1(name)});
    return answer.arguments().value(0).value<QDBusVariant>().variant();
  }

  QDBusMessage add(const QVariantList& numbers) {
    return ask(QStringLiteral("test.Counter"), QStringLiteral("Add"), numbers);
  }

  std::optional<Ownership> ownership_;
  MessageBus bus_{MessageBus::Kind::Session};
  std::optional<BusObject> object_{std::in_place, bus_, "/test", counterInterface()};
  BusName name_{bus_, "test.Service", [this](Ownership ownership) { ownership_ = ownership; }};
  QDBusConnection caller_ =
      QDBusConnection::connectToBus(QString::fromStdString(daemon_.address()), QStringLiteral("caller"));
};

TEST_F(BusObjectTest, AnswersCalls) {
  EXPECT_EQ(add({2, 3}).arguments(), QVariantList{5});
}

TEST_F(BusObjectTest, RefusesWithAReason) {
  const QDBusMessage answer = add({2, -3});
  EXPECT_EQ(answer.errorName(), QStringLiteral("test.Error.Negative"));
  EXPECT_EQ(answer.errorMessage(), QStringLiteral("the second number is negative"));
}

TEST_F(BusObjectTest, SendsWhatAMessageCannotHoldAsReplaced) {
  const QString sent = QStringLiteral("\uFFFD \uFFFD \uFFFD \uFFFD \u20AC");
  EXPECT_EQ(property("Unsendable"), QVariant(sent));
  EXPECT_EQ(add({-2, 3}).errorMessage(), QStringLiteral("the first number is ") + sent);
  EXPECT_EQ(add({2, 3}).arguments(), QVariantList{5});
}

TEST_F(BusObjectTest, IsCalledWithArgumentsOfItsTypesOnly) {
  EXPECT_EQ(add({QStringLiteral("two"), 3}).errorName(), QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs"));
  EXPECT_EQ(add({2}).errorName(), QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs"));
}

TEST_F(BusObjectTest, IsNotCalledWithTextThatCannotBeRead) {
  const auto repeat = [this](const QString& text) {
    return ask(QStringLiteral("test.Counter"), QStringLiteral("Repeat"), {text});
  };
  EXPECT_EQ(repeat(QStringLiteral("a \u20AC")).arguments(), QVariantList{QStringLiteral("a \u20AC")});
  EXPECT_EQ(repeat(QStringLiteral("a \uFFFE")).errorName(), QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs"));
}

TEST_F(BusObjectTest, TellsItsPropertiesWithTheirTypes) {
  EXPECT_EQ(property("Name"), QVariant(QStringLiteral("Zähler")));
  EXPECT_EQ(property("Place").value<QDBusObjectPath>().path(), QStringLiteral("/test"));
  EXPECT_EQ(property("Flags").value<QDBusArgument>().currentSignature(), QStringLiteral("ab"));
  EXPECT_FALSE(property("Else").isValid());
  const QVariantMap contents = qdbus_cast<QVariantMap>(property("Contents"));
  EXPECT_EQ(contents.value(QStringLiteral("number")), QVariant(7U));
  EXPECT_EQ(contents.value(QStringLiteral("pair")).value<QDBusArgument>().currentSignature(), QStringLiteral("(ds)"));
}

TEST_F(BusObjectTest, IsDescribedToThoseWhoAsk) {
  const QDBusMessage answer =
      ask(QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect"), {});
  const QString text = answer.arguments().value(0).toString();
  for (const char* part : {"interface name=\"test.Counter\"", "method name=\"Add\"", "property name=\"Flags\"",
                           "signal name=\"Counted\""}) {
    EXPECT_TRUE(text.contains(QLatin1String(part))) << part;
  }
}

TEST_F(BusObjectTest, SendsSignals) {
  MessageBus listener(MessageBus::Kind::Session);
  int counted = 0;
  const Registration signals = listener.observeSignal(
      {.sender = "test.Service", .path = "/test", .interface = "test.Counter", .name = "Counted"},
      [&](const BusMessage& message) { counted += message.argument<std::int32_t>(0).value_or(-1); });
  EXPECT_TRUE(waitFor([&] {
    object_->emit("Counted", [](BusWriter& writer) { writer.write(std::int32_t{7}); });
    return counted > 0;
  }));
  EXPECT_EQ(counted % 7, 0);
}

TEST_F(BusObjectTest, TellsWhichPropertiesHaveChanged) {
  MessageBus listener(MessageBus::Kind::Session);
  std::string changed;
  const Registration signals = listener.observeSignal(
      {.sender = "test.Service",
       .path = "/test",
       .interface = "org.freedesktop.DBus.Properties",
       .name = "PropertiesChanged"},
      [&](const BusMessage& message) { changed = message.argument<std::string>(0).value_or(""); });
  EXPECT_TRUE(waitFor([&] {
    object_->emitPropertiesChanged({"Name"});
    return changed == "test.Counter";
  }));
}

TEST_F(BusObjectTest, IsGoneFromTheBusWithItself) {
  object_.reset();
  EXPECT_EQ(add({2, 3}).type(), QDBusMessage::ErrorMessage);
}

TEST_F(BusObjectTest, GetsNoNameThatAnotherProgramHas) {
  MessageBus other(MessageBus::Kind::Session);
  std::optional<Ownership> answer;
  const BusName refused(other, "test.Service", [&](Ownership ownership) { answer = ownership; });
  EXPECT_TRUE(waitFor([&] { return answer.has_value(); }));
  EXPECT_EQ(answer, Ownership::Refused);
  EXPECT_EQ(add({2, 3}).arguments(), QVariantList{5});
}

}  // namespace
}  // namespace roomlattice::tests
