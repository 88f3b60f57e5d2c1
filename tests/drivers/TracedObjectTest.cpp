#include <chrono>
#include <stdexcept>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/TracedObject.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::Return;
using ::testing::Throw;

/// The operations that all three classes share.
template <class Base>
class Mocked : public Base {
 public:
  MOCK_METHOD(bool, ConnectWithSerialDevice, (std::int16_t&, std::int32_t&), (override));
  MOCK_METHOD(DeviceWords, ReadDeviceIdentifier, (std::uint8_t&), (override));
  MOCK_METHOD(DeviceWords, ReadInputRegisters,
              (std::int16_t, std::int32_t, std::int16_t, std::int32_t), (override));
  MOCK_METHOD(std::int16_t, CMD48, (Cmd48Reply&), (override));
  MOCK_METHOD(void, CloseSerialConnection, (), (override));
  MOCK_METHOD(std::string, connectFailure, (), (const, override));
};

class MockedModbus : public Mocked<ModbusCommObject> {
 public:
  MOCK_METHOD(void, InitModbusObject, (), (override));
  MOCK_METHOD(void, ShutDown, (), (override));
};

class MockedHart : public Mocked<HartCommObject> {
 public:
  MOCK_METHOD(void, InitHartObject, (), (override));
};

class MockedNfc : public Mocked<NfcCommObject> {
 public:
  MOCK_METHOD(void, InitNFCObject, (), (override));
};

class TracedModbus : public ::testing::Test {
 protected:
  std::shared_ptr<::testing::StrictMock<MockedModbus>> inner_ =
      std::make_shared<::testing::StrictMock<MockedModbus>>();
  std::vector<DeviceCall> calls_;
  std::shared_ptr<ModbusCommObject> object_ =
      traced(inner_, [this](const DeviceCall& call) { calls_.push_back(call); });

  /// The only call so far, without its duration.
  std::string line() {
    EXPECT_EQ(calls_.size(), 1U);
    EXPECT_GE(calls_.front().milliseconds, 0);
    DeviceCall call = calls_.front();
    call.milliseconds = 0;
    return traceLine(call);
  }
};

TEST_F(TracedModbus, ConnectIsReportedWithPortAndRate) {
  EXPECT_CALL(*inner_, ConnectWithSerialDevice)
      .WillOnce([](std::int16_t& comPort, std::int32_t& rate) {
        comPort = 9;
        rate = 115200;
        return true;
      });
  std::int16_t comPort = 3;
  std::int32_t rate = 19200;
  EXPECT_TRUE(object_->ConnectWithSerialDevice(comPort, rate));
  EXPECT_EQ(comPort, 9);
  EXPECT_EQ(rate, 115200);
  EXPECT_EQ(line(), "ModbusCommObject.ConnectWithSerialDevice(3, 19200) = true  (0.000 ms)");
}

TEST_F(TracedModbus, AFailedConnectIsReportedAsFalse) {
  EXPECT_CALL(*inner_, ConnectWithSerialDevice).WillOnce(Return(false));
  std::int16_t comPort = 3;
  std::int32_t rate = 19200;
  EXPECT_FALSE(object_->ConnectWithSerialDevice(comPort, rate));
  EXPECT_EQ(line(), "ModbusCommObject.ConnectWithSerialDevice(3, 19200) = false  (0.000 ms)");
}

TEST_F(TracedModbus, IdentificationIsReportedWithTheAddress) {
  EXPECT_CALL(*inner_, ReadDeviceIdentifier).WillOnce(Return(DeviceWords{1, 2, 3, -4}));
  std::uint8_t address = 192;
  EXPECT_THAT(object_->ReadDeviceIdentifier(address), ElementsAre(1, 2, 3, -4));
  EXPECT_EQ(line(), "ModbusCommObject.ReadDeviceIdentifier(192) = [1, 2, 3, -4]  (0.000 ms)");
}

TEST_F(TracedModbus, RegistersAreReportedWithAllFourArguments) {
  EXPECT_CALL(*inner_, ReadInputRegisters(192, 5, 4, 2)).WillOnce(Return(DeviceWords{7}));
  EXPECT_THAT(object_->ReadInputRegisters(192, 5, 4, 2), ElementsAre(7));
  EXPECT_EQ(line(), "ModbusCommObject.ReadInputRegisters(192, 5, 4, 2) = [7]  (0.000 ms)");
}

TEST_F(TracedModbus, Command48IsReportedWithTheBytesOfItsReply) {
  EXPECT_CALL(*inner_, CMD48).WillOnce([](Cmd48Reply& reply) {
    reply[0] = 8;
    reply[1] = 255;
    return std::int16_t{2};
  });
  Cmd48Reply reply{};
  EXPECT_EQ(object_->CMD48(reply), 2);
  EXPECT_EQ(reply[1], 255);
  EXPECT_EQ(line(), "ModbusCommObject.CMD48() = [8, 255]  (0.000 ms)");
}

TEST_F(TracedModbus, Command48WithoutAReplyIsReportedAsAnEmptyOne) {
  EXPECT_CALL(*inner_, CMD48).WillOnce(Return(std::int16_t{-1}));
  Cmd48Reply reply{};
  EXPECT_EQ(object_->CMD48(reply), -1);
  EXPECT_EQ(line(), "ModbusCommObject.CMD48() = []  (0.000 ms)");
}

TEST_F(TracedModbus, Command48ThatCountsMoreThanTheArrayHoldsIsPassedOn) {
  EXPECT_CALL(*inner_, CMD48).WillOnce(Return(std::int16_t{300}));
  Cmd48Reply reply{};
  EXPECT_EQ(object_->CMD48(reply), 300);
  EXPECT_EQ(std::get<DeviceWords>(calls_.at(0).result).size(), 256U);
}

TEST_F(TracedModbus, CallsWithoutAResultAreReportedWithoutOne) {
  EXPECT_CALL(*inner_, InitModbusObject);
  EXPECT_CALL(*inner_, CloseSerialConnection);
  EXPECT_CALL(*inner_, ShutDown);
  object_->InitModbusObject();
  object_->CloseSerialConnection();
  object_->ShutDown();
  ASSERT_EQ(calls_.size(), 3U);
  EXPECT_EQ(calls_[0].operation, "InitModbusObject");
  EXPECT_EQ(calls_[1].operation, "CloseSerialConnection");
  EXPECT_EQ(calls_[2].operation, "ShutDown");
  for (const auto& call : calls_) {
    EXPECT_TRUE(call.arguments.empty());
    EXPECT_TRUE(std::holds_alternative<std::monostate>(call.result));
  }
  calls_.resize(1);
  EXPECT_EQ(line(), "ModbusCommObject.InitModbusObject()  (0.000 ms)");
}

TEST_F(TracedModbus, AnExceptionIsReportedAndPassesThroughUnchanged) {
  EXPECT_CALL(*inner_, ReadInputRegisters).WillOnce(Throw(std::out_of_range("checksum error")));
  EXPECT_THROW(object_->ReadInputRegisters(192, 5, 4, 2), std::out_of_range);
  EXPECT_EQ(calls_.at(0).error, "checksum error");
  EXPECT_EQ(line(),
            "ModbusCommObject.ReadInputRegisters(192, 5, 4, 2) failed: checksum error  (0.000 ms)");
}

TEST_F(TracedModbus, AnExceptionWithoutAMessageIsStillAFailure) {
  EXPECT_CALL(*inner_, CloseSerialConnection).WillOnce(Throw(std::runtime_error("")));
  EXPECT_THROW(object_->CloseSerialConnection(), std::runtime_error);
  EXPECT_EQ(calls_.at(0).error, "");
}

TEST_F(TracedModbus, NameAndConnectFailureAreForwardedAndNotReported) {
  EXPECT_CALL(*inner_, connectFailure).WillOnce(Return("COM3 is not there"));
  EXPECT_EQ(object_->connectFailure(), "COM3 is not there");
  EXPECT_EQ(object_->name(), u"ModbusCommObject");
  EXPECT_TRUE(calls_.empty());
}

TEST_F(TracedModbus, TheDurationOfACallIsMeasured) {
  EXPECT_CALL(*inner_, CloseSerialConnection).WillOnce([] { std::this_thread::sleep_for(20ms); });
  object_->CloseSerialConnection();
  EXPECT_GE(calls_.at(0).milliseconds, 20);
}

TEST(TracedObject, HartObjectIsReportedUnderItsName) {
  const auto inner = std::make_shared<::testing::StrictMock<MockedHart>>();
  std::vector<DeviceCall> calls;
  const auto object = traced(inner, [&](const DeviceCall& call) { calls.push_back(call); });
  EXPECT_CALL(*inner, InitHartObject);
  object->InitHartObject();
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].object, "HartCommObject");
  EXPECT_EQ(calls[0].operation, "InitHartObject");
}

TEST(TracedObject, NfcObjectIsReportedUnderItsName) {
  const auto inner = std::make_shared<::testing::StrictMock<MockedNfc>>();
  std::vector<DeviceCall> calls;
  const auto object = traced(inner, [&](const DeviceCall& call) { calls.push_back(call); });
  EXPECT_CALL(*inner, InitNFCObject);
  object->InitNFCObject();
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].object, "NfcCommObject");
  EXPECT_EQ(calls[0].operation, "InitNFCObject");
}

TEST(TraceLine, ShowsTheDurationWithThreeDecimals) {
  DeviceCall call{"HartCommObject", "CMD48", {}, DeviceWords{1, 2}, std::nullopt, 1234.56789};
  EXPECT_EQ(traceLine(call), "HartCommObject.CMD48() = [1, 2]  (1234.568 ms)");
}

}  // namespace
}  // namespace tessara::testing
