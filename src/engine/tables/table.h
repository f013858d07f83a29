#pragma once
// An open table: a file read through GDAL, an in-memory table, or the result of a query.

#include "engine/map_object.h"
#include "engine/mb_value.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

struct Bounds {
    double minX = 0, minY = 0, maxX = 0, maxY = 0;
};

// TableInfo(t, TAB_INFO_TYPE) numbering.
enum class TableType : int { Base = 1, Result = 2, View = 3, Image = 4, Linked = 5, Wms = 6 };

struct ColumnDef {
    std::string name;
    int type = 0;  // ColumnInfo(..., COL_INFO_TYPE) numbering
    int width = 0; // characters for Char, digits for Decimal
    int decimals = 0;
};

class Table {
public:
    virtual ~Table() = default;

    virtual const std::string& name() const = 0; // the alias it is open under
    virtual TableType type() const = 0;
    virtual std::string path() const = 0; // full path of the .TAB (or other) file; "" if none
    // From the header; never a scan of all rows.
    virtual std::int64_t rowCount() const = 0;
    virtual const std::vector<ColumnDef>& columns() const = 0;
    virtual bool isMappable() const = 0;
    virtual bool isRaster() const = 0;
    virtual std::optional<Bounds> bounds() const = 0;
    // "CoordSys Earth Projection 1, 104" form; "" for a table that is not mappable.
    virtual std::string coordSysClause() const = 0;
    // The bounds of the table's coordinate system (TableInfo 25-28): the Bounds part of the
    // clause; file tables read them from their .MAP header. nullopt when unknown.
    virtual std::optional<Bounds> coordSysBounds() const;
    // Whether Insert, Delete and Create Map may change the table.
    virtual bool isEditable() const { return false; }
    // A seamless TAB, a table of tables (TableInfo 24).
    virtual bool isSeamless() const { return false; }

    // Row access, rows from 1. The object of a row without one is nullptr. A row that does not
    // exist (deleted, or past the end) has no object and blank values.
    virtual std::shared_ptr<const MapObject> object(std::int64_t row) const = 0;
    virtual MbValue value(std::int64_t row, std::size_t column) const = 0;
    // False for a deleted row and for numbers outside 1..rowCount(); Fetch skips such rows.
    virtual bool rowExists(std::int64_t row) const;
    // No row before this one exists: a walk over the rows may start here. A scratch table that
    // has a row put in and taken out again and again keeps every deleted row (there is no
    // Pack), and its walks would otherwise grow with its history.
    virtual std::int64_t firstRow() const { return 1; }

    // Editing. The default is a table that cannot be edited: each raises MbError 642
    // "Table <name> cannot be edited." (see table_errors.h).
    // Adds a row with a value for every column (converted to the column types) and answers
    // its number.
    virtual std::int64_t insertRow(std::vector<MbValue> values,
                                   std::shared_ptr<const MapObject> object);
    // Deleted rows keep their numbers (no Pack), so later rows keep theirs.
    virtual void deleteRow(std::int64_t row);
    // Update: the row's values of some columns replaced; raises as insertRow does.
    virtual void updateRow(std::int64_t row, const std::vector<std::size_t>& columns,
                           std::vector<MbValue> values);
    // Delete Object: the row stays, without its object.
    virtual void deleteObject(std::int64_t row);
    // Create Map: adds the object column in the given CoordSys clause.
    virtual void makeMappable(const std::string& coordSysClause);
    // Commit Table: writes the rows to the table's file, if it has one.
    virtual void commit();
    // Drop Table: the table's files go with it. The default has none to delete.
    virtual void deleteFiles() {}
    // The table a query was made from; nullptr for other tables. Closing the base closes it.
    virtual const Table* baseTable() const { return nullptr; }

    // Table flags as Set Table and TableInfo see them.
    bool edited = false;
    bool fastEdit = false;
    bool undoOff = false;
    bool readOnly = false; // once set, stays for the session
    bool userBrowse = true, userClose = true, userEdit = true, userMap = true, userRemoveMap = true,
         userDisplayMap = true;

    // The row Fetch moved to; 0 before the first fetch, rowCount() + 1 past the end (EOT).
    std::int64_t currentRow = 0;

    // A number of this table object's own, never given to another in the process: what is
    // kept about a table (a map's geometry) must not be taken for a later table that happens
    // to live at the same address.
    std::uint64_t serial() const { return serial_; }
    // Counts the changes to rows and objects (insert, delete, Create Map, commit), so that
    // what is kept about the table knows when it is stale.
    std::uint64_t revision() const { return revision_; }

protected:
    // A table that edits calls this after each change to its rows or objects.
    void rowsChanged() { ++revision_; }

private:
    static std::uint64_t nextSerial();
    std::uint64_t serial_ = nextSerial();
    std::uint64_t revision_ = 0;
};

// The "Bounds (x1, y1) (x2, y2)" part of a CoordSys clause; nullopt when it has none.
std::optional<Bounds> boundsInClause(std::string_view clause);

} // namespace vellant::engine
