#include "tests/linux/session/FakeService.h"

#include <poll.h>
#include <stdexcept>
#include <utility>

namespace roomlattice::tests {
namespace {

void require(int result, const std::string& what) {
  if (result < 0) {
    throw std::runtime_error("a service on the bus cannot " + what);
  }
}

}  // namespace

FakeService::FakeService(const std::string& busAddress, const std::string& name) {
  require(sd_bus_new(&bus_), "be made");
  require(sd_bus_set_address(bus_, busAddress.c_str()), "use the address");
  require(sd_bus_set_bus_client(bus_, 1), "be a client");
  require(sd_bus_start(bus_), "connect");
  require(sd_bus_add_filter(bus_, nullptr, called, this), "listen");
  if (!name.empty()) {
    require(sd_bus_request_name(bus_, name.c_str(), 0), "have its name");
  }
  thread_ = std::jthread([this](const std::stop_token& stop) { serve(stop); });
}

FakeService::~FakeService() {
  thread_.request_stop();
  thread_.join();
  sd_bus_close_unref(bus_);
}

void FakeService::answerWith(WriteArguments arguments) {
  const std::scoped_lock lock(mutex_);
  answer_ = std::move(arguments);
}

int FakeService::calls() const {
  const std::scoped_lock lock(mutex_);
  return calls_;
}

std::string FakeService::lastCaller() const {
  const std::scoped_lock lock(mutex_);
  return lastCaller_;
}

void FakeService::emit(const std::string& path, const std::string& interface, const std::string& name,
                       const WriteArguments& arguments, const std::string& destination) {
  const std::scoped_lock lock(mutex_);
  sd_bus_message* signal = nullptr;
  require(sd_bus_message_new_signal(bus_, &signal, path.c_str(), interface.c_str(), name.c_str()), "make a signal");
  arguments(signal);
  if (!destination.empty()) {
    sd_bus_message_set_destination(signal, destination.c_str());
  }
  require(sd_bus_send(bus_, signal, nullptr), "send a signal");
  sd_bus_message_unref(signal);
}

int FakeService::called(sd_bus_message* message, void* service, sd_bus_error*) {
  auto& self = *static_cast<FakeService*>(service);
  if (sd_bus_message_is_method_call(message, nullptr, nullptr) <= 0) {
    return 0;
  }
  self.lastCaller_ = sd_bus_message_get_sender(message);
  ++self.calls_;
  sd_bus_message* answer = nullptr;
  if (self.answer_ && sd_bus_message_new_method_return(message, &answer) >= 0) {
    self.answer_(answer);
    sd_bus_send(self.bus_, answer, nullptr);
    sd_bus_message_unref(answer);
  }
  return 1;
}

void FakeService::serve(const std::stop_token& stop) {
  constexpr int interval = 2;  // milliseconds
  while (!stop.stop_requested()) {
    pollfd readable{sd_bus_get_fd(bus_), POLLIN, 0};
    poll(&readable, 1, interval);
    const std::scoped_lock lock(mutex_);
    while (sd_bus_process(bus_, nullptr) > 0) {
    }
  }
}

}  // namespace roomlattice::tests
