#include "web/VersionNumber.h"

#include <gtest/gtest.h>

#include "base/Failure.h"
#include "base/ProgramState.h"

namespace brenwick {
namespace {

TEST(VersionNumber, HasFourPartsOfWhichTheThirdMayBeMissing) {
  EXPECT_EQ(ParseVersion("3.1.200"), (VersionNumber{3, 1, 0, 200}));
  EXPECT_EQ(ParseVersion("3.1.0.201"), (VersionNumber{3, 1, 0, 201}));
  EXPECT_EQ(ParseVersion("2.9"), (VersionNumber{2, 0, 0, 9}));
  EXPECT_EQ(ParseVersion("4"), (VersionNumber{4, 0, 0, 0}));
}

TEST(VersionNumber, EndsWhereItsDigitsEnd) {
  EXPECT_EQ(ParseVersion("3.1.0.201\r\n"), (VersionNumber{3, 1, 0, 201}));
  EXPECT_EQ(ParseVersion("3.1.0.200.9"), (VersionNumber{3, 1, 0, 201}));
  EXPECT_EQ(ParseVersion("no version"), VersionNumber{});
  EXPECT_EQ(ParseVersion(""), VersionNumber{});
}

TEST(VersionNumber, IsNewerByItsFirstPartThatDiffers) {
  const VersionNumber own = ParseVersion("3.1.200");
  EXPECT_GT(ParseVersion("3.1.0.201"), own);
  EXPECT_GT(ParseVersion("4"), own);
  EXPECT_EQ(ParseVersion("3.1.0.200"), own);
  EXPECT_LT(ParseVersion("3.0.9.999"), own);
  EXPECT_LT(ParseVersion("2.9"), own);
}

TEST(VersionNumber, OfTheProgramItselfIsRead) {
  const ProgramVersion own;
  const VersionNumber read = ParseVersion(own.Plain());
  EXPECT_EQ(read.major, own.major);
  EXPECT_EQ(read.minor, own.minor);
  EXPECT_EQ(read.last, own.revision);
}

TEST(VersionNumber, BeyondTheRangeIsAnOverflow) {
  try {
    ParseVersion("3.40000.1");
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kOverflow);
  }
}

}  // namespace
}  // namespace brenwick
