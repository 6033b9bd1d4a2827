#include "platform/linux/bus/BusWriter.h"

namespace roomlattice::platform::linux {

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
