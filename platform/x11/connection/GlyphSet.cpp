#include "platform/x11/connection/GlyphSet.h"

#include <algorithm>

namespace roomlattice::platform::x11 {
namespace {

constexpr std::size_t maximumBytes = std::size_t{1024} * 1024;

}  // namespace

GlyphSet::~GlyphSet() {
  if (id_ != 0) {
    xcb_render_free_glyph_set(raw_, id_);
  }
}

xcb_render_glyphset_t GlyphSet::id() {
  const xcb_render_pictformat_t format = formats_.ofMasks();
  if (id_ == 0 && format != 0) {
    id_ = xcb_generate_id(raw_);
    xcb_render_create_glyph_set(raw_, id_, format);
  }
  return id_;
}

std::uint32_t GlyphSet::glyph(const Key& key, const std::function<GlyphMask()>& shape) {
  const auto [entry, isNew] = kept_.try_emplace(key);
  Kept& kept = entry->second;
  if (isNew) {
    kept = send(shape());
  }
  kept.wanted = ++clock_;
  return kept.number;
}

void GlyphSet::trim() {
  const auto wanted = [](const auto& entry) { return entry.second.wanted; };
  while (bytes_ > maximumBytes) {
    const auto oldest = std::ranges::min_element(kept_, {}, wanted);
    xcb_render_free_glyphs(raw_, id_, 1, &oldest->second.number);
    bytes_ -= oldest->second.bytes;
    kept_.erase(oldest);
  }
}

GlyphSet::Kept GlyphSet::send(const GlyphMask& mask) {
  const Kept kept{.number = ++lastNumber_, .bytes = mask.coverage.size()};
  const xcb_render_glyphinfo_t info{.width = static_cast<std::uint16_t>(mask.size.width()),
                                    .height = static_cast<std::uint16_t>(mask.size.height()),
                                    .x = 0,
                                    .y = 0,
                                    .x_off = 0,
                                    .y_off = 0};
  xcb_render_add_glyphs(raw_, id_, 1, &kept.number, &info, static_cast<std::uint32_t>(mask.coverage.size()),
                        mask.coverage.data());
  bytes_ += kept.bytes;
  return kept;
}

}  // namespace roomlattice::platform::x11
