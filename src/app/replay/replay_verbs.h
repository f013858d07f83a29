#pragma once
// The verbs of a replay script, in one table: a verb's name, its argument and what it does.
// A new verb is a new row here and a function in replay_verbs.cpp; the reader and the runner
// need no change.

#include "app/replay/script.h"

#include <span>

namespace vellant::replay {

std::span<const Verb> replayVerbs();

} // namespace vellant::replay
