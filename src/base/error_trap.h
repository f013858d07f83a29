#pragma once
// The two shapes of error handler the program's procedures use. Every procedure that has a
// handler traps its own errors, so no exception leaves it: a handler that logs and ends the
// procedure, and one that drops the error of a statement and goes on with the next.

#include "base/runtime_error.h"

#include <new>
#include <string>
#include <utility>

namespace vellant {

// Anything thrown below a procedure becomes a run-time error, so that a library failure takes
// the same road as the runtime's own errors.
template <class Body> void asRuntimeError(Body&& body) {
    try {
        std::forward<Body>(body)();
    } catch (const RuntimeError&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw RuntimeError(kErrOutOfMemory);
    } catch (const std::exception& e) {
        throw RuntimeError(51, std::string("Internal error: ") + e.what());
    }
}

// "On Error GoTo handler": the body runs until an error; then the handler runs with it and the
// procedure ends.
template <class Body, class Handler> void onErrorGoTo(Body&& body, Handler&& handler) {
    try {
        asRuntimeError(std::forward<Body>(body));
    } catch (const RuntimeError& e) {
        std::forward<Handler>(handler)(e);
    }
}

// The runtime's Err object as "On Error Resume Next" leaves it.
struct ErrObject {
    int Number = 0;
    std::string Description;
    void Clear() {
        Number = 0;
        Description.clear();
    }
};

// "On Error Resume Next": each statement given to it runs, and an error is noted in Err and
// dropped, so the procedure goes on with the next statement.
class ResumeNext {
public:
    template <class Statement> bool operator()(Statement&& statement) {
        try {
            asRuntimeError(std::forward<Statement>(statement));
            return true;
        } catch (const RuntimeError& e) {
            Err.Number = e.number();
            Err.Description = e.description();
            return false;
        }
    }
    ErrObject Err;
};

} // namespace vellant
