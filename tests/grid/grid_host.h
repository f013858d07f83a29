#pragma once
// A layer grid over the embedded host: a user's map of every kind of layer, its clone as the
// view map, the MapInfo facades, the catalogue built and the log open. View layers, top first:
// 1 qregions (a query), 2 raster, 3 regions, 4 lines, 5 points, 6 text, 7 mixed, 8 scratch (no
// objects); the cosmetic layer 0 stands in row 1. The scratch tables of the style samples are made
// as the form's load makes them.

#include "engine/engine.h"
#include "engine/host/mapinfo_automation.h"
#include "platform/flexgrid.h"
#include "support/session_fixture.h"

#include <memory>
#include <string>

namespace vellant::grid::testing {

class GridHost : public vellant::testing::SessionFixture {
protected:
    enum Layer { kQuery = 1, kRaster, kRegions, kLines, kPoints, kText, kMixed, kScratch };
    static constexpr int kLayers = 8;

    GridHost();
    ~GridHost() override { app->close(); }

    void run(const std::string& statement);
    std::string eval(const std::string& expression);
    // LayerInfo of a layer of a map window; the view's by default.
    std::string info(int layer, int code, int window = 0);
    void setViewLayer(int layer, const std::string& clause);
    static std::string folder();
    // Where the style samples are written.
    std::string temporaryFolder() const;

    void load();
    // The grid on a layer's row with its type and kind, as a click prepares them.
    void onLayer(int layer);
    void set(const std::string& key, const Variant& value, bool apply, bool paint = true);

    platform::FlexGrid& grid() { return form->LyrGrid; }
    int col(const std::string& key);
    int row(int layer);
    const platform::GridCell& cell(int layer, const std::string& key);
    std::string picture(int layer, const std::string& key) { return cell(layer, key).picture.name; }
    std::string text(int layer, const std::string& key) { return cell(layer, key).text; }
    bool gray(int layer, const std::string& key);
    bool clickable(int layer, const std::string& key);
    bool logged(const std::string& line) const;

    std::shared_ptr<engine::Engine> engine = std::make_shared<engine::Engine>();
    std::shared_ptr<engine::MapInfoAutomation> app;
    int userMap = 0;
    int view = 0;
};

} // namespace vellant::grid::testing
