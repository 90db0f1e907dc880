#include "base/Observers.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace brenwick {
namespace {

class ObserversTest : public testing::Test {
 protected:
  // Observes and notes its name at each call.
  Subscription Note(const std::string& name) {
    return observers.Observe([this, name] { calls.push_back(name); });
  }

  Observers<> observers;
  std::vector<std::string> calls;
  using Calls = std::vector<std::string>;
};

TEST_F(ObserversTest, CallsEveryObserverInTheOrderOfTheirBeginning) {
  const Subscription a = Note("a");
  const Subscription b = Note("b");
  observers();
  observers();
  EXPECT_EQ(calls, (Calls{"a", "b", "a", "b"}));
}

TEST_F(ObserversTest, HandsTheArgumentsOn) {
  Observers<int, const std::string&> two;
  std::string got;
  const Subscription subscription = two.Observe(
      [&](int number, const std::string& text) { got += std::to_string(number) + text; });
  two(7, "x");
  EXPECT_EQ(got, "7x");
}

TEST_F(ObserversTest, CallsNoObserverWhoseSubscriptionHasEnded) {
  {
    const Subscription a = Note("a");
    observers();
  }
  observers();
  EXPECT_EQ(calls, (Calls{"a"}));
}

TEST_F(ObserversTest, ObservationMovesWithItsSubscription) {
  std::optional<Subscription> first = Note("a");
  const Subscription second = std::move(*first);
  first.reset();
  observers();
  EXPECT_EQ(calls, (Calls{"a"}));
}

TEST_F(ObserversTest, AssigningEndsTheFormerObservation) {
  Subscription subscription = Note("a");
  subscription = Note("b");
  observers();
  EXPECT_EQ(calls, (Calls{"b"}));
  subscription = Subscription();
  observers();
  EXPECT_EQ(calls, (Calls{"b"}));
}

TEST_F(ObserversTest, ObserverMayEndItself) {
  std::optional<Subscription> once;
  std::string captured = "long enough to live outside of the object that holds it";
  once = observers.Observe([&, captured] {
    once.reset();
    calls.push_back(captured);  // what the observer holds is still there
  });
  const Subscription after = Note("after");
  observers();
  observers();
  EXPECT_EQ(calls, (Calls{captured, "after", "after"}));
}

TEST_F(ObserversTest, ObserverMayEndOneThatIsStillToBeCalled) {
  std::optional<Subscription> later;
  const Subscription first = observers.Observe([&] { later.reset(); });
  later = Note("later");
  const Subscription last = Note("last");
  observers();
  EXPECT_EQ(calls, (Calls{"last"}));
}

TEST_F(ObserversTest, ObserverMayEndOneThatWasCalledBefore) {
  std::optional<Subscription> earlier = Note("earlier");
  const Subscription second = observers.Observe([&] { earlier.reset(); });
  const Subscription last = Note("last");
  observers();
  observers();
  EXPECT_EQ(calls, (Calls{"earlier", "last", "last"}));
}

TEST_F(ObserversTest, ObserverMayEndAll) {
  std::vector<Subscription> all;
  all.push_back(observers.Observe([&] {
    calls.emplace_back("first");
    all.clear();
  }));
  all.push_back(Note("second"));
  observers();
  observers();
  EXPECT_EQ(calls, (Calls{"first"}));
}

TEST_F(ObserversTest, NewObserverIsNotCalledForTheChangeUnderWay) {
  std::vector<Subscription> added;
  const Subscription first = observers.Observe([&] { added.push_back(Note("new")); });
  observers();
  EXPECT_EQ(calls, Calls{});
  observers();
  EXPECT_EQ(calls, (Calls{"new"}));
}

TEST_F(ObserversTest, ObserverMayReplaceItself) {
  std::optional<Subscription> subscription;
  subscription = observers.Observe([&] {
    subscription.reset();
    subscription = Note("second");
  });
  observers();
  EXPECT_EQ(calls, Calls{});
  observers();
  EXPECT_EQ(calls, (Calls{"second"}));
}

TEST_F(ObserversTest, MayBeGivenInsideItself) {
  int depth = 0;
  const Subscription first = observers.Observe([&] {
    if (++depth < 3) observers();
  });
  const Subscription second = Note("x");
  observers();
  EXPECT_EQ(calls, (Calls{"x", "x", "x"}));
}

TEST_F(ObserversTest, MayBeGoneBeforeTheSubscription) {
  auto gone = std::make_unique<Observers<>>();
  int called = 0;
  {
    const Subscription subscription = gone->Observe([&] { ++called; });
    (*gone)();
    gone.reset();
  }
  EXPECT_EQ(called, 1);
}

TEST_F(ObserversTest, MayGoWhileItIsGiven) {
  auto going = std::make_unique<Observers<>>();
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
