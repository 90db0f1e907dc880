#include "pages/HotKeyNotes.h"

namespace brenwick {
namespace {

// The text about one kind of obstacle. A language of the user's own that lacks the text is helped
// out in English: a key that does nothing and says nothing looks broken.
struct Telling {
  KeyObstacle::Kind kind;
  LaterText text;
};

constexpr Telling kTellings[] = {
    {KeyObstacle::Kind::Taken, {175, "Taken by another program, so without effect here: %a"}},
    {KeyObstacle::Kind::NotGiven,
     {176, "This desktop gives programs no keys of their own. Let its keyboard settings call: %a"}},
};

// The names of the keys, or the commands in their place.
std::string Concerned(const std::vector<HotKeyControl*>& keys, KeyObstacle::Kind kind) {
  std::string list;
  for (const HotKeyControl* key : keys) {
    if (!key->Enabled() || key->Obstacle().kind != kind) continue;
    if (!list.empty()) list += ", ";
    list += kind == KeyObstacle::Kind::NotGiven ? key->Obstacle().command : KeyName(key->Key());
  }
  return list;
}

}  // namespace

HotKeyNotes::HotKeyNotes(frmMain& form, TextTable& texts)
    : texts_(texts),
      notes_{{form.lblHotKeyActivateBW, {&form.ocxHotKeyActivateBW}},
             {form.lblHotKeySilent, {&form.ocxHotKeySilent}},
             {form.lblHotKeyRepeat, {}}} {
  for (HotKeyControl& key : form.ocxSpeakMsg1) notes_.back().keys.push_back(&key);
  for (const Note& note : notes_) {
    for (HotKeyControl* key : note.keys) {
      subscriptions_.push_back(key->Changed.Observe([this, &note] { Show(note); }));
    }
  }
  subscriptions_.push_back(texts.Replaced.Observe([this] {
    for (const Note& note : notes_) Show(note);
  }));
}

void HotKeyNotes::Show(const Note& note) const {
  const std::string text = Text(note);
  note.label.SetCaption(text);
  note.label.SetVisible(!text.empty());
}

std::string HotKeyNotes::Text(const Note& note) const {
  for (const Telling& telling : kTellings) {
    const std::string list = Concerned(note.keys, telling.kind);
    if (list.empty()) continue;
    return texts_.GetText(texts_.LoadText(telling.text), list);
  }
  return {};
}

}  // namespace brenwick
