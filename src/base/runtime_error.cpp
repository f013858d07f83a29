#include "base/runtime_error.h"

#include <utility>

namespace vellant {

std::string standardErrorText(int number) {
    switch (number) {
    case kErrInvalidCall:
        return "Invalid procedure call or argument";
    case kErrOverflow:
        return "Overflow";
    case kErrOutOfMemory:
        return "Out of memory";
    case kErrSubscript:
        return "Subscript out of range";
    case kErrDivisionByZero:
        return "Division by zero";
    case kErrTypeMismatch:
        return "Type mismatch";
    case kErrBadFileNumber:
        return "Bad file name or number";
    case kErrFileNotFound:
        return "File not found";
    case kErrBadFileMode:
        return "Bad file mode";
    case kErrFileAlreadyOpen:
        return "File already open";
    case kErrInputPastEnd:
        return "Input past end of file";
    case kErrBadRecordNumber:
        return "Bad record number";
    case kErrPermissionDenied:
        return "Permission denied";
    case kErrPathFileAccess:
        return "Path/File access error";
    case kErrPathNotFound:
        return "Path not found";
    case kErrObjectNotSet:
        return "Object variable or With block variable not set";
    case kErrInvalidProperty:
        return "Invalid property value";
    case kErrAutomation:
        return "Automation error";
    case kErrCannotCreateObject:
        return "ActiveX component can't create object";
    case kErrNoSuchMember:
        return "Object doesn't support this property or method";
    case kErrInvalidPicture:
        return "Invalid picture";
    case kErrRemoteServer:
        return "The remote server machine does not exist or is unavailable";
    default:
        return "Application-defined or object-defined error";
    }
}

RuntimeError::RuntimeError(int number) : RuntimeError(number, standardErrorText(number)) {}

RuntimeError::RuntimeError(int number, std::string description)
    : std::runtime_error(description), number_(number), description_(std::move(description)) {}

void raiseError(int number) {
    throw RuntimeError(number);
}

void raiseError(int number, const std::string& description) {
    throw RuntimeError(number, description);
}

} // namespace vellant
