#include "contacts/ContactList.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

using Texts = std::vector<std::string>;

// The fields of a record, in their order.
Texts Fields(const ContactRecord& record) {
  return {record.Email,  record.Name,   record.FriendlyName,   record.Gender,
          record.Ignore, record.Status, record.HasFriendlyName};
}

class ContactListTest : public testing::Test {
 protected:
  ContactListTest() { texts.Replace(NumberedTexts()); }

  std::string Value(const std::string& email, const char* code) const {
    return list.GetContactValue(email, code);
  }
  Texts Record(std::size_t index) const { return Fields(list.Records().at(index)); }
  // Anna, Bert and Cleo, all of them online.
  void AddThree() {
    list.ListAdd("anna@x", "Anna", 10);
    list.ListAdd("bert@x", "Bert", 10);
    list.ListAdd("cleo@x", "Cleo", 10);
  }

  FakeWorld world;
  SettingsValues settings;
  TextTable texts{world.log};
  ContactList list{world.log, settings, texts};
};

TEST_F(ContactListTest, StartsEmpty) {
  EXPECT_TRUE(list.Records().empty());
  EXPECT_EQ(Value("", "E"), "");
}

TEST_F(ContactListTest, ListsANewContact) {
  list.ListAdd("anna@x", "Anna", 10);
  ASSERT_EQ(list.Records().size(), 1U);
  EXPECT_EQ(Record(0), (Texts{"anna@x", "Anna", "", "?", "", "10", ""}));
}

TEST_F(ContactListTest, KeepsTheOrderInWhichContactsCome) {
  AddThree();
  EXPECT_EQ(Record(0)[0] + Record(1)[0] + Record(2)[0], "anna@xbert@xcleo@x");
}

TEST_F(ContactListTest, TakesNewsOfAListedContact) {
  AddThree();
  list.ListMod("A", "bert@x", "Bertie");
  list.ListMod("G", "bert@x", "M");
  list.ListMod("I", "bert@x", "True");
  list.ListAdd("bert@x", "Bert is away", 12);
  EXPECT_EQ(list.Records().size(), 3U);
  EXPECT_EQ(Record(1), (Texts{"bert@x", "Bert is away", "Bertie", "M", "True", "12", "True"}));
}

TEST_F(ContactListTest, KnowsContactsByTheExactAddress) {
  list.ListAdd("anna@x", "Anna", 10);
  list.ListAdd("Anna@x", "Other", 11);
  list.ListAdd("anna@x ", "Third", 12);
  EXPECT_EQ(list.Records().size(), 3U);
  EXPECT_EQ(Value("anna@x", "N"), "Anna");
  EXPECT_EQ(Value("Anna@x", "N"), "Other");
}

TEST_F(ContactListTest, WritesStateCodesAsDecimals) {
  list.ListAdd("anna@x", "Anna", -2147483647);
  EXPECT_EQ(Record(0)[5], "-2147483647");
}

TEST_F(ContactListTest, FreeSlotTakesTheNewsOfANewContact) {
  AddThree();
  list.ListMod("X", "bert@x", "");
  list.ListAdd("dora@x", "Dora", 12);
  EXPECT_EQ(list.Records().size(), 3U);
  EXPECT_EQ(Record(1), (Texts{"", "Dora", "", "", "", "12", ""}));
  EXPECT_EQ(Value("dora@x", "N"), "");
}

TEST_F(ContactListTest, FreeSlotTakesTheNewsOfContactsBehindIt) {
  AddThree();
  list.ListMod("X", "bert@x", "");
  list.ListAdd("cleo@x", "Cleo is busy", 13);
  list.ListAdd("anna@x", "Anna is busy", 13);
  EXPECT_EQ(Record(1), (Texts{"", "Cleo is busy", "", "", "", "13", ""}));
  EXPECT_EQ(Value("cleo@x", "N"), "Cleo");
  EXPECT_EQ(Value("anna@x", "N"), "Anna is busy");
}

TEST_F(ContactListTest, HoldsAsManyAsASixteenBitCount) {
  list.Replace(std::vector<ContactRecord>(32766, {"anna@x", "Anna", "", "?", "", "10", ""}));
  list.ListAdd("last@x", "Last", 10);
  EXPECT_EQ(list.Records().size(), 32767U);
  list.ListAdd("last@x", "Still the last", 10);
  EXPECT_THROW(list.ListAdd("more@x", "More", 10), ProgramEnd);
  EXPECT_EQ(list.Records().size(), 32767U);
  EXPECT_EQ(world.screen.boxes.at(0).text,
            "Error (6) : Overflow\r\n\r\nModule: ModFunctions\r\nProcedure: ListAdd\r\n\r\n");
}

TEST_F(ContactListTest, ChangesOneFieldByItsCode) {
  AddThree();
  list.ListMod("N", "bert@x", " name ");
  EXPECT_EQ(Record(1), (Texts{"bert@x", " name ", "", "?", "", "10", ""}));
  list.ListMod("A", "bert@x", " own ");
  EXPECT_EQ(Record(1), (Texts{"bert@x", " name ", " own ", "?", "", "10", "True"}));
  list.ListMod("G", "bert@x", "odd");
  EXPECT_EQ(Record(1), (Texts{"bert@x", " name ", " own ", "odd", "", "10", "True"}));
  list.ListMod("I", "bert@x", "True");
  EXPECT_EQ(Record(1), (Texts{"bert@x", " name ", " own ", "odd", "True", "10", "True"}));
  list.ListMod("S", "bert@x", "12");
  EXPECT_EQ(Record(1), (Texts{"bert@x", " name ", " own ", "odd", "True", "12", "True"}));
  list.ListMod("A", "bert@x", "");
  EXPECT_EQ(Record(1), (Texts{"bert@x", " name ", "", "odd", "True", "12", "False"}));
  EXPECT_EQ(Record(0), (Texts{"anna@x", "Anna", "", "?", "", "10", ""}));
  EXPECT_EQ(Record(2), (Texts{"cleo@x", "Cleo", "", "?", "", "10", ""}));
}

TEST_F(ContactListTest, ChangesNothingForOtherCodesAndContacts) {
  AddThree();
  for (const char* code : {"E", "B", "", "n", "NA", "x"}) list.ListMod(code, "bert@x", "value");
  for (const char* code : {"N", "A", "G", "I", "S", "X"}) list.ListMod(code, "dora@x", "value");
  EXPECT_EQ(list.Records().size(), 3U);
  EXPECT_EQ(Record(1), (Texts{"bert@x", "Bert", "", "?", "", "10", ""}));
}

TEST_F(ContactListTest, EmptiesARecordInItsPlace) {
  AddThree();
  list.ListMod("X", "bert@x", "ignored");
  EXPECT_EQ(list.Records().size(), 3U);
  EXPECT_EQ(Record(1), Texts(7, ""));
  EXPECT_EQ(Value("bert@x", "N"), "");
  EXPECT_EQ(Value("cleo@x", "N"), "Cleo");
}

TEST_F(ContactListTest, FindsTheFirstFreeSlotByTheEmptyAddress) {
  AddThree();
  list.ListMod("X", "bert@x", "");
  list.ListMod("X", "cleo@x", "");
  list.ListMod("N", "", "nobody");
  EXPECT_EQ(Record(1)[1], "nobody");
  EXPECT_EQ(Record(2)[1], "");
  EXPECT_EQ(Value("", "N"), "nobody");
}

TEST_F(ContactListTest, TellsOfEachCallWhenItIsDone) {
  Texts told;
  list.AfterAdd = [&] { told.push_back("add " + list.Records().at(0).Name); };
  list.AfterMod = [&](int number) {
    told.push_back("mod " + std::to_string(number) + " " + list.Records().at(0).Name);
  };
  list.ListAdd("anna@x", "Anna", 10);
  list.ListAdd("anna@x", "Anna B", 10);
  list.ListMod("N", "anna@x", "Anna C");
  list.ListMod("N", "bert@x", "Bert");
  list.ListMod("?", "anna@x", "");
  EXPECT_EQ(told,
            (Texts{"add Anna", "add Anna B", "mod 1 Anna C", "mod 0 Anna C", "mod 1 Anna C"}));
}

TEST_F(ContactListTest, ActsOnTheFirstOfTwoWithOneAddress) {
  list.Replace(
      {{"anna@x", "first", "", "?", "", "10", ""}, {"anna@x", "second", "", "?", "", "10", ""}});
  EXPECT_EQ(Value("anna@x", "N"), "first");
  list.ListMod("N", "anna@x", "changed");
  EXPECT_EQ(Record(0)[1], "changed");
  EXPECT_EQ(Record(1)[1], "second");
}

TEST_F(ContactListTest, SaysTheOwnNameOnlyWhereItIsMarked) {
  settings.UseMyNames = true;
  list.Replace({{"anna@x", "Anna", "Annie", "?", "", "10", "False"},
                {"bert@x", "Bert", "", "?", "", "10", "True"},
                {"cleo@x", "Cleo", "Cleopatra", "?", "", "10", "true"}});
  EXPECT_EQ(Value("anna@x", "A"), "Anna");
  EXPECT_EQ(Value("bert@x", "A"), "Bert");
  EXPECT_EQ(Value("cleo@x", "A"), "Cleo");
}

TEST_F(ContactListTest, GivesAddressAndName) {
  AddThree();
  EXPECT_EQ(Value("bert@x", "E"), "bert@x");
  EXPECT_EQ(Value("bert@x", "N"), "Bert");
}

TEST_F(ContactListTest, SaysTheUsersOwnNameWhenHeWantsIt) {
  AddThree();
  list.ListMod("A", "bert@x", "Bertie");
  EXPECT_EQ(Value("bert@x", "A"), "Bert");
  settings.UseMyNames = true;
  EXPECT_EQ(Value("bert@x", "A"), "Bertie");
  EXPECT_EQ(Value("bert@x", "N"), "Bert");
  EXPECT_EQ(Value("anna@x", "A"), "Anna");
  list.ListMod("A", "bert@x", "");
  EXPECT_EQ(Value("bert@x", "A"), "Bert");
}

TEST_F(ContactListTest, SaysTheGender) {
  AddThree();
  list.ListMod("G", "anna@x", "F");
  list.ListMod("G", "bert@x", "M");
  EXPECT_EQ(Value("anna@x", "G"), "text 117");
  EXPECT_EQ(Value("bert@x", "G"), "text 116");
  settings.DefaultVoice = "M";
  EXPECT_EQ(Value("anna@x", "G"), "text 117");
  settings.DefaultVoice = "F";
  EXPECT_EQ(Value("bert@x", "G"), "text 116");
  list.ListMod("G", "bert@x", "");
  EXPECT_EQ(Value("bert@x", "G"), "text 116");
}

TEST_F(ContactListTest, UnsetGenderFollowsTheDefaultVoice) {
  AddThree();
  settings.DefaultVoice = "M";
  EXPECT_EQ(Value("anna@x", "G"), "text 116");
  settings.DefaultVoice = "F";
  EXPECT_EQ(Value("anna@x", "G"), "text 117");
}

TEST_F(ContactListTest, SaysWhetherAContactIsIgnored) {
  AddThree();
  for (const auto& [stored, said] : std::vector<std::pair<std::string, std::string>>{
           {"True", "text 167"}, {"False", "text 168"}, {"", "text 168"}, {"true", "text 168"}}) {
    list.ListMod("I", "anna@x", stored);
    EXPECT_EQ(Value("anna@x", "I"), said) << stored;
  }
}

TEST_F(ContactListTest, SaysTheState) {
  AddThree();
  settings.Online = " here ";
  settings.Offline = " gone ";
  settings.Away = " out ";
  settings.Busy = " at work ";
  const std::vector<std::pair<std::string, std::string>> states = {
      {"0", "text 52"}, {"1", " out "},       {"2", "text 54"},        {"3", "text 9"},
      {"4", "text 9"},  {"5", "text 9"},      {"6", "text 9"},         {"7", "text 55"},
      {"8", "text 58"}, {"9", "text 9"},      {"10", "here"},          {"11", "gone"},
      {"12", "out"},    {"13", "at work"},    {"14", "Error: text 9"}, {"-1", "Error: text 9"},
      {"", "gone"},     {"10 or so", "here"}, {"odd", "text 52"},      {"12.5", "out"}};
  for (const auto& [stored, said] : states) {
    list.ListMod("S", "anna@x", stored);
    EXPECT_EQ(Value("anna@x", "S"), said) << stored;
  }
}

TEST_F(ContactListTest, ReportsAStateThatIsTooLarge) {
  AddThree();
  list.ListMod("S", "anna@x", "32768");
  EXPECT_THROW(Value("anna@x", "S"), ProgramEnd);
  EXPECT_EQ(world.screen.boxes.at(0).text,
            "Error (6) : Overflow\r\n\r\nModule: ModFunctions\r\nProcedure: "
            "UseRepeatHotKeys\r\n\r\n");
}

TEST_F(ContactListTest, KnowsNothingOfOtherContactsAndCodes) {
  AddThree();
  for (const char* code : {"S", "I", "G"}) EXPECT_EQ(Value("dora@x", code), "Unknown");
  for (const char* code : {"E", "N", "A", "B", "X", ""}) EXPECT_EQ(Value("dora@x", code), "");
  for (const char* code : {"B", "X", "", "e", "EN"}) EXPECT_EQ(Value("anna@x", code), "");
}

}  // namespace
}  // namespace brenwick
