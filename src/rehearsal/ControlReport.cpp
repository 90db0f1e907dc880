#include "rehearsal/ControlReport.h"

#include <functional>

#include "controls/Buttons.h"
#include "controls/ComboBox.h"
#include "controls/HotKeyControl.h"
#include "controls/ListBox.h"
#include "controls/MenuItem.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "controls/Winsock.h"

namespace brenwick {
namespace {

template <typename Kind>
const Kind* As(const Control& control) {
  return dynamic_cast<const Kind*>(&control);
}

void DescribeValue(const Control& control, Effect& effect) {
  if (const auto* box = As<CheckBox>(control)) effect["value"] = box->Ticked() ? 1 : 0;
  if (const auto* option = As<OptionButton>(control)) effect["value"] = option->Chosen();
  if (const auto* box = As<TextBox>(control)) effect["text"] = box->Text();
  if (const auto* combo = As<ComboBox>(control)) effect["text"] = combo->Text();
  if (const auto* named = As<CaptionedControl>(control)) effect["caption"] = named->Caption();
}

bool HasToolTip(const Control& control) {
  return As<MenuItem>(control) == nullptr && As<Timer>(control) == nullptr &&
         As<HotKeyControl>(control) == nullptr && As<Winsock>(control) == nullptr;
}

void DescribeLines(const Control& control, Effect& effect) {
  if (const auto* list = As<ListBox>(control)) {
    effect["items"] = list->Items();
    effect["index"] = list->ListIndex();
  }
  if (const auto* combo = As<ComboBox>(control)) {
    effect["items"] = combo->Items();
    effect["index"] = combo->ListIndex();
  }
}

template <typename Box>
void DescribeSelection(const Box* box, Effect& effect) {
  if (box == nullptr) return;
  effect["selStart"] = box->SelStart();
  effect["selLength"] = box->SelLength();
}

Effect DescribeStored(const RegistryValue& value) {
  return value.type == ValueKind::Number ? Effect(value.number) : Effect(value.text);
}

void CollectKeys(RegistryStore& store, const std::string& key, nlohmann::json& keys) {
  for (const std::string& sub : store.SubKeys(key)) {
    const std::string path = key.empty() ? sub : key + "\\" + sub;
    for (const std::string& name : store.ValueNames(path)) {
      if (const auto value = store.ReadValue(path, name)) keys[path][name] = DescribeStored(*value);
    }
    CollectKeys(store, path, keys);
  }
}

}  // namespace

Effect DescribeControl(const Control& control) {
  Effect effect{{"show", control.Name()}};
  DescribeValue(control, effect);
  if (HasToolTip(control)) effect["tooltip"] = control.ToolTip();
  DescribeLines(control, effect);
  effect["enabled"] = control.Enabled();
  effect["visible"] = control.Visible();
  if (const auto* box = As<TextBox>(control)) effect["locked"] = box->Locked();
  DescribeSelection(As<TextBox>(control), effect);
  DescribeSelection(As<ComboBox>(control), effect);
  return effect;
}

Effect DescribeWindow(const Window& window) {
  const char* state = !window.Visible()                          ? "hidden"
                      : window.State() == WindowState::Minimized ? "minimized"
                                                                 : "shown";
  return {{"show", "window"},        {"left", window.Left()},     {"top", window.Top()},
          {"width", window.Width()}, {"height", window.Height()}, {"caption", window.Caption()},
          {"state", state}};
}

Effect DescribeStore(RegistryStore& store) {
  // A plain json object keeps its members in alphabetical order.
  nlohmann::json keys = nlohmann::json::object();
  CollectKeys(store, "", keys);
  return {{"show", "store"}, {"keys", keys}};
}

}  // namespace brenwick
