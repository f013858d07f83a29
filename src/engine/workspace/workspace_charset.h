#pragma once
// The character sets a workspace names in its "!Charset" line, by MapInfo's names
// (WindowsLatin1, WindowsCyrillic, CodePage850, ISO8859_5, UTF-8 ...), and text converted from
// them to the engine's UTF-8. "Neutral" and a workspace with no "!Charset" line keep their bytes
// as they are.
//
// Errors (MbError 643):
//   "Unknown charset <name> at line <n>."
//   "Text not in <charset> at line <n>."   (bytes the charset does not have)

#include <string>
#include <string_view>

namespace vellant::engine {

// The charset header Save Workspace writes for a text: "UTF-8" once any byte is not ASCII, and
// "Neutral", which every MapInfo reads, for plain ASCII.
std::string charsetForText(std::string_view text);

// text, whose "!Charset" line (at charsetLine) names charset, as UTF-8. UTF-8 text is checked
// and kept; line numbers in errors count from the start of text.
std::string workspaceTextAsUtf8(std::string_view text, const std::string& charset, int charsetLine);

} // namespace vellant::engine
