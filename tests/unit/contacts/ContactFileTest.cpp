#include "contacts/ContactFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

constexpr const char* kFile = "/documents/Brenwick/Brenwick.Lst";
constexpr const char* kKept = "/documents/Brenwick/Brenwick.Lst.damaged-2003-03-15";
constexpr const char* kAnn = "ann@x\r\nAnn\r\nAnnie\r\nF\r\nTrue\r\n10\r\nTrue\r\n";
constexpr const char* kBob = "bob@x\r\nBob\r\n\r\nM\r\nFalse\r\n12\r\nFalse\r\n";

class ContactFileTest : public testing::Test {
 protected:
  ContactFileTest() { texts.Replace(NumberedTexts()); }

  std::string& Stored() { return world.folders.files[kFile]; }
  // The number of the failure that loading raises; 0 for none.
  std::int32_t FailureOfLoad() {
    try {
      file.Load();
    } catch (const Failure& failure) {
      return failure.Number();
    }
    return 0;
  }

  FakeWorld world;
  SettingsValues settings;
  TextTable texts{world.log};
  ContactList list{world.log, settings, texts};
  ContactFile file{list, world.data, world.folders, world.clock};
};

TEST_F(ContactFileTest, ReadsSevenLinesAContact) {
  Stored() = std::string(kAnn) + kBob;
  file.Load();
  ASSERT_EQ(list.Records().size(), 2U);
  const ContactRecord& ann = list.Records()[0];
  EXPECT_EQ(ann.Email + "|" + ann.Name + "|" + ann.FriendlyName, "ann@x|Ann|Annie");
  EXPECT_EQ(ann.Gender + "|" + ann.Ignore + "|" + ann.Status + "|" + ann.HasFriendlyName,
            "F|True|10|True");
  EXPECT_EQ(list.Records()[1].Email, "bob@x");
}

TEST_F(ContactFileTest, WritesWhatItRead) {
  Stored() = std::string(kAnn) + kBob;
  file.Load();
  file.Save();
  EXPECT_EQ(Stored(), std::string(kAnn) + kBob);
}

TEST_F(ContactFileTest, EmptiesTheListWhereThereIsNoFile) {
  list.ListAdd("ann@x", "Ann", 10);
  file.Load();
  EXPECT_TRUE(list.Records().empty());
}

TEST_F(ContactFileTest, LeavesFreeSlotsOut) {
  Stored() = std::string(kAnn) + kBob;
  file.Load();
  list.ListMod("X", "ann@x", "");
  file.Save();
  EXPECT_EQ(Stored(), kBob);
  file.Load();
  EXPECT_EQ(list.Records().size(), 1U);
}

TEST_F(ContactFileTest, TakesAsManyContactsAsCanBeCounted) {
  for (int i = 0; i < 32767; ++i) Stored() += kAnn;
  const std::string whole = Stored();
  file.Load();
  EXPECT_EQ(list.Records().size(), 32767U);
  file.Save();
  EXPECT_EQ(Stored(), whole);
}

TEST_F(ContactFileTest, KeepsAFileOfMoreContactsAside) {
  for (int i = 0; i < 32768; ++i) Stored() += kAnn;
  const std::string whole = Stored();
  EXPECT_EQ(FailureOfLoad(), kOverflow);
  EXPECT_EQ(list.Records().size(), 32767U);
  file.Save();
  EXPECT_EQ(world.folders.files[kKept], whole);
}

TEST_F(ContactFileTest, NoticesAFileThatWasCutInItsLastLine) {
  Stored() = std::string(kBob) + "ann@x\r\nAnn\r\nAnnie\r\nF\r\nTrue\r\n10\r\nTr";
  const std::string cut = Stored();
  EXPECT_EQ(FailureOfLoad(), kPastEnd);
  EXPECT_EQ(world.folders.files[kKept], cut);
}

TEST_F(ContactFileTest, WritesAnOwnNameOnlyWhereItIsMarked) {
  list.Replace({{"ann@x", "Ann", "Annie", "?", "", "10", "False"},
                {"bob@x", "Bob", "Bobby", "?", "", "10", "True"}});
  file.Save();
  EXPECT_EQ(Stored(),
            "ann@x\r\nAnn\r\n\r\n?\r\n\r\n10\r\nFalse\r\n"
            "bob@x\r\nBob\r\nBobby\r\n?\r\n\r\n10\r\nTrue\r\n");
}

TEST_F(ContactFileTest, TakenBackOwnNameIsAnEmptyLine) {
  Stored() = kAnn;
  file.Load();
  list.ListMod("A", "ann@x", "");
  file.Save();
  EXPECT_EQ(Stored(), "ann@x\r\nAnn\r\n\r\nF\r\nTrue\r\n10\r\nFalse\r\n");
}

TEST_F(ContactFileTest, LineEndInAFieldDoesNotMoveTheOthers) {
  list.Replace({{"ann@x", "Ann\r\nLee", "", "?", "", "10", ""}});
  file.Save();
  EXPECT_EQ(Stored(), "ann@x\r\nAnn  Lee\r\n\r\n?\r\n\r\n10\r\n\r\n");
}

TEST_F(ContactFileTest, KeepsACutOffFileAside) {
  const std::string cut = std::string(kAnn) + "bob@x\r\nBob\r\n";
  Stored() = cut;
  EXPECT_EQ(FailureOfLoad(), kPastEnd);
  EXPECT_EQ(list.Records().size(), 1U);
  EXPECT_EQ(world.folders.files[kKept], cut);
  file.Save();
  EXPECT_EQ(Stored(), kAnn);
}

TEST_F(ContactFileTest, KeepsEachCutOffFileOfADay) {
  world.folders.files[kKept] = "earlier";
  world.folders.files[std::string(kKept) + "-2"] = "later";
  Stored() = "ann@x\r\n";
  EXPECT_EQ(FailureOfLoad(), kPastEnd);
  EXPECT_EQ(world.folders.files[kKept], "earlier");
  EXPECT_EQ(world.folders.files[std::string(kKept) + "-2"], "later");
  EXPECT_EQ(world.folders.files[std::string(kKept) + "-3"], "ann@x\r\n");
}

TEST_F(ContactFileTest, LeavesAFileAloneThatItCouldNotRead) {
  Stored() = kAnn;
  world.folders.Touched = [](const std::string& how, const std::string&) {
    if (how == "read") throw Failure(kPermissionDenied);
  };
  EXPECT_EQ(FailureOfLoad(), kPermissionDenied);
  list.ListAdd("bob@x", "Bob", 10);
  file.Save();
  EXPECT_EQ(Stored(), kAnn);
}

TEST_F(ContactFileTest, LeavesACutOffFileAloneThatItCouldNotKeepAside) {
  Stored() = "ann@x\r\n";
  world.folders.Touched = [](const std::string& how, const std::string& path) {
    if (how == "replace" && path == kKept) throw Failure(kPathFileAccess);
  };
  EXPECT_EQ(FailureOfLoad(), kPathFileAccess);
  file.Save();
  EXPECT_EQ(Stored(), "ann@x\r\n");
}

TEST_F(ContactFileTest, SavesAgainAfterALaterWholeRead) {
  Stored() = kAnn;
  world.folders.Touched = [](const std::string& how, const std::string&) {
    if (how == "read") throw Failure(kPermissionDenied);
  };
  EXPECT_EQ(FailureOfLoad(), kPermissionDenied);
  world.folders.Touched = nullptr;
  EXPECT_EQ(FailureOfLoad(), 0);
  list.ListMod("G", "ann@x", "M");
  file.Save();
  EXPECT_EQ(Stored(), "ann@x\r\nAnn\r\nAnnie\r\nM\r\nTrue\r\n10\r\nTrue\r\n");
}

// A deleted file and a new one in its place would be lost between the two.
TEST_F(ContactFileTest, IsReplacedAndNeverDeleted) {
  Stored() = kAnn;
  file.Load();
  std::vector<std::string> touched;
  world.folders.Touched = [&](const std::string& how, const std::string& path) {
    touched.push_back(how + " " + path);
  };
  file.Save();
  EXPECT_EQ(touched, std::vector<std::string>{std::string("replace ") + kFile});
}

}  // namespace
}  // namespace brenwick
