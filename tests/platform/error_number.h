#pragma once
// The run-time error a statement raises, for tests that care about the number and text the
// program's handlers will see.

#include "base/runtime_error.h"

#include <string>
#include <utility>

namespace vellant::platform::testing {

struct RaisedError {
    int number = 0; // 0: nothing was raised
    std::string description;
};

template <class Statement> RaisedError raisedBy(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
    } catch (const RuntimeError& e) {
        return {e.number(), e.description()};
    }
    return {};
}

} // namespace vellant::platform::testing
