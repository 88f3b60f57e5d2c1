#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/SimulatedLine.h"
#include "simulator/nfc/SimulatedField.h"

namespace tessara {

/// A TWN4 reader that speaks Simple Protocol, with a module's tag in its field. It knows the
/// functions that find a tag and send it ISO 15693 commands, and its own version.
class SimulatedTwn4 final : public SimulatedLine {
 public:
  /// Throws std::invalid_argument if the module is invalid.
  explicit SimulatedTwn4(SimulatedNfcModule module) : field_(std::move(module)) {}

  std::vector<SimulatedAnswer> receive(std::span<const std::uint8_t> bytes) override;
  /// A line ends with its end, never with silence.
  std::optional<SimulatedAnswer> silence() override { return std::nullopt; }
  [[nodiscard]] bool isFrameOpen() const override { return false; }
  void forgetOpenFrame() override { line_.clear(); }

  SimulatedField& field() { return field_; }

 private:
  std::optional<SimulatedAnswer> answerTo(std::string_view line);
  Bytes execute(std::span<const std::uint8_t> request);
  Bytes version(std::span<const std::uint8_t> parameters);
  Bytes setTagTypes(std::span<const std::uint8_t> parameters);
  Bytes getTagTypes(std::span<const std::uint8_t> parameters);
  Bytes search(std::span<const std::uint8_t> parameters);
  Bytes switchFieldOff(std::span<const std::uint8_t> parameters);
  Bytes sendCommand(std::span<const std::uint8_t> parameters);
  FieldOutcome send(const AirRequest& request);

  SimulatedField field_;
  std::string line_;
  /// The kinds of tags that a search looks for: a mask for low frequencies, one for high ones,
  /// least significant byte first. Initially ISO 15693 only.
  std::array<std::uint8_t, 8> tagTypes_{0, 0, 0, 0, 0x04, 0, 0, 0};
  bool isSelected_ = false;
  bool isSilent_ = false;  // for the current request
};

}  // namespace tessara
