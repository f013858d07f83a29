#pragma once
// A table made by Create Table: its rows live in memory. When it was created with a File
// clause it also has a MapInfo TAB on disk, written through GDAL's MapInfo driver: at once
// when the table is created (empty) and when it is made mappable, and with its rows at each
// Commit Table. Insert and Delete change only the rows in memory (TableInfo's Edited turns
// true) until the commit, as the host keeps edits pending until they are saved. Drop Table
// deletes the files.

#include "engine/tables/table.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vellant::engine {

class MemoryTable : public Table {
public:
    // file: the .tab to keep, or empty for a table without a file. Raises MbError 825 when
    // the file cannot be written.
    // charset: Create Table's Charset, what the file is written in ("" lets the writer choose).
    MemoryTable(std::string name, std::vector<ColumnDef> columns, std::filesystem::path file,
                std::string charset = {});

    const std::string& name() const override { return name_; }
    TableType type() const override { return TableType::Base; }
    std::string path() const override { return file_.string(); }
    std::int64_t rowCount() const override { return static_cast<std::int64_t>(rows_.size()); }
    std::int64_t firstRow() const override { return static_cast<std::int64_t>(firstLive_) + 1; }
    const std::vector<ColumnDef>& columns() const override { return columns_; }
    bool isMappable() const override { return mappable_; }
    bool isRaster() const override { return false; }
    std::optional<Bounds> bounds() const override;
    std::string coordSysClause() const override { return mappable_ ? coordSys_ : std::string(); }
    std::optional<Bounds> coordSysBounds() const override;
    bool isEditable() const override { return !readOnly; }

    std::shared_ptr<const MapObject> object(std::int64_t row) const override;
    MbValue value(std::int64_t row, std::size_t column) const override;
    bool rowExists(std::int64_t row) const override;

    std::int64_t insertRow(std::vector<MbValue> values,
                           std::shared_ptr<const MapObject> object) override;
    void deleteRow(std::int64_t row) override;
    void updateRow(std::int64_t row, const std::vector<std::size_t>& columns,
                   std::vector<MbValue> values) override;
    void deleteObject(std::int64_t row) override;
    void makeMappable(const std::string& coordSysClause) override;
    void commit() override;
    void deleteFiles() override;

private:
    struct Row {
        bool deleted = false;
        std::vector<MbValue> values;
        std::shared_ptr<const MapObject> object;
    };
    const Row* rowAt(std::int64_t row) const;
    void checkWritable() const;
    void writeFile();

    std::string name_;
    std::vector<ColumnDef> columns_;
    std::filesystem::path file_;
    std::string charset_;
    std::vector<Row> rows_;
    // Every row before this index is deleted.
    std::size_t firstLive_ = 0;
    bool mappable_ = false;
    std::string coordSys_;
};

} // namespace vellant::engine
