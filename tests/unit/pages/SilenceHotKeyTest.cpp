#include <gtest/gtest.h>

#include "unit/messenger/MessengerRoom.h"

namespace brenwick {
namespace {

TEST(SilenceHotKey, SaysNothingToTheEngineWhileItsBoxIsClear) {
  MessengerRoom room;
  room.form.chkScrollLock.SetTicked(false);
  room.form.ocxHotKeySilent.HotkeyPressed();
  EXPECT_TRUE(room.voice.spoken.empty());
}

TEST(SilenceHotKey, PurgesWithAnEmptyTextWhileItsBoxIsTicked) {
  MessengerRoom room;
  room.form.chkScrollLock.SetTicked(true);
  room.form.ocxHotKeySilent.HotkeyPressed();
  EXPECT_EQ(room.voice.spoken, std::vector<std::string>{""});
  EXPECT_EQ(room.voice.last_flags, SVSFPurgeBeforeSpeak);
}

}  // namespace
}  // namespace brenwick
