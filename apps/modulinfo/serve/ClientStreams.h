#pragma once

namespace tessara {

/// Standard input and output, taken over for the protocol. Anything else in this process that reads
/// standard input finds its end, and anything else that prints writes to standard error; programs
/// started from here, such as a viewer of help files, do not hold the client's pipes.
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
