#include "serve/Channel.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace tessara {

namespace {

/// A pipe that can be written to takes this much without blocking.
constexpr std::size_t pieceSize = 4096;

}  // namespace

void Channel::receive() {
  std::array<char, 65536> bytes{};
  const ssize_t count = read(in_, bytes.data(), bytes.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
  isAtEnd_ = count <= 0;
  const auto lines = isAtEnd_ ? splitter_.finish()
                              : splitter_.add({bytes.data(), static_cast<std::size_t>(count)});
  if (lineArrived) std::ranges::for_each(lines, lineArrived);
  if (arrived) arrived();
}

void Channel::send(std::string_view line) {
  while (!line.empty() && !isBroken_) {
    std::array<pollfd, 2> ends{{{out_, POLLOUT, 0}, {isAtEnd_ ? -1 : in_, POLLIN, 0}}};
    if (poll(ends.data(), ends.size(), -1) < 0) continue;
    if (ends[0].revents != 0) {
      line.remove_prefix(sendSome(line));
    } else if (ends[1].revents != 0) {
      receive();
    }
  }
}

std::size_t Channel::sendSome(std::string_view bytes) {
  const ssize_t count = write(out_, bytes.data(), std::min(bytes.size(), pieceSize));
  if (count >= 0) return static_cast<std::size_t>(count);
  if (errno == EINTR || errno == EAGAIN) return 0;
  isBroken_ = true;
  error_ = errno == EPIPE ? 0 : errno;
  if (broken) broken();
  return 0;
}

bool Channel::isDeaf() const {
  pollfd end{out_, 0, 0};
  return isBroken_ || (poll(&end, 1, 0) > 0 && (end.revents & (POLLERR | POLLHUP)) != 0);
}

}  // namespace tessara
