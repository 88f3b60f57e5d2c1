#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "serve/LineSplitter.h"

namespace tessara {

/// The two ends of pipes that lead to the client: lines in, lines out.
class Channel {
 public:
  /// The longest line that is taken in, in bytes.
  static constexpr std::size_t longestLine = std::size_t{64} << 20U;

  /// Both descriptors have to stay open as long as the channel lives.
  Channel(int in, int out) : in_(in), out_(out) {}

  [[nodiscard]] int input() const { return in_; }

  /// Takes what has arrived; waits for something if nothing has.
  void receive();
  /// True once the client sends nothing more; lines may still be waiting then.
  [[nodiscard]] bool isAtEnd() const { return isAtEnd_; }
  [[nodiscard]] bool hasLine() const { return !lines_.empty(); }
  /// The next line, without its end; nothing stands for one that was too long.
  std::optional<std::string> takeLine();

  /// Writes the line with its end. While the client does not read, what it sends is taken in, so
  /// that both never wait for each other.
  void send(std::string_view line);
  /// True if nobody reads any more what is sent.
  [[nodiscard]] bool isDeaf() const;
  /// The number of the error that has broken the sending; 0 if it works, or if the client has gone,
  /// which is no error.
  [[nodiscard]] int error() const { return error_; }

  /// Runs when something was received, the end included.
  std::function<void()> arrived;
  /// Runs when the sending has broken. What is sent from then on is dropped.
  std::function<void()> broken;

 private:
  /// The number of bytes that went out.
  std::size_t sendSome(std::string_view bytes);

  int in_;
  int out_;
  LineSplitter splitter_{longestLine};
  std::deque<std::optional<std::string>> lines_;
  bool isAtEnd_ = false;
  bool isBroken_ = false;
  int error_ = 0;
};

}  // namespace tessara
