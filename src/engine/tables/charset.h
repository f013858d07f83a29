#pragma once
// Character sets by MapInfo's names, as .tab headers, Create Table and workspaces write them
// (WindowsLatin1, WindowsCyrillic, CodePage850, ISO8859_5, Neutral, UTF-8 ...).

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

// The iconv name of a MapInfo charset name in any letter case ("CP1251" for "WindowsCyrillic");
// "" for text kept as it is (Neutral); nullopt for a name the host does not know.
std::optional<std::string> iconvCharsetName(std::string_view mapInfoName);

// The Windows code pages a MapInfo table can be written in, in the order a table whose charset
// was not given tries them ("CP1252", "CP1251", ...).
const std::vector<std::string>& windowsCodePages();

// True when every character of the UTF-8 text has a place in the code page (an iconv name).
bool fitsCodePage(std::string_view utf8, const std::string& codePage);

} // namespace vellant::engine
