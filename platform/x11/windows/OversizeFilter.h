#pragma once

#include <QAbstractNativeEventFilter>

namespace roomlattice::platform::x11 {

/// Keeps from the toolkit that one of its windows had become far larger than the desktop: anybody can say so, or bring
/// it about, and the toolkit would allocate memory for all the picture.
class OversizeFilter final : public QAbstractNativeEventFilter {
 public:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
};

}  // namespace roomlattice::platform::x11
