#include "rehearsal/MessengerScript.h"

#include <map>
#include <set>
#include <string>

#include "rehearsal/Script.h"

namespace brenwick {
namespace {

using Event = std::function<void(MessengerListener&)>;

MessengerContact ContactOf(const nlohmann::json& step) {
  return {TextOf(step, "email", ""), TextOf(step, "name", "")};
}

Event TextReceived(const nlohmann::json& step) {
  return [contact = ContactOf(step), header = TextOf(step, "header", ""),
          text = TextOf(step, "text", "")](MessengerListener& listener) {
    listener.OnTextReceived(contact, header, text);
  };
}

Event UserStateChanged(const nlohmann::json& step) {
  return [contact = ContactOf(step), state = NumberOf(step, "state", 0)](
             MessengerListener& listener) { listener.OnUserStateChanged(contact, state); };
}

Event UserStateFound(const nlohmann::json& step) {
  return [contact = ContactOf(step), state = NumberOf(step, "state", 0)](
             MessengerListener& listener) { listener.OnUserStateFound(contact, state); };
}

Event LocalStateChangeResult(const nlohmann::json& step) {
  return [state = NumberOf(step, "state", 0)](MessengerListener& listener) {
    listener.OnLocalStateChangeResult(state);
  };
}

Event AppInviteReceived(const nlohmann::json& step) {
  return [contact = ContactOf(step), app = TextOf(step, "appName", "")](
             MessengerListener& listener) { listener.OnAppInviteReceived(contact, app); };
}

Event FileTransferInviteReceived(const nlohmann::json& step) {
  return [contact = ContactOf(step), file = TextOf(step, "fileName", "")](
             MessengerListener& listener) { listener.OnFileTransferInviteReceived(contact, file); };
}

Event NewerClientAvailable(const nlohmann::json& step) {
  return [address = TextOf(step, "address", "")](MessengerListener& listener) {
    listener.OnNewerClientAvailable(address);
  };
}

using PlainEvent = void (MessengerListener::*)();

const std::map<std::string, PlainEvent>& PlainEvents() {
  using L = MessengerListener;
  static const std::map<std::string, PlainEvent> events = {
      {"OnAppInviteAccepted", &L::OnAppInviteAccepted},
      {"OnAppShutdown", &L::OnAppShutdown},
      {"OnBuddyPropertyChangeResult", &L::OnBuddyPropertyChangeResult},
      {"OnFindResult", &L::OnFindResult},
      {"OnListAddResult", &L::OnListAddResult},
      {"OnLogoff", &L::OnLogoff},
      {"OnLogonResult", &L::OnLogonResult},
      {"OnMessagePrivacyChangeResult", &L::OnMessagePrivacyChangeResult},
      {"OnTrustChanged", &L::OnTrustChanged},
      {"OnUnreadEmailChanged", &L::OnUnreadEmailChanged},
      {"OnUserDropped", &L::OnUserDropped},
      {"OnUserFriendlyNameChangeResult", &L::OnUserFriendlyNameChangeResult},
      {"OnUserJoin", &L::OnUserJoin},
      {"OnUserLeave", &L::OnUserLeave},
      {"OnNewSessionRequest", &L::OnNewSessionRequest},
      {"OnNotificationReceived", &L::OnNotificationReceived},
      {"OnPrimaryServiceChanged", &L::OnPrimaryServiceChanged},
      {"OnPromptChangeResult", &L::OnPromptChangeResult},
      {"OnRequestURLPostResult", &L::OnRequestURLPostResult},
      {"OnRequestURLResult", &L::OnRequestURLResult},
      {"OnSendResult", &L::OnSendResult},
      {"OnServiceLogoff", &L::OnServiceLogoff},
      {"OnSessionStateChange", &L::OnSessionStateChange},
      {"OnSPMessageReceived", &L::OnSPMessageReceived},
  };
  return events;
}

struct EventWithArguments {
  std::set<std::string> members;
  Event (*read)(const nlohmann::json&);
};

const std::map<std::string, EventWithArguments>& EventsWithArguments() {
  static const std::map<std::string, EventWithArguments> events = {
      {"OnTextReceived", {{"email", "name", "header", "text"}, TextReceived}},
      {"OnUserStateChanged", {{"email", "name", "state"}, UserStateChanged}},
      {"OnUserStateFound", {{"email", "name", "state"}, UserStateFound}},
      {"OnLocalStateChangeResult", {{"state"}, LocalStateChangeResult}},
      {"OnAppInviteReceived", {{"email", "name", "appName"}, AppInviteReceived}},
      {"OnFileTransferInviteReceived", {{"email", "name", "fileName"}, FileTransferInviteReceived}},
      {"OnNewerClientAvailable", {{"address"}, NewerClientAvailable}},
  };
  return events;
}

void CheckArguments(const nlohmann::json& step, const std::string& event,
                    std::set<std::string> members) {
  members.insert("raise");
  CheckMembers(step, event, members);
}

}  // namespace

Event EventOf(const nlohmann::json& step) {
  const std::string name = TextOf(step, "raise");
  const auto found = EventsWithArguments().find(name);
  if (found != EventsWithArguments().end()) {
    CheckArguments(step, name, found->second.members);
    return found->second.read(step);
  }
  const auto plain = PlainEvents().find(name);
  if (plain == PlainEvents().end()) throw ScriptFailure("unknown event \"" + name + "\"");
  CheckArguments(step, name, {});
  return [event = plain->second](MessengerListener& listener) { (listener.*event)(); };
}

}  // namespace brenwick
