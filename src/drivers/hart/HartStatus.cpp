#include "drivers/hart/HartStatus.h"

#include <algorithm>
#include <iterator>

namespace tessara {

namespace {

/// Response codes with the same meaning, in the order of their codes.
struct ResponseCodes {
  std::uint8_t first;
  std::uint8_t last;
  HartOutcome outcome;
  const char* meaning;
};

constexpr const char* commandError = "error of this command";
constexpr const char* commandWarning = "warning of this command";

constexpr std::array responseCodes{
    ResponseCodes{0, 0, HartOutcome::Success, "success"},
    ResponseCodes{2, 2, HartOutcome::Error, "invalid selection"},
    ResponseCodes{3, 3, HartOutcome::Error, "parameter too large"},
    ResponseCodes{4, 4, HartOutcome::Error, "parameter too small"},
    ResponseCodes{5, 5, HartOutcome::Error, "too few data bytes"},
    ResponseCodes{6, 6, HartOutcome::Error, "device specific command error"},
    ResponseCodes{7, 7, HartOutcome::Error, "write protected"},
    ResponseCodes{8, 8, HartOutcome::Warning, commandWarning},
    ResponseCodes{9, 13, HartOutcome::Error, commandError},
    ResponseCodes{14, 14, HartOutcome::Warning, commandWarning},
    ResponseCodes{15, 15, HartOutcome::Error, commandError},
    ResponseCodes{16, 16, HartOutcome::Error, "access restricted"},
    ResponseCodes{17, 17, HartOutcome::Error, "bad device variable index"},
    ResponseCodes{18, 18, HartOutcome::Error, "bad units"},
    ResponseCodes{19, 19, HartOutcome::Error, "index not allowed"},
    ResponseCodes{20, 20, HartOutcome::Error, "bad extended command number"},
    ResponseCodes{24, 27, HartOutcome::Warning, commandWarning},
    ResponseCodes{28, 29, HartOutcome::Error, commandError},
    ResponseCodes{30, 30, HartOutcome::Warning, "answer truncated"},
    ResponseCodes{31, 31, HartOutcome::Warning, commandWarning},
    ResponseCodes{32, 32, HartOutcome::Busy, "busy"},
    ResponseCodes{33, 33, HartOutcome::Delayed, "delayed answer started"},
    ResponseCodes{34, 34, HartOutcome::Delayed, "delayed answer running"},
    ResponseCodes{35, 35, HartOutcome::Error, "delayed answer dead"},
    ResponseCodes{36, 36, HartOutcome::Delayed, "delayed answer conflict"},
    ResponseCodes{64, 64, HartOutcome::Error, "command not implemented"},
    ResponseCodes{65, 95, HartOutcome::Error, commandError},
    ResponseCodes{96, 127, HartOutcome::Warning, commandWarning},
};

constexpr ResponseCodes unknownCode{0, 0, HartOutcome::Error, "unknown code"};

const ResponseCodes& rowOf(std::uint8_t code) {
  const auto* const row =
      std::find_if(responseCodes.begin(), responseCodes.end(),
                   [code](const auto& known) { return known.first <= code && code <= known.last; });
  return row == responseCodes.end() ? unknownCode : *row;
}

struct ErrorBit {
  std::uint8_t value;
  const char* meaning;
};

constexpr std::array communicationErrorBits{
    ErrorBit{0x40, "parity"},       ErrorBit{0x20, "overrun"},
    ErrorBit{0x10, "framing"},      ErrorBit{hart::checkByteError, "check byte"},
    ErrorBit{0x04, "reserved bit"}, ErrorBit{0x02, "receive buffer overflow"},
    ErrorBit{0x01, "undefined"},
};

std::string communicationErrorText(std::uint8_t summary) {
  constexpr const char* hexDigits = "0123456789ABCDEF";
  std::string text = "communication error ";
  text += hexDigits[summary >> 4U];
  text += hexDigits[summary & 0xFU];
  const char* separator = ": ";
  for (const ErrorBit& bit : communicationErrorBits) {
    if ((summary & bit.value) == 0) continue;
    text += separator;
    text += bit.meaning;
    separator = ", ";
  }
  return text;
}

constexpr std::array<HartDeviceStatusBit, 8> deviceStatusBits{{
    {0x80, "malfunction"},
    {0x40, "configuration changed"},
    {hart::coldStart, "cold start"},
    {hart::moreStatus, "more status available"},
    {0x08, "loop current fixed"},
    {0x04, "loop current saturated"},
    {0x02, "non-primary variable out of limits"},
    {0x01, "primary variable out of limits"},
}};

}  // namespace

std::span<const HartDeviceStatusBit, 8> hartDeviceStatusBits() {
  return deviceStatusBits;
}

HartOutcome HartStatus::outcome() const {
  return isCommunicationError() ? HartOutcome::CommunicationError : rowOf(bytes_[0]).outcome;
}

std::string HartStatus::text() const {
  if (isCommunicationError()) return communicationErrorText(bytes_[0]);
  return "response code " + std::to_string(bytes_[0]) + ": " + rowOf(bytes_[0]).meaning;
}

}  // namespace tessara
