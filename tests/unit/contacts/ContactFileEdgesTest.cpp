// What the contact list's file may look like, and saving it again.
#include <gtest/gtest.h>

#include <string>

#include "contacts/ContactFile.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

constexpr const char* kFile = "/documents/Brenwick/Brenwick.Lst";

class ContactFileEdgesTest : public testing::Test {
 protected:
  std::string& Stored() { return world.folders.files[kFile]; }
  FakeWorld world;
  SettingsValues settings;
  TextTable texts{world.log};
  ContactList list{world.log, settings, texts};
  ContactFile file{list, world.data, world.folders, world.clock};
};

TEST_F(ContactFileEdgesTest, SavesAgainWhatItMade) {
  file.Load();
  list.ListAdd("ann@x", "Ann", 10);
  file.Save();
  list.ListAdd("bob@x", "Bob", 10);
  file.Save();
  EXPECT_NE(Stored().find("bob@x"), std::string::npos);
}

TEST_F(ContactFileEdgesTest, UnreadableFileLeavesTheListEmpty) {
  Stored() = "a@x\r\nA\r\n\r\nM\r\n\r\n10\r\n\r\n";
  file.Load();
  world.folders.Touched = [](const std::string& how, const std::string&) {
    if (how == "read") throw Failure(kPermissionDenied);
  };
  EXPECT_THROW(file.Load(), Failure);
  EXPECT_TRUE(list.Records().empty());
  world.folders.Touched = nullptr;
  file.Save();
  EXPECT_NE(Stored(), "");
}

TEST_F(ContactFileEdgesTest, LastLineWithoutItsEndIsWhole) {
  for (const char* mark : {"True", "False"}) {
    Stored() = std::string("a@x\r\nA\r\nOwn\r\nM\r\n\r\n10\r\n") + mark;
    file.Load();
    EXPECT_EQ(list.Records().size(), 1U) << mark;
  }
}

TEST_F(ContactFileEdgesTest, AddressThatBeginsLikeAByteOrderMarkStays) {
  list.Replace(
      {{"\xEF\xBB\xBF"
        "a@x",
        "A", "", "?", "", "10", ""}});
  file.Save();
  file.Load();
  EXPECT_EQ(list.Records().at(0).Email,
            "\xEF\xBB\xBF"
            "a@x");
}

TEST_F(ContactFileEdgesTest, FileThatWasCutWithinItsLastLineEndIsWhole) {
  Stored() = "a@x\r\nA\r\n\r\nM\r\n\r\n10\r\n\r";
  file.Load();
  EXPECT_EQ(list.Records().size(), 1U);
  EXPECT_EQ(world.folders.files.size(), 1U);
}

}  // namespace
}  // namespace brenwick
