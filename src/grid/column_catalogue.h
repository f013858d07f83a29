#pragma once
// The fixed table of grid columns. Every part of the grid addresses a column by its key, never
// by a number, because the two hosts have different column sets: the MapX host has the column
// "label dataset" and the MapInfo host has not, so everything right of it lies one place further
// left on the MapInfo host.

#include "base/variant.h"

#include <cstdint>
#include <span>
#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::grid {

using session::Session;

// Type flags of gColType.
enum ColumnType : std::uint16_t {
    kColPicture = 1, // a picture cell; exactly 1 is a plain toggle column
    kColStyle = 2,
    kColNumber = 4,
    kColText = 8,
    kColNoClick = 16,    // the click walk passes over this column
    kColListEditor = 32, // the cell editor opens its list
    kColLabelProps = 128,
    kColWide = 1024,
};

struct CatalogueColumn {
    const char* key;
    int mapxColumn;         // the MapInfo host's number follows from it
    const char* headerPic;  // image control whose picture heads the column, or nullptr
    const char* headerText; // header word when there is no picture
    const char* tip;
    bool tipWithGroupHint; // the tip ends in the double-click hint
    bool tipWithUnit;      // the tip ends in "(" unit ")"
    std::uint16_t type;
    const char* headKey; // nullptr when the column belongs to no group
    std::int16_t glyph;
};

// The columns in catalogue order; "label visible" is the second key of "label properties" and
// has no row of its own.
std::span<const CatalogueColumn> columnCatalogue();

inline constexpr const char* kGroupHint = " [Double click header to expand/collapse group]";

// A member of a column group as the header shows it again when the group unfolds.
struct GroupMember {
    const char* picture; // image control
    const char* key;     // also the caption given to labelcolheader
};
// Members of the group headed by the given key, head excluded, in restoring order; empty for a
// key that heads no group.
std::span<const GroupMember> groupMembers(const std::string& headKey);

// Column number of a key in any letter case for the host in use; 0 (after a log line) for an
// unknown key, -1 for "label dataset" on the MapInfo host. Records the key in gColKey.
std::int16_t getcolnum(Session& s, const std::string& key);

// Fills tool-tips, types, heads and glyphs for the host in use.
void setcolatts(Session& s);

// Restores the header pictures of the members of a group whose head unfolds.
std::int16_t colgroup(Session& s, std::int16_t& headColumn);

// Name of a MapX distance unit code; a value that is no number is returned as it stands.
std::string unittext(const Variant& unit);

} // namespace vellant::grid
