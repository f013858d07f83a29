#include "platform/message_box.h"

#include "base/runtime_error.h"
#include "platform/toolkit.h"

namespace vellant::platform {

std::vector<int> messageBoxButtons(int style) {
    switch (style & 0xF) {
    case vbOKOnly:
        return {vbOK};
    case vbOKCancel:
        return {vbOK, vbCancel};
    case vbAbortRetryIgnore:
        return {vbAbort, vbRetry, vbIgnore};
    case vbYesNoCancel:
        return {vbYes, vbNo, vbCancel};
    case vbYesNo:
        return {vbYes, vbNo};
    case vbRetryCancel:
        return {vbRetry, vbCancel};
    default:
        raiseError(kErrInvalidCall);
    }
}

int messageBoxDefault(int style) {
    const std::vector<int> offered = messageBoxButtons(style);
    const auto index = static_cast<std::size_t>((style >> 8) & 0xF);
    return index < offered.size() ? offered[index] : offered.front();
}

} // namespace vellant::platform
