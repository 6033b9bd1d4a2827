#pragma once

#include "platform/Value.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace roomlattice::platform::linux {

/// Settings as indented JSON: one object, whose members are the keys. JSON has no form for data; data stands as
/// {"$text": "..."} where it is UTF-8, and as {"$data": "base64"} elsewhere. A dictionary whose only key starts with a
/// dollar sign would be taken for such a form, and stands in one of its own: {"$dictionary": {...}}.

/// In bytes. Settings are some kilobytes: what is larger than this was not written by this program.
inline constexpr std::size_t maximumSettingsSize = 16 << 20;

/// Text that reads back as what was given. Nothing when a value has no form (a number that is not finite, or text that
/// is not UTF-8), or when the text would be too large or nested too deeply to be read.
std::optional<std::string> toSettingsText(const Value::Dictionary& settings);

/// Nothing when `text` is not one JSON object, or is too large.
std::optional<Value::Dictionary> fromSettingsText(std::string_view text);

}  // namespace roomlattice::platform::linux
