#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "drivers/nfc/HidDevice.h"
#include "drivers/nfc/UsbReader.h"
#include "platform/NfcReaderLibrary.h"

namespace tessara {

/// The three functions that detect the USB reader, on the device itself.
///
/// They are called one after the other. The reader is held from the first call until the last has
/// its answer or one has failed; afterwards the driver can open it. A missing reader is a status,
/// never an exception, and every failure leaves an empty reply.
class LinuxNfcReaderLibrary final : public NfcReaderLibrary {
 public:
  /// Statuses beside success.
  static constexpr std::int32_t notFound = 1;            ///< no reader, or it cannot be opened
  static constexpr std::int32_t communicationError = 4;  ///< the reader does not answer
  static constexpr std::int32_t notConnected = 5;        ///< the reader has not been opened

  struct Timings {
    /// Time limit for each answer of the reader.
    std::chrono::milliseconds answer{400};
    /// How long to wait for a reader in use by another program: such use is short and recurrent.
    std::chrono::milliseconds inUse{300};
  };

  /// `readers` must outlive the library.
  explicit LinuxNfcReaderLibrary(UsbReaders& readers) : LinuxNfcReaderLibrary(readers, Timings()) {}
  LinuxNfcReaderLibrary(UsbReaders& readers, const Timings& timings)
      : readers_(readers), timings_(timings) {}

  std::int32_t CR95HFDLL_USBconnect() override;
  /// Replies "5500".
  std::int32_t CR95HFDll_Echo(std::string& reply) override;
  /// Replies "0003" and the revision, as "0003030704".
  std::int32_t CR95HFDLL_getMCUrev(std::string& reply) override;

 private:
  template <class Question>
  std::int32_t ask(std::string& reply, Question question);

  UsbReaders& readers_;
  Timings timings_;
  std::optional<UsbReader> reader_;
};

}  // namespace tessara
