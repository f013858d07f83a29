#pragma once
// The preference file's global settings and the log.

#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::prefs {

using session::Session;

inline constexpr const char* kPrefFileName = "Vellant.prf";
inline constexpr const char* kLogFileName = "Vellant.log";

std::string prefFilePath(const Session& s);
std::string logFilePath(const Session& s);

// Opens the log and reads the nine settings; a missing or damaged file leaves them as they are.
void getotherprefs(Session& s);
// Writes the nine settings to records 1 to 9, creating the file.
void writeprefs(Session& s);

// One line of the log: the text in double quotes, CR LF. On a developer machine the text is
// shown in a message box first; elsewhere the line clears gRestart. No handler of its own: a
// failure (no log open) falls to the caller's handler.
void vlog(Session& s, const std::string& text);
// The log line of an error handler: a handler must let no error out of its procedure, and the
// log itself can fail (none open after shutdown), so the line is written or dropped.
void logQuietly(Session& s, const std::string& line);
// The machine is one of the developer machines, whose log lines are shown too and which offer
// the self test.
bool isDeveloperMachine(const Session& s);
// Closes file 99 at the end of a session.
void closelog(Session& s);

} // namespace vellant::prefs
