// What is remembered of the applications that show notifications, in a real store.
#include "sources/SeenApplications.h"

#include <gtest/gtest.h>

#include "support/IniStoreFixture.h"

namespace brenwick {
namespace {

class SeenApplicationsTest : public IniStoreFixture {
 protected:
  static std::string Names(const SeenApplications& seen) {
    std::string names;
    for (const SeenApplication& each : seen.All()) {
      names += (each.On ? "+" : "-") + each.Name + " ";
    }
    return names;
  }
  static void SeeMany(SeenApplications& seen, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) seen.See("application " + std::to_string(i));
  }

  IniStore store_ = Store();
};

TEST_F(SeenApplicationsTest, AreOffUntilSwitchedOnAndStandInTheOrderOfTheirNames) {
  SeenApplications seen(store_);
  EXPECT_TRUE(seen.See("telegram"));
  EXPECT_TRUE(seen.See("Signal"));
  EXPECT_EQ(Names(seen), "-Signal -telegram ");
  EXPECT_FALSE(seen.IsOn("Signal"));
  seen.Switch("Signal", true);
  EXPECT_TRUE(seen.IsOn("Signal"));
  EXPECT_FALSE(seen.IsOn("telegram"));
  EXPECT_EQ(seen.On(), std::vector<std::string>{"Signal"});
}

TEST_F(SeenApplicationsTest, AreOneWhateverTheCase) {
  SeenApplications seen(store_);
  seen.See("Signal");
  EXPECT_FALSE(seen.See("SIGNAL"));
  seen.Switch("signal", true);
  EXPECT_TRUE(seen.IsOn("sigNAL"));
  EXPECT_EQ(Names(seen), "+Signal ");
}

TEST_F(SeenApplicationsTest, SurviveARestart) {
  {
    SeenApplications seen(store_);
    seen.See("old = \"one\" [x] # y\\z");
    seen.Switch("Größe", true);
    seen.Switch("gone off", true);
    seen.Switch("gone off", false);
    seen.See("last");
    seen.Save();
  }
  IniStore later = Store();
  const SeenApplications seen(later);
  EXPECT_EQ(Names(seen), "-gone off +Größe -last -old = \"one\" [x] # y\\z ");
}

TEST_F(SeenApplicationsTest, AreStoredWhenOneIsSwitchedAndNotWhenOneIsSeen) {
  SeenApplications seen(store_);
  seen.See("Signal");
  EXPECT_FALSE(store_.KeyExists(SeenApplications::kKey));
  seen.Switch("telegram", true);
  EXPECT_EQ(store_.ReadValue(SeenApplications::kKey, "Signal"), Text("0"));
  EXPECT_EQ(store_.ReadValue(SeenApplications::kKey, "telegram"), Text("1"));
}

TEST_F(SeenApplicationsTest, AreForgottenTheOldestFirstAndNeverThoseThatAreOn) {
  SeenApplications seen(store_);
  seen.Switch("Signal", true);
  seen.See("application 0");
  seen.See("telegram");
  SeeMany(seen, SeenApplications::kMostOff);
  EXPECT_EQ(seen.All().size(), SeenApplications::kMostOff + 1);
  EXPECT_TRUE(seen.IsOn("Signal"));
  EXPECT_EQ(Names(seen).find("telegram"), std::string::npos);
  EXPECT_NE(Names(seen).find("-application 0 "), std::string::npos);
}

TEST_F(SeenApplicationsTest, LeaveTheStoreWhenTheyAreForgotten) {
  SeenApplications seen(store_);
  seen.See("Signal");
  seen.Save();
  SeeMany(seen, SeenApplications::kMostOff);
  seen.Save();
  EXPECT_EQ(store_.ReadValue(SeenApplications::kKey, "Signal"), std::nullopt);
  EXPECT_EQ(store_.ValueNames(SeenApplications::kKey).size(), SeenApplications::kMostOff);
}

}  // namespace
}  // namespace brenwick
