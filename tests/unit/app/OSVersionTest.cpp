#include "app/OSVersion.h"

#include <gtest/gtest.h>

#include <string>

namespace brenwick {
namespace {

struct Case {
  OSVersionRecord version;
  const char* name;
};

class OSVersion : public testing::TestWithParam<Case> {};

TEST_P(OSVersion, NamesEverySystem) {
  const OSVersionRecord& version = GetParam().version;
  EXPECT_EQ(GetOSVersion(version), "Microsoft Windows " + std::string(GetParam().name) +
                                       "*\r\nBuild: " + std::to_string(version.major) + "." +
                                       std::to_string(version.minor) + "." +
                                       std::to_string(version.build));
}

INSTANTIATE_TEST_SUITE_P(
    Systems, OSVersion,
    testing::Values(Case{{1, 4, 0, 950, ""}, "95"}, Case{{1, 4, 10, 2222, ""}, "98"},
                    Case{{1, 4, 90, 3000, ""}, "ME"}, Case{{1, 4, 1, 1, ""}, "9x?"},
                    Case{{1, 4, 91, 1, ""}, "9x?"}, Case{{1, 5, 0, 1, ""}, "ME?"},
                    Case{{1, 5, 1, 1, ""}, "ME?"}, Case{{1, 3, 51, 1, ""}, "Win?"},
                    Case{{1, 6, 0, 1, ""}, "Win?"}, Case{{0, 4, 0, 950, ""}, "95"},
                    Case{{3, 4, 10, 1, ""}, "98"}, Case{{2, 3, 51, 1057, ""}, "NT3.51"},
                    Case{{2, 3, 0, 1, ""}, "NT3.51"}, Case{{2, 4, 0, 1381, ""}, "NT4"},
                    Case{{2, 4, 10, 1, ""}, "NT4"}, Case{{2, 5, 0, 2195, ""}, "2000"},
                    Case{{2, 5, 1, 2600, ""}, "XP"}, Case{{2, 5, 2, 3790, ""}, "NT5?"},
                    Case{{2, 6, 1, 7601, ""}, "NT?"}, Case{{2, 10, 0, 22631, ""}, "NT?"},
                    Case{{2, 0, 0, 0, ""}, "NT?"}));

TEST(OSVersionServicePack, StandsBehindTheName) {
  EXPECT_EQ(GetOSVersion({2, 5, 1, 2600, "Service Pack 2"}),
            "Microsoft Windows XP Service Pack 2*\r\nBuild: 5.1.2600");
}

TEST(OSVersionServicePack, EndsAtItsZero) {
  EXPECT_EQ(GetOSVersion({1, 4, 10, 2222, std::string(" A\0 rubbish", 11)}),
            "Microsoft Windows 98  A*\r\nBuild: 4.10.2222");
}

TEST(OSVersionServicePack, OfZerosIsNone) {
  EXPECT_EQ(GetOSVersion({2, 5, 0, 2195, std::string(3, '\0')}),
            "Microsoft Windows 2000*\r\nBuild: 5.0.2195");
}

}  // namespace
}  // namespace brenwick
