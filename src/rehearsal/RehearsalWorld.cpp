// The verb "world": what the program meets outside.
#include <algorithm>
#include <map>

#include "rehearsal/Rehearsal.h"

namespace brenwick {
namespace {

std::pair<std::string, std::string> TwoLines(const nlohmann::json& world) {
  const std::vector<std::string> lines = TextsOf(world, "os");
  if (lines.size() != 2) throw ScriptFailure("\"os\" must be two lines");
  return {lines[0], lines[1]};
}

std::set<std::string> RefusedCalls(const nlohmann::json& world) {
  const std::vector<std::string> calls = TextsOf(world, "refuse");
  for (const std::string& call : calls) {
    if (call != "rate" && call != "volume" && call != "voice" && call != "speak") {
      throw ScriptFailure("unknown engine call \"" + call + "\"");
    }
  }
  return {calls.begin(), calls.end()};
}

std::deque<std::string> Answers(const nlohmann::json& world) {
  const std::vector<std::string> answers = TextsOf(world, "answers");
  for (const std::string& answer : answers) {
    if (answer != "Yes" && answer != "No" && answer != "OK") {
      throw ScriptFailure("unknown answer \"" + answer + "\"");
    }
  }
  return {answers.begin(), answers.end()};
}

ConnectionState StateCalled(const std::string& name) {
  static const std::map<std::string, ConnectionState> states = {
      {"off", ConnectionState::Off},
      {"waiting", ConnectionState::Waiting},
      {"attached", ConnectionState::Attached},
      {"failed", ConnectionState::Failed},
  };
  const auto found = states.find(name);
  if (found == states.end()) throw ScriptFailure("unknown state \"" + name + "\"");
  return found->second;
}

const nlohmann::json& EntriesOf(const nlohmann::json& world, const char* member) {
  const nlohmann::json& list = world.at(member);
  const bool objects = list.is_array() && std::all_of(list.begin(), list.end(),
                                                      [](const auto& e) { return e.is_object(); });
  if (objects) return list;
  throw ScriptFailure("\"" + std::string(member) + "\" must be a list of objects");
}

std::vector<Connection> ConnectionsOf(const nlohmann::json& world, const char* member) {
  std::vector<Connection> connections;
  for (const nlohmann::json& entry : EntriesOf(world, member)) {
    CheckMembers(entry, member, {"name", "state", "detail"});
    connections.push_back({.Name = TextOf(entry, "name"),
                           .State = StateCalled(TextOf(entry, "state")),
                           .Detail = TextOf(entry, "detail", "")});
  }
  return connections;
}

std::vector<SeenApplication> ApplicationsOf(const nlohmann::json& world) {
  std::vector<SeenApplication> applications;
  for (const nlohmann::json& entry : EntriesOf(world, "applications")) {
    CheckMembers(entry, "applications", {"name", "on"});
    applications.push_back({.Name = TextOf(entry, "name"), .On = FlagOf(entry, "on")});
  }
  return applications;
}

}  // namespace

// What the program is connected to; it is told of the change.
bool Rehearsal::SetConnections(const nlohmann::json& world, const std::string& member) {
  if (member == "sources") {
    connections_.SetSources(ConnectionsOf(world, "sources"));
  } else if (member == "engines") {
    connections_.SetEngines(ConnectionsOf(world, "engines"));
  } else if (member == "applications") {
    connections_.SetApplications(ApplicationsOf(world));
  } else {
    return false;
  }
  Run([&] { connections_.Changed(); });
  return true;
}

void Rehearsal::SetWorld(const Step& step) {
  const nlohmann::json& world = step.object.at("world");
  if (!world.is_object()) throw ScriptFailure("\"world\" must be an object");
  for (const auto& [member, value] : world.items()) SetWorldMember(world, member.c_str());
}

void Rehearsal::SetWorldMember(const nlohmann::json& world, const char* member) {
  const std::string name = member;
  if (name == "now") {
    if (!ParseMoment(TextOf(world, member), parts_.clock.now)) {
      throw ScriptFailure(R"("now" must look like "2004-01-10T12:00:00")");
    }
  } else if (name == "voices") {
    scripted_voice_.SetVoices(TextsOf(world, member));
  } else if (name == "myStatus") {
    messenger_.status = NumberOf(world, member);
  } else if (name == "myName") {
    messenger_.name = TextOf(world, member);
  } else if (name == "development") {
    system_.development = FlagOf(world, member);
  } else if (name == "previousInstance") {
    system_.previous_instance = FlagOf(world, member);
  } else if (name == "answers") {
    screen_.answers = Answers(world);
  } else if (name == "os") {
    system_.os = TwoLines(world);
  } else if (name == "refuse") {
    scripted_voice_.Refuse(RefusedCalls(world));
  } else if (name == "web") {
    SetWeb(world);
  } else if (!SetConnections(world, name)) {
    throw ScriptFailure("\"world\" does not have \"" + name + "\"");
  }
}

void Rehearsal::SetWeb(const nlohmann::json& world) {
  const nlohmann::json& web = world.at("web");
  if (web.is_object()) {
    CheckMembers(web, "web", {"reply", "afterSteps"});
    const int steps = NumberOf(web, "afterSteps", 1);
    if (steps < 1) throw ScriptFailure("\"afterSteps\" must be at least 1");
    socket_.web = {ScriptedWeb::Kind::Reply, TextOf(web, "reply"), steps};
  } else if (web == "error") {
    socket_.web = {ScriptedWeb::Kind::Error, "", 1};
  } else if (web == "silent") {
    socket_.web = {};
  } else {
    throw ScriptFailure(R"("web" must be "error", "silent" or {"reply":text,"afterSteps":number})");
  }
}

}  // namespace brenwick
