// The commands go out exactly as MapInfo has always been sent them, odd blanks and glued
// clauses included: a number takes the leading blank of its conversion to text, and the size
// clause follows the window's number with nothing between.

#include "styles/style_samples.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "platform/file_system_object.h"
#include "prefs/settings.h"
#include "session/session.h"
#include "styles/style_strings.h"

#include <initializer_list>

namespace vellant::styles {

namespace {

constexpr const char* kSampleSize = "Width  8 Units \"mm\" Height 4 Units \"mm\"";
constexpr std::int16_t kRegion = 0;
constexpr std::int16_t kLine = 1;
constexpr std::int16_t kSymbol = 2;
constexpr std::int16_t kText = 5;

void send(Session& s, const std::string& command) {
    s.mapInfoApp().Do(command);
}

// The application directory's file of a scratch table, in double quotes.
std::string scratchFile(Session& s, const char* name) {
    const bool separated = !s.appPath.empty() && s.appPath.back() == '/';
    return "\"" + s.appPath + (separated ? "" : "/") + name + "\"";
}

// The window handles go into the commands as plain numbers.
std::string frameHandle(Session& s) {
    return CStr(s.layerForm().MapInfoFrame.hWnd());
}

platform::FileSystemObject& fileSystem(Session& s) {
    if (!s.gFSO) raiseError(kErrObjectNotSet);
    return *s.gFSO;
}

// The object of the sample, in tobj; text takes its font and gets a square window sized by the
// font's points, read as millimetres.
void createSampleObject(Session& s, std::int16_t kind, const std::string& style, std::int16_t size,
                        std::string& sizeClause) {
    switch (kind) {
    case kRegion:
        send(s, "Create Region into variable tobj 1 4 (1,0) (2,0) (2.5,1) (1, 0.5)");
        break;
    case kLine:
        send(s, "Create Line into variable tobj (1,1) (2,1)");
        break;
    case kSymbol:
        send(s, "Create Point into variable tobj (1,1)");
        break;
    case kText:
        send(s, "Create Text into variable tobj \"Ab\" (1,1) (2,2) " + style);
        sizeClause = "Width " + Str(size) + " Units \"mm\" Height " + Str(size) + " Units \"mm\"";
        break;
    default:
        break;
    }
}

} // namespace

void initstylewin(Session& s) {
    const std::initializer_list<std::string> commands = {
        "create table vlStyle (stylex integer) File " + scratchFile(s, "vlstyle"),
        "create map for vlstyle",
        "set table vlStyle fastedit on undo off usermap off userbrowse off useredit off "
        "userdisplaymap off userremovemap off",
        "Dim tobj as object",
        "create table vlBounds (Name char(30)) File " + scratchFile(s, "vlbounds"),
        "create map for vlBounds",
        "set table vlBounds fastedit on undo off usermap off userbrowse off useredit off "
        "userdisplaymap off userremovemap off",
    };
    // A table left by an earlier run, or any other refusal, must not stop the rest.
    for (const std::string& command : commands) {
        onErrorGoTo([&] { send(s, command); },
                    [&](const RuntimeError& e) {
                        prefs::logQuietly(s, "Error from initstylewin " + e.description());
                    });
    }
}

void AddStyletoMap(Session& s) {
    onErrorGoTo(
        [&] {
            if (!s.gIsMapInfo || s.gStyleWin != 0) return;
            // Asked and dropped: the host settles its window order before the new window.
            s.mapInfoApp().eval("Frontwindow()");
            send(s, "Set Next Document Parent " + CStr(s.layerForm().MapInfoframe2.hWnd()) +
                        " Style 1");
            send(s, "map from vlStyle min");
            s.gStyleWin = 0;
            s.gStyleWin = CLng(Val(s.mapInfoApp().eval("WindowID(frontwindow())")));
            send(s, "set window " + Str(s.gStyleWin) +
                        " width 8 units \"mm\" height 4 units \"mm\" title \" \" sysmenuclose on");
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from AddStyletoMap " + e.description());
        });
}

void exportfeaturesample(Session& s, std::int16_t kind, const std::string& style,
                         std::int16_t size) {
    onErrorGoTo(
        [&] {
            send(s, "Set Application Window " + frameHandle(s));
            AddStyletoMap(s);
            std::string clause = style;
            if (kind == kLine) pentoline(clause);
            // Nothing to draw; the host's dialogs stay with the form.
            if (clause.empty()) return;
            platform::FileSystemObject& fso = fileSystem(s);
            s.gSampleFile = fso.getspecialfolder(platform::FileSystemObject::kTemporaryFolder) +
                            "/" + fso.gettempname() + ".bmp";
            std::string sizeClause = kSampleSize;
            createSampleObject(s, kind, clause, size, sizeClause);
            send(s, "insert into vlStyle (obj) Values (tobj)");
            // A text object carries its own font.
            if (kind != kText)
                send(s, "Set Map Layer 1 Display Global Global " + clause);
            else
                send(s, "Set Map Layer 1 Display Graphic");
            const std::string window = Str(s.gStyleWin);
            send(s, "set Window " + window + sizeClause);
            send(s, "Set Map Window " + window + " Zoom Entire");
            send(s, "Save Window " + window + " As \"" + s.gSampleFile + "\" Type \"BMP\"" +
                        sizeClause);
            send(s, "Delete from vlstyle");
            send(s, "Set Application Window 0");
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from exportfeaturesample " + e.description());
        });
}

void closestylewin(Session& s) {
    if (s.gIsMapInfo && s.gStyleWin != 0) send(s, "Close window " + Str(s.gStyleWin));
    s.gStyleWin = 0;
}

void dropstyletable(Session& s) {
    if (!s.gMBApp) raiseError(kErrObjectNotSet);
    s.gMBApp->Do("drop table vlStyle");
    send(s, "UnDim tobj");
    closestylewin(s);
}

} // namespace vellant::styles
