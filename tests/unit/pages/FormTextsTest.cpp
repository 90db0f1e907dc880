#include "pages/FormTexts.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "language/Coding.h"
#include "pages/FormTextTable.h"
#include "pages/GeneralPage.h"
#include "support/Fakes.h"
#include "support/MapStore.h"

namespace brenwick {
namespace {

class FormTextsTest : public testing::Test {
 protected:
  FormTextsTest() {
    Install("English.TML", "");
    form.cmbLanguage.AddItem("English");
    form.cmbLanguage.SetListIndex(0);
  }

  // A language in which text 93 reads "text 93", with `mark` behind it.
  void Install(const std::string& file, const std::string& mark) {
    std::string source;
    for (int id = 1; id <= 174; ++id) source += "text " + std::to_string(id) + mark + "\n";
    world.folders.files["/program/Languages/" + file] = CodeLanguage(source);
  }
  void Choose(const std::string& name) {
    form.cmbLanguage.AddItem(name);
    form.cmbLanguage.SetListIndex(form.cmbLanguage.ListCount() - 1);
  }

  FakeWorld world;
  frmMain form;
  TextTable texts{world.log};
  LanguageLists lists{form};
  Languages languages{world.log,     lists,        texts,        world.status,
                      world.folders, world.screen, world.system, [] { return ""; }};
  std::string steps;
  FormTexts form_texts{world.log, form, texts, languages, world.status, [this] {
                         steps += "file ";
                         return "/my/file";
                       }};
  MapStore store;
  Registry registry{store, world.folders};
  LanguageKey key{world.log, world.status, world.folders, world.loop};
  GeneralPage page{world.log,    form,          texts,
                   world.screen, world.folders, registry,
                   form_texts,   key,           [this] { steps += "defaults "; }};
};

TEST_F(FormTextsTest, SetEveryTextThatBelongsToTheWindow) {
  const std::set<int> elsewhere = {67, 88, 100, 125, 126, 127, 134, 135, 136, 137, 138};
  std::set<int> wanted;
  const int ranges[][2] = {{6, 8},     {11, 13},   {15, 28},   {34, 37},   {41, 42},   {45, 46},
                           {65, 67},   {76, 77},   {88, 88},   {98, 101},  {103, 105}, {115, 120},
                           {122, 127}, {134, 139}, {141, 147}, {150, 155}, {157, 162}, {164, 164},
                           {166, 166}, {169, 169}, {173, 173}, {177, 189}};
  for (const auto& range : ranges) {
    for (int id = range[0]; id <= range[1]; ++id) {
      if (!elsewhere.contains(id)) wanted.insert(id);
    }
  }
  std::set<int> set;
  for (const FormText& row : FormTextTable()) set.insert(row.id);
  EXPECT_EQ(set, wanted);
}

TEST_F(FormTextsTest, UseSomeTextsSeveralTimes) {
  std::map<int, int> times;
  for (const FormText& row : FormTextTable()) ++times[row.id];
  for (const int id : {15, 116, 117, 155, 166, 169}) EXPECT_EQ(times[id], 4) << id;
  for (const int id : {122, 123, 124, 145, 147, 157}) EXPECT_EQ(times[id], 2) << id;
  // Test stands beside two voices, three sources and two engines.
  EXPECT_EQ(times[65], 7);
}

TEST_F(FormTextsTest, PutTheTextsInTheirPlaces) {
  form_texts.SetAlltext(true);
  EXPECT_EQ(form.txtIntroductionText.Text(), "text 11");
  EXPECT_EQ(form.mnuMute.Caption() + form.mnuBuddies.Caption(), "text 13text 105");
  EXPECT_EQ(form.mPopExit.Caption(), "text 103");
  EXPECT_EQ(form.mPopRestore.Caption(), "text 104");
  EXPECT_EQ(form.fraDefaultVoice.Caption(), "text 15");
  for (const Button& button : form.cmdDefaults) EXPECT_EQ(button.Caption(), "text 15");
  EXPECT_EQ(form.optBuddyNamesMale.Caption() + form.optFemale.Caption(), "text 116text 117");
  EXPECT_EQ(form.txtTalkSpeedMale.ToolTip() + form.txtTalkVolumeFemale.ToolTip(),
            "text 123text 124");
  EXPECT_EQ(form.cmdSelectAll.Caption() + form.cmdClearAll.Caption(), "text 35text 36");
  EXPECT_EQ(form.cmdEmoticons.Caption(), "text 66");
  EXPECT_EQ(form.cmdWebSite.Caption(), "text 142");
  EXPECT_EQ(form.cmdSaveSettings.Caption(), "text 144");
  EXPECT_EQ(form.cmdBuddyNamesOK.Caption() + form.cmdOK.Caption(), "text 157text 157");
  EXPECT_EQ(form.cmdBuddyNamesCancel.Caption() + form.cmdBuddyNamesDelete.Caption(),
            "text 158text 159");
  EXPECT_EQ(form.optIgnoreSortContact.Caption() + form.optIgnoreSortEmail.Caption() +
                form.optIgnoreSortName.Caption(),
            "text 155text 166text 169");
  EXPECT_EQ(form.lblAbbreviationsHint.Caption(), "text 101");
}

TEST_F(FormTextsTest, KeepTheDesignedCaptionWhereALanguageOfTheUsersLacksALaterText) {
  form_texts.SetAlltext(true);
  EXPECT_EQ(form.lblWebVersion.Caption(), "Newest version :");
  EXPECT_EQ(form.lblWinSockStatus.Caption(), "Connection :");
}

TEST_F(FormTextsTest, TakeALaterTextWhereTheLanguageHasIt) {
  std::string source;
  for (int id = 1; id <= 177; ++id) source += "text " + std::to_string(id) + "\n";
  world.folders.files["/program/Languages/English.TML"] = CodeLanguage(source);
  form_texts.SetAlltext(true);
  EXPECT_EQ(form.lblWebVersion.Caption(), "text 177");
  EXPECT_EQ(form.lblWinSockStatus.Caption(), "Connection :");
}

TEST_F(FormTextsTest, NameTheKeyOfEachSpokenMessage) {
  std::string source;
  for (int id = 1; id <= 185; ++id) source += id == 185 ? "Strg+%a\n" : "x\n";
  world.folders.files["/program/Languages/English.TML"] = CodeLanguage(source);
  form_texts.SetAlltext(true);
  std::string captions;
  for (const Label& label : form.lblSpokenMessages) captions += label.Caption() + " ";
  EXPECT_EQ(captions, "Strg+1 Strg+2 Strg+3 Strg+4 ");
}

TEST_F(FormTextsTest, ShowWhereTheAbbreviationsAre) {
  std::string source;
  for (int id = 1; id <= 174; ++id) source += id == 67 ? "read from %a now\n" : "x\n";
  world.folders.files["/program/Languages/English.TML"] = CodeLanguage(source);
  form_texts.SetAlltext(true);
  EXPECT_EQ(form.lblAbbreviationsFile.Caption(), "read from /my/file now");
  EXPECT_EQ(steps, "file ");
}

TEST_F(FormTextsTest, TellOfTheProgramOnItsPage) {
  form_texts.SetAlltext(true);
  EXPECT_TRUE(form.lblAbout.Caption().starts_with(
      "text 125\r\n\r\ntext 126\r\ntext 127\r\ntext 128\r\ntext 129\r\ntext 130\r\ntext 131\r\n"
      "text 132\r\ntext 133\r\ntext 134\r\ntext 135\r\n\t"))
      << form.lblAbout.Caption();
  for (const char* heading : {"\r\ntext 136\r\n\t", "\r\ntext 137\r\n\t", "\r\ntext 138\r\n\t"}) {
    EXPECT_NE(form.lblAbout.Caption().find(heading), std::string::npos) << heading;
  }
}

TEST_F(FormTextsTest, LeaveTheStatusWindowAloneWhenSilent) {
  bool changed = false;
  const Subscription kept =
      world.status.Form().VisibilityChanged.Observe([&changed] { changed = true; });
  form_texts.SetAlltext(true);
  EXPECT_FALSE(changed);
  EXPECT_EQ(world.status.Form().lblStatus.Caption(), "text 88");
}

TEST_F(FormTextsTest, RenameThePagesThatAreListed) {
  for (int i = 0; i < 13; ++i) form.lstMenu.AddItem("page");
  form_texts.SetAlltext(true);
  EXPECT_EQ(form.lstMenu.List(0), "text 3");
  EXPECT_EQ(form.lstMenu.List(3), "text 115");
  EXPECT_EQ(form.lstMenu.List(12), "text 6");
}

TEST_F(FormTextsTest, CreditSpanishInAnyCase) {
  for (const char* name : {"Español", "ESPAÑOL", "español"}) {
    Install(std::string(name) + ".TML", "");
    Choose(name);
    languages.ReadLanguage(true);
    world.screen.boxes.clear();
    form.cmdLanguage.UserClick();
    ASSERT_EQ(world.screen.boxes.size(), 1U) << name;
    EXPECT_EQ(world.screen.boxes[0].title, "Spanish");
    EXPECT_EQ(world.screen.boxes[0].icon, BoxIcon::Information);
    EXPECT_TRUE(world.screen.boxes[0].text.starts_with("Translation by:\r\n\r\n"));
  }
}

TEST_F(FormTextsTest, CreditNoOtherLanguage) {
  for (const char* name : {"Spanish", "Espanol", "Español 2"}) {
    Install(std::string(name) + ".TML", "");
    Choose(name);
    languages.ReadLanguage(true);
    form.cmdLanguage.UserClick();
  }
  EXPECT_TRUE(world.screen.boxes.empty());
}

TEST_F(FormTextsTest, ApplyALanguageAndThenOfferItsDefaults) {
  languages.ReadLanguage(true);
  Install("Other.TML", " other");
  Choose("Other");
  form.cmdLanguage.UserClick();
  EXPECT_EQ(form.lblOnline.Caption(), "text 118 other");
  EXPECT_EQ(steps, "file defaults ");
  EXPECT_FALSE(world.status.Form().Visible());
}

TEST_F(FormTextsTest, WriteTheSourceThatIsChosenWhileTheStatusWindowPaints) {
  world.folders.folders.insert("/program/Languages");
  world.folders.files["/program/OrgLanguages/A.Txt"] = "a";
  world.folders.files["/program/OrgLanguages/B.Txt"] = "b";
  lists.ShowSources({"A", "B"});
  form.cmbOrgLanguage.SetVisible(true);
  form.cmdOrgLanguage.SetVisible(true);
  world.loop.Pending = [&] { form.cmbOrgLanguage.SetListIndex(1); };
  form.cmdOrgLanguage.UserClick();
  EXPECT_FALSE(world.folders.files.contains("/program/Languages/A.TML"));
  EXPECT_TRUE(world.folders.files.contains("/program/Languages/B.TML"));
}

TEST_F(FormTextsTest, MissingLanguageIsReported) {
  Choose("Gone");
  EXPECT_THROW(form_texts.SetAlltext(true), ProgramEnd);
  EXPECT_EQ(world.screen.boxes.at(0).text,
            "Error (65534) : Languagefile (/program/Languages/Gone.TML) does not exist\r\n\r\n"
            "Module: modFunctions\r\nProcedure: ReadLanguage\r\n\r\n");
}

TEST_F(FormTextsTest, NoLanguageAtAllEndsTheProgram) {
  world.folders.files.clear();
  EXPECT_THROW(languages.LanguageRead(), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text,
            "No language files available in /program/Languages/.\r\n\r\nPlease reinstall");
  EXPECT_EQ(world.screen.boxes[0].icon, BoxIcon::Critical);
}

}  // namespace
}  // namespace brenwick
