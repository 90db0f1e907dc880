// The lines of a rehearsal's script: what they may say, and reading what they say.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace brenwick {

// A line that cannot be carried out, told in words.
class ScriptFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Step {
  std::string verb;
  nlohmann::json object;  // the whole line
};

// Nothing for a blank line and for a comment. Raises ScriptFailure for a line that is no JSON
// object, does not have exactly one verb, or has a member that the verb does not take. Bytes that
// are not valid UTF-8 are read as U+FFFD.
std::optional<Step> ParseStep(const std::string& line);

// Raises ScriptFailure when the object has any other member; owner: what does not take it.
void CheckMembers(const nlohmann::json& object, const std::string& owner,
                  const std::set<std::string>& members);

// A member's value; without the member the fallback, or a ScriptFailure where there is none. A
// member of another type raises a ScriptFailure.
std::string TextOf(const nlohmann::json& object, const char* member,
                   std::optional<std::string> fallback = std::nullopt);
std::int32_t NumberOf(const nlohmann::json& object, const char* member,
                      std::optional<std::int32_t> fallback = std::nullopt);
bool FlagOf(const nlohmann::json& object, const char* member);
std::vector<std::string> TextsOf(const nlohmann::json& object, const char* member);

}  // namespace brenwick
