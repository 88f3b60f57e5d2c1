#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/ModbusBus.h"
#include "simulator/SampleModule.h"

namespace tessara {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using namespace tessara::testing;

/// The bytes that one module sends for a request of known length.
Bytes answerTo(const Bytes& frame, SimulatedModule module = sampleModule()) {
  ModbusBus bus({std::move(module)});
  auto answers = bus.receive(frame);
  return answers.empty() ? Bytes() : answers.front().bytes;
}

Bytes refusal(std::uint8_t function, std::uint8_t code) {
  return modbusExceptionFrame(defaultAddress, function, code);
}

TEST(ModbusBus, ReadsOneRegister) {
  EXPECT_EQ(answerTo(readRequest(4, 1)),
            modbusFrame(defaultAddress, readInputRegistersFunction, Bytes{2, 0x12, 0x34}));
}

TEST(ModbusBus, ReadsSeveralRegistersInOrder) {
  EXPECT_EQ(answerTo(readRequest(3, 2)), modbusFrame(defaultAddress, readInputRegistersFunction,
                                                     Bytes{4, 0x10, 0x00, 0x12, 0x34}));
}

TEST(ModbusBus, ReadsAsManyRegistersAsAFrameHolds) {
  SimulatedModule module = sampleModule();
  for (std::uint16_t number = 1000; number < 1125; ++number) module.registers[number] = number;
  EXPECT_THAT(answerTo(readRequest(1000, 125), module), SizeIs(3 + 250 + 2));
}

TEST(ModbusBus, RefusesARegisterThatTheModuleDoesNotHave) {
  EXPECT_EQ(answerTo(readRequest(99, 1)), refusal(readInputRegistersFunction, 2));
  EXPECT_EQ(answerTo(readRequest(4, 2)), refusal(readInputRegistersFunction, 2))
      << "second one missing";
}

TEST(ModbusBus, RefusesToReadBeyondTheLastRegister) {
  SimulatedModule module = sampleModule();
  module.registers[0] = 1;
  module.registers[0xFFFF] = 2;
  EXPECT_EQ(answerTo(readRequest(0xFFFF, 1), module),
            modbusFrame(defaultAddress, readInputRegistersFunction, Bytes{2, 0, 2}));
  EXPECT_EQ(answerTo(readRequest(0xFFFF, 2), module), refusal(readInputRegistersFunction, 2));
}

TEST(ModbusBus, RefusesABadCount) {
  EXPECT_EQ(answerTo(readRequest(4, 0)), refusal(readInputRegistersFunction, 3));
  EXPECT_EQ(answerTo(readRequest(4, 126)), refusal(readInputRegistersFunction, 3));
}

TEST(ModbusBus, RefusesAReadRequestOfAnotherLength) {
  ModbusBus bus({sampleModule()});
  EXPECT_THAT(bus.receive(modbusFrame(defaultAddress, readInputRegistersFunction, Bytes{0, 4, 0})),
              IsEmpty());
  const auto answer = bus.silence();
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->bytes, refusal(readInputRegistersFunction, 3));
}

TEST(ModbusBus, ReportsTheIdentificationWordsHighByteFirst) {
  EXPECT_EQ(answerTo(serverIdRequest()),
            modbusFrame(defaultAddress, reportServerIdFunction,
                        Bytes{10, 0x01, 0xFF, 0x00, 0x31, 0x00, 0x02, 0x00, 0x0F, 0x80, 0x97}));
}

TEST(ModbusBus, RefusesAnyOtherFunctionAfterTheSilence) {
  for (const std::uint8_t function : Bytes{1, 2, 3, 5, 6, 16, 43, 127}) {
    ModbusBus bus({sampleModule()});
    EXPECT_THAT(bus.receive(modbusFrame(defaultAddress, function, Bytes{0, 4, 0, 1})), IsEmpty());
    EXPECT_TRUE(bus.isFrameOpen());
    const auto answer = bus.silence();
    ASSERT_TRUE(answer) << int{function};
    EXPECT_EQ(answer->bytes, refusal(function, 1));
    EXPECT_FALSE(bus.isFrameOpen());
  }
}

TEST(ModbusBus, DoesNotAnswerAWrongChecksum) {
  Bytes damaged = readRequest(4, 1);
  damaged[3] ^= 1;
  ModbusBus bus({sampleModule()});
  EXPECT_THAT(bus.receive(damaged), IsEmpty());
  EXPECT_FALSE(bus.silence());
  EXPECT_EQ(bus.counters().damaged, 1U);
  EXPECT_EQ(bus.counters().requests, 0U);
}

TEST(ModbusBus, AnswersAgainAfterADamagedFrame) {
  ModbusBus bus({sampleModule()});
  bus.receive(Bytes{0xC0, 0x04, 0x00});
  bus.silence();
  EXPECT_THAT(bus.receive(readRequest(4, 1)), SizeIs(1));
}

TEST(ModbusBus, DoesNotAnswerAForeignAddressOrABroadcast) {
  ModbusBus bus({sampleModule()});
  EXPECT_THAT(bus.receive(readRequest(4, 1, 191)), IsEmpty());
  EXPECT_THAT(bus.receive(readRequest(4, 1, 0)), IsEmpty());
  EXPECT_THAT(bus.receive(serverIdRequest(0)), IsEmpty());
  EXPECT_EQ(bus.counters().foreign, 3U);
  EXPECT_EQ(bus.counters().requests, 0U);
}

TEST(ModbusBus, LetsEachModuleAnswerForItself) {
  SimulatedModule second = sampleModule();
  second.address = 7;
  second.registers[4] = 0x2000;
  second.faults = {{faults::NoReply{}, faults::At{2}}};
  ModbusBus bus({sampleModule(), second});
  EXPECT_EQ(bus.receive(readRequest(4, 1)).front().bytes,
            modbusFrame(defaultAddress, readInputRegistersFunction, Bytes{2, 0x12, 0x34}));
  EXPECT_EQ(bus.receive(readRequest(4, 1, 7)).front().bytes,
            modbusFrame(7, readInputRegistersFunction, Bytes{2, 0x20, 0x00}));
  EXPECT_THAT(bus.receive(readRequest(4, 1, 7)).front().bytes, IsEmpty())
      << "counts only requests of its own";
}

TEST(ModbusBus, CountsOnlyRequestsForItsModules) {
  SimulatedModule module = sampleModule();
  module.faults = {{faults::NoReply{}, faults::At{2}}};
  ModbusBus bus({module});
  EXPECT_EQ(bus.receive(readRequest(4, 1)).size(), 1U);
  bus.receive(readRequest(4, 1, 5));
  EXPECT_THAT(bus.receive(readRequest(4, 1)).front().bytes, IsEmpty());
}

TEST(ModbusBus, AnswersRequestsThatArriveTogetherInOrder) {
  Bytes both = readRequest(3, 1);
  const Bytes second = readRequest(4, 1);
  both.insert(both.end(), second.begin(), second.end());
  ModbusBus bus({sampleModule()});
  const auto answers = bus.receive(both);
  ASSERT_THAT(answers, SizeIs(2));
  EXPECT_EQ(answers[0].bytes[3], 0x10);
  EXPECT_EQ(answers[1].bytes[3], 0x12);
}

TEST(ModbusBus, KeepsALogOfRequestsAndAnswers) {
  ModbusBus bus({sampleModule()});
  bus.receive(readRequest(4, 1));
  bus.receive(serverIdRequest(5));
  ASSERT_THAT(bus.log(), SizeIs(2));
  EXPECT_EQ(bus.log()[0].request.function, readInputRegistersFunction);
  EXPECT_THAT(bus.log()[0].request.data, ElementsAre(0, 4, 0, 1));
  EXPECT_EQ(bus.log()[0].answer, answerTo(readRequest(4, 1)));
  EXPECT_EQ(bus.log()[1].request.address, 5);
  EXPECT_THAT(bus.log()[1].answer, IsEmpty());
}

TEST(ModbusBus, KeepsOnlyTheLatestRequests) {
  ModbusBus bus({sampleModule()});
  for (std::size_t count = 0; count <= ModbusBus::maxLogged; ++count) {
    bus.receive(readRequest(static_cast<std::uint16_t>(count), 1));
  }
  ASSERT_THAT(bus.log(), SizeIs(ModbusBus::maxLogged));
  EXPECT_THAT(bus.log().front().request.data, ElementsAre(0, 1, 0, 1));
  EXPECT_EQ(bus.counters().requests, ModbusBus::maxLogged + 1);
}

TEST(ModbusBus, RefusesModulesThatCannotShareALine) {
  EXPECT_THROW(ModbusBus({}), std::invalid_argument);
  EXPECT_THROW(ModbusBus({sampleModule(), sampleModule()}), std::invalid_argument);
  SimulatedModule module = sampleModule();
  for (const std::uint8_t address : Bytes{0, 248, 255}) {
    module.address = address;
    EXPECT_THROW(ModbusBus({module}), std::invalid_argument) << int{address};
  }
}

TEST(ModbusBus, FindsItsModulesByAddress) {
  ModbusBus bus({sampleModule()});
  EXPECT_EQ(bus.slave(defaultAddress).address(), defaultAddress);
  EXPECT_THROW(bus.slave(1), std::out_of_range);
}

TEST(ModbusSlave, CountsFromOneAgainWithNewFaults) {
  ModbusSlave slave(sampleModule());
  const MasterRequest request = *decodeModbusRequest(readRequest(4, 1));
  slave.answer(request);
  slave.setFaults({{faults::NoReply{}, faults::At{1}}});
  EXPECT_THAT(slave.answer(request).bytes, IsEmpty());
  EXPECT_THAT(slave.answer(request).bytes, SizeIs(7));
}

TEST(ModbusSlave, KeepsItsFaultsIfNewOnesAreInvalid) {
  ModbusSlave slave(sampleModule());
  slave.setFaults({{faults::NoReply{}, faults::At{1}}});
  EXPECT_THROW(slave.setFaults({{faults::Echo{}, faults::At{0}}}), std::invalid_argument);
  EXPECT_THAT(slave.answer(*decodeModbusRequest(readRequest(4, 1))).bytes, IsEmpty());
}

TEST(ModbusSlave, TakesNewRegisterValues) {
  ModbusSlave slave(sampleModule());
  slave.setRegister(99, 0xABCD);
  EXPECT_EQ(slave.answer(*decodeModbusRequest(readRequest(99, 1))).bytes,
            modbusFrame(defaultAddress, readInputRegistersFunction, Bytes{2, 0xAB, 0xCD}));
}

}  // namespace
}  // namespace tessara
