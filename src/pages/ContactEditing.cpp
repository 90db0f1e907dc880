#include "pages/ContactEditing.h"

#include "base/Numbers.h"
#include "base/ProgramState.h"
#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";
constexpr int kSpace = 32;

}  // namespace

ContactEditing::ContactEditing(Logs& log, frmMain& form, Screen& screen, ContactList& contacts,
                               ContactPages& pages)
    : log_(log), form_(form), screen_(screen), contacts_(contacts), pages_(pages) {
  WireLists();
  WireSortOptions();
  WireButtons();
}

// A line is opened by a double click or the Space key.
void ContactEditing::WireLists() {
  const auto open = [](ListBox& list, const std::function<void()>& opened) {
    list.DblClick = opened;
    list.KeyPress = [opened](int character) {
      if (character == kSpace) opened();
    };
  };
  open(form_.lstIgnore, [this] { IgnoreSelectListBox(); });
  open(form_.lstGender, [this] { GenderSelectListBox(); });
  open(form_.lstBuddyNames, [this] { BuddyNamesSelectListBox(); });
}

// The list is built anew when the mouse goes up, not when the choice changes.
void ContactEditing::WireSortOptions() {
  const auto refill = [this](std::initializer_list<OptionButton*> options, const char* which) {
    for (OptionButton* option : options) {
      option->MouseUp = [this, option, which] {
        log_.Trap(kModule, (option->Name() + "_MouseUp").c_str(),
                  [&] { pages_.FillContactList(which, 0); });
      };
    }
  };
  refill({&form_.optBuddyNamesSortContact, &form_.optBuddyNamesSortEmail,
          &form_.optBuddyNamesSortName},
         "A");
  refill({&form_.optGenderSortContact, &form_.optGenderSortName, &form_.optGenderSortEmail}, "G");
  refill({&form_.optIgnoreSortContact, &form_.optIgnoreSortEmail, &form_.optIgnoreSortName}, "I");
}

void ContactEditing::WireButtons() {
  form_.cmdBuddyNamesOK.Click = [this] { BuddyListUpdate("A"); };
  form_.cmdBuddyNamesCancel.Click = [this] { BuddyNamesList("A"); };
  form_.cmdBuddyNamesDelete.Click = [this] { cmdBuddyNamesDelete_Click(); };
  form_.cmdSelectAll.Click = [this] { SetAllIgnored(true); };
  form_.cmdClearAll.Click = [this] { SetAllIgnored(false); };
}

void ContactEditing::IgnoreSelectListBox() {
  log_.Trap(kModule, "IgnoreSelectListBox", [&] { SetModRecord(OpenLine(form_.lstIgnore), "I"); });
}

void ContactEditing::GenderSelectListBox() {
  log_.Trap(kModule, "GenderSelectListBox", [&] { SetModRecord(OpenLine(form_.lstGender), "G"); });
}

void ContactEditing::BuddyNamesSelectListBox() {
  log_.Trap(kModule, "BuddyNamesSelectListBox", [&] {
    form_.lstMenu.SetEnabled(false);
    Frame& info = form_.fraPage[kContactInfoPage];
    info.SetEnabled(true);
    info.Move(kPageLeft, kPageTop);
    info.SetVisible(true);
    form_.fraPage[kBuddyNamesPage].SetVisible(false);
    SetModRecord(OpenLine(form_.lstBuddyNames), "A");
  });
}

// Remembers the current line; the address of its contact.
std::string ContactEditing::OpenLine(const ListBox& list) {
  pages_.SelectedListLine = ToInteger16(list.ListIndex());
  return GetEmailFromString(list.List(pages_.SelectedListLine));
}

void ContactEditing::SetModRecord(const std::string& email, std::string_view which) {
  log_.Trap(kModule, "SetModRecord", [&] {
    const ContactRecord* record = contacts_.FindRecord(email);
    if (record == nullptr) {
      ClearContactInfo();
      screen_.MessageBox("Problem finding " + email, kTitle, BoxIcon::Critical, BoxButtons::Ok);
    } else if (which == "I") {
      contacts_.ListMod("I", email, record->Ignore == "True" ? "False" : "True");
      BuddyNamesList("I");
    } else if (which == "G") {
      // A gender that nobody has set turns female first, whatever the default voice.
      contacts_.ListMod("G", email, record->Gender == "F" ? "M" : "F");
      BuddyNamesList("G");
    } else if (which == "A") {
      FillContactInfo(*record);
    }
  });
}

// What is left of the contact that was open before must not be stored for another, or deleted.
void ContactEditing::ClearContactInfo() {
  for (TextBox* box : {&form_.txtBuddyNamesEmail, &form_.txtBuddyNamesName,
                       &form_.txtBuddyNamesFriendlyName, &form_.txtBuddyNamesStatus}) {
    box->SetText("");
  }
}

void ContactEditing::FillContactInfo(const ContactRecord& record) {
  form_.txtBuddyNamesEmail.SetText(record.Email);
  form_.txtBuddyNamesName.SetText(record.Name);
  form_.txtBuddyNamesFriendlyName.SetText(record.FriendlyName);
  const bool female = record.Gender == "F" || (record.Gender == "?" && form_.optFemale.Chosen());
  (female ? form_.optBuddyNamesFemale : form_.optBuddyNamesMale).Choose();
  form_.chkBuddyNamesIgnore.SetTicked(record.Ignore == "True");
  form_.txtBuddyNamesStatus.SetText(contacts_.GetContactValue(record.Email, "S"));
  for (TextBox* box :
       {&form_.txtBuddyNamesName, &form_.txtBuddyNamesEmail, &form_.txtBuddyNamesStatus}) {
    box->SetLocked(true);
  }
  form_.txtBuddyNamesFriendlyName.SetFocus();
  form_.txtBuddyNamesFriendlyName.SelectAll();
}

// An own name that is the display name is not kept.
void ContactEditing::BuddyListUpdate(std::string_view which) {
  log_.Trap(kModule, "BuddyListUpdate", [&] {
    TextBox& own = form_.txtBuddyNamesFriendlyName;
    const std::string& name = form_.txtBuddyNamesName.Text();
    if (own.Text().empty()) own.SetText(std::string(Trimmed(name)));
    if (own.Text() == name) own.SetText("");
    const std::string email(Trimmed(form_.txtBuddyNamesEmail.Text()));
    contacts_.ListMod("A", email, std::string(Trimmed(own.Text())));
    contacts_.ListMod("G", email, form_.optBuddyNamesFemale.Chosen() ? "F" : "M");
    contacts_.ListMod("I", email, form_.chkBuddyNamesIgnore.Ticked() ? "True" : "False");
    BuddyNamesList(which);
  });
}

void ContactEditing::BuddyNamesList(std::string_view which) {
  log_.Trap(kModule, "BuddyNamesList", [&] {
    if (which == "A") ShowBuddyNamesPage();
    ListBox& list = which == "I"   ? form_.lstIgnore
                    : which == "G" ? form_.lstGender
                                   : form_.lstBuddyNames;
    if (pages_.NewListLine < list.ListCount()) list.SetListIndex(pages_.NewListLine);
    list.SetFocus();
  });
}

void ContactEditing::ShowBuddyNamesPage() {
  form_.lstMenu.SetEnabled(true);
  form_.fraPage[kContactInfoPage].SetVisible(false);
  Frame& page = form_.fraPage[kBuddyNamesPage];
  page.Move(kPageLeft, kPageTop);
  page.SetVisible(true);
  page.SetEnabled(true);
}

void ContactEditing::cmdBuddyNamesDelete_Click() {
  log_.Trap(kModule, "cmdBuddyNamesDelete_Click", [&] {
    contacts_.ListMod("X", std::string(Trimmed(form_.txtBuddyNamesEmail.Text())),
                      std::string(Trimmed(form_.txtBuddyNamesFriendlyName.Text())));
    BuddyNamesList("A");
  });
}

// The "Buddynames" list is built anew; the page of the buttons shows the flags the next time.
void ContactEditing::SetAllIgnored(bool ignored) {
  log_.Trap(kModule, ignored ? "cmdSelectAll_Click" : "cmdClearAll_Click", [&] {
    contacts_.SetAllIgnored(ignored ? "True" : "False");
    pages_.FillContactList("A", 0);
  });
}

}  // namespace brenwick
