#include "desktop/RecentTexts.h"

#include <gtest/gtest.h>

namespace brenwick {
namespace {

TEST(RecentTexts, ANewOneIsWholeEvenWhenItIsTheSame) {
  RecentTexts said;
  EXPECT_EQ(said.NewPart("Anna", "ok", false), "ok");
  EXPECT_EQ(said.NewPart("Anna", "ok", false), "ok");
}

TEST(RecentTexts, TheSameInThePlaceOfItselfIsNothing) {
  RecentTexts said;
  said.NewPart("Anna", "hello", false);
  EXPECT_EQ(said.NewPart("Anna", "hello", true), "");
  EXPECT_EQ(said.NewPart("Anna", "hello", true), "");
  EXPECT_EQ(said.NewPart("Bob", "hello", true), "hello");
}

TEST(RecentTexts, AFurtherLineIsTheNewPart) {
  RecentTexts said;
  said.NewPart("Anna", "one", false);
  EXPECT_EQ(said.NewPart("Anna", "one\ntwo", true), "two");
  EXPECT_EQ(said.NewPart("Anna", "one\ntwo\nthree", true), "three");
  EXPECT_EQ(said.NewPart("Anna", "one\ntwo\nthree and more", true), "one\ntwo\nthree and more");
  EXPECT_EQ(said.NewPart("Anna", "quite another", true), "quite another");
}

TEST(RecentTexts, AFurtherLineOfANewOneIsNone) {
  RecentTexts said;
  said.NewPart("Anna", "one", false);
  EXPECT_EQ(said.NewPart("Anna", "one\ntwo", false), "one\ntwo");
}

TEST(RecentTexts, KeepTheContactsHeardLast) {
  RecentTexts said;
  said.NewPart("first", "a", false);
  said.NewPart("second", "a", false);
  said.NewPart("first", "b", false);
  for (std::size_t i = 2; i < RecentTexts::kMost + 1; ++i) {
    said.NewPart(std::to_string(i), "a", false);
  }
  EXPECT_EQ(said.NewPart("first", "b", true), "");
  EXPECT_EQ(said.NewPart("second", "a", true), "a");
}

}  // namespace
}  // namespace brenwick
