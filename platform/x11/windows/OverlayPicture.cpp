#include "platform/x11/windows/OverlayPicture.h"

#include <QFontDatabase>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <variant>

namespace roomlattice::platform::x11 {

OverlayPicture::OverlayPicture(View& view, QWidget& surface, NativeWindow& window, GlyphSet& glyphs)
    : view_(view), surface_(surface), window_(window), glyphs_(glyphs), drawing_(view, surface) {
  surface_.setAccessibleName(drawing_.visibleText());
  view_.setHost(this);
}

OverlayPicture::~OverlayPicture() {
  view_.setHost(nullptr);
}

void OverlayPicture::setBlending(const Blending& blending) {
  if (blending != blending_) {
    blending_ = blending;
    packed_.reset();
    surface_.update();
  }
}

void OverlayPicture::draw() {
  const Look now = look();
  if (!packed_ || packedLook_ != now) {
    const QImage image = picture();
    // For the next time as well.
    packed_ = isStill() ? PackedPicture::of(image) : std::nullopt;
    packedLook_ = now;
    if (!packed_) {
      onScreen_.put(image, {});
    }
  }
  if (packed_) {
    onScreen_.put(*packed_, glyphs_);
  }
  window_.flush();
}

void OverlayPicture::viewChanged() {
  if (drawing_.update()) {
    packed_.reset();
    surface_.setAccessibleName(drawing_.visibleText());
    surface_.update();
  }
}

OverlayPicture::Look OverlayPicture::look() const {
  return {.size = surface_.size(),
          .scale = surface_.devicePixelRatioF(),
          .palette = surface_.palette().cacheKey(),
          .font = QFontDatabase::systemFont(QFontDatabase::GeneralFont)};
}

bool OverlayPicture::isStill() const {
  return std::ranges::none_of(drawing_.content().elements, [](const ViewElement& element) {
    return std::holds_alternative<SpinnerElement>(element.kind);
  });
}

QImage OverlayPicture::picture() const {
  const double scale = surface_.devicePixelRatioF();
  QImage image((QSizeF(surface_.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  drawing_.paint(painter, blending_);
  return image;
}

}  // namespace roomlattice::platform::x11
