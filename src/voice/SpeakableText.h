// What of a text reaches the speech engine, and in which pieces.
//
// The engine is only ever given plain text: it never parses markup, whatever the text holds. With
// its markup switched on, a tag could play any file and even run a command, and only the escaping
// of every "<" in every text would stand between a message's sender and the user's machine. So the
// few entities that a marked-up text may hold become their characters here, once, and everything
// else in it is said as it stands. In a plain text the engine takes "<", "&" and "[[" for nothing
// but characters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brenwick {

// The longest piece that the engine is given at a time, in characters.
constexpr std::size_t kLongestPiece = 1000;

// The characters to say. Invalid UTF-8 is repaired. Tabs and line ends become spaces, a run of
// spaces one space (U+000A stands for one with a line end in it). Control characters and
// noncharacters are left out: to the engine U+0001 begins a command whose effect stays. A hyphen
// that joins nothing becomes a space: it makes the engine crash.
//
// Where `entities` is true, &amp; &lt; &gt; &quot; &apos; &#number; and &#xnumber; become their
// character, unless that is a control character or none at all. They are looked for only once, so
// "&amp;lt;" is said as "&lt;".
std::u32string SpeakableText(std::string_view text, bool entities);

// Takes the next piece from the front of such a text: all of it up to kLongestPiece characters,
// else up to the last end of a sentence within them, else to the last space, else that many
// characters. However long a word or a text is, all of it is said. Empty when nothing is left.
std::string NextPiece(std::u32string_view& text);

}  // namespace brenwick
