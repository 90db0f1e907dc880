// The verbs that a user's hands stand behind.
#include "base/Text.h"
#include "rehearsal/ControlReport.h"
#include "rehearsal/Rehearsal.h"

namespace brenwick {
namespace {

constexpr int kNoIndex = -1;

template <typename Kind>
Kind& Needed(Control& control, const char* kind) {
  auto* found = dynamic_cast<Kind*>(&control);
  if (found == nullptr) throw ScriptFailure("\"" + control.Name() + "\" is not " + kind);
  return *found;
}

}  // namespace

// arrays: the step's index chooses an element of a control array.
Control& Rehearsal::ControlOf(const Step& step, bool arrays) {
  const std::string name = TextOf(step.object, step.verb.c_str());
  if (!arrays || !step.object.contains("index")) return ControlOf(name, kNoIndex);
  const int index = NumberOf(step.object, "index");
  if (index < 0) throw ScriptFailure("\"index\" must not be negative");
  return ControlOf(name, index);
}

Control& Rehearsal::ControlOf(const std::string& name, int index) {
  const frmMain& form = program_->Form();
  if (Control* control = form.Find(name, index)) return *control;
  const bool array = form.Find(name, 0) != nullptr;
  if (!array && form.Find(name) == nullptr) {
    throw ScriptFailure("unknown control \"" + name + "\"");
  }
  if (!array) throw ScriptFailure("\"" + name + "\" takes no \"index\"");
  if (index == kNoIndex) throw ScriptFailure("\"" + name + "\" needs an \"index\"");
  throw ScriptFailure("\"" + name + "\" has no index " + std::to_string(index));
}

void Rehearsal::Click(const Step& step) {
  Control& control = ControlOf(step);
  if (auto* box = dynamic_cast<CheckBox*>(&control)) {
    Run([&] { box->UserClick(); });
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    Run([&] { option->UserClick(); });
  } else if (auto* button = dynamic_cast<Button*>(&control)) {
    Run([&] { button->UserClick(); });
  } else {
    auto& item = Needed<MenuItem>(control, "a control to click");
    Run([&] { item.UserClick(); });
  }
}

void Rehearsal::Arrow(const Step& step) {
  auto& option = Needed<OptionButton>(ControlOf(step), "an option button");
  Run([&] { option.UserArrow(); });
}

void Rehearsal::Type(const Step& step) {
  Control& control = ControlOf(step);
  const std::string text = TextOf(step.object, "text");
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
    TypeInto(*combo, text);
    return;
  }
  auto& box = Needed<TextBox>(control, "a text box");
  Run([&] { box.UserTypes(text); });
}

void Rehearsal::TypeInto(ComboBox& combo, const std::string& text) {
  Run([&] {
    combo.UserEmpties();
    DeliverSentKeys(combo);
    for (const char32_t character : Characters(text)) {
      combo.UserTypesCharacter(character);
      DeliverSentKeys(combo);
    }
  });
}

void Rehearsal::DeliverSentKeys(ComboBox& combo) {
  while (!screen_.SentKeys().empty()) {
    const std::string keys = screen_.SentKeys().front();
    screen_.SentKeys().pop_front();
    if (keys == "{BACKSPACE}") combo.UserTypesCharacter(kKeyBackspace);
  }
}

void Rehearsal::Leave(const Step& step) {
  Control& control = ControlOf(step);
  Run([&] {
    if (const auto* box = dynamic_cast<TextBox*>(&control)) box->UserLeaves();
    if (const auto* combo = dynamic_cast<ComboBox*>(&control)) combo->UserLeaves();
  });
}

void Rehearsal::Select(const Step& step) {
  Control& control = ControlOf(step, false);
  const int line = NumberOf(step.object, "index");
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
    Run([&] { combo->UserSelect(line); });
    return;
  }
  auto& list = Needed<ListBox>(control, "a list");
  Run([&] { list.UserSelect(line); });
}

void Rehearsal::DoubleClick(const Step& step) {
  auto& list = Needed<ListBox>(ControlOf(step), "a list");
  Run([&] { list.UserDoubleClick(); });
}

void Rehearsal::Key(const Step& step) {
  Control& control = ControlOf(step);
  const int code = NumberOf(step.object, "code");
  Run([&] {
    if (const auto* list = dynamic_cast<ListBox*>(&control)) list->UserKey(code);
    if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
      combo->UserKeyPress(code);
      DeliverSentKeys(*combo);
    }
  });
}

void Rehearsal::KeyDown(const Step& step) {
  Control& control = ControlOf(step);
  const int code = NumberOf(step.object, "code");
  Run([&] {
    auto* combo = dynamic_cast<ComboBox*>(&control);
    if (combo == nullptr) return;
    combo->UserKeyDown(code);
    DeliverSentKeys(*combo);
  });
}

void Rehearsal::HotKeyPress(const Step& step) {
  auto& key = Needed<HotKeyControl>(ControlOf(step), "a hotkey");
  Run([&] { key.UserPress(); });
}

void Rehearsal::Show(const Step& step) {
  const std::string what = TextOf(step.object, "show");
  if (what == "store" || what == "window") CheckMembers(step.object, what, {"show"});
  if (what == "store") {
    parts_.transcript.Write(DescribeStore(parts_.store));
  } else if (what == "window") {
    parts_.transcript.Write(DescribeWindow(program_->Form()));
  } else {
    parts_.transcript.Write(DescribeControl(ControlOf(step)));
  }
}

}  // namespace brenwick
