#include "styles/sample_cells.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "base/int16.h"
#include "grid/column_catalogue.h"
#include "grid/header_cells.h"
#include "grid/layer_rows.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mi_props_label_props.h"
#include "platform/file_system_object.h"
#include "platform/picture.h"
#include "prefs/settings.h"
#include "session/session.h"
#include "styles/style_samples.h"
#include "styles/style_strings.h"

namespace vellant::styles {

namespace {

constexpr std::int16_t kSymbol = 2;
constexpr std::int16_t kText = 5;
// A sample's cell wants a twentieth of a point per twip of height, twice that of width.
constexpr int kTwipsPerPoint = 20;

bool outsideTheClickedGroup(const Session& s) {
    return s.gGroupClick && s.gLayerGroup[s.gLayer] != s.gLayerGroup[s.gClickRow];
}

// The sample is the same for every row of the range; a row whose sample was never written keeps
// its old picture.
void putSample(Session& s, platform::FlexGrid& grid) {
    if (s.gFSO && s.gFSO->fileexists(s.gSampleFile))
        grid.setCellPicture(platform::LoadPicture(s.gSampleFile));
}

} // namespace

void updateMicell(Session& s, std::int16_t kind, std::string style, bool pick) {
    onErrorGoTo(
        [&] {
            if (style.empty()) return;
            const std::int16_t oldLayer = s.gLayer;
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            const bool isOverride = grid.Col() == grid::getcolnum(s, "Override");
            pentoline(style);
            s.gStyleValue = style;
            std::int16_t size = 0;
            if (kind == kText) size = parsefont(s, style);
            if (kind == kSymbol) size = parsesymbol(s, style);
            // One sample serves the whole range.
            exportfeaturesample(s, kind, style, size);

            for (s.gLayer = static_cast<std::int16_t>(s.gPendFirst); s.gLayer <= s.gPendLast;
                 ++s.gLayer) {
                if (outsideTheClickedGroup(s)) continue;
                grid.setRow(grid::LayerToRow(s, static_cast<std::uint16_t>(s.gLayer)));
                // Sizes are counted in 16 bits: a huge font overflows here.
                if (kind == kText || kind == kSymbol)
                    grid::Resize_RowCol(s, s.gLayer, grid.Col(),
                                        std::int16_t{Int16(size) * Int16(kTwipsPerPoint)},
                                        std::int16_t{Int16(size) * Int16(2 * kTwipsPerPoint)});
                putSample(s, grid);
                if (isOverride) {
                    s.lyr().setoverridestyle(kTrue);
                } else if (pick) {
                    // The labels of every row follow the first row's visibility.
                    s.gClickRow = s.gPendFirst;
                    s.labelProps().setVisible(toFlag(s.viewLabelProps().Visible()));
                }
                if (pick && kind == kText)
                    hostmodel::asMIPropsLabelProps(s.labelProps()).setStyle(style);
            }

            // A sample that was never saved has no file to remove.
            if (Right(s.gSampleFile, 3) == "bmp" && s.gFSO && s.gFSO->fileexists(s.gSampleFile))
                s.gFSO->DeleteFile(s.gSampleFile);
            s.gLayer = oldLayer;
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from updateMicell " + e.description());
        });
}

void updateMicellfromPick(Session& s) {
    onErrorGoTo(
        [&] {
            if (!s.gMBGlobals) raiseError(kErrObjectNotSet);
            const std::string style = s.gMBGlobals->MBGlobals("currstyle").Value();
            updateMicell(s, static_cast<std::int16_t>(s.gPendCol), style, true);
            s.layerForm().LyrGrid.setRedraw(true);
            closestylewin(s);
            hostmodel::MapRedraw(s, "on");
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from updateMicellfromPick " + e.description());
        });
}

} // namespace vellant::styles
