#include "platform/x11/appearance/XSettings.h"

#include <cstdint>

namespace roomlattice::platform::x11 {
namespace {

enum class ByteOrder : std::uint8_t { LeastFirst = 0, MostFirst = 1 };
enum class Kind : std::uint8_t { Integer = 0, Text = 1, Color = 2 };

/// Reads from the front. Once something was missing, everything reads as empty and the reader has failed.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  bool failed() const { return failed_; }
  bool atEnd() const { return bytes_.empty(); }
  void setByteOrder(ByteOrder order) { order_ = order; }

  std::string_view text(std::size_t length) {
    failed_ = failed_ || length > bytes_.size();
    if (failed_) {
      bytes_ = {};
      return {};
    }
    const std::string_view result = bytes_.substr(0, length);
    bytes_.remove_prefix(length);
    return result;
  }

  /// A text is followed by bytes that bring the next item to a multiple of four.
  std::string_view paddedText(std::size_t length) {
    const std::string_view result = text(length);
    text((4 - length % 4) % 4);
    return result;
  }

  std::uint32_t number(std::size_t size) {
    std::uint32_t value = 0;
    const std::string_view digits = text(size);
    for (std::size_t i = 0; i < digits.size(); ++i) {
      const std::size_t place = order_ == ByteOrder::MostFirst ? i : digits.size() - 1 - i;
      value = value << 8U | static_cast<unsigned char>(digits[place]);
    }
    return value;
  }

 private:
  std::string_view bytes_;
  ByteOrder order_ = ByteOrder::LeastFirst;
  bool failed_ = false;
};

void readSetting(Reader& reader, std::map<std::string, std::string>& texts, bool& known) {
  const auto kind = static_cast<Kind>(reader.number(1));
  reader.text(1);
  const std::string name(reader.paddedText(reader.number(2)));
  reader.text(4);  // when it last changed
  switch (kind) {
    case Kind::Integer:
      reader.text(4);
      return;
    case Kind::Text: {
      const std::string value(reader.paddedText(reader.number(4)));
      texts.insert_or_assign(name, value);
      return;
    }
    case Kind::Color:
      reader.text(8);
      return;
  }
  known = false;
}

}  // namespace

std::optional<std::map<std::string, std::string>> parseXSettings(std::string_view bytes) {
  Reader reader(bytes);
  const std::uint32_t order = reader.number(1);
  if (order > static_cast<std::uint32_t>(ByteOrder::MostFirst)) {
    return std::nullopt;
  }
  reader.setByteOrder(static_cast<ByteOrder>(order));
  reader.text(3);
  reader.text(4);  // the serial number
  const std::uint32_t count = reader.number(4);
  std::map<std::string, std::string> texts;
  bool known = true;
  for (std::uint32_t i = 0; i < count && known && !reader.failed(); ++i) {
    readSetting(reader, texts, known);
  }
  return known && !reader.failed() ? std::optional(std::move(texts)) : std::nullopt;
}

}  // namespace roomlattice::platform::x11
