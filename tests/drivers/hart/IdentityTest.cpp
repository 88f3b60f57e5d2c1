#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/NamedPorts.h"
#include "drivers/hart/HartBytesOf.h"
#include "drivers/hart/HartIdentity.h"

namespace tessara::testing {
namespace {

TEST(HartIdentity, IsReadFromTheShortestAnswer) {
  const HartIdentity identity = hartIdentityOf(bytesOf("FE 1A 89 07 05 02 1B 08 01 21 63 3F"));
  EXPECT_EQ(identity.manufacturer, 0x1A);
  EXPECT_EQ(identity.deviceType, 0x89);
  EXPECT_EQ(identity.preambles, 7);
  EXPECT_EQ(identity.universalRevision, 5);
  EXPECT_EQ(identity.deviceRevision, 2);
  EXPECT_EQ(hartAddressText(identity.address), "address 9A 89 21 63 3F");
}

TEST(HartIdentity, IsReadFromAnyLongerAnswer) {
  const HartIdentity shortest = hartIdentityOf(bytesOf("FE E1 23 05 07 01 03 60 01 0A 0B 0C"));
  HartBytes data = bytesOf("FE E1 23 05 07 01 03 60 01 0A 0B 0C");
  for (const std::size_t length : {17U, 22U, 40U, 253U}) {
    data.resize(length);
    const HartIdentity identity = hartIdentityOf(data);
    EXPECT_EQ(identity.address, shortest.address);
    EXPECT_EQ(identity.address, exampleAddress());
    EXPECT_EQ(identity.universalRevision, 7);
  }
}

TEST(HartIdentity, RefusesWhatIsTooShort) {
  EXPECT_EQ(errorOf([] { hartIdentityOf(bytesOf("FE 1A 89 07 05 02 1B 08 01 21 63")); }),
            "answer too short, 11 of at least 12 data bytes");
  EXPECT_EQ(errorOf([] { hartIdentityOf({}); }), "answer too short, 0 of at least 12 data bytes");
}

TEST(HartIdentity, RefusesWhatDoesNotBeginWith254) {
  EXPECT_EQ(errorOf([] { hartIdentityOf(bytesOf("FD 1A 89 07 05 02 1B 08 01 21 63 3F")); }),
            "the identity begins with 253 instead of 254");
}

}  // namespace
}  // namespace tessara::testing
