#include "rehearsal/PlayScript.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "files/IniStore.h"
#include "rehearsal/RehearsalFolders.h"
#include "rehearsal/ScratchFolder.h"
#include "unit/rehearsal/RecordingTranscript.h"

namespace brenwick {
namespace {

class PlayScriptTest : public testing::Test {
 protected:
  ExitStatus Play(const std::string& text) {
    std::istringstream script(text);
    return PlayScript(rehearsal_, script, "a.jsonl", out_, errors_);
  }

  ScratchFolder folder_;
  RecordingTranscript transcript_;
  ScriptedClock clock_;
  RehearsalFolders folders_{{(folder_.Path() / "documents").string(), BRENWICK_PROGRAM_FOLDER, ""}};
  IniStore store_{(folder_.Path() / "store.ini").string(), clock_, [](const std::string&) {}};
  Rehearsal rehearsal_{{transcript_, clock_, folders_, store_, nullptr, {}}};
  std::ostringstream out_;
  std::ostringstream errors_;
};

TEST_F(PlayScriptTest, AScriptThatCanBeCarriedOut) {
  EXPECT_EQ(Play("# a\n\n{\"start\":\"\"}\n{\"wait\":1}\n"), kDone);
  EXPECT_EQ(errors_.str(), "");
  EXPECT_EQ(transcript_.lines.back(), R"({"step":2})");
}

TEST_F(PlayScriptTest, AWrongLineEndsIt) {
  EXPECT_EQ(Play("\n{\"wait\":1}\n{\"wait\":\"x\"}\n{\"wait\":1}\n"), kWrong);
  EXPECT_EQ(errors_.str(), "a.jsonl:3: \"wait\" must be a whole number of 32 bits\n");
  EXPECT_EQ(transcript_.lines.back(), R"({"step":2})");
}

// The window's views are called outside every trap of the program, so this one stands for a defect
// of the program.
TEST_F(PlayScriptTest, AnExceptionOfTheProgramIsNoFaultOfTheScript) {
  ASSERT_EQ(Play("{\"start\":\"\"}\n{\"window\":\"restore\"}\n"), kDone);
  transcript_.Written = [](const Effect& effect) {
    if (effect.contains("window")) throw std::runtime_error("no\nview");
  };
  EXPECT_EQ(Play("{\"wait\":1}\n{\"window\":\"minimize\"}\n{\"wait\":1}\n"), kProgramFault);
  EXPECT_EQ(errors_.str(), "a.jsonl:2: the program let out an exception: no view\n");
}

TEST_F(PlayScriptTest, ATranscriptThatTakesNoMoreEndsIt) {
  out_.setstate(std::ios::badbit);
  EXPECT_THROW(Play("{\"wait\":1}\n"), std::runtime_error);
  EXPECT_TRUE(transcript_.lines.empty());
}

}  // namespace
}  // namespace brenwick
