#include "simulator/nfc/SimulatedTwn4.h"

#include <algorithm>
#include <array>
#include <utility>

#include "drivers/nfc/HexText.h"
#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/TagCommands.h"
#include "drivers/nfc/Twn4.h"

namespace tessara {

namespace {

constexpr std::string_view versionText = "TWN4/B1.06/CCF4.51/PRS1.04";
constexpr std::size_t maxRequestLength = 1024;

enum Status : std::uint8_t {
  noError = 0,
  unknownFunction = 1,
  missingParameter = 2,
  unusedParameters = 3,
  parserError = 5,
};

/// Thrown by a function with wrong parameters.
struct CallError {
  std::uint8_t status;
};

void requireLength(std::span<const std::uint8_t> parameters, std::size_t length) {
  if (parameters.size() < length) throw CallError{missingParameter};
  if (parameters.size() > length) throw CallError{unusedParameters};
}

Bytes results(std::initializer_list<std::uint8_t> values) {
  Bytes bytes{noError};
  bytes.insert(bytes.end(), values);
  return bytes;
}

void appendArray(Bytes& bytes, std::span<const std::uint8_t> array, std::size_t most) {
  const auto part = array.first(std::min(array.size(), most));
  bytes.push_back(static_cast<std::uint8_t>(part.size()));
  bytes.insert(bytes.end(), part.begin(), part.end());
}

}  // namespace

std::vector<SimulatedAnswer> SimulatedTwn4::receive(std::span<const std::uint8_t> bytes) {
  std::vector<SimulatedAnswer> answers;
  for (const std::uint8_t byte : bytes) {
    const auto character = static_cast<char>(byte);
    if (character != twn4::lineEnd) {
      if (line_.size() < maxRequestLength) line_ += character;
    } else if (auto answer = answerTo(std::exchange(line_, {}))) {
      answers.push_back(std::move(*answer));
    }
  }
  return answers;
}

std::optional<SimulatedAnswer> SimulatedTwn4::answerTo(std::string_view line) {
  isSilent_ = false;
  Bytes answer;
  try {
    answer = execute(bytesOfHex(line));
  } catch (const NfcFault&) {
    answer = {parserError};
  } catch (const CallError& error) {
    answer = {error.status};
  }
  if (isSilent_) return std::nullopt;
  const std::string text = twn4::lineOf(answer);
  SimulatedAnswer sent{Bytes(text.begin(), text.end()), {}};
  sent.unplug = field_.tag().takeUnplug();
  return sent;
}

Bytes SimulatedTwn4::execute(std::span<const std::uint8_t> request) {
  struct Entry {
    twn4::Function function;
    Bytes (SimulatedTwn4::*execute)(std::span<const std::uint8_t>);
  };
  static constexpr std::array knownFunctions{
      Entry{twn4::getVersion, &SimulatedTwn4::version},
      Entry{twn4::setTagTypes, &SimulatedTwn4::setTagTypes},
      Entry{twn4::getTagTypes, &SimulatedTwn4::getTagTypes},
      Entry{twn4::searchTag, &SimulatedTwn4::search},
      Entry{twn4::fieldOff, &SimulatedTwn4::switchFieldOff},
      Entry{twn4::iso15693Command, &SimulatedTwn4::sendCommand},
  };
  if (request.size() < 2) throw CallError{missingParameter};
  const twn4::Function called{request[0], request[1]};
  const auto* const known = std::find_if(knownFunctions.begin(), knownFunctions.end(),
                                         [&](const auto& row) { return row.function == called; });
  if (known == knownFunctions.end()) throw CallError{unknownFunction};
  return (this->*known->execute)(request.subspan(2));
}

Bytes SimulatedTwn4::version(std::span<const std::uint8_t> parameters) {
  requireLength(parameters, 1);
  Bytes answer = results({});
  appendArray(answer, Bytes(versionText.begin(), versionText.end()), parameters[0]);
  return answer;
}

Bytes SimulatedTwn4::setTagTypes(std::span<const std::uint8_t> parameters) {
  requireLength(parameters, tagTypes_.size());
  std::copy(parameters.begin(), parameters.end(), tagTypes_.begin());
  return results({});
}

Bytes SimulatedTwn4::getTagTypes(std::span<const std::uint8_t> parameters) {
  requireLength(parameters, 0);
  Bytes answer = results({});
  answer.insert(answer.end(), tagTypes_.begin(), tagTypes_.end());
  return answer;
}

Bytes SimulatedTwn4::search(std::span<const std::uint8_t> parameters) {
  requireLength(parameters, 1);
  isSelected_ = false;
  constexpr std::size_t highFrequencyMask = 4;
  constexpr std::uint8_t iso15693Bit = 1U << (twn4::iso15693Tag & 0x1FU);
  if ((tagTypes_[highFrequencyMask] & iso15693Bit) == 0) return results({0});
  const FieldOutcome outcome = send(inventoryRequest());
  if (!outcome.answer || outcome.isDamaged) return results({0});
  isSelected_ = true;
  constexpr std::uint8_t uidBits = 64;
  Bytes answer = results({1, twn4::iso15693Tag, uidBits});
  appendArray(answer, uidOf(outcome.answer->data), parameters[0]);
  return answer;
}

Bytes SimulatedTwn4::switchFieldOff(std::span<const std::uint8_t> parameters) {
  requireLength(parameters, 0);
  isSelected_ = false;
  field_.switchOff();
  return results({});
}

Bytes SimulatedTwn4::sendCommand(std::span<const std::uint8_t> parameters) {
  constexpr std::size_t headerLength = 3;  // flags, command, length of the data
  if (parameters.size() < headerLength) throw CallError{missingParameter};
  requireLength(parameters, headerLength + parameters[2] + 1U);
  if (!isSelected_) return results({0});
  Bytes request{parameters[0], parameters[1]};
  request.insert(request.end(), parameters.begin() + headerLength, parameters.end() - 1);
  const FieldOutcome outcome = send(decodeAirRequest(request));
  if (!outcome.answer || outcome.isDamaged || outcome.answer->isRefusal()) return results({0});
  Bytes answer = results({1});
  appendArray(answer, outcome.answer->data, parameters.back());
  return answer;
}

FieldOutcome SimulatedTwn4::send(const AirRequest& request) {
  FieldOutcome outcome = field_.send(request, SimulatedField::Clock::now());
  isSilent_ = outcome.isReaderSilent;
  if (outcome.readerError) throw CallError{*outcome.readerError};
  return outcome;
}

}  // namespace tessara
