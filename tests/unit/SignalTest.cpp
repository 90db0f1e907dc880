#include "controls/Signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace brenwick {
namespace {

class SignalTest : public testing::Test {
 protected:
  // Observes and notes its name at each call.
  Subscription Note(const std::string& name) {
    return signal.Observe([this, name] { calls.push_back(name); });
  }

  Signal<> signal;
  std::vector<std::string> calls;
  using Calls = std::vector<std::string>;
};

TEST_F(SignalTest, CallsEveryObserverInTheOrderOfTheirBeginning) {
  const Subscription a = Note("a");
  const Subscription b = Note("b");
  signal();
  signal();
  EXPECT_EQ(calls, (Calls{"a", "b", "a", "b"}));
}

TEST_F(SignalTest, HandsTheArgumentsOn) {
  Signal<int, const std::string&> two;
  std::string got;
  const Subscription subscription = two.Observe(
      [&](int number, const std::string& text) { got += std::to_string(number) + text; });
  two(7, "x");
  EXPECT_EQ(got, "7x");
}

TEST_F(SignalTest, CallsNoObserverWhoseSubscriptionHasEnded) {
  {
    const Subscription a = Note("a");
    signal();
  }
  signal();
  EXPECT_EQ(calls, (Calls{"a"}));
}

TEST_F(SignalTest, ObservationMovesWithItsSubscription) {
  std::optional<Subscription> first = Note("a");
  const Subscription second = std::move(*first);
  first.reset();
  signal();
  EXPECT_EQ(calls, (Calls{"a"}));
}

TEST_F(SignalTest, AssigningEndsTheFormerObservation) {
  Subscription subscription = Note("a");
  subscription = Note("b");
  signal();
  EXPECT_EQ(calls, (Calls{"b"}));
  subscription = Subscription();
  signal();
  EXPECT_EQ(calls, (Calls{"b"}));
}

TEST_F(SignalTest, ObserverMayEndItself) {
  std::optional<Subscription> once;
  std::string captured = "long enough to live outside of the object that holds it";
  once = signal.Observe([&, captured] {
    once.reset();
    calls.push_back(captured);  // what the observer holds is still there
  });
  const Subscription after = Note("after");
  signal();
  signal();
  EXPECT_EQ(calls, (Calls{captured, "after", "after"}));
}

TEST_F(SignalTest, ObserverMayEndOneThatIsStillToBeCalled) {
  std::optional<Subscription> later;
  const Subscription first = signal.Observe([&] { later.reset(); });
  later = Note("later");
  const Subscription last = Note("last");
  signal();
  EXPECT_EQ(calls, (Calls{"last"}));
}

TEST_F(SignalTest, ObserverMayEndOneThatWasCalledBefore) {
  std::optional<Subscription> earlier = Note("earlier");
  const Subscription second = signal.Observe([&] { earlier.reset(); });
  const Subscription last = Note("last");
  signal();
  signal();
  EXPECT_EQ(calls, (Calls{"earlier", "last", "last"}));
}

TEST_F(SignalTest, ObserverMayEndAll) {
  std::vector<Subscription> all;
  all.push_back(signal.Observe([&] {
    calls.emplace_back("first");
    all.clear();
  }));
  all.push_back(Note("second"));
  signal();
  signal();
  EXPECT_EQ(calls, (Calls{"first"}));
}

TEST_F(SignalTest, NewObserverIsNotCalledForTheChangeUnderWay) {
  std::vector<Subscription> added;
  const Subscription first = signal.Observe([&] { added.push_back(Note("new")); });
  signal();
  EXPECT_EQ(calls, Calls{});
  signal();
  EXPECT_EQ(calls, (Calls{"new"}));
}

TEST_F(SignalTest, ObserverMayReplaceItself) {
  std::optional<Subscription> subscription;
  subscription = signal.Observe([&] {
    subscription.reset();
    subscription = Note("second");
  });
  signal();
  EXPECT_EQ(calls, Calls{});
  signal();
  EXPECT_EQ(calls, (Calls{"second"}));
}

TEST_F(SignalTest, MayBeGivenInsideItself) {
  int depth = 0;
  const Subscription first = signal.Observe([&] {
    if (++depth < 3) signal();
  });
  const Subscription second = Note("x");
  signal();
  EXPECT_EQ(calls, (Calls{"x", "x", "x"}));
}

TEST_F(SignalTest, MayBeGoneBeforeTheSubscription) {
  auto gone = std::make_unique<Signal<>>();
  int called = 0;
  {
    const Subscription subscription = gone->Observe([&] { ++called; });
    (*gone)();
    gone.reset();
  }
  EXPECT_EQ(called, 1);
}

TEST_F(SignalTest, MayGoWhileItIsGiven) {
  auto going = std::make_unique<Signal<>>();
  const Subscription first = going->Observe([&] {
    calls.emplace_back("first");
    going.reset();
  });
  const Subscription second = going->Observe([&] { calls.emplace_back("second"); });
  (*going)();
  EXPECT_EQ(calls, (Calls{"first", "second"}));
}

}  // namespace
}  // namespace brenwick
