#include "pages/BuddiesMenu.h"

#include <utility>

#include "base/Numbers.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";

// A contact who can be reached is enabled; one who is online is checked, too.
void ShowState(MenuItem& item, int stateCode) {
  switch (stateCode) {
    case 10:
      item.SetEnabled(true);
      item.SetChecked(true);
      break;
    case 0:
    case 1:
    case 7:
    case 8:
    case 12:
    case 13:
      item.SetEnabled(true);
      item.SetChecked(false);
      break;
    case 2:
    case 3:
    case 4:
    case 5:
    case 6:
    case 9:
    case 11:
    case 14:
      item.SetEnabled(false);
      item.SetChecked(false);
      break;
    default:
      break;
  }
}

}  // namespace

BuddiesMenu::BuddiesMenu(Logs& log, frmMain& form, Screen& screen, ContactList& contacts,
                         OpenConversation openConversation)
    : log_(log),
      form_(form),
      screen_(screen),
      contacts_(contacts),
      open_conversation_(std::move(openConversation)) {
  form_.mnuBuddiesOnLine.Click = [this](int index) { mnuBuddiesOnLine_Click(index); };
}

void BuddiesMenu::ShowBuddies() {
  log_.Trap(kModule, "ShowBuddies", [&] {
    log_.DebugWrite("ShowBuddies", "Creating buddy-popup menu");
    for (std::size_t i = 0; i < contacts_.Records().size(); ++i) {
      const ContactRecord& record = contacts_.Records()[i];
      MenuItem& item = form_.mnuBuddiesOnLine.Load(static_cast<int>(i));
      item.SetVisible(true);
      item.SetCaption(Caption(record));
      // The caption says what an empty state means; from now on the state counts as unknown.
      if (record.Status.empty()) contacts_.SetStatus(i, "9");
      ShowState(item, LeadingInteger16(record.Status));
    }
  });
}

std::string BuddiesMenu::Caption(const ContactRecord& record) const {
  const char* name = form_.chkUseMyNamesInsteadOfBuddyNames.Ticked() ? "A" : "N";
  return contacts_.GetContactValue(record.Email, name) + " " +
         contacts_.GetContactValue(record.Email, "S") + "  (" + record.Email + ")";
}

void BuddiesMenu::mnuBuddiesOnLine_Click(int index) {
  log_.Trap(kModule, "mnuBuddiesOnLine_Click", [&] {
    if (form_.mnuBuddiesOnLine[index].Checked()) {
      open_conversation_(contacts_.Records().at(static_cast<std::size_t>(index)).Email);
    } else {
      screen_.Beep();
    }
  });
}

}  // namespace brenwick
