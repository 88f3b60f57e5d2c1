#include <array>
#include <csignal>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include "serve/Channel.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;

class ChannelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::signal(SIGPIPE, SIG_IGN);
    ASSERT_EQ(pipe(requests_.data()), 0);
    ASSERT_EQ(pipe(answers_.data()), 0);
    channel_.emplace(requests_[0], answers_[1]);
    channel_->lineArrived = [this](const std::optional<std::string>& line) {
      lines_.push_back(line);
    };
  }
  void TearDown() override {
    for (const int descriptor : {requests_[0], requests_[1], answers_[0], answers_[1]}) {
      if (descriptor >= 0) close(descriptor);
    }
  }

  void request(std::string_view bytes) const {
    ASSERT_EQ(write(requests_[1], bytes.data(), bytes.size()), std::ssize(bytes));
  }
  [[nodiscard]] std::string answered() const {
    std::array<char, 4096> bytes{};
    const ssize_t count = read(answers_[0], bytes.data(), bytes.size());
    return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
  }
  static void hangUp(int& descriptor) {
    close(descriptor);
    descriptor = -1;
  }
  std::array<int, 2> requests_{};
  std::array<int, 2> answers_{};
  std::optional<Channel> channel_;
  std::vector<std::optional<std::string>> lines_;
};

TEST_F(ChannelTest, LinesArriveInTheirOrder) {
  int arrivals = 0;
  channel_->arrived = [&arrivals] { ++arrivals; };
  request("a\nb\nc");
  channel_->receive();
  EXPECT_THAT(lines_, ElementsAre("a", "b"));
  EXPECT_FALSE(channel_->isAtEnd());
  EXPECT_EQ(arrivals, 1);
}

TEST_F(ChannelTest, AtTheEndAnUnfinishedLineArrives) {
  request("a\nb");
  channel_->receive();
  hangUp(requests_[1]);
  channel_->receive();
  EXPECT_THAT(lines_, ElementsAre("a", "b"));
  EXPECT_TRUE(channel_->isAtEnd());
}

TEST_F(ChannelTest, ALineIsSentAsItIs) {
  channel_->send("abc\n");
  EXPECT_EQ(answered(), "abc\n");
  EXPECT_FALSE(channel_->isDeaf());
}

TEST_F(ChannelTest, RequestsAreReadWhileTheClientDoesNotReadAnswers) {
  const int size = fcntl(answers_[1], F_GETPIPE_SZ);
  ASSERT_GT(size, 0);
  const std::string unread(static_cast<std::size_t>(size), 'x');
  channel_->send(unread);
  request("late\n");
  // Now that its request is gone, the client reads.
  channel_->arrived = [&] {
    for (std::string seen; seen.size() < unread.size();) seen += answered();
  };
  channel_->send("more\n");
  EXPECT_THAT(lines_, ElementsAre("late"));
  EXPECT_EQ(answered(), "more\n");
}

TEST_F(ChannelTest, AClientThatHasGoneBreaksTheChannelOnceAndIsNotAnError) {
  int breaks = 0;
  channel_->broken = [&breaks] { ++breaks; };
  hangUp(answers_[0]);
  EXPECT_TRUE(channel_->isDeaf());
  channel_->send("abc\n");
  channel_->send("def\n");
  EXPECT_EQ(breaks, 1);
  EXPECT_EQ(channel_->error(), 0);
}

TEST_F(ChannelTest, AnotherFailedWriteIsAnError) {
  const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
  ASSERT_GE(full, 0);
  Channel channel(requests_[0], full);
  channel.send("abc\n");
  EXPECT_EQ(channel.error(), ENOSPC);
  close(full);
}

}  // namespace
}  // namespace tessara::testing
