#include "styles/mapx_samples.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/header_cells.h"
#include "grid/layer_rows.h"
#include "hostmodel/mapx_style.h"
#include "prefs/settings.h"
#include "session/session.h"

namespace vellant::styles {

namespace {

constexpr const char* kClipboard = "CLIPBOARD";
constexpr std::int16_t kBitmapFormat = 1;
constexpr const char* kTextSample = "Ab";
constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr int kTwipsPerPoint = 20;

struct CellPixels {
    double width;
    double height;
};

CellPixels cellPixels(Session& s, platform::FlexGrid& grid, int column, int row) {
    const platform::ScreenMetrics screen = s.toolkit.Screen();
    return {static_cast<double>(grid.ColWidth(column)) / screen.TwipsPerPixelX,
            static_cast<double>(grid.RowHeight(row)) / screen.TwipsPerPixelY};
}

} // namespace

void updateMXcell(Session& s, std::int16_t kind, std::int16_t column, hostmodel::MXStyle& style) {
    onErrorGoTo(
        [&] {
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            grid.setRow(grid::LayerToRow(s, static_cast<std::uint16_t>(s.gLayer)));
            grid.setCol(column);
            // The room is made in the row and column of the click, which during a load are
            // the row at hand and the column the last click left.
            if (kind == 2) {
                const double size = style.SymbolFont()->Size() * kTwipsPerPoint;
                grid::Resize_RowCol(s, s.gRow, s.gCol, size, size);
            } else if (kind == 5) {
                const double size = style.TextFont()->Size() * kTwipsPerPoint;
                grid::Resize_RowCol(s, s.gRow, s.gCol, size, size * 2);
            }
            const CellPixels cell = cellPixels(s, grid, column, s.gRow);
            switch (kind) {
            case 0:
                style.ExportRegionSample(kClipboard, kBitmapFormat, cell.width, cell.height);
                break;
            case 1:
                style.ExportLineSample(kClipboard, kBitmapFormat, cell.width, cell.height);
                break;
            case 2:
                style.ExportSymbolSample(kClipboard, kBitmapFormat, cell.width, cell.height);
                break;
            case 5:
                style.ExportTextSample(kClipboard, kBitmapFormat, cell.width, cell.height,
                                       kTextSample, kWhite);
                break;
            default:
                break;
            }
            // A kind with no sample takes whatever the clipboard holds.
            grid.setCellPicture(s.toolkit.ClipboardGetPicture());
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from updateMXcell " + e.description());
        });
}

void exportLabelSample(Session& s, std::int16_t layer, hostmodel::MXStyle& style) {
    platform::FlexGrid& grid = s.layerForm().LyrGrid;
    const double size = style.TextFont()->Size() * kTwipsPerPoint;
    grid::Resize_RowCol(s, layer, grid.Col(), size, size * 2);
    const int row = grid::LayerToRow(s, static_cast<std::uint16_t>(layer));
    const CellPixels cell = cellPixels(s, grid, grid.Col(), row);
    style.ExportTextSample(kClipboard, kBitmapFormat, cell.width, cell.height, kTextSample, kWhite);
    grid.setCellPicture(s.toolkit.ClipboardGetPicture());
}

void pickMXStyle(std::int16_t kind, hostmodel::MXStyle& style) {
    switch (kind) {
    case 0:
        style.PickRegion();
        break;
    case 1:
        style.PickLine();
        break;
    case 2:
        style.PickSymbol();
        break;
    case 5:
        style.PickText();
        break;
    default:
        break;
    }
}

} // namespace vellant::styles
