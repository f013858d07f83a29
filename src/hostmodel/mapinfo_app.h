#pragma once
// The map host's automation object as the program uses it: MapBasic statements by Do,
// expressions by eval (the result as text), menu commands by number, the last error, the
// call-back channel and the running MapBasic programs. A refused call raises a RuntimeError
// carrying the host's error number and message, and the same pair stays readable through
// LastErrorCode and LastErrorMessage until the next call.

#include "platform/automation.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vellant::hostmodel {

// The object the program hands to SetCallback; the host calls it on its own thread, also
// during a Do or eval.
class MapInfoCallback {
public:
    virtual ~MapInfoCallback() = default;
    // A button of a pad made with Calling OLE was pressed; the text carries the button id.
    virtual void RunCommand(const std::string& command) = 0;
    virtual void WindowContentsChanged(std::int32_t windowId) = 0;
};

// A global variable of a running MapBasic program.
class MBGlobal {
public:
    virtual ~MBGlobal() = default;
    virtual std::string Value() const = 0;
    virtual void setValue(const std::string& value) = 0;
};

// A running MapBasic program.
class MBApplication {
public:
    virtual ~MBApplication() = default;
    virtual std::string Name() const = 0;
    // The global of that name (any letter case); error 9 when the program has none.
    virtual MBGlobal& MBGlobals(const std::string& name) = 0;
    // A command the program understands; a refused one raises a RuntimeError.
    virtual void Do(const std::string& command) = 0;
};

class MapInfoApp : public platform::AutomationObject {
public:
    virtual void Do(const std::string& command) = 0;
    virtual std::string eval(const std::string& expression) = 0;
    virtual void RunMenuCommand(int id) = 0;
    virtual std::string LastErrorMessage() const = 0;
    virtual int LastErrorCode() const = 0;
    // nullptr takes the call-back back.
    virtual void SetCallback(std::shared_ptr<MapInfoCallback> callback) = 0;
    // The running MapBasic programs, numbered from 1; error 9 outside 1..count.
    virtual int MBApplicationsCount() const = 0;
    virtual MBApplication& MBApplications(int index) = 0;
};

} // namespace vellant::hostmodel
