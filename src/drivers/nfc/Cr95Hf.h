#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "drivers/nfc/Iso15693.h"

namespace tessara::cr95hf {

/// Commands of the transceiver chip.
inline constexpr std::uint8_t kIdentification = 0x01;
inline constexpr std::uint8_t kProtocolSelect = 0x02;
inline constexpr std::uint8_t kSendReceive = 0x04;
inline constexpr std::uint8_t kEcho = 0x55;

/// Requests to the board's own processor.
inline constexpr std::uint8_t kBoardRevision = 0xBC;

/// What an answer begins with: these, kEcho, or the code of an error.
inline constexpr std::uint8_t kDone = 0x00;
inline constexpr std::uint8_t kDataFollow = 0x80;
inline constexpr std::uint8_t kNoProtocol = 0x83;
inline constexpr std::uint8_t kCommunicationError = 0x86;
inline constexpr std::uint8_t kNoAnswer = 0x87;

/// Selects ISO 15693: 26 kbit/s, one subcarrier, 10 % modulation, checksum added by the chip.
inline constexpr std::array<std::uint8_t, 4> kSelectIso15693{kProtocolSelect, 0x02, 0x01, 0x0D};
inline constexpr std::array<std::uint8_t, 4> kFieldOff{kProtocolSelect, 0x02, 0x00, 0x00};
inline constexpr std::array<std::uint8_t, 1> kEchoCommand{kEcho};

/// Whom a report is for, or that it comes from the board: its first byte.
enum class ReportId : std::uint8_t { ToChip = 0x01, ToBoard = 0x02, Answer = 0x07 };

/// A report of the board, padded with zeros to its full length.
using Report = std::array<std::uint8_t, 64>;

/// What a report holds beside its identifier, the code and the length: the longest data of a
/// command or an answer.
inline constexpr std::size_t kReportData = 61;

/// The command by which the chip sends an air request of up to kReportData bytes and receives the
/// answer of the tag: code, length, request.
Bytes sendReceive(std::span<const std::uint8_t> airRequest);

/// A report for the chip or the board. `contents` have at most 63 bytes.
Report reportOf(ReportId id, std::span<const std::uint8_t> contents);

/// What the board answers: a result code and data.
struct Answer {
  std::uint8_t result = kDone;
  Bytes data{};

  bool operator==(const Answer&) const = default;
};

/// The report by which the board answers. `answer` has at most kReportData data bytes.
Report reportOf(const Answer& answer);

/// The answer in a report, of which whatever stands behind its data is left over from other
/// reports. Throws NfcFault (Damage) if it is no answer, or its length goes beyond its end.
Answer decodeReport(std::span<const std::uint8_t> report);

/// What the tag answered, in the board's answer to sendReceive: the checksum is right and removed.
/// The chip's own mark of a checksum error is not looked at, since it is also set on sound answers.
/// Throws NfcFault: TagGone if no tag answered, Damage if the answer could not be received, and
/// ReaderRefusal if the chip did not send the request.
AirAnswer tagAnswerOf(const Answer& answer);

/// The answer in the form in which the reader's library gives it: upper-case hexadecimal digits of
/// result code, length and data.
std::string textOf(const Answer& answer);

}  // namespace tessara::cr95hf
