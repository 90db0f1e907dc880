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
  EXPECT_EQ(ParseVersion("3.1.0.200.5"), (VersionNumber{3, 1, 0, 200}));
  EXPECT_EQ(ParseVersion("3..201"), (VersionNumber{3, 0, 0, 201}));
  EXPECT_EQ(ParseVersion(" 3.1b.x.2"), (VersionNumber{3, 1, 0, 2}));
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
  EXPECT_GT(ParseVersion("4.0.0.0"), own);
  EXPECT_GT(ParseVersion("3.2.0.0"), own);
  EXPECT_GT(ParseVersion("3.1.1.0"), own);
  EXPECT_LT(ParseVersion("2.9.9.999"), own);
  EXPECT_LT(ParseVersion("3.1.0.199"), own);
}

TEST(VersionNumber, OfTheProgramItselfIsRead) {
  const ProgramVersion own;
  const VersionNumber read = ParseVersion(own.Plain());
  EXPECT_EQ(read.major, own.major);
  EXPECT_EQ(read.minor, own.minor);
  EXPECT_EQ(read.last, own.revision);
}

TEST(VersionNumber, BeyondTheRangeIsAnOverflow) {
  EXPECT_EQ(ParseVersion("3.1.0.32767").last, 32767);
  for (const char* text : {"32768", "3.40000.1", "3.1.99999999999999999999.1", "3.1.0.32768"}) {
    try {
      ParseVersion(text);
      ADD_FAILURE() << text;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kOverflow) << text;
    }
  }
}

}  // namespace
}  // namespace brenwick
