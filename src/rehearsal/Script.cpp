#include "rehearsal/Script.h"

#include <algorithm>
#include <limits>
#include <map>

#include "base/Text.h"

namespace brenwick {
namespace {

using Members = std::set<std::string>;

const std::map<std::string, Members>& Verbs() {
  static const std::map<std::string, Members> verbs = {
      {"world", {}},
      {"start", {}},
      {"close", {}},
      {"raise", {"email", "name", "header", "text", "state", "appName", "fileName", "address"}},
      {"click", {"index"}},
      {"arrow", {"index"}},
      {"type", {"text", "index"}},
      {"leave", {"index"}},
      {"select", {"index"}},
      {"dblclick", {"index"}},
      {"key", {"code", "index"}},
      {"keydown", {"code", "index"}},
      {"tray", {}},
      {"hotkey", {"index"}},
      {"window", {}},
      {"wait", {}},
      {"show", {"index"}},
  };
  return verbs;
}

// Finds members that stand twice in one object, of which the last would otherwise win in silence.
class DuplicateFinder {
 public:
  bool operator()(int, nlohmann::json::parse_event_t event, const nlohmann::json& parsed) {
    using Event = nlohmann::json::parse_event_t;
    if (event == Event::object_start) seen_.emplace_back();
    if (event == Event::object_end) seen_.pop_back();
    if (event == Event::key && !seen_.back().insert(parsed.get<std::string>()).second) {
      throw ScriptFailure("\"" + parsed.get<std::string>() + "\" stands twice");
    }
    return true;
  }

 private:
  std::vector<std::set<std::string>> seen_;  // of the objects that are open
};

nlohmann::json ParseObject(const std::string& line) {
  nlohmann::json object;
  try {
    object = nlohmann::json::parse(Repaired(line), DuplicateFinder());
  } catch (const nlohmann::json::parse_error& error) {
    throw ScriptFailure("not JSON at byte " + std::to_string(error.byte));
  } catch (const nlohmann::json::exception&) {
    throw ScriptFailure("a number beyond all bounds");
  }
  if (!object.is_object()) throw ScriptFailure("not a JSON object");
  return object;
}

std::string FindVerb(const nlohmann::json& object) {
  std::string verb;
  for (const auto& [member, value] : object.items()) {
    if (!Verbs().contains(member)) continue;
    if (!verb.empty()) throw ScriptFailure("two verbs: \"" + verb + "\" and \"" + member + "\"");
    verb = member;
  }
  if (!verb.empty()) return verb;
  if (object.empty()) throw ScriptFailure("an object without a verb");
  throw ScriptFailure("unknown verb \"" + object.begin().key() + "\"");
}

[[noreturn]] void FailWithType(const char* member, const char* wanted) {
  throw ScriptFailure("\"" + std::string(member) + "\" must be " + wanted);
}

const nlohmann::json* Find(const nlohmann::json& object, const char* member, bool needed) {
  const auto found = object.find(member);
  if (found != object.end()) return &*found;
  if (needed) throw ScriptFailure("\"" + std::string(member) + "\" is missing");
  return nullptr;
}

}  // namespace

std::optional<Step> ParseStep(const std::string& line) {
  const std::size_t start = line.find_first_not_of(" \t\r");
  if (start == std::string::npos || line[start] == '#') return std::nullopt;
  nlohmann::json object = ParseObject(line);
  std::string verb = FindVerb(object);
  Members members = Verbs().at(verb);
  members.insert(verb);
  CheckMembers(object, verb, members);
  return Step{std::move(verb), std::move(object)};
}

void CheckMembers(const nlohmann::json& object, const std::string& owner,
                  const std::set<std::string>& members) {
  for (const auto& [member, value] : object.items()) {
    if (members.contains(member)) continue;
    throw ScriptFailure("\"" + owner + "\" does not take \"" + member + "\"");
  }
}

std::string TextOf(const nlohmann::json& object, const char* member,
                   std::optional<std::string> fallback) {
  const nlohmann::json* value = Find(object, member, !fallback);
  if (value == nullptr) return *fallback;
  if (!value->is_string()) FailWithType(member, "a text");
  return value->get<std::string>();
}

std::int32_t NumberOf(const nlohmann::json& object, const char* member,
                      std::optional<std::int32_t> fallback) {
  const nlohmann::json* value = Find(object, member, !fallback);
  if (value == nullptr) return *fallback;
  using Range = std::numeric_limits<std::int32_t>;
  const bool fits = value->is_number_unsigned()
                        ? value->get<std::uint64_t>() <= std::uint64_t{Range::max()}
                        : value->is_number_integer() && value->get<std::int64_t>() >= Range::min();
  if (!fits) FailWithType(member, "a whole number of 32 bits");
  return value->get<std::int32_t>();
}

bool FlagOf(const nlohmann::json& object, const char* member) {
  const nlohmann::json* value = Find(object, member, true);
  if (!value->is_boolean()) FailWithType(member, "true or false");
  return value->get<bool>();
}

std::vector<std::string> TextsOf(const nlohmann::json& object, const char* member) {
  const nlohmann::json* value = Find(object, member, true);
  const bool texts = value->is_array() && std::all_of(value->begin(), value->end(),
                                                      [](const auto& v) { return v.is_string(); });
  if (!texts) FailWithType(member, "a list of texts");
  return value->get<std::vector<std::string>>();
}

}  // namespace brenwick
