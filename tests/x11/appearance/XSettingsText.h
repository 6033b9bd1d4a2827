#pragma once

#include <bit>
#include <cstdint>
#include <string>

namespace roomlattice::tests {

/// Settings in the form that an XSETTINGS manager publishes.
class XSettingsText {
 public:
  explicit XSettingsText(std::endian order = std::endian::native) : order_(order) {}

  XSettingsText& integer(const std::string& name, std::uint32_t value) {
    begin(0, name);
    number(value, 4);
    return *this;
  }

  XSettingsText& text(const std::string& name, const std::string& value) {
    textOfLength(name, static_cast<std::uint32_t>(value.size()));
    padded(value);
    return *this;
  }

  /// Only the length, for texts that are not as long.
  XSettingsText& textOfLength(const std::string& name, std::uint32_t length) {
    begin(1, name);
    number(length, 4);
    return *this;
  }

  XSettingsText& color(const std::string& name) {
    begin(2, name);
    settings_.append(8, '\x7f');
    return *this;
  }

  std::string bytes() const {
    XSettingsText header(order_);
    header.number(order_ == std::endian::little ? 0 : 1, 1);
    header.settings_.append(3, '\0');
    header.number(1, 4);
    header.number(count_, 4);
    return header.settings_ + settings_;
  }

 private:
  void begin(std::uint32_t kind, const std::string& name) {
    ++count_;
    number(kind, 1);
    number(0, 1);
    number(static_cast<std::uint32_t>(name.size()), 2);
    padded(name);
    number(0, 4);
  }

  void number(std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) {
      const int place = order_ == std::endian::little ? i : size - 1 - i;
      settings_.push_back(static_cast<char>(value >> (8 * place) & 0xffU));
    }
  }

  void padded(const std::string& value) {
    settings_ += value;
    settings_.append((4 - value.size() % 4) % 4, '\0');
  }

  std::endian order_;
  std::string settings_;
  std::uint32_t count_ = 0;
};

}  // namespace roomlattice::tests
