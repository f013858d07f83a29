#pragma once
// A user at the desk who is not a person: the replay runner's script and the GUI tests. The
// toolkit asks it how to answer the things that block (message boxes, popup menus, the open
// dialog) and it answers them with real mouse and key events on the real widgets. Without one,
// a person answers.

#include "platform/toolkit.h"

#include <QPoint>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace vellant::qtui {

class DeskAutomation {
public:
    virtual ~DeskAutomation() = default;

    // The answer a message box is to get, or nullopt to leave it to a person. It is asked
    // before the box shows and may throw, which fails the program's MsgBox call (a script that
    // answers with a button the box has not).
    virtual std::optional<int> messageBoxAnswer(const std::string& prompt,
                                                const std::vector<int>& buttons,
                                                int defaultAnswer) = 0;
    // The item of a popup menu to choose, by control name ("" closes the menu without a
    // choice), or nullopt to leave it to a person.
    virtual std::optional<std::string> popupChoice(const std::string& menuName) = 0;
    // The file the open dialog is to answer ("" cancels), or nullopt to leave it to a person.
    virtual std::optional<std::string> openFileChoice(const platform::OpenDialogRequest&) {
        return std::nullopt;
    }

    // A press and release of the left button at a point of a widget, and a key typed on it.
    virtual void click(QWidget& widget, QPoint at) = 0;
    virtual void key(QWidget& widget, int qtKey) = 0;
};

} // namespace vellant::qtui
