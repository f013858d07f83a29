// Feeds arbitrary text to the three readers of style clauses the program uses on whatever a host
// or a dialog hands it. None may throw: a clause that cannot be read ends in its logged default.
// The Pen clause of a line keeps what follows "Pen" up to its 100 characters, nothing else
// changes, and the symbol reader leaves its clause as it was.

#include "platform/scripted_toolkit.h"
#include "session/session.h"
#include "styles/style_strings.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string clause(reinterpret_cast<const char*>(data), size);
    // No log is open, so failures are dropped quietly as after a session's end.
    static vellant::platform::ScriptedToolkit toolkit;
    static vellant::session::Session session(toolkit, "/nonexistent-vellant-fuzz");

    std::string line = clause;
    vellant::styles::pentoline(line);
    if (clause.rfind("Pen", 0) == 0) {
        if (line != "Line" + clause.substr(3, 100)) std::abort();
    } else if (line != clause) {
        std::abort();
    }

    static_cast<void>(vellant::styles::parsefont(session, clause));
    std::string symbol = clause;
    static_cast<void>(vellant::styles::parsesymbol(session, symbol));
    if (symbol != clause) std::abort();
    return 0;
}
