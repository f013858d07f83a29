#pragma once
// An error of the map host: a MapBasic error number and its message, as the host's automation
// object reports them through LastErrorCode and LastErrorMessage.

#include <stdexcept>
#include <string>

namespace vellant::engine {

// MapBasic error numbers the engine raises.
enum MbErrorCode : int {
    kMbSyntax = 1,             // "Unrecognized command" and other syntax errors
    kMbWantMapperWindow = 313, // "Window <n> is not a Map window."
    kMbNoField = 319,          // "Field <name> does not exist."
    kMbTableNotFound = 405,    // "Table <name> is not open."
    kMbNullSelection = 589,
    kMbBadWindow = 590, // "Invalid window ID: <n>"
    kMbCmdNotSupported = 642,
    kMbInvalidFormat = 643,
    kMbArgRange = 644, // "Argument <n> of <function> out of range."
    kMbBadWindowNum = 648,
    kMbFetchFailed = 650,
    kMbCantAccessFile = 825,
    kMbFloatDomain = 911,      // "Floating point error: ..." (division by zero, Sqr(-1))
    kMbFloatRange = 912,       // "Floating point overflow."
    kMbUnknownVariable = 1034, // "Variable or Field <name> not defined."
    kMbTypeMismatch = 1045,    // wrong argument type
    kMbUnknownFunction = 1050, // "Unrecognized function <name>."
    kMbWrongArgCount = 1051,   // wrong number of arguments
};

class MbError : public std::runtime_error {
public:
    MbError(int code, const std::string& message) : std::runtime_error(message), code_(code) {}
    int code() const noexcept { return code_; }

private:
    int code_;
};

[[noreturn]] inline void raiseMb(int code, const std::string& message) {
    throw MbError(code, message);
}

} // namespace vellant::engine
