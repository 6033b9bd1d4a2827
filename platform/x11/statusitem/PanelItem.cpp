#include "platform/x11/statusitem/PanelItem.h"

#include "platform/x11/connection/Xwayland.h"
#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"
#include "platform/x11/statusitem/TileDrawing.h"

#include <QtEndian>
#include <array>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

constexpr const char* menuPath = "/StatusNotifierItem/Menu";

// What panels of all heights and scales make of their icons.
constexpr std::array sides = {16, 22, 24, 32, 48, 64};

linux::TrayPicture pictureOf(const QImage& image) {
  const QImage straight = image.convertToFormat(QImage::Format_ARGB32);
  linux::TrayPicture picture{.width = image.width(), .height = image.height()};
  picture.pixels.resize(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()) * 4);
  auto* target = picture.pixels.data();
  for (int y = 0; y < image.height(); ++y) {
    const auto rowSize = static_cast<qsizetype>(image.width());
    qToBigEndian<quint32>(straight.constScanLine(y), rowSize, target);
    target += rowSize * 4;
  }
  return picture;
}

}  // namespace

PanelItem::PanelItem(X11Connection& connection, linux::MessageBus& bus, linux::TrayWatch& watch, ItemHandlers handlers,
                     linux::ExportedMenu::Items menu)
    : connection_(connection),
      traits_(watch.traits()),
      handlers_(std::move(handlers)),
      menu_(bus, menuPath, std::move(menu)),
      item_(bus, watch, trayHandlers(), linux::ObjectPath{menuPath}) {}

void PanelItem::menuChanged() {
  menu_.changed();
}

void PanelItem::setContent(const StatusButtonContent& content) {
  content_ = content;
  pictures_.clear();
  const std::string title = singleLine(content.title.text).trimmed().toStdString();
  item_.picturesChanged();
  item_.setTexts({.title = title.empty() ? "Roomlattice" : title, .label = title});
}

linux::TrayHandlers PanelItem::trayHandlers() {
  return {.pictures = [this] { return pictures(); },
          // Not every host tells the right place, but the pointer is there.
          .activate =
              [this](auto x, auto y) {
                handlers_.openMenu({placeOfClick(connection_, {x, y}), QSize(1, 1)});
              },
          .openContextMenu =
              [this](auto x, auto y) {
                handlers_.openOptions(placeOfClick(connection_, {x, y}));
              },
          .scroll =
              [this](linux::ScrollStep step) {
                handlers_.step(step == linux::ScrollStep::Forward ? Direction::Right : Direction::Left);
              }};
}

const std::vector<linux::TrayPicture>& PanelItem::pictures() {
  if (pictures_.empty()) {
    const auto draw = traits_.keepsWidePictures ? drawWideTile : drawTile;
    for (const int side : sides) {
      pictures_.push_back(pictureOf(draw(content_, side)));
    }
  }
  return pictures_;
}

}  // namespace roomlattice::platform::x11
