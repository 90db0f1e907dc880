// What every SpVoice does, whatever speaks behind it. Each implementation that can run on the test
// machine is one line of Implementations() in SpVoiceContract.cpp.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/SpVoice.h"

namespace brenwick {

struct SpVoiceImplementation {
  std::string name;  // the suffix of its tests' names
  // A new voice, as at the program's start. One is destroyed before the next is made.
  std::function<std::unique_ptr<SpVoice>()> make;
};

class SpVoiceContract : public testing::TestWithParam<SpVoiceImplementation> {
 protected:
  std::unique_ptr<SpVoice> voice_ = GetParam().make();
};

}  // namespace brenwick
