// Loading, saving and the defaults, step by step.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "pages/Settings.h"
#include "pages/SettingsBinding.h"
#include "settings/SettingsKeys.h"
#include "support/Fakes.h"
#include "support/MapStore.h"

namespace brenwick {
namespace {

class SettingsStepsTest : public testing::Test {
 protected:
  SettingsStepsTest() { texts.Replace(NumberedTexts()); }
  FakeWorld world;
  frmMain form;
  SettingsValues values;
  SettingsBinding binding{form, values};
  TextTable texts{world.log};
  MapStore store;
  Registry registry{store, world.folders};
  std::string steps;
  Settings settings{
      world.log,
      world.state,
      form,
      values,
      texts,
      world.status,
      registry,
      {.SetLogCleanTimer =
           [this] {
             steps += "timer(" + form.txtLogDebugDaysToKeep.Text() + "," +
                      (form.optGenderSortEmail.Chosen() ? "E" : "-") + ") ";
           },
       .LoadContacts = [this] { steps += "load "; },
       .SaveContacts = [this] { steps += world.status.Form().Visible() ? "save " : "late "; },
       .UseRepeatHotKeys = [this] { steps += "hotkeys "; }}};
};

TEST_F(SettingsStepsTest, ReadsTheLanguageOfTheStore) {
  store.keys[kTextKey]["Online"] = {ValueKind::Text, "here", 0};
  store.keys[kGeneralKey]["Language"] = {ValueKind::Text, "Deutsch", 0};
  settings.GetAllSettings();
  EXPECT_EQ(world.state.Language, "Deutsch");
  EXPECT_EQ(form.cmbLanguage.Text(), "");
}

TEST_F(SettingsStepsTest, TimerComesBehindTheUsersKeyAndBeforeTheGrids) {
  store.keys[kTextKey]["Online"] = {ValueKind::Text, "here", 0};
  store.keys[kUserKey]["DebugDaysToKeep"] = {ValueKind::Text, "3", 0};
  store.keys[kGridsKey]["GenderSort"] = {ValueKind::Text, "E", 0};
  settings.GetAllSettings();
  EXPECT_EQ(steps, "timer(3,-) load hotkeys ");
}

TEST_F(SettingsStepsTest, TellsWhatItReads) {
  store.keys[kTextKey]["Online"] = {ValueKind::Text, "here", 0};
  settings.GetAllSettings();
  EXPECT_EQ(world.status.Form().lblStatus.Caption(), "text 84");
}

TEST_F(SettingsStepsTest, StatusWindowShowsUntilTheContactsAreSaved) {
  settings.SaveAllSettings(0);
  EXPECT_EQ(steps, "save ");
  EXPECT_FALSE(world.status.Form().Visible());
}

TEST_F(SettingsStepsTest, FailureOfTheDefaultsIsReportedAndKeepsWhatWasSet) {
  form.chkIntroduce.SetTicked(false);
  form.chkShowStartupScreen.SetTicked(false);
  form.chkDebug.SetTicked(true);
  form.chkShowStartupScreen.Click = [] { throw Failure(kSubscript); };
  EXPECT_THROW(settings.Application_Defaults(0), ProgramEnd);
  EXPECT_EQ(world.screen.boxes.at(0).text,
            "Error (9) : Subscript out of range\r\n\r\nModule: modFunctions\r\nProcedure: "
            "Application_Defaults\r\n\r\n");
  EXPECT_TRUE(form.chkIntroduce.Ticked());
  EXPECT_EQ(form.txtIntroductionText.Text(), "text 11");
  EXPECT_TRUE(form.chkDebug.Ticked());
}

TEST_F(SettingsStepsTest, TellsTheFirstValueThatCouldNotBeSaved) {
  store.keys[kTextKey]["Online"] = {ValueKind::Text, "here", 0};
  settings.GetAllSettings();
  store.broken_flush = true;
  EXPECT_THROW(settings.SaveAllSettings(0), ProgramEnd);
  EXPECT_EQ(world.screen.boxes.at(0).text,
            "Error (26001) : Failed to set registry value Key: '-2147483647',Section: "
            "'Software\\Brenwick\\General',"
            "Key: 'Introduce' to value: '0'\r\n\r\nModule: modFunctions\r\nProcedure: "
            "SaveAllSettings\r\n\r\n");
  EXPECT_EQ(steps, "timer(7,-) load hotkeys ");  // the contacts are not reached
}

TEST_F(SettingsStepsTest, AnyFlagButZeroSavesTheSortOrdersAlone) {
  for (const std::int16_t flag : {std::int16_t{1}, std::int16_t{-1}, std::int16_t{32767}})
    settings.SaveAllSettings(flag);
  EXPECT_EQ(store.keys.size(), 1U);
  EXPECT_EQ(store.keys[kGridsKey].size(), 3U);
  EXPECT_EQ(steps, "");
}

TEST_F(SettingsStepsTest, AStoreIsNotNewBecauseItsTextExpandsToNothing) {
  store.keys[kTextKey]["Online"] = {ValueKind::ExpandableText, "%EMPTY%", 0};
  store.keys[kUserKey]["Mute"] = {ValueKind::Text, "1", 0};
  settings.GetAllSettings();
  EXPECT_TRUE(form.chkMute.Ticked());
  EXPECT_EQ(steps.find("save"), std::string::npos);
}

TEST_F(SettingsStepsTest, AHalfTypedLanguageIsNotStored) {
  store.keys[kTextKey]["Online"] = {ValueKind::Text, "here", 0};
  store.keys[kGeneralKey]["Language"] = {ValueKind::Text, "English", 0};
  form.cmbLanguage.AddItem("English");
  form.cmbLanguage.SetListIndex(0);
  form.cmbLanguage.SetText("E");
  settings.SaveAllSettings(0);
  EXPECT_EQ(store.keys[kGeneralKey]["Language"].text, "English");
  form.cmbLanguage.SetListIndex(0);
  store.keys[kGeneralKey].erase("Language");
  settings.SaveAllSettings(0);
  EXPECT_EQ(store.keys[kGeneralKey]["Language"].text, "English");
}

}  // namespace
}  // namespace brenwick
