#include "pages/VoicesPage.h"

#include <algorithm>

#include "base/Numbers.h"

namespace brenwick {

namespace {

constexpr const char* kModule = "frmMain";

}  // namespace

VoicesPage::VoicesPage(Logs& log, frmMain& form, SpVoice& voice, Screen& screen, Speech& speech)
    : log_(log), form_(form), voice_(voice), screen_(screen), speech_(speech) {
  form_.cmdSpeedTestFemale.Click = [this] { Try("cmdSpeedTestFemale_Click", kFemale); };
  form_.cmdSpeedTestMale.Click = [this] { Try("cmdSpeedTestMale_Click", kMale); };
  form_.txtTalkSpeedMale.LostFocus = [this] {
    CheckNumber(form_.txtTalkSpeedMale, "txtTalkSpeedMale_LostFocus", -10, 10);
  };
  form_.txtTalkSpeedFemale.LostFocus = [this] {
    CheckNumber(form_.txtTalkSpeedFemale, "txtTalkSpeedFemale_LostFocus", -10, 10);
  };
  form_.txtTalkVolumeMale.LostFocus = [this] {
    CheckNumber(form_.txtTalkVolumeMale, "txtTalkVolumeMale_LostFocus", 0, 100);
  };
  form_.txtTalkVolumeFemale.LostFocus = [this] {
    CheckNumber(form_.txtTalkVolumeFemale, "txtTalkVolumeFemale_LostFocus", 0, 100);
  };
}

void VoicesPage::Fill() {
  const std::vector<std::string>& voices = voice_.GetVoices();
  for (const std::string& description : voices) {
    form_.cmbVoiceMale.AddItem(description);
    form_.cmbVoiceFemale.AddItem(description);
    log_.DebugWrite("Form_Load", "Startup - Found voice : " + description);
  }
  log_.DebugWrite("Form_Load", "Startup - Total voices : " + std::to_string(voices.size()));
  if (voices.empty() || voice_.LacksVoices()) return;
  form_.cmbVoiceMale.SetListIndex(0);
  form_.cmbVoiceFemale.SetListIndex(0);
}

void VoicesPage::SelectStored(ComboBox& list, const std::string& stored) {
  const std::vector<std::string>& entries = list.Items();
  const auto found = std::find(entries.begin(), entries.end(), stored);
  if (stored.empty() || found == entries.end()) return;
  list.SetListIndex(static_cast<int>(found - entries.begin()));
}

void VoicesPage::Try(const char* procedure, const char* voiceCode) {
  log_.Trap(kModule, procedure,
            [&] { speech_.Speak(form_.txtIntroductionText.Text(), true, voiceCode, false); });
}

// A bad number is shown to the user and left for him to mend.
void VoicesPage::CheckNumber(TextBox& box, const char* procedure, int lowest, int highest) {
  log_.Trap(kModule, procedure, [&] {
    const double number = LeadingNumber(box.Text());
    bool valid = false;
    IgnoringFailures([&] {
      const int rounded = ToInteger16(number);
      valid = rounded >= lowest && rounded <= highest;
    });
    if (valid) return;
    screen_.Beep();
    box.SetFocus();
    box.SelectAll();
  });
}

}  // namespace brenwick
