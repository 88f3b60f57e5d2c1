#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "drivers/nfc/Iso15693.h"

namespace tessara::cr95hf {

/// Commands of the transceiver chip.
inline constexpr std::uint8_t identification = 0x01;
inline constexpr std::uint8_t protocolSelect = 0x02;
inline constexpr std::uint8_t sendReceiveCommand = 0x04;
inline constexpr std::uint8_t echo = 0x55;

/// Requests to the board's own processor.
inline constexpr std::uint8_t boardRevision = 0xBC;

/// What an answer begins with: one of these, echo, or an error code.
inline constexpr std::uint8_t done = 0x00;
inline constexpr std::uint8_t dataFollow = 0x80;
inline constexpr std::uint8_t noProtocol = 0x83;
inline constexpr std::uint8_t communicationError = 0x86;
inline constexpr std::uint8_t noAnswer = 0x87;

/// Selects ISO 15693: 26 kbit/s, one subcarrier, 10 % modulation, checksum added by the chip.
inline constexpr std::array<std::uint8_t, 4> selectIso15693{protocolSelect, 0x02, 0x01, 0x0D};
inline constexpr std::array<std::uint8_t, 4> fieldOff{protocolSelect, 0x02, 0x00, 0x00};
inline constexpr std::array<std::uint8_t, 1> echoCommand{echo};

/// The first byte of a report: whom it is for, or that it comes from the board.
enum class ReportId : std::uint8_t { ToChip = 0x01, ToBoard = 0x02, Answer = 0x07 };

/// A report of the board, padded with zeros to its full length.
using Report = std::array<std::uint8_t, 64>;

/// Bytes of a report beside its identifier, the code and the length: the longest data of a command
/// or an answer.
inline constexpr std::size_t maxReportData = 61;

/// The command by which the chip sends an air request of up to maxReportData bytes and receives the
/// tag's answer: code, length, request.
Bytes sendReceive(std::span<const std::uint8_t> airRequest);

/// A report for the chip or the board. `contents` have at most 63 bytes.
Report reportOf(ReportId id, std::span<const std::uint8_t> contents);

/// An answer of the board: a result code and data.
struct Answer {
  std::uint8_t result = done;
  Bytes data{};

  bool operator==(const Answer&) const = default;
};

/// The report by which the board answers. `answer` has at most maxReportData data bytes.
Report reportOf(const Answer& answer);

/// The answer in a report; what follows its data is left over from other reports. Throws NfcFault
/// (Damage) if it is not an answer, or its length goes beyond the end of the report.
Answer decodeReport(std::span<const std::uint8_t> report);

/// The tag's answer in the board's answer to sendReceive, with its checksum verified and removed.
/// The chip's own mark of a checksum error is ignored, since it is also set on sound answers.
/// Throws NfcFault: TagGone if no tag answered, Damage if the answer could not be received, and
/// ReaderRefusal if the chip did not send the request.
AirAnswer tagAnswerOf(const Answer& answer);

/// The answer in the form that the reader's library returns: upper-case hexadecimal digits of
/// result code, length and data.
std::string textOf(const Answer& answer);

}  // namespace tessara::cr95hf
