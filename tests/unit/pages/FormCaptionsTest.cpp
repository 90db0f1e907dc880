// The window in English says what its controls were designed to say: a text in the wrong place
// would still be a text.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "base/Text.h"
#include "language/Coding.h"
#include "pages/FormTexts.h"
#include "pages/GeneralPage.h"
#include "support/Fakes.h"
#include "support/MapStore.h"

namespace brenwick {
namespace {

using Captions = std::map<std::string, std::string>;

Captions CaptionsOf(const frmMain& form) {
  Captions captions;
  for (const Control* each : form.Controls()) {
    const auto* control = dynamic_cast<const CaptionedControl*>(each);
    if (control == nullptr) continue;
    std::string name = control->Name();
    if (control->Index() >= 0) name += "(" + std::to_string(control->Index()) + ")";
    captions[name] = control->Caption();
  }
  return captions;
}

std::string English() {
  std::ifstream file(BRENWICK_SOURCE_DIR "/languages/English.txt", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class FormCaptionsTest : public testing::Test {
 protected:
  FormCaptionsTest() {
    world.folders.files["/program/Languages/English.TML"] = CodeLanguage(English());
  }

  FakeWorld world;
  frmMain form;
  TextTable texts{world.log};
  LanguageLists lists{form};
  Languages languages{world.log,     lists,        texts,        world.status,
                      world.folders, world.screen, world.system, [] { return ""; }};
  FormTexts form_texts{world.log, form, texts, languages, world.status, [] { return "/my/file"; }};
  MapStore store;
  Registry registry{store, world.folders};
  LanguageKey key{world.log, world.status, world.folders, world.loop};
  GeneralPage page{world.log, form,       texts, world.screen, world.folders,
                   registry,  form_texts, key,   [] {}};
};

// Designed otherwise, or filled in by the program.
const Captions kOtherThanDesigned = {
    {"cmdLanguage", "Set language"},
    {"lblAbbreviationsFile", "Abbreviations are read from /my/file"},
    {"lblAbbreviationsHint",
     "Edit this file with any editor, then press Emoticons to read it again."},
    {"lblBuddyNamesFriendlyName", "Name"},
    {"lblBuddyNamesName", "Contact"},
    {"mnuMute", "Mute"},
    {"optBuddyNamesFemale", "F"},
    {"optBuddyNamesMale", "M"},
};

TEST_F(FormCaptionsTest, EnglishIsWhatTheControlsWereDesignedToSay) {
  Captions expected = CaptionsOf(form);
  for (auto& [name, caption] : expected) {
    if (name.starts_with("fraPage")) caption = std::string(Trimmed(caption));
  }
  for (const auto& [name, caption] : kOtherThanDesigned) {
    EXPECT_NE(expected.at(name), caption) << name;
    expected[name] = caption;
  }
  languages.LanguageRead();
  page.NameLanguageList();
  form_texts.SetAlltext(true);
  Captions captions = CaptionsOf(form);
  EXPECT_TRUE(captions["lblAbout"].starts_with("Brenwick reads aloud"));
  expected["lblAbout"] = captions["lblAbout"];
  for (const auto& [name, caption] : expected) EXPECT_EQ(captions[name], caption) << name;
}

}  // namespace
}  // namespace brenwick
