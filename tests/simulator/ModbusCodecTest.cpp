#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/ModbusCodec.h"

namespace tessara {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Bytes bytesOf(std::string_view text) {
  return {text.begin(), text.end()};
}

const Bytes identifyingRequest{0x01, 0x11, 0xC0, 0x2C};
const Bytes readingRequest{0xC0, 0x04, 0x00, 0x04, 0x00, 0x01, 0x60, 0xDA};

TEST(ModbusCrc, OfTheCheckTextIsTheKnownValue) {
  EXPECT_EQ(modbusCrc(bytesOf("123456789")), 0x4B37);
}

TEST(ModbusCrc, OfNothingIsTheStartValue) {
  EXPECT_EQ(modbusCrc({}), 0xFFFF);
}

TEST(ModbusFrame, HasTheChecksumLowByteFirst) {
  EXPECT_EQ(modbusFrame(0x01, reportServerIdFunction), identifyingRequest);
}

TEST(ModbusFrame, MatchesKnownAnswers) {
  Bytes longAnswer{0x09, 0xB4, 0xFF};
  for (const std::uint8_t character : bytesOf("IOM-7.1")) longAnswer.push_back(character);
  EXPECT_THAT(modbusFrame(0x01, 0x11, longAnswer),
              ElementsAre(0x01, 0x11, 0x09, 0xB4, 0xFF, 0x49, 0x4F, 0x4D, 0x2D, 0x37, 0x2E, 0x31,
                          0xCF, 0xF2));
  EXPECT_THAT(modbusFrame(0x01, 0x11, Bytes{0x03, 0x2A, 0xFF, 0x01}),
              ElementsAre(0x01, 0x11, 0x03, 0x2A, 0xFF, 0x01, 0x5C, 0x75));
  EXPECT_THAT(modbusFrame(0x01, 0x03, Bytes{0x00, 0x00, 0x00, 0x02}),
              ElementsAre(0x01, 0x03, 0x00, 0x00, 0x00, 0x02, 0xC4, 0x0B));
  EXPECT_THAT(modbusFrame(0x01, 0x03, Bytes{0x04, 0x00, 0x06, 0x00, 0x05}),
              ElementsAre(0x01, 0x03, 0x04, 0x00, 0x06, 0x00, 0x05, 0xDA, 0x31));
}

TEST(ModbusExceptionFrame, HasBit7OfTheFunctionSet) {
  EXPECT_THAT(modbusExceptionFrame(0x01, 0x11, 0x01), ElementsAre(0x01, 0x91, 0x01, 0x8C, 0x50));
  EXPECT_THAT(modbusExceptionFrame(0x01, 0x11, 0x04), ElementsAre(0x01, 0x91, 0x04, 0x4C, 0x53));
  EXPECT_THAT(modbusExceptionFrame(0x01, 0x03, 0x02), ElementsAre(0x01, 0x83, 0x02, 0xC0, 0xF1));
}

TEST(DecodeModbusRequest, SplitsAFrame) {
  const auto request = decodeModbusRequest(modbusFrame(0xC0, 0x04, Bytes{0, 5, 0, 4}));
  ASSERT_TRUE(request);
  EXPECT_EQ(request->address, 0xC0);
  EXPECT_EQ(request->function, 0x04);
  EXPECT_THAT(request->data, ElementsAre(0, 5, 0, 4));
}

TEST(DecodeModbusRequest, RefusesAWrongChecksum) {
  for (std::size_t place = 0; place < identifyingRequest.size(); ++place) {
    Bytes damaged = identifyingRequest;
    damaged[place] ^= 0x10;
    EXPECT_FALSE(decodeModbusRequest(damaged)) << "byte " << place;
  }
}

TEST(DecodeModbusRequest, RefusesAFrameThatIsTooShortOrTooLong) {
  EXPECT_FALSE(decodeModbusRequest({}));
  EXPECT_FALSE(decodeModbusRequest(withModbusCrc({0x01})));
  EXPECT_TRUE(decodeModbusRequest(withModbusCrc(Bytes(maxModbusFrame - 2, 1))));
  EXPECT_FALSE(decodeModbusRequest(withModbusCrc(Bytes(maxModbusFrame - 1, 1))));
}

TEST(ModbusFrameAssembler, CompletesAFrameWithItsLastByte) {
  ModbusFrameAssembler assembler;
  for (std::size_t place = 0; place + 1 < readingRequest.size(); ++place) {
    assembler.append(std::span(readingRequest).subspan(place, 1));
    EXPECT_FALSE(assembler.takeComplete()) << "byte " << place;
    EXPECT_FALSE(assembler.empty());
  }
  assembler.append(std::span(readingRequest).last(1));
  EXPECT_EQ(assembler.takeComplete(), modbusFrame(0xC0, 0x04, Bytes{0, 4, 0, 1}));
  EXPECT_TRUE(assembler.empty());
}

TEST(ModbusFrameAssembler, SeparatesFramesThatArriveTogether) {
  Bytes both = readingRequest;
  both.insert(both.end(), identifyingRequest.begin(), identifyingRequest.end());
  ModbusFrameAssembler assembler;
  assembler.append(both);
  EXPECT_EQ(assembler.takeComplete(), readingRequest);
  EXPECT_EQ(assembler.takeComplete(), identifyingRequest);
  EXPECT_FALSE(assembler.takeComplete());
}

TEST(ModbusFrameAssembler, LeavesAFrameOfUnknownLengthToTheSilence) {
  const Bytes frame = modbusFrame(0xC0, 0x03, Bytes{0, 4, 0, 1});
  ModbusFrameAssembler assembler;
  assembler.append(frame);
  EXPECT_FALSE(assembler.takeComplete());
  EXPECT_EQ(assembler.takeAll(), frame);
  EXPECT_TRUE(assembler.empty());
}

TEST(ModbusFrameAssembler, LeavesADamagedFrameToTheSilence) {
  Bytes damaged = readingRequest;
  damaged.back() ^= 1;
  ModbusFrameAssembler assembler;
  assembler.append(damaged);
  EXPECT_FALSE(assembler.takeComplete());
  EXPECT_EQ(assembler.takeAll(), damaged);
}

TEST(ModbusFrameAssembler, KeepsAtMostOneByteAboveTheLimit) {
  ModbusFrameAssembler assembler;
  for (int piece = 0; piece < 100; ++piece) assembler.append(Bytes(100, 0x55));
  EXPECT_EQ(assembler.takeAll().size(), maxModbusFrame + 1);
  EXPECT_THAT(assembler.takeAll(), IsEmpty());
}

}  // namespace
}  // namespace tessara
