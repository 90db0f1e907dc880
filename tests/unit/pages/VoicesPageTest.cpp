// Which voice the two lists of voices begin with.
#include "pages/VoicesPage.h"

#include <gtest/gtest.h>

#include <string>

#include "pages/Settings.h"
#include "pages/SettingsBinding.h"
#include "settings/SettingsKeys.h"
#include "support/Fakes.h"
#include "support/MapStore.h"

namespace brenwick {
namespace {

class VoicesPageTest : public testing::Test {
 protected:
  void Store(const char* name, const std::string& text) {
    store.WriteValue(kVoicesKey, name, {.type = ValueKind::Text, .text = text});
  }
  std::string Stored(const char* name) {
    const auto value = store.ReadValue(kVoicesKey, name);
    return value ? value->text : "(none)";
  }

  FakeWorld world;
  frmMain form;
  SettingsValues values;
  SettingsBinding binding{form, values};
  SpokenHistory history{world.log};
  FakeVoice voice;
  TextTable texts{world.log};
  TextCleanUp clean_up{world.log};
  Abbreviations abbreviations{world.log, texts, world.status, world.data, world.folders};
  Speech speech{world.log,     world.state, values,       texts, clean_up,
                abbreviations, history,     world.status, voice};
  VoicesPage page{world.log, form, voice, world.screen, speech};
  MapStore store;
  Registry registry{store, world.folders};
  Settings settings{world.log,
                    world.state,
                    form,
                    values,
                    texts,
                    world.status,
                    registry,
                    {.SetLogCleanTimer = [] {},
                     .LoadContacts = [] {},
                     .SaveContacts = [] {},
                     .UseRepeatHotKeys = [] {}}};
};

TEST_F(VoicesPageTest, SelectsTheFirstVoiceInPlaceOfOneThatIsGone) {
  page.Fill();
  page.SelectStored(form.cmbVoiceMale, "Anna");
  EXPECT_EQ(form.cmbVoiceMale.Text(), "Mary");
}

TEST_F(VoicesPageTest, KeepsTheStoredVoicesWhereTheListLacksThem) {
  texts.Replace(NumberedTexts());
  Store("Male Voice", "Tom");
  Store("Female Voice", "Anna");
  voice.lacks_voices = true;
  page.Fill();
  page.SelectStored(form.cmbVoiceMale, "Tom");
  page.SelectStored(form.cmbVoiceFemale, "Anna");
  EXPECT_EQ(form.cmbVoiceMale.ListIndex(), -1);
  settings.SaveAllSettings(0);
  EXPECT_EQ(Stored("Male Voice"), "Tom");
  EXPECT_EQ(Stored("Female Voice"), "Anna");
  EXPECT_NE(Stored("Male Speed"), "(none)");
}

TEST_F(VoicesPageTest, SelectsAStoredVoiceThatAnIncompleteListHas) {
  voice.lacks_voices = true;
  page.Fill();
  page.SelectStored(form.cmbVoiceMale, "Mary");
  EXPECT_EQ(form.cmbVoiceMale.ListIndex(), 0);
  EXPECT_EQ(form.cmbVoiceFemale.ListIndex(), -1);
}

}  // namespace
}  // namespace brenwick
