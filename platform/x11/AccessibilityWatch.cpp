#include "platform/x11/AccessibilityWatch.h"

#include "platform/linux/bus/BusAddress.h"

#include <QAccessible>
#include <QChildEvent>
#include <QCoreApplication>
#include <QMetaObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <algorithm>
#include <chrono>
#include <iterator>

namespace roomlattice::platform::x11 {
namespace {

using namespace std::chrono_literals;
using ToolkitWatches = std::vector<QPointer<QObject>>;

constexpr std::chrono::milliseconds accessibilityLimit = 1s;

/// Sees what the toolkit makes that nobody else can get at.
class NewChildren final : public QObject {
 public:
  NewChildren() { QCoreApplication::instance()->installEventFilter(this); }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::ChildAdded) {
      children_.emplace_back(static_cast<QChildEvent*>(event)->child());
    }
    return false;
  }

  /// The watches for that name on the bus. Newer versions of the toolkit have several.
  ToolkitWatches watchesFor(const QString& name) const {
    ToolkitWatches watches;
    std::ranges::copy_if(children_, std::back_inserter(watches), [&name](const QObject* child) {
      return child != nullptr && child->inherits("QDBusServiceWatcher") &&
             child->property("watchedServices").toStringList().contains(name);
    });
    return watches;
  }

 private:
  ToolkitWatches children_;
};

QString serviceName() {
  return QString::fromLatin1(linux::accessibilityService);
}

ToolkitWatches letToolkitLook() {
  const NewChildren made;
  // Asking makes the toolkit connect to the session bus for its services to people with disabilities, and wait for it.
  QAccessible::isActive();
  return made.watchesFor(serviceName());
}

template <class Visit>
void forEachOf(const ToolkitWatches& watches, Visit visit) {
  for (const QPointer<QObject>& watch : watches) {
    if (watch != nullptr) {
      visit(*watch);
    }
  }
}

}  // namespace

AccessibilityWatch::AccessibilityWatch(linux::MessageBus& sessionBus)
    : toolkits_(letToolkitLook()), service_(sessionBus, linux::accessibilityService, [this](bool hasOwner) {
        if (hasOwner) {
          serviceCame();
        }
      }) {
  // The answer comes after what was asked for before it: from then on this object hears of the service.
  ready_ = sessionBus.call({.service = linux::busName,
                            .path = linux::busPath,
                            .interface = linux::busName,
                            .method = "GetNameOwner",
                            .arguments = {linux::busName}},
                           linux::usualAnswerLimit, [this](const linux::BusMessage& answer) {
                             if (!answer.isError()) {
                               forEachOf(toolkits_, [](QObject& watch) { watch.blockSignals(true); });
                             }
                           });
}

void AccessibilityWatch::serviceCame() {
  if (toolkits_.empty() || linux::isAccessibilityMute(accessibilityLimit)) {
    return;
  }
  forEachOf(toolkits_, [](QObject& watch) {
    watch.blockSignals(false);
    QMetaObject::invokeMethod(&watch, "serviceRegistered", Qt::DirectConnection, Q_ARG(QString, serviceName()));
    watch.blockSignals(true);
  });
}

}  // namespace roomlattice::platform::x11
