#include "prefs/settings.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "prefs/record_file.h"
#include "session/session.h"

#include <array>

namespace vellant::prefs {

namespace {

// The settings in record order, 1 to 9.
std::array<std::int16_t*, 9> settingRecords(Session& s) {
    return {&s.gImmediate,       &s.gDocked,       &s.gSaveUserPosition,
            &s.gShowMIStatusbar, &s.gDockedHeight, &s.gPrefReserved6,
            &s.gPrefReserved7,   &s.gOnTop,        &s.gMapPrefCount};
}

std::string inAppDir(const Session& s, const char* name) {
    std::string dir = s.appPath;
    if (!dir.empty() && dir.back() != '/') dir += '/';
    return dir + name;
}

} // namespace

std::string prefFilePath(const Session& s) {
    return inAppDir(s, kPrefFileName);
}
std::string logFilePath(const Session& s) {
    return inAppDir(s, kLogFileName);
}

void getotherprefs(Session& s) {
    RecordFile file;
    onErrorGoTo(
        [&] {
            s.gTrace = "#1";
            if (!s.gLogFile.is_open()) {
                s.gLogFile.open(logFilePath(s), std::ios::app | std::ios::binary);
                if (!s.gLogFile.is_open()) raiseError(kErrPathFileAccess);
            }
            s.gTrace = "#99";
            file.open(prefFilePath(s), RecordFile::Access::Read);
            std::int64_t record = 1;
            for (std::int16_t* setting : settingRecords(s))
                *setting = file.readInt16(record++);
            file.close();
        },
        [&](const RuntimeError& e) {
            logQuietly(s, "Error from getotherprefs " + s.gTrace + " " + e.description());
            file.close();
        });
}

void writeprefs(Session& s) {
    RecordFile file;
    onErrorGoTo(
        [&] {
            file.open(prefFilePath(s), RecordFile::Access::ReadWrite);
            std::int64_t record = 1;
            for (std::int16_t* setting : settingRecords(s))
                file.writeInt16(record++, *setting);
            file.close();
        },
        [&](const RuntimeError& e) {
            logQuietly(s, "Error from writeprefs " + e.description());
            file.close();
        });
}

bool isDeveloperMachine(const Session& s) {
    const std::string machine = LCase(s.gComputerName);
    for (const std::string& name : s.developerMachines)
        if (machine == LCase(name)) return true;
    return false;
}

void logQuietly(Session& s, const std::string& line) {
    ResumeNext next;
    next([&] { vlog(s, line); });
}

void vlog(Session& s, const std::string& text) {
    if (isDeveloperMachine(s))
        s.toolkit.MsgBox(text, 0, "Vellant");
    else
        s.gRestart = kFalse;
    if (!s.gLogFile.is_open()) raiseError(kErrBadFileNumber);
    s.gLogFile << '"' << text << "\"\r\n";
    s.gLogFile.flush();
    if (s.onLogLine) s.onLogLine(text);
}

void closelog(Session& s) {
    if (s.gLogFile.is_open()) s.gLogFile.close();
    s.gLogFile.clear();
}

} // namespace vellant::prefs
