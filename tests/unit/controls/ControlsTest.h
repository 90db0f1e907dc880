// What the tests of the controls share.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/Failure.h"
#include "controls/Control.h"
#include "forms/Window.h"

namespace brenwick {

using Texts = std::vector<std::string>;

class ControlsTest : public testing::Test {
 protected:
  std::function<void()> Count() {
    return [this] { ++count; };
  }
  // How often the views are told during the call.
  template <typename Call>
  int Changes(Control& control, const Call& call) {
    int changes = 0;
    const Subscription subscription = control.Changed.Observe([&] { ++changes; });
    call();
    return changes;
  }
  template <typename Call>
  void ExpectUserShutOut(Control& control, const Call& user) {
    control.SetEnabled(false);
    user();
    control.SetEnabled(true);
    control.SetVisible(false);
    user();
    control.SetVisible(true);
    EXPECT_EQ(count, 0);
    user();
    EXPECT_GT(count, 0);
  }

  Window window;
  Place place{window, 3};
  int count = 0;
};

template <typename Call>
void ExpectInvalidCall(const Call& call) {
  try {
    call();
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kInvalidCall);
  }
}

}  // namespace brenwick
