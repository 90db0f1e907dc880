#include "linux/LinuxVersion.h"

#include <gtest/gtest.h>
#include <sys/utsname.h>

namespace brenwick {
namespace {

TEST(DescribeDistribution, TakesThePrettyName) {
  EXPECT_EQ(DescribeDistribution("NAME=\"Debian GNU/Linux\"\n"
                                 "PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\n"),
            "Debian GNU/Linux 12 (bookworm)*");
}

TEST(DescribeDistribution, TakesTheNameWhereThereIsNoOther) {
  EXPECT_EQ(DescribeDistribution("ID=slim\nNAME=Slim"), "Slim*");
  EXPECT_EQ(DescribeDistribution("PRETTY_NAME=\"\"\nNAME='Slim Linux'\n"), "Slim Linux*");
}

TEST(DescribeDistribution, ReadsQuotesAndBackslashesAsAShellDoes) {
  EXPECT_EQ(DescribeDistribution("PRETTY_NAME=\"The \\\"Old\\\" One \\$5\"\n"),
            "The \"Old\" One $5*");
  EXPECT_EQ(DescribeDistribution("PRETTY_NAME='As \\it is'\r\n"), "As \\it is*");
  EXPECT_EQ(DescribeDistribution("PRETTY_NAME=\"\n"), "\"*");
}

TEST(DescribeDistribution, IsNotMisledByNamesThatBeginAlike) {
  EXPECT_EQ(DescribeDistribution("NAMES=no\n#NAME=no\nNAME=yes\n"), "yes*");
}

TEST(DescribeDistribution, RepairsWhatIsNoUtf8) {
  EXPECT_EQ(DescribeDistribution("NAME=\xff"), "\xef\xbf\xbd*");
}

TEST(DescribeDistribution, SaysLinuxWhereNothingIsKnown) {
  EXPECT_EQ(DescribeDistribution(""), "Linux*");
  EXPECT_EQ(DescribeDistribution("\n\nnonsense"), "Linux*");
}

TEST(LinuxVersion, TellsTheKernelOfThisMachine) {
  utsname kernel{};
  ASSERT_EQ(uname(&kernel), 0);
  const auto [name, build] = LinuxVersion();
  EXPECT_TRUE(name.ends_with("*") && name.size() > 1) << name;
  EXPECT_EQ(build, "Build: " + std::string(kernel.release));
}

}  // namespace
}  // namespace brenwick
