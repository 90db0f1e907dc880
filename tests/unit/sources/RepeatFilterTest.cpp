#include "sources/RepeatFilter.h"

#include <gtest/gtest.h>

namespace brenwick {
namespace {

TEST(RepeatFilter, ANewOneIsWholeEvenWhenItIsTheSame) {
  RepeatFilter said;
  EXPECT_EQ(said.NewPart("Anna", "ok", false), "ok");
  EXPECT_EQ(said.NewPart("Anna", "ok", false), "ok");
}

TEST(RepeatFilter, TheSameInThePlaceOfItselfIsNothing) {
  RepeatFilter said;
  said.NewPart("Anna", "hello", false);
  EXPECT_EQ(said.NewPart("Anna", "hello", true), "");
  EXPECT_EQ(said.NewPart("Anna", "hello", true), "");
  EXPECT_EQ(said.NewPart("Bob", "hello", true), "hello");
}

TEST(RepeatFilter, AFurtherLineIsTheNewPart) {
  RepeatFilter said;
  said.NewPart("Anna", "one", false);
  EXPECT_EQ(said.NewPart("Anna", "one\ntwo", true), "two");
  EXPECT_EQ(said.NewPart("Anna", "one\ntwo\nthree", true), "three");
  EXPECT_EQ(said.NewPart("Anna", "one\ntwo\nthree and more", true), "three and more");
  EXPECT_EQ(said.NewPart("Anna", "one and more", true), "one and more");
  EXPECT_EQ(said.NewPart("Anna", "quite another", true), "quite another");
}

TEST(RepeatFilter, AFurtherLineAboveTheOthersIsTheNewPart) {
  RepeatFilter said;
  said.NewPart("Anna", "one", false);
  EXPECT_EQ(said.NewPart("Anna", "two\none", true), "two");
  EXPECT_EQ(said.NewPart("Anna", "three\ntwo\none", true), "three");
  EXPECT_EQ(said.NewPart("Anna", "more than one", true), "more than one");
}

TEST(RepeatFilter, AnyOfTheLastOnesOfAContactMayBeReplaced) {
  RepeatFilter said;
  said.NewPart("Anna", "a", false);
  said.NewPart("Anna", "b", false);
  EXPECT_EQ(said.NewPart("Anna", "a", true), "");
  EXPECT_EQ(said.NewPart("Anna", "b\nc", true), "c");
  EXPECT_EQ(said.NewPart("Anna", "a\nd", true), "d");
  EXPECT_EQ(said.NewPart("Anna", "b", false), "b");
}

TEST(RepeatFilter, TheOldestOfThemIsForgotten) {
  RepeatFilter said;
  said.NewPart("Anna", "first", false);
  said.NewPart("Anna", "second", false);
  for (std::size_t i = 2; i <= RepeatFilter::kMostTexts; ++i) {
    said.NewPart("Anna", std::to_string(i), false);
    EXPECT_EQ(said.NewPart("Anna", std::to_string(i), true), "");
  }
  EXPECT_EQ(said.NewPart("Anna", "second", true), "");
  EXPECT_EQ(said.NewPart("Anna", "first", true), "first");
}

TEST(RepeatFilter, AFurtherLineOfANewOneIsNone) {
  RepeatFilter said;
  said.NewPart("Anna", "one", false);
  EXPECT_EQ(said.NewPart("Anna", "one\ntwo", false), "one\ntwo");
}

TEST(RepeatFilter, KeepTheContactsHeardLast) {
  RepeatFilter said;
  said.NewPart("first", "a", false);
  said.NewPart("second", "a", false);
  said.NewPart("first", "b", false);
  for (std::size_t i = 2; i < RepeatFilter::kMost + 1; ++i) {
    said.NewPart(std::to_string(i), "a", false);
  }
  EXPECT_EQ(said.NewPart("first", "b", true), "");
  EXPECT_EQ(said.NewPart("second", "a", true), "a");
}

}  // namespace
}  // namespace brenwick
