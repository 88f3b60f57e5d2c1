#pragma once

namespace tessara {

/// Standard input and output, taken over for the protocol. Whoever else reads the standard input of
/// this process finds it at its end, and what somebody else prints goes to standard error; programs
/// that are started from here, like a viewer of help files, do not hold the client's pipes.
class ClientStreams {
 public:
  /// Throws std::system_error if one of the two is not open.
  ClientStreams();
  ClientStreams(const ClientStreams&) = delete;
  ClientStreams& operator=(const ClientStreams&) = delete;
  ~ClientStreams();

  [[nodiscard]] int in() const { return in_; }
  [[nodiscard]] int out() const { return out_; }

 private:
  int in_;
  int out_;
};

}  // namespace tessara
