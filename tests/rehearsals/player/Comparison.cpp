#include "rehearsals/player/Comparison.h"

#include <algorithm>
#include <cstddef>
#include <nlohmann/json.hpp>

namespace brenwick {
namespace {

bool IsStep(const std::string& line) { return line.starts_with("{\"step\":"); }

TextLines Split(std::string_view text, std::string_view end) {
  TextLines lines;
  while (!text.empty()) {
    const std::size_t at = text.find(end);
    lines.emplace_back(text.substr(0, at));
    text.remove_prefix(at == std::string_view::npos ? text.size() : at + end.size());
  }
  return lines;
}

// How long the longest common part of the rest of both is, for each pair of beginnings.
using Lengths = std::vector<std::vector<std::size_t>>;

Lengths CommonLengths(const TextLines& a, const TextLines& b) {
  Lengths lengths(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = a.size(); i-- > 0;) {
    for (std::size_t j = b.size(); j-- > 0;) {
      lengths[i][j] =
          a[i] == b[j] ? lengths[i + 1][j + 1] + 1 : std::max(lengths[i + 1][j], lengths[i][j + 1]);
    }
  }
  return lengths;
}

TextLines Marked(const TextLines& expected, const TextLines& got) {
  const Lengths lengths = CommonLengths(expected, got);
  TextLines marked;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < expected.size() || j < got.size()) {
    if (i < expected.size() && j < got.size() && expected[i] == got[j]) {
      marked.push_back(" " + expected[i++]);
      ++j;
    } else if (j == got.size() || (i < expected.size() && lengths[i + 1][j] >= lengths[i][j + 1])) {
      marked.push_back("-" + expected[i++]);
    } else {
      marked.push_back("+" + got[j++]);
    }
  }
  return marked;
}

}  // namespace

TextLines SplitLines(std::string_view text) { return Split(text, "\n"); }

std::string Mismatch(const TextLines& expected, const TextLines& got) {
  std::size_t at = 0;
  bool skipping = false;
  for (std::size_t i = 0; i < expected.size(); ++i) {
    if (expected[i] == "...") {
      skipping = true;
      continue;
    }
    while (skipping && at < got.size() && got[at] != expected[i] && !IsStep(got[at])) ++at;
    if (at == got.size() || got[at] != expected[i]) {
      return "line " + std::to_string(i + 1) + " of the expected transcript is\n  " + expected[i] +
             "\nbut there was\n  " + (at < got.size() ? got[at] : "the end");
    }
    ++at;
    skipping = false;
  }
  while (skipping && at < got.size() && !IsStep(got[at])) ++at;
  if (at == got.size()) return {};
  return "nothing more was expected, but there was\n  " + got[at];
}

TextLines Collapsed(const std::string& script, const TextLines& transcript) {
  std::vector<bool> starts;
  for (const std::string& line : SplitLines(script)) {
    const std::size_t first = line.find_first_not_of(" \t\r");
    if (first == std::string::npos || line[first] == '#') continue;
    starts.push_back(nlohmann::json::parse(line).contains("start"));
  }
  TextLines collapsed;
  bool hiding = false;
  for (const std::string& line : transcript) {
    if (IsStep(line)) {
      const auto step = nlohmann::json::parse(line).at("step").get<std::size_t>();
      hiding = starts.at(step - 1);
      collapsed.push_back(line);
      if (hiding) collapsed.emplace_back("...");
    } else if (!hiding) {
      collapsed.push_back(line);
    }
  }
  return collapsed;
}

std::string Difference(const TextLines& expected, const TextLines& got) {
  constexpr std::size_t kContext = 3;
  const TextLines marked = Marked(expected, got);
  std::vector<bool> shown(marked.size());
  for (std::size_t i = 0; i < marked.size(); ++i) {
    if (marked[i].front() == ' ') continue;
    const std::size_t begin = i - std::min(i, kContext);
    const std::size_t end = std::min(i + kContext + 1, marked.size());
    for (std::size_t near = begin; near < end; ++near) shown[near] = true;
  }
  std::string text;
  for (std::size_t i = 0; i < marked.size(); ++i) {
    if (shown[i]) text += marked[i] + "\n";
    if (!shown[i] && (i == 0 || shown[i - 1])) text += "  [...]\n";
  }
  return text;
}

TextLines LinesOfLog(const std::string& log) {
  TextLines lines = Split(log, "\r\n");
  if (log.ends_with("\r\n")) lines.emplace_back();
  for (std::string& line : lines) {
    const std::size_t date = line.find(' ');
    const std::size_t time = date == std::string::npos ? date : line.find(' ', date + 1);
    if (time != std::string::npos) line.erase(0, time + 1);
  }
  return lines;
}

bool LogHolds(const TextLines& wanted, const std::string& log) {
  const TextLines lines = LinesOfLog(log);
  return std::search(lines.begin(), lines.end(), wanted.begin(), wanted.end()) != lines.end();
}

std::string Replaced(std::string text, std::string_view old, std::string_view word) {
  for (std::size_t at = text.find(old); at != std::string::npos;
       at = text.find(old, at + word.size())) {
    text.replace(at, old.size(), word);
  }
  return text;
}

}  // namespace brenwick
