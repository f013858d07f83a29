#include "platform/automation.h"

#include "platform/file_system_object.h"

#include <cctype>
#include <utility>

namespace vellant::platform {

namespace {

std::string key(const std::string& className) {
    std::string k = className;
    for (char& ch : k)
        ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return k;
}

[[noreturn]] void cannotCreate() {
    raiseError(kErrCannotCreateObject);
}

} // namespace

AutomationRegistry::AutomationRegistry() {
    registerFileSystemObject(*this);
}

void AutomationRegistry::registerClass(const std::string& className, Factory factory) {
    classes_[key(className)] = std::move(factory);
}

void AutomationRegistry::unregisterClass(const std::string& className) {
    classes_.erase(key(className));
}

bool AutomationRegistry::isRegistered(const std::string& className) const {
    return classes_.contains(key(className));
}

std::shared_ptr<AutomationObject>
AutomationRegistry::CreateObject(const std::string& className) const {
    const auto it = classes_.find(key(className));
    if (it == classes_.end() || !it->second) cannotCreate();
    auto object = it->second();
    if (!object) cannotCreate();
    return object;
}

void AutomationRegistry::registerRunning(const std::string& className,
                                         std::shared_ptr<AutomationObject> object) {
    if (!object) {
        revokeRunning(className);
        return;
    }
    running_[key(className)] = std::move(object);
}

void AutomationRegistry::revokeRunning(const std::string& className) {
    running_.erase(key(className));
}

bool AutomationRegistry::isRunning(const std::string& className) const {
    return running_.contains(key(className));
}

std::shared_ptr<AutomationObject>
AutomationRegistry::GetObject(const std::string& className) const {
    const auto it = running_.find(key(className));
    if (it == running_.end()) cannotCreate();
    return it->second;
}

} // namespace vellant::platform
