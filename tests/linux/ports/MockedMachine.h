#pragma once

#include <map>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <umockdev.h>

namespace tessara::testing {

/// A USB adapter with one serial port.
struct Adapter {
  std::string tty = "ttyUSB0";
  std::string driver = "cp210x";
  std::string vendor = "10c4";
  std::string product = "ea60";
  std::string serial{};
  /// The chain of USB ports, "2" or "2.1".
  std::string socket = "2";
  std::string interfaceNumber = "00";
};

inline const Adapter cp210x{.serial = "0001", .socket = "1"};
inline const Adapter twn4{.tty = "ttyACM0",
                          .driver = "cdc_acm",
                          .vendor = "09d8",
                          .product = "0420",
                          .serial = "T1",
                          .socket = "4"};

/// A machine without any device but its consoles, as the programs under test see it: /sys and /dev
/// are its own. Adapters can be plugged in and unplugged.
class MockedMachine {
 public:
  MockedMachine();
  MockedMachine(const MockedMachine&) = delete;
  MockedMachine& operator=(const MockedMachine&) = delete;
  ~MockedMachine();

  void plugIn(const Adapter& adapter);
  void pullOut(const Adapter& adapter);
  /// A UART of the machine itself; type 0 is one that the kernel did not find.
  void addUart(const std::string& tty, const std::string& driver, int type);
  /// A UART whose type only the terminal itself reports.
  void addSilentUart(const std::string& tty, const std::string& driver, int type);
  /// A terminal without a device.
  void addVirtualTerminal(const std::string& tty);
  /// Removes the device node; the kernel's device stays.
  void removeNode(const std::string& tty) const;
  /// A port of an adapter that has several on one interface.
  void setPortOnInterface(const Adapter& adapter, const std::string& number);

 private:
  void add(const std::string& description);
  void remove(const std::string& device);
  void addNode(const std::string& tty) const;
  [[nodiscard]] std::string nodePath(const std::string& tty) const;

  std::unique_ptr<UMockdevTestbed, void (*)(gpointer)> bed_;
  /// The type that the terminals of silent UARTs report.
  std::map<std::string, int> uartTypes_;
};

}  // namespace tessara::testing
