#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <systemd/sd-bus.h>
#include <thread>

namespace roomlattice::tests {

/// Writes the arguments of a message.
using WriteArguments = std::function<void(sd_bus_message* message)>;

/// A program on a bus, in a thread of its own: it answers also while the main thread waits.
class FakeService {
 public:
  /// Owns `name`, unless that is empty.
  FakeService(const std::string& busAddress, const std::string& name);
  ~FakeService();
  FakeService(const FakeService&) = delete;
  FakeService& operator=(const FakeService&) = delete;

  /// What every call is answered with from now on; an empty one leaves them without an answer.
  void answerWith(WriteArguments arguments);

  /// How often it has been called.
  int calls() const;

  /// Who called last, by the name that the bus has for the connection.
  std::string lastCaller() const;

  /// With a destination it goes there alone, whether anybody listens for it or not.
  void emit(const std::string& path, const std::string& interface, const std::string& name,
            const WriteArguments& arguments, const std::string& destination = {});

 private:
  static int called(sd_bus_message* message, void* service, sd_bus_error* error);

  void serve(const std::stop_token& stop);

  mutable std::mutex mutex_;
  sd_bus* bus_ = nullptr;
  WriteArguments answer_;
  std::string lastCaller_;
  int calls_ = 0;
  std::jthread thread_;
};

}  // namespace roomlattice::tests
