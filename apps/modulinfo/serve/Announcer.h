#pragma once

#include <string_view>

#include "serve/Channel.h"
#include "serve/JsonRpc.h"
#include "serve/ServeLoop.h"

namespace tessara {

/// Notifies the client of what happens, when it happens.
class Announcer {
 public:
  /// Both must outlive the announcer.
  Announcer(Channel& channel, ServeLoop& loop) : channel_(channel), loop_(loop) {}

  void announce(std::string_view method, const JsonText& params) const {
    loop_.noteActivity();
    channel_.send(encodeLine(notificationMessage(method, params)));
  }

 private:
  Channel& channel_;
  ServeLoop& loop_;
};

}  // namespace tessara
