#include "rehearsal/TimerWheel.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace brenwick {
namespace {

using std::chrono::milliseconds;

// The form has one timer of 60 seconds, which is on, and one of a second, which is off.
class TimerWheelTest : public testing::Test {
 protected:
  TimerWheelTest() {
    ParseMoment("2004-01-10T12:00:00", clock_.now);
    wheel_.Drive(form_);
  }

  std::vector<std::string> Wait(int time) {
    ticks_.clear();
    wheel_.Wait(milliseconds(time), [this](Timer& timer) {
      ticks_.push_back(clock_.TimeText(clock_.Now()) + " " + timer.Name());
      if (Ticked) Ticked(timer);
    });
    return ticks_;
  }

  using Ticks = std::vector<std::string>;
  frmMain form_;
  ScriptedClock clock_;
  milliseconds passed_{0};
  TimerWheel wheel_{clock_, [this](milliseconds time) { passed_ += time; }};
  Ticks ticks_;
  std::function<void(Timer&)> Ticked;
};

TEST_F(TimerWheelTest, NothingTicksBeforeTheStart) {
  EXPECT_EQ(Wait(120000), Ticks());
  EXPECT_EQ(clock_.TimeText(clock_.Now()), "12:02:00");
}

TEST_F(TimerWheelTest, ATimerThatIsOnTicksAtItsInterval) {
  wheel_.Arm();
  EXPECT_EQ(Wait(59999), Ticks());
  EXPECT_EQ(Wait(1), Ticks{"12:01:00 tmrOnceADay"});
  EXPECT_EQ(Wait(120000), (Ticks{"12:02:00 tmrOnceADay", "12:03:00 tmrOnceADay"}));
  EXPECT_EQ(passed_, milliseconds(180000));
}

TEST_F(TimerWheelTest, ATimerSwitchedOnTicksFromThenOn) {
  wheel_.Arm();
  Wait(57500);
  form_.tmrSayStateAgain.SetEnabled(true);
  EXPECT_EQ(Wait(3000), (Ticks{"12:00:58 tmrSayStateAgain", "12:00:59 tmrSayStateAgain",
                               "12:01:00 tmrOnceADay", "12:01:00 tmrSayStateAgain"}));
}

TEST_F(TimerWheelTest, ATimerSwitchedOffInATickIsStill) {
  wheel_.Arm();
  form_.tmrSayStateAgain.SetEnabled(true);
  Ticked = [](Timer& timer) { timer.SetEnabled(false); };
  EXPECT_EQ(Wait(10000), Ticks{"12:00:01 tmrSayStateAgain"});
}

TEST_F(TimerWheelTest, OffAndOnBeginsTheIntervalAnew) {
  wheel_.Arm();
  form_.tmrSayStateAgain.SetEnabled(true);
  Wait(900);
  form_.tmrSayStateAgain.SetEnabled(false);
  form_.tmrSayStateAgain.SetEnabled(true);
  EXPECT_EQ(Wait(999), Ticks());
  EXPECT_EQ(Wait(1).size(), 1U);
}

TEST_F(TimerWheelTest, TheClockArrivesWhenTheProgramEndsOnTheWay) {
  wheel_.Arm();
  Ticked = [this](Timer&) { wheel_.Stop(); };
  EXPECT_EQ(Wait(600000).size(), 1U);
  EXPECT_EQ(clock_.TimeText(clock_.Now()), "12:10:00");
}

TEST_F(TimerWheelTest, AClockThatIsSetMovesNoTimer) {
  wheel_.Arm();
  Wait(30000);
  ParseMoment("2009-01-10T12:00:00", clock_.now);
  EXPECT_EQ(Wait(30000), Ticks{"12:00:30 tmrOnceADay"});
}

}  // namespace
}  // namespace brenwick
