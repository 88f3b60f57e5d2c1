#include "simulator/hart/HartDraft.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "drivers/hart/HartStatus.h"
#include "simulator/hart/SimulatedHartModule.h"

namespace tessara {

namespace {

constexpr std::uint8_t readVariables = 3;  // what the other master asks for
constexpr std::uint8_t readPrimaryVariable = 1;
constexpr std::array<std::uint8_t, 5> primaryVariableData{0x27, 0x41, 0x48, 0x00, 0x00};  // 12.5 mA

void append(Bytes& bytes, std::span<const std::uint8_t> more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

}  // namespace

HartDraft::HartDraft(HartFrame request, HartFrame answer, std::size_t preambles)
    : request_(std::move(request)), answer_(std::move(answer)), preambles_(preambles) {}

void HartDraft::apply(const HartEffect& effect) {
  std::visit([this](const auto& fault) { change(fault); }, effect);
}

void HartDraft::change(const faults::ResponseCode& fault) {
  const std::array<std::uint8_t, 2> status{fault.code, answer_.data[1]};
  const bool hasData = HartStatus(status).outcome() == HartOutcome::Warning ||
                       HartStatus(status).outcome() == HartOutcome::Success;
  const std::span<const std::uint8_t> payload = answer_.payload();
  answer_.data = hartAnswer(request_, status, hasData ? payload : payload.first(0)).data;
}

void HartDraft::change(const faults::CommunicationError& fault) {
  answer_.data = {static_cast<std::uint8_t>(hart::communicationError | fault.bits), 0};
}

void HartDraft::change(const faults::DelayedAnswer& /*fault*/) {
  change(faults::ResponseCode{hart::delayStarted});
}

void HartDraft::change(const faults::ColdStart& /*fault*/) {
  answer_.data[1] = static_cast<std::uint8_t>(answer_.data[1] | hart::coldStart);
}

void HartDraft::change(const faults::WrongCommand& fault) {
  answer_.command = fault.command;
}

void HartDraft::change(const faults::WrongAddress& fault) {
  Bytes address(answer_.address.bytes().begin(), answer_.address.bytes().end());
  address.back() = fault.address;
  answer_.address = HartAddress::fromBytes(address).forMaster(request_.address.isOfPrimaryMaster());
}

void HartDraft::change(const faults::BadChecksum& /*fault*/) {
  checkByteFlips_ = 0xFF;
}

void HartDraft::change(const faults::Preambles& fault) {
  preambles_ = fault.count;
}

void HartDraft::change(const faults::CutOff& fault) {
  kept_ = fault.bytes;
}

void HartDraft::change(const faults::Gap& fault) {
  gap_ = fault;
}

void HartDraft::change(const faults::Unplug& fault) {
  unplug_ = fault;
  if (fault.bytes) kept_ = fault.bytes;
}

void HartDraft::change(const faults::Echo& /*fault*/) {
  echo_ = encodeHart(request_, defaultHartPreambles);
}

void HartDraft::change(const faults::OtherMaster& /*fault*/) {
  const HartFrame request = hartRequest(request_.address.forMaster(false), readVariables);
  append(otherTraffic_, encodeHart(request, defaultHartPreambles));
  append(otherTraffic_,
         encodeHart(hartAnswer(request, {0, 0}, primaryVariableData), defaultHartPreambles));
}

void HartDraft::change(const faults::BurstFrame& fault) {
  answer_.address = answer_.address.withBurst(true);
  HartFrame burst =
      hartAnswer(hartRequest(answer_.address, readPrimaryVariable), {0, 0}, primaryVariableData);
  burst.kind = HartFrameKind::Burst;
  burst.address = burst.address.forMaster(fault.isToPrimaryMaster);
  append(otherTraffic_, encodeHart(burst, defaultHartPreambles));
}

void HartDraft::change(const faults::Noise& fault) {
  append(noise_, fault.bytes);
}

void HartDraft::change(const faults::TrailingNoise& fault) {
  append(trailing_, fault.bytes);
}

void HartDraft::change(const faults::LateReply& fault) {
  delay_ += fault.delay;
}

void HartDraft::change(const faults::NoReply& /*fault*/) {
  isSilent_ = true;
}

Bytes HartDraft::answerBytes() const {
  Bytes bytes = encodeHart(answer_, preambles_);
  bytes.back() = static_cast<std::uint8_t>(bytes.back() ^ checkByteFlips_);
  if (kept_) bytes.resize(std::min(*kept_, bytes.size()));
  return bytes;
}

SimulatedAnswer HartDraft::finished() const {
  SimulatedAnswer finished;
  finished.delay = delay_;
  finished.unplug = unplug_;
  if (isSilent_) return finished;
  const Bytes answer = answerBytes();
  const std::size_t first = gap_ ? std::min(gap_->after, answer.size()) : answer.size();
  append(finished.bytes, noise_);
  append(finished.bytes, echo_);
  append(finished.bytes, otherTraffic_);
  append(finished.bytes, std::span(answer).first(first));
  Bytes rest(answer.begin() + static_cast<std::ptrdiff_t>(first), answer.end());
  append(rest, trailing_);
  if (gap_) {
    finished.more.push_back({gap_->pause, std::move(rest)});
  } else {
    append(finished.bytes, rest);
  }
  return finished;
}

}  // namespace tessara
