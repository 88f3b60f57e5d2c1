#include "asio/DeferredCall.h"

#include <utility>

namespace tessara {

DeferredCall::DeferredCall(AsioEventLoop& loop, std::function<void()> function)
    : loop_(loop), state_(std::make_shared<State>(State{std::move(function)})) {}

DeferredCall::~DeferredCall() {
  state_->isRequested = false;
}

void DeferredCall::request() {
  if (std::exchange(state_->isRequested, true)) return;
  loop_.post([state = state_] {
    if (std::exchange(state->isRequested, false)) state->function();
  });
}

}  // namespace tessara
