#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <ctime>
#include <stdexcept>

#include <gtest/gtest.h>

#include "qt/QtEventLoop.h"

namespace tessara::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds deadline{20000};

/// Runs events until it holds, or gives up.
bool turnUntil(const std::function<bool()>& holds) {
  const QDeadlineTimer end(deadline);
  while (!holds() && !end.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  }
  return holds();
}

TEST(QtEventLoop, AYieldHandlesWhatIsPendingAndReturns) {
  QtEventLoop loop;
  int handled = 0;
  QTimer::singleShot(0, [&] { ++handled; });
  loop.yield();
  EXPECT_EQ(handled, 1);
  loop.yield();
  EXPECT_EQ(handled, 1);
}

TEST(QtEventLoop, ASleepLastsAndHandlesNothing) {
  QtEventLoop loop;
  bool handled = false;
  QTimer::singleShot(0, [&] { handled = true; });
  const auto start = steady_clock::now();
  loop.sleep(milliseconds(30));
  EXPECT_GE(steady_clock::now() - start, milliseconds(30));
  EXPECT_FALSE(handled);
  loop.yield();
  EXPECT_TRUE(handled);
}

TEST(QtEventLoop, ATimerIsDisabledAtFirst) {
  QtEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds(1), [&] { ++ticks; });
  loop.sleep(milliseconds(10));
  loop.yield();
  EXPECT_EQ(ticks, 0);
}

TEST(QtEventLoop, AnEnabledTimerTicksAgainAndAgainAfterWholeIntervals) {
  QtEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds(20), [&] { ++ticks; });
  const auto start = steady_clock::now();
  timer->setEnabled(true);
  EXPECT_TRUE(turnUntil([&] { return ticks >= 3; }));
  EXPECT_GE(steady_clock::now() - start, milliseconds(3 * 20 - 2));
}

TEST(QtEventLoop, ADisabledTimerDropsTheTickThatIsDue) {
  QtEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds(5), [&] { ++ticks; });
  timer->setEnabled(true);
  loop.sleep(milliseconds(20));
  timer->setEnabled(false);
  loop.yield();
  loop.yield();
  EXPECT_EQ(ticks, 0);
}

TEST(QtEventLoop, EnablingAgainStartsAWholeInterval) {
  QtEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds(200), [&] { ++ticks; });
  timer->setEnabled(true);
  loop.sleep(milliseconds(150));
  const auto again = steady_clock::now();
  timer->setEnabled(false);
  timer->setEnabled(true);
  EXPECT_TRUE(turnUntil([&] { return ticks == 1; }));
  EXPECT_GE(steady_clock::now() - again, milliseconds(198));
}

TEST(QtEventLoop, ATimerTicksInAYield) {
  QtEventLoop loop;
  int ticks = 0;
  const auto timer = loop.createTimer(milliseconds(1), [&] { ++ticks; });
  timer->setEnabled(true);
  const auto end = steady_clock::now() + deadline;
  while (ticks == 0 && steady_clock::now() < end) {
    loop.sleep(milliseconds(1));
    loop.yield();
  }
  EXPECT_GE(ticks, 1);
}

TEST(QtEventLoop, ATimerMayBeDestroyedByItsOwnTick) {
  QtEventLoop loop;
  std::unique_ptr<PeriodicTimer> timer;
  timer = loop.createTimer(milliseconds(1), [&] { timer.reset(); });
  timer->setEnabled(true);
  EXPECT_TRUE(turnUntil([&] { return timer == nullptr; }));
}

TEST(QtEventLoop, AModalRunHandlesEventsUntilOneOfThemEndsIt) {
  QtEventLoop loop;
  const auto run = loop.createModalRun();
  int handled = 0;
  QTimer timer;
  timer.callOnTimeout([&] {
    if (++handled == 3) run->end();
  });
  timer.start(1);
  run->run();
  EXPECT_EQ(handled, 3);
}

TEST(QtEventLoop, AModalRunThatHasEndedAlreadyReturnsAtOnce) {
  QtEventLoop loop;
  const auto run = loop.createModalRun();
  bool handled = false;
  QTimer::singleShot(0, [&] { handled = true; });
  run->end();
  run->run();
  EXPECT_FALSE(handled);
}

TEST(QtEventLoop, AnOuterModalRunReturnsAfterTheInnerOne) {
  QtEventLoop loop;
  const auto outer = loop.createModalRun();
  const auto inner = loop.createModalRun();
  std::string order;
  QTimer::singleShot(0, [&] {
    QTimer::singleShot(0, [&] { outer->end(); });
    QTimer::singleShot(20, [&] { inner->end(); });
    inner->run();
    order += "inner ";
  });
  outer->run();
  order += "outer";
  EXPECT_EQ(order, "inner outer");
}

TEST(QtEventLoop, AModalRunWaitsWithoutWork) {
  QtEventLoop loop;
  const auto run = loop.createModalRun();
  QTimer::singleShot(500, [&] { run->end(); });
  const std::clock_t before = std::clock();
  run->run();
  // A loop that spins would have used all of the half second.
  EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 5);
}

TEST(QtEventLoop, ReportsATickThatFailedAndTicksOn) {
  QtEventLoop loop;
  std::vector<std::string> failures;
  loop.tickFailed = [&](const std::exception& error) { failures.emplace_back(error.what()); };
  const auto timer =
      loop.createTimer(milliseconds(1), [] { throw std::runtime_error("the port has gone"); });
  timer->setEnabled(true);
  EXPECT_TRUE(turnUntil([&] { return failures.size() >= 2; }));
  EXPECT_EQ(failures.front(), "the port has gone");
}

}  // namespace
}  // namespace tessara::testing
