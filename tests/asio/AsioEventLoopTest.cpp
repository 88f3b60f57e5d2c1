#include <chrono>
#include <ctime>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "asio/AsioEventLoop.h"

namespace tessara::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

TEST(AsioEventLoop, AYieldHandlesWhatIsPendingAndReturns) {
  AsioEventLoop loop;
  int handled = 0;
  loop.post([&] { ++handled; });
  loop.yield();
  EXPECT_EQ(handled, 1);
  loop.yield();
  EXPECT_EQ(handled, 1);
}

TEST(AsioEventLoop, AYieldReturnsAlthoughEventsComeWithoutEnd) {
  AsioEventLoop loop;
  int handled = 0;
  const std::function<void()> event = [&] {
    ++handled;
    loop.post(event);
  };
  event();
  loop.yield();
  EXPECT_GE(handled, 2);
}

TEST(AsioEventLoop, AYieldInTheMiddleOfAnEventHandlesTheOthers) {
  AsioEventLoop loop;
  std::string order;
  loop.post([&] {
    order += "begin ";
    loop.yield();
    order += "end";
  });
  loop.post([&] { order += "other "; });
  loop.yield();
  EXPECT_EQ(order, "begin other end");
}

TEST(AsioEventLoop, AnExceptionOfAnEventReachesTheYieldAndTheLoopGoesOn) {
  AsioEventLoop loop;
  int handled = 0;
  loop.post([] { throw std::runtime_error("the port has gone"); });
  loop.post([&] { ++handled; });
  EXPECT_THROW(loop.yield(), std::runtime_error);
  loop.yield();
  EXPECT_EQ(handled, 1);
}

TEST(AsioEventLoop, ASleepLastsAndHandlesNothing) {
  AsioEventLoop loop;
  bool isHandled = false;
  loop.post([&] { isHandled = true; });
  const auto start = steady_clock::now();
  loop.sleep(milliseconds{30});
  EXPECT_GE(steady_clock::now() - start, milliseconds{30});
  EXPECT_FALSE(isHandled);
  loop.yield();
  EXPECT_TRUE(isHandled);
}

TEST(AsioEventLoop, ATimerIsDisabledAtFirst) {
  AsioEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds{1}, [&] { ++ticks; });
  loop.sleep(milliseconds{10});
  loop.yield();
  EXPECT_EQ(ticks, 0);
}

TEST(AsioEventLoop, AnEnabledTimerTicksAgainAndAgainAfterWholeIntervals) {
  AsioEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds{20}, [&] { ++ticks; });
  const auto start = steady_clock::now();
  timer->setEnabled(true);
  while (ticks < 3) loop.turn();
  EXPECT_GE(steady_clock::now() - start, milliseconds{3 * 20});
}

TEST(AsioEventLoop, ADisabledTimerDropsTheTickThatIsDue) {
  AsioEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds{5}, [&] { ++ticks; });
  timer->setEnabled(true);
  loop.sleep(milliseconds{20});
  timer->setEnabled(false);
  loop.yield();
  loop.yield();
  EXPECT_EQ(ticks, 0);
}

TEST(AsioEventLoop, ATickThatIsDueIsDroppedIfAnotherEventDisablesTheTimer) {
  AsioEventLoop loop;
  std::vector<std::unique_ptr<PeriodicTimer>> timers;
  int ticks = 0;
  for (int count = 0; count < 2; ++count) {
    timers.push_back(loop.createTimer(milliseconds{1}, [&] {
      ++ticks;
      for (const auto& timer : timers) timer->setEnabled(false);
    }));
    timers.back()->setEnabled(true);
  }
  loop.sleep(milliseconds{10});
  loop.yield();
  loop.yield();
  EXPECT_EQ(ticks, 1);
}

TEST(AsioEventLoop, EnablingAgainStartsAWholeInterval) {
  AsioEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds{200}, [&] { ++ticks; });
  timer->setEnabled(true);
  loop.sleep(milliseconds{150});
  const auto again = steady_clock::now();
  timer->setEnabled(false);
  timer->setEnabled(true);
  while (ticks == 0) loop.turn();
  EXPECT_EQ(ticks, 1);
  EXPECT_GE(steady_clock::now() - again, milliseconds{200});
}

TEST(AsioEventLoop, ATimerTicksInAYield) {
  AsioEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds{1}, [&] { ++ticks; });
  timer->setEnabled(true);
  loop.sleep(milliseconds{10});
  loop.yield();
  EXPECT_GE(ticks, 1);
}

TEST(AsioEventLoop, ATickThatYieldsIsNotRunAgainInItsOwnMiddle) {
  AsioEventLoop loop;
  int depth = 0;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds{1}, [&] {
    EXPECT_EQ(++depth, 1);
    loop.sleep(milliseconds{5});
    loop.yield();
    --depth;
    ++ticks;
  });
  timer->setEnabled(true);
  while (ticks < 3) loop.turn();
}

TEST(AsioEventLoop, ATimerMayBeDestroyedByItsOwnTick) {
  AsioEventLoop loop;
  std::unique_ptr<PeriodicTimer> timer;
  timer = loop.createTimer(milliseconds{1}, [&] { timer.reset(); });
  timer->setEnabled(true);
  while (timer) loop.turn();
  loop.sleep(milliseconds{5});
  loop.yield();
}

TEST(AsioEventLoop, ATimerMayBeDisabledByItsOwnTick) {
  AsioEventLoop loop;
  int ticks = 0;
  std::unique_ptr<PeriodicTimer> timer;
  timer = loop.createTimer(milliseconds{1}, [&] {
    ++ticks;
    timer->setEnabled(false);
  });
  timer->setEnabled(true);
  while (ticks == 0) loop.turn();
  loop.sleep(milliseconds{5});
  loop.yield();
  EXPECT_EQ(ticks, 1);
}

TEST(AsioEventLoop, AModalRunHandlesEventsUntilOneOfThemEndsIt) {
  AsioEventLoop loop;
  const auto run = loop.createModalRun();
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds{1}, [&] {
    if (++ticks == 3) run->end();
  });
  timer->setEnabled(true);
  run->run();
  EXPECT_EQ(ticks, 3);
}

TEST(AsioEventLoop, AModalRunThatHasEndedAlreadyReturnsAtOnce) {
  AsioEventLoop loop;
  const auto run = loop.createModalRun();
  bool isHandled = false;
  loop.post([&] { isHandled = true; });
  run->end();
  run->run();
  EXPECT_FALSE(isHandled);
}

TEST(AsioEventLoop, AnOuterModalRunReturnsAfterTheInnerOne) {
  AsioEventLoop loop;
  const auto outer = loop.createModalRun();
  const auto inner = loop.createModalRun();
  const auto closing = loop.createTimer(milliseconds{20}, [&] { inner->end(); });
  std::string order;
  loop.post([&] {
    loop.post([&] { outer->end(); });
    closing->setEnabled(true);
    inner->run();
    order += "inner ";
  });
  outer->run();
  order += "outer";
  EXPECT_EQ(order, "inner outer");
}

TEST(AsioEventLoop, AModalRunWaitsWithoutWork) {
  AsioEventLoop loop;
  const auto run = loop.createModalRun();
  const auto closing = loop.createTimer(milliseconds{500}, [&] { run->end(); });
  closing->setEnabled(true);
  const std::clock_t before = std::clock();
  run->run();
  // A loop that spins would have used all of the half second.
  EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 5);
}

TEST(AsioEventLoop, ReportsATickThatFailedAndTicksOn) {
  AsioEventLoop loop;
  std::vector<std::string> failures;
  loop.tickFailed = [&](const std::exception& error) { failures.emplace_back(error.what()); };
  const auto timer =
      loop.createTimer(milliseconds{1}, [] { throw std::runtime_error("the port has gone"); });
  timer->setEnabled(true);
  while (failures.size() < 2) loop.turn();
  EXPECT_EQ(failures.front(), "the port has gone");
}

TEST(AsioEventLoop, WritesATickThatFailedToStandardErrorIfNobodyAsks) {
  AsioEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds{1}, [&] {
    ++ticks;
    throw std::runtime_error("the port has gone");
  });
  timer->setEnabled(true);
  ::testing::internal::CaptureStderr();
  while (ticks == 0) loop.turn();
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "the port has gone\n");
}

}  // namespace
}  // namespace tessara::testing
