#pragma once
// The errors the table part raises, in one place so that their numbers and texts stay the
// same everywhere. Where MapBasic's own number is not known, the nearest general one is used.
//
//    405 "Table <name> is not open."                    any statement or function naming it
//    319 "Field <name> does not exist."                  t.column, Insert, Select, ColumnInfo
//    642 "Table <name> cannot be edited."                Insert/Delete/Create Map on a file table
//    642 "Table <name> is read only."                    editing after Set Table ... ReadOnly
//    643 "Table <name> is already open."                 Open/Create/Select Into a name in use
//    642 "Table <name> cannot be closed."                Close/Drop Table on a cosmetic table
//    825 "Unable to open table <path>: <reason>"        Open Table on a missing or damaged file
//    825 "Unable to write table <path>: <reason>"       Commit, Insert into a table with a file
//    650 "<Function>: could not fetch object."          ObjectInfo and friends without an object
//    644 "Argument <n> of <Function> out of range."     unknown attribute codes

#include "engine/mb_error.h"

#include <string>
#include <string_view>

namespace vellant::engine {

[[noreturn]] inline void raiseTableNotOpen(std::string_view name) {
    raiseMb(kMbTableNotFound, "Table " + std::string(name) + " is not open.");
}

[[noreturn]] inline void raiseNoField(std::string_view column) {
    raiseMb(kMbNoField, "Field " + std::string(column) + " does not exist.");
}

[[noreturn]] inline void raiseNotEditable(std::string_view table) {
    raiseMb(kMbCmdNotSupported, "Table " + std::string(table) + " cannot be edited.");
}

[[noreturn]] inline void raiseReadOnly(std::string_view table) {
    raiseMb(kMbCmdNotSupported, "Table " + std::string(table) + " is read only.");
}

[[noreturn]] inline void raiseCannotClose(std::string_view table) {
    raiseMb(kMbCmdNotSupported, "Table " + std::string(table) + " cannot be closed.");
}

[[noreturn]] inline void raiseAlreadyOpen(std::string_view table) {
    raiseMb(kMbInvalidFormat, "Table " + std::string(table) + " is already open.");
}

[[noreturn]] inline void raiseCannotOpen(std::string_view path, std::string_view reason) {
    raiseMb(kMbCantAccessFile,
            "Unable to open table " + std::string(path) + ": " + std::string(reason));
}

[[noreturn]] inline void raiseCannotWrite(std::string_view path, std::string_view reason) {
    raiseMb(kMbCantAccessFile,
            "Unable to write table " + std::string(path) + ": " + std::string(reason));
}

[[noreturn]] inline void raiseArgRange(int argument, std::string_view function) {
    raiseMb(kMbArgRange, "Argument " + std::to_string(argument) + " of " + std::string(function) +
                             " out of range.");
}

} // namespace vellant::engine
