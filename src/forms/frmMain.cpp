#include "forms/frmMain.h"

#include <initializer_list>

namespace brenwick {
namespace {

// The volume boxes carry the tip of the speed boxes.
constexpr const char* kNumberTip = ">= -10 AND <= 10";
constexpr int kNumberColumns = 6;

}  // namespace

frmMain::frmMain() {
  for (Frame& page : fraPage) page.SetVisible(page.Index() == kGeneralPage);
  for (TextBox* box :
       {&txtTalkSpeedMale, &txtTalkVolumeMale, &txtTalkSpeedFemale, &txtTalkVolumeFemale}) {
    box->SetToolTip(kNumberTip);
    box->SetColumns(kNumberColumns);
  }
  for (TextBox* box : {&txtDocumentsAndSettings, &txtWebVersion, &txtWinSockStatus}) {
    box->SetLocked(true);
  }
  for (TextBox& box : txtSpokenMessages) box.SetLocked(true);
  for (Label* note : {&lblMenu, &lblHotKeyActivateBW, &lblHotKeySilent, &lblHotKeyRepeat}) {
    note->SetVisible(false);
  }
  // Both logs are off at first, and with them what says how long they are kept.
  for (Control* control :
       std::initializer_list<Control*>{&chkLogConversationsCleanUp, &lblLogConversationsDaysToKeep,
                                       &txtLogConversationsDaysToKeep, &chkLogDebugCleanUp,
                                       &lblLogDebugDaysToKeep, &txtLogDebugDaysToKeep}) {
    control->SetEnabled(false);
  }
  for (TextBox* box : {&txtLogConversationsDaysToKeep, &txtLogDebugDaysToKeep}) {
    box->SetLocked(true);
    box->SetColumns(kNumberColumns);
  }
}

std::vector<MenuItem*> frmMain::ItemsOf(const MenuItem& menu) {
  if (&menu == &mPopupSys) {
    return {&mnuMute, &mnuSeparator, &mnuBuddies, &mPopRestore, &mPopExit};
  }
  std::vector<MenuItem*> items;
  if (&menu == &mnuBuddies) {
    for (int i = 0; i < mnuBuddiesOnLine.Count(); ++i) items.push_back(&mnuBuddiesOnLine[i]);
  }
  return items;
}

}  // namespace brenwick
