#include "Twn4WireTime.h"

#include <cstddef>

#include "drivers/modbus/ModuleRequest.h"
#include "drivers/nfc/TagCommands.h"
#include "drivers/nfc/Twn4.h"

namespace tessara::bench {
namespace {

constexpr std::int16_t unit = 192;

/// Counts the lines and their characters.
class Conversation {
 public:
  /// A request to the reader and a reply with that many bytes of results.
  void ask(const Bytes& request, std::size_t results) {
    constexpr std::size_t statusByte = 1;
    characters_ += twn4::lineOf(request).size() + twn4::lineOf(Bytes(statusByte + results)).size();
    ++answers_;
  }

  /// A request to the tag and a reply with that many bytes of data.
  void askTag(const AirRequest& request, std::size_t data) {
    constexpr std::size_t truthAndLength = 2;
    ask(twn4::airRequest(encodeAirRequest(request)), truthAndLength + data);
  }

  /// Check that the mailbox is free, put the request, poll for the reply, fetch it.
  void askModule(const ModbusRequest& request, std::size_t answer) {
    askTag(readControlRequest(), 1);
    askTag(writeMessageRequest(frameOf(request)), 0);
    askTag(readControlRequest(), 1);
    askTag(messageLengthRequest(), 1);
    askTag(readMessageRequest(0, answer), answer);
  }

  [[nodiscard]] Seconds time(int rate) const {
    return static_cast<double>(characters_) * characterTime(rate) +
           static_cast<double>(answers_) * silence(rate);
  }

 private:
  std::size_t characters_ = 0;
  std::size_t answers_ = 0;
};

}  // namespace

Seconds twn4WireTime(int rate) {
  constexpr std::size_t version = 1 + 26;
  constexpr std::size_t tag = 1 + 1 + 1 + 1 + 8;
  constexpr std::size_t identification = 15;
  Conversation conversation;
  conversation.ask(twn4::versionRequest(), version);
  conversation.ask(twn4::tagTypesRequest(), 0);
  conversation.ask(twn4::searchRequest(), tag);
  // The mailbox is off at first.
  conversation.askTag(readControlRequest(), 1);
  conversation.askTag(writeControlRequest(mailboxBits::enabled), 0);
  conversation.askModule(identificationRequest(unit), identification);
  struct Registers {
    std::int32_t start;
    std::int16_t count;
  };
  for (const Registers& registers :
       {Registers{4, 1}, Registers{3, 1}, Registers{5, 4}, Registers{16, 16}, Registers{100, 1},
        Registers{104, 1}, Registers{101, 1}, Registers{103, 1}}) {
    conversation.askModule(registersRequest(unit, registers.start, registers.count),
                           5 + 2 * static_cast<std::size_t>(registers.count));
  }
  conversation.ask(twn4::fieldOffRequest(), 0);
  return conversation.time(rate);
}

}  // namespace tessara::bench
