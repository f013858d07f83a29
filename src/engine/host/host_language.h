#pragma once
// The host part's statements come in groups, each registered by its own file;
// registerHostLanguage (engine.h) calls them all.

namespace vellant::engine {

class Registry;
class Cursor;

// Create ButtonPad, Alter ButtonPad, Alter Button.
void registerButtonPadLanguage(Registry& registry);
// SystemInfo().
void registerSystemInfo(Registry& registry);

// "On" or "Off" as a clause ends; a syntax error for anything else.

} // namespace vellant::engine
