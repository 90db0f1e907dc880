#include "rehearsal/Script.h"

#include <algorithm>
#include <limits>
#include <map>
#include <set>

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

void CheckMembers(const nlohmann::json& object, const std::string& verb) {
  for (const auto& [member, value] : object.items()) {
    if (member != verb && !Verbs().at(verb).contains(member)) {
      throw ScriptFailure("\"" + verb + "\" does not take \"" + member + "\"");
    }
  }
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
  nlohmann::json object = nlohmann::json::parse(Repaired(line), nullptr, false);
  if (!object.is_object()) throw ScriptFailure("not a JSON object");
  Step step{FindVerb(object), std::move(object)};
  CheckMembers(step.object, step.verb);
  return step;
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
