#pragma once
// The MapX objects report failures as the program's run-time errors. What the engine refuses
// (a file that does not open, a table that cannot be edited) keeps the engine's number and
// message.

#include "base/runtime_error.h"
#include "engine/mb_error.h"

#include <string>
#include <utility>

namespace vellant::mapx {

// Runs an engine call; an engine error comes out as a run-time error.
template <class Body> decltype(auto) engineCall(Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const engine::MbError& error) {
        raiseError(error.code(), error.what());
    }
}

// A collection's index that names no member: error 9 with the index in the text.
[[noreturn]] void raiseBadIndex(const std::string& collection, const std::string& index);

} // namespace vellant::mapx
