#include "preferences/CodableColor.h"

namespace roomlattice {
namespace {

using platform::Value;

Value encode(const CodableColor& color) {
  return Value::Dictionary{{"red", color.red}, {"green", color.green}, {"blue", color.blue}, {"alpha", color.alpha}};
}

std::optional<CodableColor> decodeColor(const Value* value) {
  const Value::Dictionary* dictionary = value == nullptr ? nullptr : value->asDictionary();
  if (dictionary == nullptr) {
    return std::nullopt;
  }
  CodableColor color;
  const auto read = [dictionary](const char* key, double& component) {
    const Value* stored = platform::find(*dictionary, key);
    const std::optional<double> number = stored == nullptr ? std::nullopt : stored->toDouble();
    component = number.value_or(0.0);
    return number.has_value();
  };
  const bool complete =
      read("red", color.red) && read("green", color.green) && read("blue", color.blue) && read("alpha", color.alpha);
  return complete ? std::optional(color) : std::nullopt;
}

std::optional<SpaceColorConfig> decodeConfig(const Value& value) {
  const Value::Dictionary* dictionary = value.asDictionary();
  if (dictionary == nullptr) {
    return std::nullopt;
  }
  const std::optional<CodableColor> foreground = decodeColor(platform::find(*dictionary, "foreground"));
  const std::optional<CodableColor> background = decodeColor(platform::find(*dictionary, "background"));
  if (!foreground || !background) {
    return std::nullopt;
  }
  return SpaceColorConfig{*foreground, *background};
}

}  // namespace

Value encode(const SpaceColors& colors) {
  Value::Dictionary document;
  for (const auto& [uuid, config] : colors) {
    document.emplace(
        uuid, Value::Dictionary{{"foreground", encode(config.foreground)}, {"background", encode(config.background)}});
  }
  return document;
}

std::optional<SpaceColors> decodeSpaceColors(const Value& value) {
  const Value::Dictionary* document = value.asDictionary();
  if (document == nullptr) {
    return std::nullopt;
  }
  SpaceColors colors;
  for (const auto& [uuid, entry] : *document) {
    const std::optional<SpaceColorConfig> config = decodeConfig(entry);
    if (!config) {
      return std::nullopt;
    }
    colors.emplace(uuid, *config);
  }
  return colors;
}

}  // namespace roomlattice
