#include "serve/Session.h"

#include <iostream>
#include <utility>

#include "serve/BridgeMethods.h"

namespace tessara {

namespace {

constexpr std::chrono::milliseconds deafnessInterval{100};

RpcLine tooLong() {
  RpcLine line;
  line.entries.emplace_back(
      RpcFault{{},
               RpcError(RpcCode::InvalidJson,
                        "the line is longer than " + std::to_string(Channel::maxLine) + " bytes")});
  return line;
}

/// The answer to a request; a notification is carried out and gets none.
struct AnswerOf {
  Bridge& bridge;

  std::optional<JsonText> operator()(const RpcRequest& request) const {
    try {
      const JsonText result = carryOut(bridge, request);
      if (request.id) return resultMessage(*request.id, result);
    } catch (const RpcError& error) {
      if (request.id) return errorMessage(*request.id, error);
    }
    return std::nullopt;
  }
  std::optional<JsonText> operator()(const RpcFault& fault) const {
    return errorMessage(fault.id, fault.error);
  }
};

}  // namespace

Session::Session(AsioEventLoop& loop, Channel& channel, Turns& turns, Bridge& bridge)
    : channel_(channel),
      turns_(turns),
      bridge_(bridge),
      handling_(loop, [this] { handleWaiting(); }),
      ending_(loop, [this] { end(); }),
      deafness_(loop.createTimer(deafnessInterval, [this] {
        if (channel_.isDeaf()) end();
      })) {
  arrivals_.emplace(loop, channel.input(), [this] { channel_.receive(); });
  channel_.lineArrived = [this](const std::optional<std::string>& line) { queueLine(line); };
  channel_.arrived = [this] { noteArrival(); };
  // A write may fail in the middle of a call to a module, where the control cannot be ended.
  channel_.broken = [this] { ending_.request(); };
  turns_.nextMayCome = [this] { handling_.request(); };
  bridge_.loop.idles = [this] {
    if (channel_.isAtEnd()) end();
  };
  bridge_.quit = [this] { end(); };
}

Session::~Session() {
  channel_.lineArrived = nullptr;
  channel_.arrived = nullptr;
  channel_.broken = nullptr;
  turns_.nextMayCome = nullptr;
  bridge_.loop.idles = nullptr;
  bridge_.quit = nullptr;
}

void Session::run() {
  bridge_.loop.run();
}

void Session::noteArrival() {
  if (channel_.isAtEnd() && arrivals_) {
    arrivals_.reset();
    deafness_->setEnabled(true);
  }
  handling_.request();
}

void Session::handleWaiting() {
  while (!bridge_.loop.isEnded() && turns_.mayHandle()) {
    if (waiting_.empty()) {
      if (channel_.isAtEnd()) end();
      return;
    }
    const Waiting next = std::move(waiting_.front());
    waiting_.pop_front();
    // The rest may come in the middle of this one.
    handling_.request();
    handle(next);
  }
}

void Session::queueLine(const std::optional<std::string>& line) {
  if (bridge_.loop.isEnded()) return;
  RpcLine decoded = line ? decodeLine(*line) : tooLong();
  std::shared_ptr<Batch> batch;
  if (decoded.isBatch) batch = std::make_shared<Batch>(Batch{.unanswered = decoded.entries.size()});
  for (RpcEntry& entry : decoded.entries) waiting_.push_back({std::move(entry), batch});
}

void Session::handle(const Waiting& waiting) {
  const Turns::Turn turn(turns_, Turns::Kind::Request);
  bridge_.loop.noteActivity();
  answer(waiting, std::visit(AnswerOf{bridge_}, waiting.entry));
}

void Session::answer(const Waiting& waiting, std::optional<JsonText> message) {
  if (!waiting.batch) {
    if (message) channel_.send(encodeLine(*message));
    return;
  }
  Batch& batch = *waiting.batch;
  if (message) batch.answers.push_back(*std::move(message));
  --batch.unanswered;
  if (batch.unanswered == 0 && !batch.answers.empty()) {
    channel_.send(encodeLine(JsonText::list(batch.answers)));
  }
}

void Session::end() {
  if (bridge_.loop.isEnded()) return;
  bridge_.loop.end();
  forgetWaiting();
  bridge_.forms.hideAll();
  try {
    bridge_.control.UserControl_Terminate();
  } catch (const std::exception& error) {
    std::cerr << "modulinfo: " << error.what() << '\n';
  }
}

void Session::forgetWaiting() {
  for (const Waiting& waiting : waiting_) {
    if (waiting.batch) --waiting.batch->unanswered;
  }
  waiting_.clear();
}

}  // namespace tessara
