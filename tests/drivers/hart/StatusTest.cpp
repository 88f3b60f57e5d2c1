#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/hart/HartStatus.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

HartOutcome outcomeOf(int code) {
  return HartStatus({static_cast<std::uint8_t>(code), 0}).outcome();
}

std::string textOf(int code) {
  return HartStatus({static_cast<std::uint8_t>(code), 0}).text();
}

TEST(HartStatus, HasASuccess) {
  EXPECT_EQ(outcomeOf(0), HartOutcome::Success);
}

TEST(HartStatus, NamesEachCodeWithItsOwnMeaning) {
  const std::map<int, const char*> meanings{
      {0, "success"},
      {2, "invalid selection"},
      {3, "parameter too large"},
      {4, "parameter too small"},
      {5, "too few data bytes"},
      {6, "device specific command error"},
      {7, "write protected"},
      {16, "access restricted"},
      {17, "bad device variable index"},
      {18, "bad units"},
      {19, "index not allowed"},
      {20, "bad extended command number"},
      {30, "answer truncated"},
      {32, "busy"},
      {33, "delayed answer started"},
      {34, "delayed answer running"},
      {35, "delayed answer dead"},
      {36, "delayed answer conflict"},
      {64, "command not implemented"},
  };
  for (const auto& [code, meaning] : meanings) {
    EXPECT_EQ(textOf(code), "response code " + std::to_string(code) + ": " + meaning);
  }
}

TEST(HartStatus, NamesTheCodesWhoseMeaningDependsOnTheCommand) {
  for (const int code : {8, 14, 24, 27, 31, 96, 111, 112, 127}) {
    EXPECT_THAT(textOf(code), HasSubstr(": warning of this command"));
  }
  for (const int code : {9, 13, 15, 28, 29, 65, 95}) {
    EXPECT_THAT(textOf(code), HasSubstr(": error of this command"));
  }
  for (const int code : {1, 21, 23, 37, 63}) EXPECT_THAT(textOf(code), HasSubstr(": unknown code"));
}

TEST(HartStatus, DistinguishesWarningsFromErrors) {
  const auto isWarning = [](int code) {
    return code == 8 || code == 14 || (code >= 24 && code <= 27) || code == 30 || code == 31 ||
           code >= 96;
  };
  for (int code = 1; code < 128; ++code) {
    if (code >= 32 && code <= 36 && code != 35) continue;
    EXPECT_EQ(outcomeOf(code), isWarning(code) ? HartOutcome::Warning : HartOutcome::Error) << code;
  }
}

TEST(HartStatus, RecognisesABusyModule) {
  EXPECT_EQ(outcomeOf(32), HartOutcome::Busy);
}

TEST(HartStatus, RecognisesTheCodesOfADelayedAnswer) {
  for (const int code : {33, 34, 36}) EXPECT_EQ(outcomeOf(code), HartOutcome::Delayed) << code;
  EXPECT_EQ(outcomeOf(35), HartOutcome::Error);
}

TEST(HartStatus, RecognisesACommunicationErrorByItsTopBit) {
  for (int summary = 0x80; summary <= 0xFF; ++summary) {
    EXPECT_EQ(outcomeOf(summary), HartOutcome::CommunicationError) << summary;
  }
}

TEST(HartStatus, NamesEachBitOfACommunicationError) {
  EXPECT_EQ(textOf(0xC0), "communication error C0: parity");
  EXPECT_EQ(textOf(0xA0), "communication error A0: overrun");
  EXPECT_EQ(textOf(0x90), "communication error 90: framing");
  EXPECT_EQ(textOf(0x88), "communication error 88: check byte");
  EXPECT_EQ(textOf(0x84), "communication error 84: reserved bit");
  EXPECT_EQ(textOf(0x82), "communication error 82: receive buffer overflow");
  EXPECT_EQ(textOf(0x81), "communication error 81: undefined");
  EXPECT_EQ(textOf(0xC8), "communication error C8: parity, check byte");
  EXPECT_EQ(textOf(0x80), "communication error 80");
}

TEST(HartStatus, NamesEachBitOfTheDeviceStatus) {
  std::vector<std::pair<int, std::string_view>> bits;
  for (const auto& bit : hartDeviceStatusBits()) bits.emplace_back(bit.value, bit.name);
  EXPECT_THAT(
      bits,
      ElementsAre(std::pair(0x80, "malfunction"), std::pair(0x40, "configuration changed"),
                  std::pair(0x20, "cold start"), std::pair(0x10, "more status available"),
                  std::pair(0x08, "loop current fixed"), std::pair(0x04, "loop current saturated"),
                  std::pair(0x02, "non-primary variable out of limits"),
                  std::pair(0x01, "primary variable out of limits")));
}

}  // namespace
}  // namespace tessara::testing
