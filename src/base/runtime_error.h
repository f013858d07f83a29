#pragma once
// One run-time error type for the whole program: the runtime's own errors (overflow, subscript,
// file errors) and the errors a host reports for a refused command travel as this exception.

#include <stdexcept>
#include <string>

namespace vellant {

// Numbers of the classic runtime's errors that this program raises or relies on.
enum ErrorNumber : int {
    kErrInvalidCall = 5,          // "Invalid procedure call or argument"
    kErrOverflow = 6,             // "Overflow"
    kErrOutOfMemory = 7,          // "Out of memory"
    kErrSubscript = 9,            // "Subscript out of range"
    kErrDivisionByZero = 11,      // "Division by zero"
    kErrTypeMismatch = 13,        // "Type mismatch"
    kErrBadFileNumber = 52,       // "Bad file name or number"
    kErrFileNotFound = 53,        // "File not found"
    kErrBadFileMode = 54,         // "Bad file mode"
    kErrFileAlreadyOpen = 55,     // "File already open"
    kErrInputPastEnd = 62,        // "Input past end of file"
    kErrBadRecordNumber = 63,     // "Bad record number"
    kErrPermissionDenied = 70,    // "Permission denied"
    kErrPathFileAccess = 75,      // "Path/File access error"
    kErrPathNotFound = 76,        // "Path not found"
    kErrObjectNotSet = 91,        // "Object variable or With block variable not set"
    kErrInvalidProperty = 380,    // "Invalid property value"
    kErrAutomation = 440,         // "Automation error"
    kErrCannotCreateObject = 429, // "ActiveX component can't create object"
    kErrNoSuchMember = 438,       // "Object doesn't support this property or method"
    kErrInvalidPicture = 481,     // "Invalid picture"
    kErrRemoteServer = 462,       // "The remote server machine does not exist or is unavailable"
};

// The runtime's standard text for an error number; "Application-defined or object-defined error"
// for numbers it has no text of its own for.
std::string standardErrorText(int number);

class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(int number);
    RuntimeError(int number, std::string description);

    int number() const noexcept { return number_; }
    const std::string& description() const noexcept { return description_; }

private:
    int number_;
    std::string description_;
};

[[noreturn]] void raiseError(int number);
[[noreturn]] void raiseError(int number, const std::string& description);

} // namespace vellant
