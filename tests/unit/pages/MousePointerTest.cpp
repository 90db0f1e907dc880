#include <gtest/gtest.h>

#include "base/Failure.h"
#include "pages/cMousePointer.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

class MousePointerTest : public testing::Test {
 protected:
  void Set(bool on, int times = 1) {
    for (int i = 0; i < times; ++i) pointer.SetHourglass(on);
  }
  void ExpectOverflow(bool on) {
    try {
      pointer.SetHourglass(on);
      ADD_FAILURE() << "no failure";
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kOverflow);
    }
  }

  FakeScreen screen;
  cMousePointer pointer{screen};
};

TEST_F(MousePointerTest, TurnsAndTurnsBack) {
  Set(true);
  EXPECT_EQ(screen.LastPointer(), Pointer::Hourglass);
  Set(false);
  EXPECT_EQ(screen.LastPointer(), Pointer::Default);
}

TEST_F(MousePointerTest, StaysUntilTheOutermostSectionEnds) {
  Set(true, 2);
  Set(false);
  EXPECT_EQ(screen.LastPointer(), Pointer::Hourglass);
  Set(false);
  EXPECT_EQ(screen.LastPointer(), Pointer::Default);
}

TEST_F(MousePointerTest, CountsBelowZero) {
  Set(false, 2);
  EXPECT_EQ(screen.LastPointer(), Pointer::Default);
  Set(true, 2);
  EXPECT_EQ(screen.LastPointer(), Pointer::Default);
  Set(true);
  EXPECT_EQ(screen.LastPointer(), Pointer::Hourglass);
}

TEST_F(MousePointerTest, ClearingEndsAllSections) {
  Set(true, 3);
  pointer.ClearHourglass();
  EXPECT_EQ(screen.LastPointer(), Pointer::Default);
  Set(true);
  EXPECT_EQ(screen.LastPointer(), Pointer::Hourglass);
}

TEST_F(MousePointerTest, ClearingForgetsWhatWasBelowZero) {
  Set(false, 3);
  pointer.ClearHourglass();
  Set(true);
  EXPECT_EQ(screen.LastPointer(), Pointer::Hourglass);
}

TEST_F(MousePointerTest, OverflowsAtTheEndOfItsRange) {
  Set(true, 32767);
  ExpectOverflow(true);
  Set(false, 32767);
  EXPECT_EQ(screen.LastPointer(), Pointer::Default);
  Set(false, 32768);
  ExpectOverflow(false);
}

TEST_F(MousePointerTest, NumbersThePointersAsTheScreenDoes) {
  EXPECT_EQ(static_cast<int>(Pointer::Default), 0);
  EXPECT_EQ(static_cast<int>(Pointer::Hourglass), 11);
}

}  // namespace
}  // namespace brenwick
