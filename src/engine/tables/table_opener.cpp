#include "engine/tables/table_opener.h"

#include "engine/tables/gdal_table.h"
#include "engine/tables/raster_table.h"
#include "engine/tables/table_errors.h"
#include "engine/tables/table_path.h"

#include <cctype>

namespace vellant::engine {

std::unique_ptr<Table> openTableFile(std::string_view written, const std::string& alias) {
    const std::optional<std::filesystem::path> file = findTableFile(written);
    if (!file) raiseCannotOpen(tablePathFromText(written).string(), "the file does not exist.");
    const std::string path = file->string();
    const std::string name = alias.empty() ? defaultTableName(*file) : alias;
    std::string extension = file->extension().string();
    for (char& c : extension)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (extension == ".tab" && RasterTable::isRasterTab(path)) return RasterTable::open(path, name);
    return GdalTable::open(path, name);
}

} // namespace vellant::engine
