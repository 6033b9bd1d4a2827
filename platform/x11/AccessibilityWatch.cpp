#include "platform/x11/AccessibilityWatch.h"

#include "platform/linux/bus/BusAddress.h"

#include <QAccessible>
#include <QChildEvent>
#include <QCoreApplication>
#include <QMetaObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <chrono>
#include <vector>

namespace roomlattice::platform::x11 {
namespace {

using namespace std::chrono_literals;

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

  /// The watch for that name on the bus.
  QObject* serviceWatch(const QString& name) const {
    for (QObject* child : children_) {
      if (child != nullptr && child->inherits("QDBusServiceWatcher") &&
          child->property("watchedServices").toStringList().contains(name)) {
        return child;
      }
    }
    return nullptr;
  }

 private:
  std::vector<QPointer<QObject>> children_;
};

QString serviceName() {
  return QString::fromLatin1(linux::accessibilityService);
}

QObject* letToolkitLook() {
  const NewChildren made;
  // Asking makes the toolkit connect to the session bus for its services to people with disabilities, and wait for it.
  QAccessible::isActive();
  return made.serviceWatch(serviceName());
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
                             if (toolkits_ != nullptr && !answer.isError()) {
                               toolkits_->blockSignals(true);
                             }
                           });
}

void AccessibilityWatch::serviceCame() {
  if (toolkits_ == nullptr || linux::isAccessibilityMute(accessibilityLimit)) {
    return;
  }
  toolkits_->blockSignals(false);
  QMetaObject::invokeMethod(toolkits_, "serviceRegistered", Qt::DirectConnection, Q_ARG(QString, serviceName()));
  toolkits_->blockSignals(true);
}

}  // namespace roomlattice::platform::x11
