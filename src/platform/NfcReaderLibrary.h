#pragma once

#include <cstdint>
#include <string>

namespace tessara {

/// The three functions of the USB NFC reader's library that detection needs. Each gives 0 for
/// success. On a system without the library the first call throws.
class NfcReaderLibrary {
 public:
  static constexpr std::int32_t success = 0;

  NfcReaderLibrary() = default;
  NfcReaderLibrary(const NfcReaderLibrary&) = delete;
  NfcReaderLibrary& operator=(const NfcReaderLibrary&) = delete;
  virtual ~NfcReaderLibrary() = default;

  /// Opens the USB connection to the reader.
  virtual std::int32_t CR95HFDLL_USBconnect() = 0;
  /// Checks that the reader answers. `reply` comes with the buffer's size and holds the
  /// zero-terminated answer afterwards.
  virtual std::int32_t CR95HFDll_Echo(std::string& reply) = 0;
  /// The revision of the reader's processor, in the same way: upper-case hexadecimal of result
  /// code, length and revision bytes.
  virtual std::int32_t CR95HFDLL_getMCUrev(std::string& reply) = 0;
};

}  // namespace tessara
