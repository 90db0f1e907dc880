#include "linux/AutostartStore.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "support/IniStoreFixture.h"

namespace brenwick {
namespace {

constexpr const char* kRun = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

class AutostartStoreTest : public IniStoreFixture {
 protected:
  std::string Entry() const { return folder_.Inside("autostart/brenwick.desktop"); }
  std::string EntryContent() const {
    std::ifstream file(Entry());
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
  }

  IniStore store_ = Store();
};

TEST_F(AutostartStoreTest, MakesTheDesktopsEntryWithTheValueAndRemovesItWithIt) {
  AutostartStore store(store_, Entry(), "/usr/bin/brenwick");
  EXPECT_TRUE(store.WriteValue(kRun, "Brenwick", Text("somewhere")));
  EXPECT_EQ(EntryContent(),
            "[Desktop Entry]\nType=Application\nName=Brenwick\n"
            "Comment=Reads your instant messages aloud\nExec=\"/usr/bin/brenwick\"\n"
            "Icon=org.brenwick.Brenwick\nTerminal=false\n");
  EXPECT_EQ(store.ReadValue(kRun, "Brenwick"), Text("somewhere"));
  EXPECT_TRUE(store.DeleteValue(kRun, "Brenwick"));
  EXPECT_FALSE(std::filesystem::exists(Entry()));
  EXPECT_EQ(store.ReadValue(kRun, "Brenwick"), std::nullopt);
}

TEST_F(AutostartStoreTest, DeletesNothingWhereThereIsNothing) {
  AutostartStore store(store_, Entry(), "/usr/bin/brenwick");
  EXPECT_FALSE(store.DeleteValue(kRun, "Brenwick"));
}

TEST_F(AutostartStoreTest, BelievesTheDesktopThatTheEntryIsGone) {
  AutostartStore store(store_, Entry(), "/usr/bin/brenwick");
  ASSERT_TRUE(store.WriteValue(kRun, "Brenwick", Text("somewhere")));
  std::filesystem::remove(Entry());
  EXPECT_EQ(store.ReadValue(kRun, "Brenwick"), std::nullopt);
}

TEST_F(AutostartStoreTest, BelievesTheDesktopThatTheEntryIsSwitchedOff) {
  AutostartStore store(store_, Entry(), "/usr/bin/brenwick");
  for (const char* line : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
    ASSERT_TRUE(store.WriteValue(kRun, "Brenwick", Text("somewhere")));
    ASSERT_EQ(store.ReadValue(kRun, "Brenwick"), Text("somewhere"));
    std::ofstream(Entry(), std::ios::app) << line;
    EXPECT_EQ(store.ReadValue(kRun, "Brenwick"), std::nullopt) << line;
  }
}

TEST_F(AutostartStoreTest, LeavesAnEntryThatServesAsItIs) {
  AutostartStore store(store_, Entry(), "/usr/bin/brenwick");
  ASSERT_TRUE(store.WriteValue(kRun, "Brenwick", Text("somewhere")));
  std::ofstream(Entry(), std::ios::app) << "X-My-Own=yes\n";
  const std::string changed = EntryContent();
  EXPECT_TRUE(store.WriteValue(kRun, "Brenwick", Text("somewhere")));
  EXPECT_EQ(EntryContent(), changed);
  EXPECT_TRUE(store.WriteValue(kRun, "Brenwick", Text("elsewhere")));
  EXPECT_EQ(EntryContent().find("X-My-Own"), std::string::npos);
}

TEST_F(AutostartStoreTest, QuotesTheProgramsName) {
  AutostartStore store(store_, Entry(), R"(/opt/a "b" $c\d/100%)");
  ASSERT_TRUE(store.WriteValue(kRun, "Brenwick", Text("somewhere")));
  EXPECT_NE(EntryContent().find(R"(Exec="/opt/a \\"b\\" \\$c\\\\d/100%%")"), std::string::npos)
      << EntryContent();
}

TEST_F(AutostartStoreTest, StoresNothingWhereTheEntryCannotBeMade) {
  std::ofstream(folder_.Inside("autostart")) << "in the way";
  AutostartStore store(store_, Entry(), "/usr/bin/brenwick");
  EXPECT_FALSE(store.WriteValue(kRun, "Brenwick", Text("somewhere")));
  EXPECT_EQ(store_.ReadValue(kRun, "Brenwick"), std::nullopt);
}

TEST_F(AutostartStoreTest, LeavesOtherValuesToTheStore) {
  AutostartStore store(store_, Entry(), "/usr/bin/brenwick");
  EXPECT_TRUE(store.WriteValue(kKey, "Brenwick", Text("a setting")));
  EXPECT_FALSE(std::filesystem::exists(Entry()));
  EXPECT_EQ(store.ReadValue(kKey, "Brenwick"), Text("a setting"));
}

}  // namespace
}  // namespace brenwick
