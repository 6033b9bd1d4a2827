#pragma once

#include "platform/x11/statusitem/LastResults.h"
#include "platform/x11/statusitem/StatusItemDrawing.h"

#include <QImage>
#include <QSize>

namespace roomlattice::platform::x11 {

/// What a picture of the item depends on.
struct ItemPictureKey {
  StatusButtonContent content;
  StatusBarColors colors;
  QSize size;  // in points
  double scale = 1.0;

  bool operator==(const ItemPictureKey&) const = default;
};

/// The last pictures of the item and their widths. A user goes to and fro between a few desktops: what has been
/// measured and drawn once is at hand the next time, so that a switch shapes no text.
class ItemPictures {
 public:
  /// ARGB32, premultiplied, with its scale as device pixel ratio. Valid until the next call.
  const QImage& picture(const ItemPictureKey& key);

  /// See statusItemWidth.
  double width(const StatusButtonContent& content, const StatusItemLength& length, double available);

  /// To be called when fonts have changed.
  void clear();

 private:
  // Some ten kilobytes each.
  static constexpr std::size_t mostPictures = 96;

  struct WidthKey {
    StatusButtonContent content;
    StatusItemLength length;
    double available = 0.0;

    bool operator==(const WidthKey&) const = default;
  };

  LastResults<ItemPictureKey, QImage> pictures_{mostPictures};
  LastResults<WidthKey, double> widths_{mostPictures};
};

}  // namespace roomlattice::platform::x11
