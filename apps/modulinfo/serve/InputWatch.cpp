#include "serve/InputWatch.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <asio/error_code.hpp>
#include <asio/io_context.hpp>
#include <asio/posix/stream_descriptor.hpp>
#include <asio/post.hpp>
#include <sys/epoll.h>

namespace tessara {

namespace {

int newEpoll() {
  const int epoll = epoll_create1(EPOLL_CLOEXEC);
  if (epoll < 0) throw std::system_error(errno, std::generic_category(), "standard input");
  return epoll;
}

}  // namespace

/// Asio would make the input itself non-blocking. So it waits for an epoll instance that holds only
/// the input and becomes readable together with it.
class InputWatch::Watching : public std::enable_shared_from_this<Watching> {
 public:
  Watching(AsioEventLoop& loop, int input, std::function<void()> readable)
      : context_(loop.context()), epoll_(context_, newEpoll()), readable_(std::move(readable)) {
    epoll_event event{};
    event.events = EPOLLIN;
    if (epoll_ctl(epoll_.native_handle(), EPOLL_CTL_ADD, input, &event) == 0) return;
    if (errno != EPERM) throw std::system_error(errno, std::generic_category(), "standard input");
    // A file on a disk is always readable, and epoll does not take it.
    isAlwaysReadable_ = true;
  }

  void wait() {
    const auto inform = [self = shared_from_this()](asio::error_code /*error*/ = {}) {
      if (self->isStopped_) return;
      self->readable_();
      if (!self->isStopped_) self->wait();
    };
    if (isAlwaysReadable_) {
      asio::post(context_, inform);
    } else {
      epoll_.async_wait(asio::posix::stream_descriptor::wait_read, inform);
    }
  }
  void stop() {
    isStopped_ = true;
    epoll_.close();
  }

 private:
  asio::io_context& context_;
  asio::posix::stream_descriptor epoll_;
  std::function<void()> readable_;
  bool isAlwaysReadable_ = false;
  bool isStopped_ = false;
};

InputWatch::InputWatch(AsioEventLoop& loop, int input, std::function<void()> readable)
    : watching_(std::make_shared<Watching>(loop, input, std::move(readable))) {
  watching_->wait();
}

InputWatch::~InputWatch() {
  watching_->stop();
}

}  // namespace tessara
