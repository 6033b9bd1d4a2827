#include "platform/x11/input/CornerWindows.h"

#include <QEnterEvent>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

constexpr QPoint besideTheCorner(20, 20);

}  // namespace

class CornerWindows::Pixel final : public QWidget {
 public:
  Pixel(QPoint corner, std::function<void(QPoint)> handler)
      : QWidget(nullptr, Qt::ToolTip | Qt::BypassWindowManagerHint | Qt::FramelessWindowHint),
        corner_(corner),
        handler_(std::move(handler)) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(QStringLiteral("Roomlattice"));
    setGeometry(corner_.x(), corner_.y(), 1, 1);
    show();
  }

 protected:
  void enterEvent(QEnterEvent*) override { handler_(corner_); }
  void leaveEvent(QEvent*) override { handler_(corner_ + besideTheCorner); }

 private:
  QPoint corner_;
  std::function<void(QPoint)> handler_;
};

CornerWindows::CornerWindows(const X11Screens& screens, std::function<void(const Point& pointer)> handler)
    : screens_(screens), handler_(std::move(handler)) {
  const auto followSoon = [this] {
    QMetaObject::invokeMethod(
        &context_, [this] { follow(); }, Qt::QueuedConnection);
  };
  const auto followScreen = [this, followSoon](const QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, &context_, followSoon);
  };
  std::ranges::for_each(QGuiApplication::screens(), followScreen);
  QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &context_, followScreen);
  QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &context_, followSoon);
  QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &context_, followSoon);
  follow();
}

CornerWindows::~CornerWindows() = default;

void CornerWindows::follow() {
  pixels_.clear();
  for (const QScreen* screen : QGuiApplication::screens()) {
    pixels_.push_back(std::make_unique<Pixel>(screen->geometry().topLeft(),
                                              [this](QPoint place) { handler_(screens_.fromQt(QPointF(place))); }));
  }
}

}  // namespace roomlattice::platform::x11
