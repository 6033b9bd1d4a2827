#include "platform/x11/statusitem/ItemPictures.h"

#include <QPainter>

namespace roomlattice::platform::x11 {
namespace {

QImage draw(const ItemPictureKey& key) {
  QImage image((QSizeF(key.size) * key.scale).toSize().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(key.scale);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  drawStatusItem(painter, QRectF(QPointF(), QSizeF(key.size)), key.content, key.colors);
  return image;
}

}  // namespace

const QImage& ItemPictures::picture(const ItemPictureKey& key) {
  return pictures_.get(key, draw);
}

double ItemPictures::width(const StatusButtonContent& content, const StatusItemLength& length, double available) {
  return widths_.get({content, length, available},
                     [](const WidthKey& key) { return statusItemWidth(key.content, key.length, key.available); });
}

void ItemPictures::clear() {
  pictures_.clear();
  widths_.clear();
}

}  // namespace roomlattice::platform::x11
