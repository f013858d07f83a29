#pragma once
// The program's one door to the desktop. Everything the program asks of the windowing system,
// the shell or the mail system goes through this interface, so that the same program runs in
// front of a person (the Qt toolkit) and headless under a script (the scripted toolkit).

#include "platform/picture.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vellant::platform {

class Form;
class MenuItem;
class Timer;

// Message-box styles; a style is one button set plus an icon plus a default button.
inline constexpr int vbOKOnly = 0;
inline constexpr int vbOKCancel = 1;
inline constexpr int vbAbortRetryIgnore = 2;
inline constexpr int vbYesNoCancel = 3;
inline constexpr int vbYesNo = 4;
inline constexpr int vbRetryCancel = 5;
inline constexpr int vbCritical = 16;
inline constexpr int vbQuestion = 32;
inline constexpr int vbExclamation = 48;
inline constexpr int vbInformation = 64;
inline constexpr int vbDefaultButton1 = 0;
inline constexpr int vbDefaultButton2 = 256;
inline constexpr int vbDefaultButton3 = 512;
inline constexpr int vbSystemModal = 4096;

// Message-box answers.
inline constexpr int vbOK = 1;
inline constexpr int vbCancel = 2;
inline constexpr int vbAbort = 3;
inline constexpr int vbRetry = 4;
inline constexpr int vbIgnore = 5;
inline constexpr int vbYes = 6;
inline constexpr int vbNo = 7;

// Screen mouse pointers.
inline constexpr int vbDefault = 0;
inline constexpr int vbHourglass = 11;

// Window order: the "insert after" handles and the flags of SetWindowPos.
inline constexpr std::int32_t HWND_TOP = 0;
inline constexpr std::int32_t HWND_BOTTOM = 1;
inline constexpr std::int32_t HWND_TOPMOST = -1;
inline constexpr std::int32_t HWND_NOTOPMOST = -2;
inline constexpr int SWP_NOSIZE = 0x1;
inline constexpr int SWP_NOMOVE = 0x2;
inline constexpr int SWP_NOZORDER = 0x4;
inline constexpr int SWP_NOACTIVATE = 0x10;
inline constexpr int SWP_SHOWWINDOW = 0x40;
inline constexpr int SWP_HIDEWINDOW = 0x80;

// Show states that GetWindowPlacement reports.
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOWMINIMIZED = 2;
inline constexpr int SW_SHOWMAXIMIZED = 3;
inline constexpr int SW_MINIMIZE = 6;
inline constexpr int SW_RESTORE = 9;

struct WindowPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

// In pixels of the screen, like the desktop's own record.
struct WindowRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};

struct WindowPlacement {
    std::int32_t length = 44;
    std::int32_t flags = 0;
    std::int32_t showCmd = SW_SHOWNORMAL;
    WindowPoint ptMinPosition;
    WindowPoint ptMaxPosition;
    WindowRect rcNormalPosition;
};

// Screen size in twips and the twips in one pixel.
struct ScreenMetrics {
    int Width = 1920 * 15;
    int Height = 1080 * 15;
    int TwipsPerPixelX = 15;
    int TwipsPerPixelY = 15;
};

// What the open dialog is asked for; the names are those of the common dialog's properties.
struct OpenDialogRequest {
    std::string DialogTitle;
    std::string Filter;
    int FilterIndex = 0;
    int Flags = 0;
    std::string InitDir;
    std::string FileName;
    std::string DefaultExt;
};

// A mail the mail program shows to the user for sending.
struct MailMessage {
    std::string RecipAddress;
    std::string RecipDisplayName;
    std::string MsgSubject;
    std::string MsgNoteText;
    std::vector<std::string> attachments;
};

class Toolkit {
public:
    virtual ~Toolkit() = default;

    // Forms. A loaded form may get a window; an unloaded one loses it. A modal show returns
    // when the form is hidden or unloaded, running a nested event loop meanwhile; the form is
    // visible when it is called.
    virtual void formLoaded(Form& form) = 0;
    virtual void formUnloaded(Form& form) = 0;
    virtual void showModal(Form& form) = 0;
    virtual void showModeless(Form& form) = 0;
    // 0 brings the form to the front of its level, 1 sends it to the back.
    virtual void ZOrder(Form& form, int position) = 0;
    // Blocks until the menu closes; a chosen item's click handler runs before it returns.
    virtual void PopupMenu(Form& form, MenuItem& menu) = 0;

    // Answers one of vbOK..vbNo.
    virtual int MsgBox(const std::string& prompt, int buttons = vbOKOnly,
                       const std::string& title = "") = 0;

    virtual int MousePointer() const = 0;
    virtual void setMousePointer(int pointer) = 0;
    // Shows (true) or hides the cursor by one step; answers the display count, the cursor
    // being visible while it is 0 or more.
    virtual int ShowCursor(bool show) = 0;

    virtual bool SetWindowPos(std::int32_t hwnd, std::int32_t insertAfter, int x, int y, int cx,
                              int cy, int flags) = 0;
    virtual bool SetForegroundWindow(std::int32_t hwnd) = 0;
    // False, with the record untouched, for a handle that names no window.
    virtual bool GetWindowPlacement(std::int32_t hwnd, WindowPlacement& placement) = 0;

    virtual ScreenMetrics Screen() const = 0;

    virtual Picture ClipboardGetPicture() const = 0;
    virtual void ClipboardSetPicture(const Picture& picture) = 0;
    virtual void ClipboardClear() = 0;

    // A timer asks to be ticked from now on every Interval milliseconds (starting the count
    // afresh if it was ticking already), or to be ticked no more.
    virtual void startTimer(Timer& timer) = 0;
    virtual void stopTimer(Timer& timer) = 0;

    // The full path of the file the user chose, or "" when the user cancelled.
    virtual std::string ShowOpen(const OpenDialogRequest& request) = 0;

    // The mail session. A failed or cancelled sign-on raises the mail system's run-time error
    // (32003 when the user cancels the logon) and leaves no session open.
    virtual bool mailSessionOpen() const = 0;
    virtual void mailSignOn() = 0;
    virtual void mailSignOff() = 0;
    // Opens the mail program's compose window filled in with the message.
    virtual void composeMail(const MailMessage& message) = 0;

    // Opens a document with the program the desktop associates with it; false if it could not.
    virtual bool launchDocument(const std::string& path) = 0;

    virtual std::string ComputerName() const = 0;

    // Work to run on the one thread once the current call has returned to the event loop.
    virtual void post(std::function<void()> task) = 0;
    // Lets waiting work and events run before the caller goes on.
    virtual void DoEvents() = 0;
};

} // namespace vellant::platform
