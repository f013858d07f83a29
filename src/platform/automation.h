#pragma once
// The automation registry: classes creatable by name and objects running under a class name,
// as the desktop's object system offers them. A host registers itself here and the program
// finds it by name. The session or test that owns a registry passes it to whoever needs it.

#include "base/runtime_error.h"
#include "base/variant.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace vellant::platform {

// Everything creatable or running by class name; a Variant can hold it as an object reference.
class AutomationObject : public BasicObject {};

class AutomationRegistry {
public:
    using Factory = std::function<std::shared_ptr<AutomationObject>()>;

    // A registry starts with the desktop's own classes ("Scripting.FileSystemObject").
    AutomationRegistry();

    // Class names match in any letter case, as the desktop's class names do. A second
    // registration of a name replaces the first.
    void registerClass(const std::string& className, Factory factory);
    void unregisterClass(const std::string& className);
    bool isRegistered(const std::string& className) const;

    // A new object of a registered class; error 429 for an unknown class or a factory that
    // makes nothing.
    std::shared_ptr<AutomationObject> CreateObject(const std::string& className) const;

    // The object registered as running under a class name; error 429 when none runs.
    void registerRunning(const std::string& className, std::shared_ptr<AutomationObject> object);
    void revokeRunning(const std::string& className);
    bool isRunning(const std::string& className) const;
    std::shared_ptr<AutomationObject> GetObject(const std::string& className) const;

    // The object as the interface the caller expects; error 13 when it is something else.
    template <class T> static std::shared_ptr<T> as(const std::shared_ptr<AutomationObject>& o) {
        auto typed = std::dynamic_pointer_cast<T>(o);
        if (!typed) raiseError(kErrTypeMismatch);
        return typed;
    }

private:
    std::map<std::string, Factory> classes_;
    std::map<std::string, std::shared_ptr<AutomationObject>> running_;
};

} // namespace vellant::platform
