#pragma once

#include <memory>

#include <umockdev.h>

namespace tessara::bench {

/// A mocked machine with 20 serial ports of all kinds that the port list distinguishes, beside the
/// consoles that every machine has, and no NFC reader.
class MockedPorts {
 public:
  static constexpr int portCount = 20;

  /// Throws std::runtime_error if this process does not see mocked devices.
  MockedPorts();

 private:
  void add(const std::string& description);
  void addUsbPort(const std::string& tty, const std::string& driver, const std::string& vendor,
                  const std::string& product);
  void addUart(const std::string& tty);

  std::unique_ptr<UMockdevTestbed, void (*)(gpointer)> bed_;
  int sockets_ = 0;
};

/// Restarts the program so that it sees mocked devices, unless a library is preloaded already.
void seeMockedDevices(char** arguments);

}  // namespace tessara::bench
