#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "serve/LineSplitter.h"

namespace tessara {

/// The two pipes to the client: lines in, lines out.
class Channel {
 public:
  /// Longer lines are not kept. In bytes.
  static constexpr std::size_t maxLine = std::size_t{64} << 20U;

  /// Both descriptors must stay open as long as the channel lives.
  Channel(int in, int out) : in_(in), out_(out) {}

  [[nodiscard]] int input() const { return in_; }

  /// Reads what has arrived; blocks if nothing has.
  void receive();
  /// True once the client has closed its end.
  [[nodiscard]] bool isAtEnd() const { return isAtEnd_; }

  /// Writes the line, which ends in a line feed. While the client does not read, what it sends is
  /// read, so that the two never wait for each other.
  void send(std::string_view line);
  /// True if the client no longer reads what is sent.
  [[nodiscard]] bool isDeaf() const;
  /// The errno value of the write that failed; 0 if none has, or if the client has gone, which is
  /// not an error.
  [[nodiscard]] int error() const { return error_; }

  /// Called with each line that was received, without its line feed; with nothing for one that was
  /// too long.
  std::function<void(const std::optional<std::string>& line)> lineArrived;
  /// Called after the lines when something was received, the end included.
  std::function<void()> arrived;
  /// Called when a write has failed. What is sent from then on is dropped.
  std::function<void()> broken;

 private:
  /// Returns the number of bytes written.
  std::size_t sendSome(std::string_view bytes);

  int in_;
  int out_;
  LineSplitter splitter_{maxLine};
  bool isAtEnd_ = false;
  bool isBroken_ = false;
  int error_ = 0;
};

}  // namespace tessara
