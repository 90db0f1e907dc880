// Finding a contact by its address, whatever happened to the list.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "contacts/ContactList.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

const std::vector<std::string> kAddresses = {"", "a@x", "b@x", "c@x", "d@x", "e@x"};

class ContactLookupTest : public testing::Test {
 protected:
  const std::string& AnyAddress() { return kAddresses[random() % kAddresses.size()]; }

  // The list as a file may hold it: addresses may come twice, and be missing.
  std::vector<ContactRecord> AnyRecords() {
    std::vector<ContactRecord> records(random() % 8);
    for (ContactRecord& record : records) record.Email = AnyAddress();
    return records;
  }

  void ChangeSomething() {
    switch (random() % 8) {
      case 0:
        list.Replace(AnyRecords());
        break;
      case 1:
      case 2:
        list.ListMod("X", AnyAddress(), "");
        break;
      case 3:
        list.ListMod("N", AnyAddress(), "Renamed");
        break;
      default:
        list.ListAdd(AnyAddress(), "News", 10);
    }
  }

  // A look at one record after the other.
  const ContactRecord* FirstWith(const std::string& email) const {
    const std::vector<ContactRecord>& records = list.Records();
    const auto found =
        std::find_if(records.begin(), records.end(),
                     [&](const ContactRecord& record) { return record.Email == email; });
    return found == records.end() ? nullptr : &*found;
  }

  std::mt19937 random{7};
  FakeWorld world;
  SettingsValues settings;
  TextTable texts{world.log};
  ContactList list{world.log, settings, texts};
};

TEST_F(ContactLookupTest, FindsTheFirstRecordAfterAnyChanges) {
  for (int round = 0; round < 5'000; ++round) {
    ChangeSomething();
    for (const std::string& email : kAddresses) {
      ASSERT_EQ(list.FindRecord(email), FirstWith(email)) << round << " " << email;
    }
  }
}

// The first record that is free or the contact's own takes the news; else a new one is appended.
TEST_F(ContactLookupTest, NewsGoWhereALookAtEachRecordSendsThem) {
  for (int round = 0; round < 5'000; ++round) {
    ChangeSomething();
    const std::string& email = AnyAddress();
    const std::size_t count = list.Records().size();
    std::size_t expected = 0;
    while (expected < count && !list.Records()[expected].Email.empty() &&
           list.Records()[expected].Email != email) {
      ++expected;
    }
    const std::string name = "News " + std::to_string(round);
    list.ListAdd(email, name, 10);
    ASSERT_EQ(list.Records().size(), std::max(count, expected + 1)) << round;
    ASSERT_EQ(list.Records()[expected].Name, name) << round;
  }
}

TEST_F(ContactLookupTest, TellsWhichRecordWasChanged) {
  list.Replace({{"a@x", "Ann", "", "F", "", "10", ""}, {"b@x", "Bob", "", "M", "", "10", ""}});
  std::vector<std::size_t> changed;
  list.RecordChanged = [&](std::size_t index) { changed.push_back(index); };
  list.ListAdd("b@x", "Bob", 12);
  list.ListAdd("c@x", "Cy", 12);
  list.ListMod("G", "a@x", "M");
  list.ListMod("X", "b@x", "");
  list.ListMod("N", "d@x", "nobody");
  list.SetStatus(0, "9");
  EXPECT_EQ(changed, (std::vector<std::size_t>{1, 2, 0, 1, 0}));
}

TEST_F(ContactLookupTest, TellsOnceThatAllRecordsWereChanged) {
  int times = 0;
  list.AllChanged = [&] { ++times; };
  list.Replace({{"a@x", "Ann", "", "F", "", "10", ""}, {"b@x", "Bob", "", "M", "", "10", ""}});
  EXPECT_EQ(times, 1);
  list.SetAllIgnored("True");
  EXPECT_EQ(times, 2);
  list.SetAllStatus("9");
  EXPECT_EQ(times, 3);
}

}  // namespace
}  // namespace brenwick
