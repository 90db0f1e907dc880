#include "language/LanguageKey.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "language/Coding.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

constexpr const char* kSource = "Nine char\r\n\r\n0123456789012345678901\r\n   \r\n x \r\n";
constexpr const char* kTarget = "/program/Languages/A.TML";

class LanguageKeyTest : public testing::Test {
 protected:
  LanguageKeyTest() {
    world.folders.folders.insert("/program/Languages");
    world.folders.files["/program/OrgLanguages/A.Txt"] = kSource;
  }
  void Generate() {
    key.GenerateLaguageKey([] { return std::string("A"); });
  }
  const std::string& Written() { return world.folders.files[kTarget]; }

  FakeWorld world;
  LanguageKey key{world.log, world.status, world.folders, world.loop};
};

// 9 characters stay; from the 10th on each is one further, from the 20th on two. The spaces around
// a text belong to it. The sum is that of the plain characters: 840, 1147 and 184.
TEST_F(LanguageKeyTest, WritesTheCodedLinesAndTheirSum) {
  Generate();
  EXPECT_EQ(Written(),
            "Nine char\r\n"
            "012345678:123456789;23\r\n"
            " x \r\n"
            "2171\r\n");
}

TEST_F(LanguageKeyTest, WritesWhatTheBuildMakesOfTheSameSource) {
  world.folders.files["/program/OrgLanguages/A.Txt"] = "\r\n  Text with a placeholder, %a\r\n\r\nB";
  Generate();
  EXPECT_EQ(Written(), CodeLanguage("\r\n  Text with a placeholder, %a\r\n\r\nB"));
}

TEST_F(LanguageKeyTest, TellsEachLineWhileTheWindowLives) {
  std::vector<std::string> told;
  world.loop.Pending = [&] { told.push_back(world.status.Form().lblStatus.Caption()); };
  Generate();
  EXPECT_EQ(told, (std::vector<std::string>{"Writing language", "Nine char",
                                            "0123456789012345678901", " x "}));
  EXPECT_FALSE(world.status.Form().Visible());
}

TEST_F(LanguageKeyTest, AsksForTheNameBehindTheStatusWindow) {
  std::string order;
  world.loop.Pending = [&] { order += "events "; };
  key.GenerateLaguageKey([&] {
    order += world.status.Form().Visible() ? "name, window shows; " : "name, no window; ";
    return std::string("A");
  });
  EXPECT_TRUE(order.starts_with("events name, window shows; events ")) << order;
}

TEST_F(LanguageKeyTest, DeletesTheOldFileAndLetsEventsRun) {
  world.folders.files[kTarget] = "old";
  std::string order;
  world.folders.Touched = [&](const std::string& how, const std::string& path) {
    if (path == kTarget) order += how + " ";
  };
  world.loop.Pending = [&] { order += "events "; };
  Generate();
  EXPECT_EQ(order, "events delete events events events events replace ");
}

TEST_F(LanguageKeyTest, TakesTheSourceWhateverItsCase) {
  auto source = world.folders.files.extract("/program/OrgLanguages/A.Txt");
  source.key() = "/program/OrgLanguages/A.TXT";
  world.folders.files.insert(std::move(source));
  Generate();
  EXPECT_TRUE(world.screen.boxes.empty());
  EXPECT_TRUE(Written().starts_with("Nine char\r\n"));
}

// Two files of one language would list it twice.
TEST_F(LanguageKeyTest, LeavesNoOldFileInAnotherCase) {
  world.folders.files["/program/Languages/a.tml"] = "old";
  Generate();
  EXPECT_FALSE(world.folders.files.contains("/program/Languages/a.tml"));
  EXPECT_TRUE(Written().starts_with("Nine char\r\n"));
}

TEST_F(LanguageKeyTest, TargetThatCannotBeWrittenIsReported) {
  world.folders.folders.erase("/program/Languages");
  EXPECT_THROW(Generate(), ProgramEnd);
  EXPECT_EQ(world.screen.boxes.at(0).text,
            "Error (76) : Path not found\r\n\r\nModule: modFunctions\r\nProcedure: "
            "GenerateLaguageKey\r\n\r\n");
}

}  // namespace
}  // namespace brenwick
