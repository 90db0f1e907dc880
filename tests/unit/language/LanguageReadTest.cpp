// Finding and loading languages: what the user sees meanwhile, and what goes wrong.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "language/Coding.h"
#include "language/Languages.h"
#include "pages/GeneralPage.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

class LanguageReadTest : public testing::Test {
 protected:
  LanguageReadTest() {
    std::string source;
    for (int id = 1; id <= 174; ++id) source += "new " + std::to_string(id) + "\n";
    world.folders.files["/program/Languages/English.TML"] = CodeLanguage(source);
    texts.Replace(NumberedTexts());
    form.cmbLanguage.AddItem("English");
    form.cmbLanguage.SetListIndex(0);
  }
  // Runs while the language file is read.
  void WhileRead(const std::function<void()>& check) {
    world.folders.Touched = [check](const std::string& how, const std::string&) {
      if (how == "read") check();
    };
  }

  FakeWorld world;
  frmMain form;
  TextTable texts{world.log};
  std::function<std::string()> stored = [] { return ""; };
  LanguageLists lists{form};
  Languages languages{world.log,     lists,        texts,        world.status,
                      world.folders, world.screen, world.system, [this] { return stored(); }};
};

TEST_F(LanguageReadTest, PointerIsBusyForTheDuration) {
  std::vector<Pointer> meanwhile;
  WhileRead([&] { meanwhile.push_back(world.screen.LastPointer()); });
  languages.ReadLanguage(true);
  EXPECT_EQ(meanwhile, std::vector<Pointer>{Pointer::Hourglass});
  EXPECT_EQ(world.screen.LastPointer(), Pointer::Default);
}

// In the words of the language that is still loaded.
TEST_F(LanguageReadTest, TellsInTheStatusWindowUnlessQuiet) {
  std::string shown;
  WhileRead([&] {
    if (world.status.Form().Visible()) shown += world.status.Form().lblStatus.Caption();
  });
  languages.ReadLanguage(false);
  EXPECT_EQ(shown, "text 100");
  EXPECT_FALSE(world.status.Form().Visible());
  EXPECT_EQ(texts.LoadText(100), "new 100");
}

TEST_F(LanguageReadTest, QuietLeavesTheStatusWindowToItsCaller) {
  world.status.StatusForm(true, "before");
  languages.ReadLanguage(true);
  EXPECT_TRUE(world.status.Form().Visible());
  EXPECT_EQ(world.status.Form().lblStatus.Caption(), "Reading language file");
}

TEST_F(LanguageReadTest, FailureWhileTheLanguagesAreFoundIsReported) {
  stored = []() -> std::string { throw Failure(kPermissionDenied); };
  EXPECT_THROW(languages.LanguageRead(), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text,
            "Error (70) : Permission denied\r\n\r\nModule: modFunctions\r\nProcedure: "
            "LanguageRead\r\n\r\n");
}

}  // namespace
}  // namespace brenwick
