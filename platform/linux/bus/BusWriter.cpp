#include "platform/linux/bus/BusWriter.h"

#include <QString>
#include <algorithm>

namespace roomlattice::platform::linux {

std::string sendable(const std::string& text) {
  std::u32string characters = QString::fromStdString(text).toStdU32String();
  std::ranges::replace_if(
      characters, [](char32_t one) { return QChar::isNonCharacter(one); }, U'\uFFFD');
  return QString::fromStdU32String(characters).toStdString();
}

void BusWriter::write(const BusVariant& value) {
  open('v', value.type());
  value.writeTo(*this);
  close();
}

void BusWriter::write(const std::vector<std::uint8_t>& bytes) {
  sd_bus_message_append_array(message_, 'y', bytes.data(), bytes.size());
}

void BusWriter::writeBoolean(bool value) {
  const int number = value ? 1 : 0;
  writeBasic('b', &number);
}

void BusWriter::writeBasic(char type, const void* value) {
  sd_bus_message_append_basic(message_, type, value);
}

void BusWriter::open(char container, const std::string& contents) {
  sd_bus_message_open_container(message_, container, contents.c_str());
}

void BusWriter::close() {
  sd_bus_message_close_container(message_);
}

}  // namespace roomlattice::platform::linux
