#pragma once
// The facades over a real embedded host: the sample tables (regions, lines, points, text,
// mixed, raster), an empty table and a query table on a map, a clone of it as the view, the
// facades made by class name, and a session of the test's own that keeps what they log and
// show. Every call passes a recorder that keeps the exact strings.

#include "base/basic_text.h"
#include "engine/engine.h"
#include "engine/host/mapinfo_automation.h"
#include "hostmodel/facade_context.h"
#include "hostmodel/mapper.h"
#include "hostmodel/mi_props.h"
#include "hostmodel/mi_props_label_props.h"
#include "hostmodel/mi_props_style.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace vellant::hostmodel::testing {

using Strings = std::vector<std::string>;

// Passes every call on and keeps what was sent. It can refuse the Do commands that begin with
// a text (error 1000 "refused") and keep a last error that no call clears.
class RecordingApp : public MapInfoApp {
public:
    explicit RecordingApp(std::shared_ptr<MapInfoApp> host) : host_(std::move(host)) {}
    void Do(const std::string& command) override;
    std::string eval(const std::string& expression) override {
        asked.push_back(expression);
        return host_->eval(expression);
    }
    void RunMenuCommand(int id) override { host_->RunMenuCommand(id); }
    std::string LastErrorMessage() const override {
        return staleError ? *staleError : host_->LastErrorMessage();
    }
    int LastErrorCode() const override { return host_->LastErrorCode(); }
    void SetCallback(std::shared_ptr<MapInfoCallback> c) override { host_->SetCallback(c); }
    int MBApplicationsCount() const override { return host_->MBApplicationsCount(); }
    MBApplication& MBApplications(int index) override { return host_->MBApplications(index); }

    Strings sent, asked; // every Do, every eval
    std::string refusePrefix;
    std::optional<std::string> staleError;

private:
    std::shared_ptr<MapInfoApp> host_;
};

class TestContext : public FacadeContext {
public:
    MapInfoApp& mapInfo() override { return *app; }
    bool isMapInfoHost() const override { return isMapInfo; }
    std::int32_t viewWindow() const override { return view; }
    std::int32_t userMapWindow() const override { return mapWin; }
    std::int16_t currentLayer() const override { return layer; }
    std::int16_t currentLayerType() const override { return layerType; }
    std::int32_t clickRow() const override { return click; }
    std::int32_t toggleRow() const override { return toggle; }
    IMap& mapObject() override;
    ILayer& layerObject() override;
    const std::string& styleValue() const override { return style; }
    void setBorderPen(const std::string& pen) override { borderPen = pen; }
    std::int32_t& colIter() override { return iter; }
    void log(const std::string& line) override { logged.push_back(line); }
    void showMessage(const std::string& text) override { shown.push_back(text); }

    std::shared_ptr<RecordingApp> app;
    bool isMapInfo = true;
    std::int32_t view = 0, mapWin = 0, click = 0, toggle = 0, iter = 0;
    std::int16_t layer = 0, layerType = 0;
    std::shared_ptr<IMap> map;
    std::shared_ptr<ILayer> lyr;
    std::string style, borderPen;
    Strings logged, shown;
};

// A member's answer as text: logicals "T" or "F", numbers through Str.
inline std::string text(bool b) {
    return b ? "T" : "F";
}
inline std::string text(const std::string& s) {
    return s;
}
template <class N>
requires std::is_arithmetic_v<N> std::string text(N n) {
    return Str(n);
}
template <auto Member> auto read() {
    return [](auto& object) { return text((object.*Member)()); };
}
template <auto Member, class V> auto write(V value) {
    return [value](auto& object) { (object.*Member)(value); };
}

class FacadeHost : public ::testing::Test {
protected:
    FacadeHost();
    ~FacadeHost() override { host->close(); }

    // Makes the view's layer of a table gLayer (with its gLayerType); the recorder starts afresh.
    void onLayer(const std::string& table);
    // <w> view, <m> user's map, <i> gLayer, <t> its table, filled as the facades fill them.
    std::string fill(std::string text) const;
    // Straight to the host; a failure fails the test.
    std::string ask(const std::string& expression);
    void run(const std::string& statement);
    // The host goes away and later calls raise 462; answers that error's text.
    std::string closeHost();
    void clear() {
        app->sent.clear();
        app->asked.clear();
    }

    std::shared_ptr<engine::Engine> engine = std::make_shared<engine::Engine>();
    std::shared_ptr<engine::MapInfoAutomation> host;
    std::shared_ptr<RecordingApp> app;
    TestContext context;
    platform::AutomationRegistry registry;
    std::string table;
    std::shared_ptr<Mapper> map;
    std::shared_ptr<MIProps> lyr;
    std::shared_ptr<MIPropsLabelProps> labels;
    std::shared_ptr<MIPropsStyle> style;
};

} // namespace vellant::hostmodel::testing
