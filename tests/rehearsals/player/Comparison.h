// Compares what a rehearsal did with what is expected of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brenwick {

using TextLines = std::vector<std::string>;

// The lines between line feeds.
TextLines SplitLines(std::string_view text);

// Where the lines stop to fit, as a text; empty when they fit to the end. An expected line "..."
// stands for what comes before the first line that is like the next one expected, within the
// effects of one step.
std::string Mismatch(const TextLines& expected, const TextLines& got);

// The transcript with "..." for the effects of "start".
TextLines Collapsed(const std::string& script, const TextLines& transcript);

// Both texts as one, with "-" before the lines that only the first has and "+" before those that
// only the second has; like lines further than three from a difference are left out.
std::string Difference(const TextLines& expected, const TextLines& got);

// True when the lines stand together, in this order, in a debug log, whose date and time count for
// nothing.
bool LogHolds(const TextLines& wanted, const std::string& log);

// The lines of a debug log without date and time; an empty one stands for the end behind the last.
TextLines LinesOfLog(const std::string& log);

// The text with another word for each place where `old` stands in it.
std::string Replaced(std::string text, std::string_view old, std::string_view word);

}  // namespace brenwick
