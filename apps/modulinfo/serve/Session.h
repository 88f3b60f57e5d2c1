#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <deque>
#include <memory>
#include <optional>

#include "serve/Bridge.h"
#include "serve/Channel.h"
#include "serve/JsonRpc.h"
#include "serve/Turns.h"

namespace tessara {

/// One client's requests to one control, from the first to the end of its input.
///
/// Requests wait in the order of their arrival until the turns let the next one in. The end of
/// input waits behind them, as if it were a last request to quit. It does not wait for a request
/// that only another one could end, nor for anything once nobody is left to read the answers.
class Session {
 public:
  /// All have to outlive the session.
  Session(Channel& channel, Turns& turns, Bridge& bridge);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  /// Handles requests until the client quits or has no more of them. The control has ended then.
  void run();

 private:
  /// The answers of a batch, which go out together.
  struct Batch {
    std::size_t unanswered = 0;
    OrderedJson answers = OrderedJson::array();
  };
  struct Waiting {
    RpcEntry entry;
    /// Null for an entry on a line of its own.
    std::shared_ptr<Batch> batch;
  };

  void noteArrival();
  void handleWaiting();
  /// False if everything that has arrived is under way or done.
  bool fetchWaiting();
  void queueLine(RpcLine line);
  void handle(const Waiting& waiting);
  void answer(const Waiting& waiting, std::optional<OrderedJson> message);
  /// Ends the control; what is under way ends without another callback.
  void end();
  void forgetWaiting();

  Channel& channel_;
  Turns& turns_;
  Bridge& bridge_;
  std::deque<Waiting> waiting_;
  QSocketNotifier arrivals_;
  /// Run out at the next turn of the event loop.
  QTimer handling_;
  QTimer ending_;
  /// Looks, once the client sends no more, whether it still reads.
  QTimer deafness_;
};

}  // namespace tessara
