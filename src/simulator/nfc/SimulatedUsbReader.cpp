#include "simulator/nfc/SimulatedUsbReader.h"

#include <algorithm>
#include <array>
#include <thread>
#include <utility>

#include "drivers/nfc/NfcFault.h"
#include "serial/PortError.h"

namespace tessara {

namespace {

using cr95hf::Answer;

constexpr std::uint8_t badLength = 0x82;

/// "NFC FS2JAST4" and the checksum of the chip's program.
constexpr std::array<std::uint8_t, 15> chipName{0x4E, 0x46, 0x43, 0x20, 0x46, 0x53, 0x32, 0x4A,
                                                0x41, 0x53, 0x54, 0x34, 0x00, 0x2A, 0xCE};
constexpr std::array<std::uint8_t, 3> boardProgram{3, 7, 4};

/// What the chip adds after an answer: intact, or with a wrong checksum.
constexpr std::uint8_t soundMark = 0x00;
constexpr std::uint8_t checksumErrorMark = 0x01;

constexpr std::uint8_t noProtocol = 0x00;
constexpr std::uint8_t iso15693Protocol = 0x01;

Answer failure(std::uint8_t code) {
  return {code, {}};
}

/// A tag's answer as the chip delivers it.
Answer received(const AirAnswer& answer, bool isDamaged) {
  Bytes data = withAirChecksum(encodeAirAnswer(answer));
  if (isDamaged) data.back() = static_cast<std::uint8_t>(~data.back());
  data.push_back(isDamaged ? checksumErrorMark : soundMark);
  return {cr95hf::dataFollow, std::move(data)};
}

}  // namespace

std::optional<cr95hf::Report> SimulatedBoard::answer(std::span<const std::uint8_t> report) {
  if (report.size() < 2) return std::nullopt;
  const auto contents = report.subspan(1);
  std::optional<Answer> answer;
  if (report[0] == static_cast<std::uint8_t>(cr95hf::ReportId::ToChip)) {
    answer = answerOfChip(contents);
  } else if (report[0] == static_cast<std::uint8_t>(cr95hf::ReportId::ToBoard)) {
    answer = answerOfBoard(contents);
  }
  return answer ? std::optional(cr95hf::reportOf(*answer)) : std::nullopt;
}

Answer SimulatedBoard::answerOfBoard(std::span<const std::uint8_t> request) {
  if (request[0] != cr95hf::boardRevision) return {cr95hf::done, {}};
  return {cr95hf::done, Bytes(boardProgram.begin(), boardProgram.end())};
}

std::optional<Answer> SimulatedBoard::answerOfChip(std::span<const std::uint8_t> command) {
  if (command[0] == cr95hf::echo) return failure(cr95hf::echo);
  if (command.size() < 2 || command.size() < std::size_t{2} + command[1]) {
    return failure(badLength);
  }
  const auto data = command.subspan(2, command[1]);
  switch (command[0]) {
    case cr95hf::identification:
      return Answer{cr95hf::done, Bytes(chipName.begin(), chipName.end())};
    case cr95hf::protocolSelect:
      return selectProtocol(data);
    case cr95hf::sendReceiveCommand:
      return sendReceive(data);
    default:
      return failure(badLength);
  }
}

Answer SimulatedBoard::selectProtocol(std::span<const std::uint8_t> data) {
  if (data.size() != 2) return failure(badLength);
  if (data[0] != noProtocol && data[0] != iso15693Protocol) return failure(cr95hf::noProtocol);
  isIso15693_ = data[0] == iso15693Protocol;
  if (!isIso15693_) field_.switchOff();
  return {cr95hf::done, {}};
}

std::optional<Answer> SimulatedBoard::sendReceive(std::span<const std::uint8_t> data) {
  if (!isIso15693_) return failure(cr95hf::noProtocol);
  AirRequest request;
  try {
    request = decodeAirRequest(data);
  } catch (const NfcFault&) {
    return failure(cr95hf::noAnswer);  // no tag understands it
  }
  const FieldOutcome outcome = field_.send(request, SimulatedField::Clock::now());
  if (outcome.isReaderSilent) return std::nullopt;
  if (outcome.readerError) return failure(*outcome.readerError);
  if (!outcome.answer) return failure(cr95hf::noAnswer);
  return received(*outcome.answer, outcome.isDamaged);
}

/// One user's hold on the reader.
class SimulatedUsbReader::Device final : public HidDevice {
 public:
  explicit Device(SimulatedUsbReader& reader) : reader_(reader) { reader_.isInUse_ = true; }
  ~Device() override { reader_.isInUse_ = false; }

  void write(const cr95hf::Report& report) override {
    requireReader();
    if (const auto answer = reader_.board_.answer(report)) {
      answers_.emplace_back(answer->begin(), answer->end());
    }
    if (const auto unplug = reader_.field().tag().takeUnplug()) {
      reader_.follow(*unplug);
      isGone_ = true;
    }
  }

  std::optional<Bytes> read(std::chrono::milliseconds timeout) override {
    requireReader();
    if (answers_.empty()) {
      std::this_thread::sleep_for(timeout);
      return std::nullopt;
    }
    Bytes answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
  }

  [[nodiscard]] std::string name() const override { return "simulated"; }

 private:
  /// A replugged reader must be opened again.
  void requireReader() {
    isGone_ = isGone_ || !reader_.isPluggedIn();
    if (isGone_) throw NfcFault(NfcFaultKind::NoReader, "the reader has been unplugged");
  }

  SimulatedUsbReader& reader_;
  std::deque<Bytes> answers_;
  bool isGone_ = false;
};

SimulatedUsbReader::SimulatedUsbReader(SimulatedNfcModule module) : board_(std::move(module)) {}

std::unique_ptr<HidDevice> SimulatedUsbReader::open() {
  if (!isPluggedIn()) throw PortError::notThere();
  if (isInUse_) throw PortError::inUse();
  return std::make_unique<Device>(*this);
}

void SimulatedUsbReader::follow(const faults::Unplug& fault) {
  pluggedInFrom_ = fault.replugAfter ? Clock::now() + *fault.replugAfter : Clock::time_point::max();
}

}  // namespace tessara
