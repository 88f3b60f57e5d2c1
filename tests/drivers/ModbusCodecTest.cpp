#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/ModbusLine.h"
#include "drivers/modbus/ModbusCodec.h"
#include "drivers/modbus/ModbusFault.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

ModbusFaultKind kindOf(const ModbusRequest& request, const Bytes& frame) {
  try {
    (void)request.dataOf(frame);
  } catch (const ModbusFault& fault) {
    return fault.kind();
  }
  throw std::logic_error("no fault");
}

TEST(ModbusCodec, AsksForRegistersWithStartAndCountHighByteFirst) {
  const auto request = ModbusRequest::inputRegisters(192, 0x1234, 125);
  EXPECT_THAT(request.bytes(), ElementsAre(0xC0, 0x04, 0x12, 0x34, 0x00, 0x7D));
  EXPECT_EQ(request.maxAnswerLength(), 255U);
}

TEST(ModbusCodec, AsksForTheIdentificationWithAddressAndFunctionOnly) {
  const auto request = ModbusRequest::identification(1);
  EXPECT_THAT(request.bytes(), ElementsAre(0x01, 0x11));
  EXPECT_EQ(request.maxAnswerLength(), 256U);
}

TEST(ModbusCodec, TakesTheDataOutOfAPublishedAnswer) {
  const Bytes answer{0x01, 0x11, 0x09, 0xB4, 0xFF, 0x49, 0x4F,
                     0x4D, 0x2D, 0x37, 0x2E, 0x31, 0xCF, 0xF2};
  EXPECT_TRUE(holdsWholeFrame(answer));
  EXPECT_THAT(ModbusRequest::identification(1).dataOf(answer),
              ElementsAre(0xB4, 0xFF, 0x49, 0x4F, 0x4D, 0x2D, 0x37, 0x2E, 0x31));
}

TEST(ModbusCodec, NamesTheAddressThatAnsweredInsteadOfTheOneAsked) {
  const auto request = ModbusRequest::inputRegisters(192, 4, 1);
  const Bytes frame = registersAnswer(7, {1});
  EXPECT_EQ(errorOf([&] { (void)request.dataOf(frame); }), "answer from address 7");
  EXPECT_EQ(kindOf(request, frame), ModbusFaultKind::Foreign);
}

TEST(ModbusCodec, NamesTheFunctionThatWasAnsweredInsteadOfTheOneAsked) {
  const auto request = ModbusRequest::inputRegisters(192, 4, 1);
  EXPECT_EQ(errorOf([&] {
              (void)request.dataOf(identificationAnswer(192, {1, 2, 3, 4}));
            }),
            "answer to function 17");
  EXPECT_EQ(errorOf([&] { (void)request.dataOf(framed({192, 0x83, 2})); }), "answer to function 3");
}

TEST(ModbusCodec, RefusesAnAnswerWithAnotherNumberOfRegisters) {
  const auto request = ModbusRequest::inputRegisters(192, 5, 4);
  const Bytes frame = registersAnswer(192, {1});
  EXPECT_EQ(errorOf([&] { (void)request.dataOf(frame); }), "answer with 2 data bytes instead of 8");
  EXPECT_EQ(kindOf(request, frame), ModbusFaultKind::Foreign);
}

TEST(ModbusCodec, NamesEachExceptionCode) {
  const auto request = ModbusRequest::inputRegisters(192, 5, 4);
  const std::map<std::uint8_t, std::string> names{
      {1, "exception 1: illegal function"},
      {2, "exception 2: illegal data address"},
      {3, "exception 3: illegal data value"},
      {4, "exception 4: device failure"},
      {5, "exception 5: acknowledged, needs more time"},
      {6, "exception 6: busy"},
      {7, "exception 7: negative acknowledge"},
      {8, "exception 8: memory parity error"},
      {10, "exception 10: gateway path unavailable"},
      {11, "exception 11: gateway target did not respond"},
      {99, "exception 99: unknown code"},
  };
  for (const auto& [code, name] : names) {
    const Bytes frame = framed({192, 0x84, code});
    EXPECT_EQ(errorOf([&] { (void)request.dataOf(frame); }), name);
    const bool isBusy = code == 5 || code == 6;
    EXPECT_EQ(kindOf(request, frame), isBusy ? ModbusFaultKind::Busy : ModbusFaultKind::Refusal);
  }
}

TEST(ModbusCodec, RecognisesAWholeFrameByItsChecksum) {
  EXPECT_TRUE(holdsWholeFrame(Bytes{0x01, 0x91, 0x01, 0x8C, 0x50}));
  EXPECT_TRUE(holdsWholeFrame(Bytes{0x01, 0x03, 0x04, 0x00, 0x06, 0x00, 0x05, 0xDA, 0x31}));
  EXPECT_FALSE(holdsWholeFrame(Bytes{0x01, 0x91, 0x01, 0x8C, 0x51}));
  EXPECT_FALSE(holdsWholeFrame(Bytes{0x01, 0x03, 0x04, 0x00, 0x06, 0x00, 0x05, 0xDA}));
  EXPECT_FALSE(holdsWholeFrame(Bytes{0x01}));
  EXPECT_FALSE(holdsWholeFrame(Bytes{}));
}

TEST(ModbusCodec, DecodesWordsAsSignedNumbersHighByteFirst) {
  EXPECT_THAT(wordsOf(Bytes{0x12, 0x34, 0x7F, 0xFF, 0x80, 0x00, 0xFF, 0xFF}),
              ElementsAre(0x1234, 32767, -32768, -1));
  EXPECT_TRUE(wordsOf(Bytes{}).empty());
}

TEST(ModbusCodec, IdentificationFollowsServerIdAndRunIndicator) {
  const Bytes data{0xB4, 0xFF, 0x00, 0xB0, 0x00, 0x05, 0xFF, 0xFE, 0x80, 0x00, 0x11, 0x22};
  EXPECT_THAT(identificationOf(data), ElementsAre(176, 5, -2, -32768));
}

TEST(ModbusCodec, IdentificationThatIsTooShortIsAnErrorThatSaysSo) {
  const Bytes data{0xB4, 0xFF, 0x00, 0xB0, 0x00, 0x05, 0x00, 0x0F, 0x00};
  EXPECT_EQ(errorOf([&] { (void)identificationOf(data); }),
            "answer too short, 9 of at least 10 data bytes");
}

TEST(ModbusCodec, AnyBytesMakeItFailOnlyWithItsOwnError) {
  std::mt19937 random(20240611);
  std::uniform_int_distribution<int> byte(0, 255);
  std::uniform_int_distribution<std::size_t> length(0, 40);
  const std::array requests{ModbusRequest::inputRegisters(1, 0, 3),
                            ModbusRequest::identification(1)};
  for (int round = 0; round < 20000; ++round) {
    Bytes frame(length(random));
    for (auto& value : frame) {
      value = static_cast<std::uint8_t>(byte(random) % (round % 2 == 0 ? 256 : 18));
    }
    (void)holdsWholeFrame(frame);
    for (const auto& request : requests) {
      try {
        (void)wordsOf(request.dataOf(frame));
        (void)identificationOf(request.dataOf(frame));
      } catch (const ModbusFault& fault) {
        EXPECT_STRNE(fault.what(), "");
      }
    }
  }
}

TEST(ModbusCodec, EveryRegisterAnswerYieldsItsWords) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> word(0, 0xFFFF);
  for (std::uint8_t count = 1; count <= 125; ++count) {
    std::vector<std::uint16_t> sent(count);
    DeviceWords expected;
    for (auto& value : sent) {
      value = static_cast<std::uint16_t>(word(random));
      expected.push_back(static_cast<std::int16_t>(value));
    }
    const Bytes frame = registersAnswer(9, sent);
    EXPECT_TRUE(holdsWholeFrame(frame));
    EXPECT_THAT(wordsOf(ModbusRequest::inputRegisters(9, 0, count).dataOf(frame)),
                ElementsAreArray(expected));
  }
}

}  // namespace
}  // namespace tessara::testing
