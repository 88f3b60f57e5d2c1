#include <memory>
#include <optional>

#include <gtest/gtest.h>

#include "asio/DeferredCall.h"

namespace tessara::testing {
namespace {

TEST(DeferredCall, RunsOnceForAllRequestsUntilThen) {
  AsioEventLoop loop;
  int calls = 0;
  DeferredCall call(loop, [&] { ++calls; });
  call.request();
  call.request();
  EXPECT_EQ(calls, 0);
  loop.yield();
  EXPECT_EQ(calls, 1);
  loop.yield();
  EXPECT_EQ(calls, 1);
}

TEST(DeferredCall, MayBeRequestedAgainWhileItRuns) {
  AsioEventLoop loop;
  int calls = 0;
  std::optional<DeferredCall> call;
  call.emplace(loop, [&] {
    if (++calls < 3) call->request();
  });
  call->request();
  while (calls < 3) loop.turn();
  loop.yield();
  EXPECT_EQ(calls, 3);
}

TEST(DeferredCall, ADestroyedOneDoesNotRun) {
  AsioEventLoop loop;
  int calls = 0;
  DeferredCall(loop, [&] { ++calls; }).request();
  loop.yield();
  EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace tessara::testing
