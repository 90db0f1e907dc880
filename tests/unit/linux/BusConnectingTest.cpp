// Connections to a bus that hangs, whatever its queues have room for.
#include "linux/BusConnecting.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <string>

#include "support/BusQueue.h"
#include "support/PrivateBus.h"
#include "support/TestApplication.h"

namespace brenwick {
namespace {

const BusMethod kMethod{"org.brenwick.Nobody", "/nowhere", "org.brenwick.Nobody", "Take"};

class BusConnectingTest : public testing::Test {
 protected:
  TestApplication<QCoreApplication> application;
  PrivateBus bus;
};

TEST_F(BusConnectingTest, TellsASilentBusFromOneThatAnswersAndFromNone) {
  EXPECT_FALSE(IsSilent(bus.Address()));
  EXPECT_FALSE(IsSilent(""));
  EXPECT_FALSE(IsSilent("unix:path=/nowhere"));
  bus.Hang();
  EXPECT_TRUE(IsSilent(bus.Address()));
  EXPECT_THROW(ConnectInTime(bus.Address()), SilentBus);
  bus.GoOn();
  EXPECT_TRUE(ConnectInTime(bus.Address())->IsOpen());
}

TEST_F(BusConnectingTest, GivesUpWhereTheQueueOfTheBusIsFull) {
  bus.Hang();
  const BusQueue full(bus.Address());
  EXPECT_THROW(ConnectInTime(bus.Address()), SilentBus);
}

TEST_F(BusConnectingTest, GivesUpAMessageThatTheBusDoesNotTake) {
  const auto connection = ConnectInTime(bus.Address());
  const BusMessage message = CallWithTexts(kMethod, {std::string(1 << 20, 'x')});
  bus.Hang();
  EXPECT_FALSE(connection->Send(*message));
  bus.GoOn();
  EXPECT_TRUE(connection->Send(*CallWithTexts(kMethod, {"short"})));
}

}  // namespace
}  // namespace brenwick
