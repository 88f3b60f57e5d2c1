#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "asio/DeferredCall.h"
#include "serve/Bridge.h"
#include "serve/Channel.h"
#include "serve/InputWatch.h"
#include "serve/JsonRpc.h"
#include "serve/Turns.h"

namespace tessara {

/// One client's requests to one control, from the first to the end of its input.
///
/// Requests wait in the order of their arrival until the turns let the next one in. The end of the
/// input waits behind them, as if it were a last request to quit. It does not wait for a request
/// that only another one could end, nor for anything once the client no longer reads the answers.
class Session {
 public:
  /// All must outlive the session.
  Session(AsioEventLoop& loop, Channel& channel, Turns& turns, Bridge& bridge);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  /// Handles requests until the client quits or has sent all of them. The control has ended then.
  void run();

 private:
  /// The answers of a batch, which go out together.
  struct Batch {
    std::size_t unanswered = 0;
    std::vector<JsonText> answers{};
  };
  struct Waiting {
    RpcEntry entry;
    /// Null for an entry on a line of its own.
    std::shared_ptr<Batch> batch;
  };

  void noteArrival();
  void handleWaiting();
  /// False if everything that has arrived is being handled or done.
  void queueLine(const std::optional<std::string>& line);
  void handle(const Waiting& waiting);
  void answer(const Waiting& waiting, std::optional<JsonText> message);
  /// Ends the control; what is being handled ends without another callback.
  void end();
  void forgetWaiting();

  Channel& channel_;
  Turns& turns_;
  Bridge& bridge_;
  std::deque<Waiting> waiting_;
  /// Nothing once the client has sent everything.
  std::optional<InputWatch> arrivals_;
  DeferredCall handling_;
  DeferredCall ending_;
  /// Checks, once the client sends nothing more, whether it still reads.
  std::unique_ptr<PeriodicTimer> deafness_;
};

}  // namespace tessara
