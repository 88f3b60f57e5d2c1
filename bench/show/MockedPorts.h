#pragma once

#include <memory>

#include <umockdev.h>

namespace tessara::bench {

/// 20 serial ports on a machine of its own, of all kinds that the port list tells apart, beside the
/// consoles that every machine has; and no NFC reader.
class MockedPorts {
 public:
  static constexpr int kCount = 20;

  /// Throws std::runtime_error if this process is not one that sees mocked devices.
  MockedPorts();

 private:
  void add(const std::string& description);
  void addUsbPort(const std::string& tty, const std::string& driver, const std::string& vendor,
                  const std::string& product);
  void addUart(const std::string& tty);

  std::unique_ptr<UMockdevTestbed, void (*)(gpointer)> bed_;
  int sockets_ = 0;
};

/// Starts the program anew as one that sees mocked devices, unless a library has been put before it
/// already.
void seeMockedDevices(char** arguments);

}  // namespace tessara::bench
