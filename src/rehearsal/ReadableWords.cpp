#include "rehearsal/ReadableWords.h"

#include <functional>
#include <map>

#include "base/Text.h"
#include "platform/MessengerClient.h"
#include "platform/TrayIcon.h"

namespace brenwick {
namespace {

constexpr const char* kYou = "You";
constexpr const char* kProgram = "Brenwick";
constexpr const char* kMessenger = "Messenger";

template <typename Json>
std::string Text(const Json& object, const char* name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_string() ? found->template get<std::string>() : "";
}

std::int32_t Number(const nlohmann::json& object, const char* name, std::int32_t fallback) {
  const auto found = object.find(name);
  return found != object.end() && found->is_number() ? found->get<std::int32_t>() : fallback;
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

// A caption as a person reads it: without the mark of its key and without what leads on to a box.
std::string Shown(std::string caption) {
  std::erase(caption, '&');
  const std::size_t end = caption.find_last_not_of(" :");
  return end == std::string::npos ? std::string() : caption.substr(0, end + 1);
}

// What stands on the control or, as a control's name is its kind and its subject, on its label.
std::string CaptionOf(const Control& control, const frmMain& form) {
  const auto* named = dynamic_cast<const CaptionedControl*>(&control);
  if (named == nullptr) {
    named = dynamic_cast<const CaptionedControl*>(form.Find("lbl" + control.Name().substr(3)));
  }
  const std::string caption = named != nullptr ? Shown(named->Caption()) : std::string();
  return caption.empty() ? control.Name() : Quoted(caption);
}

// What the user does to a control of the window.
class Hand {
 public:
  Hand(const nlohmann::json& step, const frmMain& form, const char* verb)
      : step_(step), form_(form), name_(Text(step, verb)) {
    control_ = form.Find(name_, Number(step, "index", -1));
    if (control_ == nullptr) control_ = form.Find(name_);
  }

  std::string Clicks() const {
    const auto* box = dynamic_cast<const CheckBox*>(control_);
    if (box != nullptr) return Does(box->Ticked() ? "untick" : "tick");
    if (dynamic_cast<const Button*>(control_) != nullptr) return Does("press");
    return Does("choose");
  }
  std::string Types() const { return Does("type " + Quoted(Text(step_, "text")) + " into"); }
  std::string Selects() const { return Does("choose " + Line(Number(step_, "index", -1)) + " in"); }
  std::string DoubleClicks() const { return Does("double-click in"); }
  std::string PressesKey() const {
    return Does("press key " + std::to_string(Number(step_, "code", 0)) + " in");
  }
  std::string PressesHotKey() const;

 private:
  std::string Does(const std::string& what) const {
    if (control_ == nullptr) return what + " " + name_;
    const char* why = !control_->Visible()   ? " (it is hidden)"
                      : !control_->Enabled() ? " (it is disabled)"
                                             : "";
    return what + " " + CaptionOf(*control_, form_) + why;
  }
  std::string Line(int index) const;

  const nlohmann::json& step_;
  const frmMain& form_;
  std::string name_;
  const Control* control_;
};

std::string Hand::Line(int index) const {
  std::vector<std::string> items;
  if (const auto* list = dynamic_cast<const ListBox*>(control_)) items = list->Items();
  if (const auto* combo = dynamic_cast<const ComboBox*>(control_)) items = combo->Items();
  if (index < 0) return "nothing";
  const auto line = static_cast<std::size_t>(index);
  return line < items.size() ? Quoted(items[line]) : "line " + std::to_string(index);
}

std::string Hand::PressesHotKey() const {
  constexpr int kScrollLock = 0x91;
  const auto* control = dynamic_cast<const HotKeyControl*>(control_);
  if (control == nullptr) return "press " + name_;
  const HotKey& key = control->Key();
  std::string keys = key.ctrlkey ? "Ctrl+" : "";
  if (key.shiftkey) keys += "Shift+";
  if (key.winkey) keys += "Win+";
  keys += key.vkey == kScrollLock ? "Scroll Lock" : std::string(1, static_cast<char>(key.vkey));
  return "press " + keys + (control->Enabled() ? "" : " (it is off)");
}

std::string TrayClick(std::int32_t message) {
  switch (message) {
    case kLeftButtonUp:
      return "click the tray icon";
    case kLeftDoubleClick:
      return "double-click the tray icon";
    case kRightButtonUp:
      return "right-click the tray icon";
    default:
      return "";
  }
}

std::string WindowChange(const nlohmann::json& change) {
  if (change == "minimize") return "minimize the window";
  if (change == "restore") return "restore the window";
  return "move the window";
}

Told TellEvent(const nlohmann::json& step) {
  const std::string event = Text(step, "raise");
  const std::string name = Text(step, "name");
  const std::string who = name.empty() ? Text(step, "email") : name;
  const std::string state = StateInWords(Number(step, "state", 0));
  if (event == "OnTextReceived") return {who, "writes: " + Text(step, "text")};
  if (event == "OnUserStateChanged") return {who, "is " + state};
  if (event == "OnUserStateFound") return {who, "is found " + state};
  if (event == "OnLocalStateChangeResult") return {kYou, "are " + state};
  if (event == "OnAppInviteReceived") return {who, "invites you to " + Text(step, "appName")};
  if (event == "OnFileTransferInviteReceived") return {who, "offers " + Text(step, "fileName")};
  if (event == "OnNewerClientAvailable") {
    return {kMessenger, "has a newer version at " + Text(step, "address")};
  }
  return {kMessenger, event};
}

// The words of a popup menu, one item after the other.
std::string Items(const Effect& items) {
  std::string words;
  for (const Effect& item : items) {
    const std::string caption = Shown(Text(item, "caption"));
    if (caption == "-") continue;
    if (!words.empty()) words += ", ";
    words += caption + (item.value("checked", false) ? " (ticked)" : "");
    if (item.contains("items")) words += " (" + Items(item["items"]) + ")";
  }
  return words;
}

std::string Box(const Effect& box) {
  const std::string text = Quoted(Text(box, "box"));
  if (Text(box, "icon") == "critical") return "reports an error: " + text;
  if (Text(box, "buttons") == "OK") return "tells: " + text;
  return "asks: " + text + " - answered " + Text(box, "answer");
}

std::string WindowNow(const std::string& state) {
  if (state == "foreground") return "brings its window to the front";
  if (state == "shown") return "shows its window";
  if (state == "hidden") return "hides its window";
  return "";
}

}  // namespace

std::string StateInWords(std::int32_t state) {
  static const std::map<std::int32_t, const char*> words = {
      {MSTATE_UNKNOWN, "in an unknown state"},
      {MSTATE_OFFLINE, "offline"},
      {MSTATE_ONLINE, "online"},
      {MSTATE_INVISIBLE, "invisible"},
      {MSTATE_BUSY, "busy"},
      {MSTATE_BE_RIGHT_BACK, "right back"},
      {MSTATE_IDLE, "idle"},
      {MSTATE_AWAY, "away"},
      {MSTATE_ON_THE_PHONE, "on the phone"},
      {MSTATE_OUT_TO_LUNCH, "out to lunch"},
      {MSTATE_LOCAL_FINDING_SERVER, "finding the server"},
      {MSTATE_LOCAL_CONNECTING_TO_SERVER, "connecting to the server"},
      {MSTATE_LOCAL_SYNCHRONIZING_WITH_SERVER, "synchronizing with the server"},
      {MSTATE_LOCAL_DISCONNECTING_FROM_SERVER, "disconnecting from the server"},
  };
  const auto found = words.find(state);
  return found != words.end() ? found->second : "in state " + std::to_string(state);
}

Told TellStep(const nlohmann::json& step, const frmMain& form) {
  const auto hand = [&](const char* verb) { return Hand(step, form, verb); };
  if (step.contains("raise")) return TellEvent(step);
  if (step.contains("start")) return {kYou, "start Brenwick " + Text(step, "start")};
  if (step.contains("close")) return {kYou, "close the window"};
  if (step.contains("click")) return {kYou, hand("click").Clicks()};
  if (step.contains("arrow")) return {kYou, hand("arrow").Clicks()};
  if (step.contains("type")) return {kYou, hand("type").Types()};
  if (step.contains("select")) return {kYou, hand("select").Selects()};
  if (step.contains("dblclick")) return {kYou, hand("dblclick").DoubleClicks()};
  if (step.contains("key")) return {kYou, hand("key").PressesKey()};
  if (step.contains("keydown")) return {kYou, hand("keydown").PressesKey()};
  if (step.contains("hotkey")) return {kYou, hand("hotkey").PressesHotKey()};
  if (step.contains("tray")) return {kYou, TrayClick(Number(step, "tray", 0))};
  if (step.contains("window")) return {kYou, WindowChange(step["window"])};
  return {};
}

Told TellEffect(const Effect& effect) {
  if (effect.contains("box")) return {kProgram, Box(effect)};
  if (effect.contains("beep")) return {kProgram, "beeps"};
  if (effect.contains("popup")) return {kProgram, "shows its menu: " + Items(effect["items"])};
  if (effect.contains("window")) return {kProgram, WindowNow(Text(effect, "window"))};
  if (effect.contains("open")) return {kProgram, "opens " + Text(effect, "open")};
  if (effect.contains("conversation")) {
    return {kProgram, "opens a conversation with " + Text(effect, "conversation")};
  }
  if (effect.contains("connect")) {
    return {kProgram, "connects to " + Text(effect["connect"], "host")};
  }
  if (effect.contains("test")) return {kProgram, "tries a " + Text(effect, "test")};
  if (effect.contains("application")) {
    return {kProgram, std::string("switches ") + Text(effect, "application") +
                          (effect.value("on", false) ? " on" : " off")};
  }
  if (effect.contains("ended")) return {kProgram, "has ended"};
  if (effect.contains("show")) {
    return {"", effect.dump(-1, ' ', false, Effect::error_handler_t::replace)};
  }
  return {};
}

}  // namespace brenwick
