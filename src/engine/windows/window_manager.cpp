#include "engine/windows/window_manager.h"

#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/tables/catalog.h"
#include "engine/windows/cosmetic_table.h"
#include "engine/windows/geodesy.h"
#include "engine/windows/map_extent.h"
#include "engine/windows/map_layers.h"
#include "engine/windows/map_view.h"
#include "engine/windows/table_layer.h"
#include "engine/windows/window_errors.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace vellant::engine {

namespace {

constexpr double kTwipsPerInch = 1440.0;
// New windows step down and right from the top left, as the host cascades them.
constexpr double kCascadeStep = 0.25;
constexpr int kCascadeLength = 10;

bool sameName(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) ==
               std::tolower(static_cast<unsigned char>(y));
    });
}

bool isMapTool(int id) {
    // The tools of the map window's tool bar: selection, grabber, zoom, info, label, ruler,
    // drawing and the rest that act on a click in a map.
    return (id >= 1701 && id <= 1723) || id == 1733 || id == 1734 || id == 1736;
}

CoordSys tableCoordSys(const Table& table) {
    try {
        const std::string clause = table.coordSysClause();
        if (!clause.empty()) return parseCoordSys(clause);
    } catch (const MbError&) {
        // Fall through: a clause we cannot read leaves the map in longitude/latitude.
    }
    return longLatCoordSys();
}

void initialView(MapState& map, const Catalog& catalog, const WindowPlacement& placement) {
    if (const auto box = mapExtent(catalog, map)) {
        fitView(map, *box, placement.width, placement.height);
    } else if (map.coordSys.bounds) {
        fitView(map, *map.coordSys.bounds, placement.width, placement.height);
    } else if (map.coordSys.isLongLat()) {
        map.centreX = 0;
        map.centreY = 0;
        map.zoomMetres = 360 * metresPerDegreeLongitude(0);
    }
}

} // namespace

WindowManager::WindowManager(Catalog& catalog) : catalog_(catalog) {}

WindowManager::~WindowManager() {
    for (const auto& window : windows_) {
        if (window->cosmeticTable_) catalog_.detach(*window->cosmeticTable_);
    }
}

void WindowManager::place(Window& window, const NewWindowOptions& options) const {
    const double cascade = kCascadeStep * static_cast<double>(count() % kCascadeLength);
    WindowPlacement& p = window.placement;
    p.x = options.x.value_or(cascade);
    p.y = options.y.value_or(cascade);
    if (options.width) p.width = *options.width;
    if (options.height) p.height = *options.height;
    window.state = options.state;
    if (nextDocument_.parent) window.settings.parent = *nextDocument_.parent;
    if (nextDocument_.style) window.settings.documentStyle = *nextDocument_.style;
}

Window& WindowManager::adopt(std::unique_ptr<Window> window) {
    if (window->map) {
        window->cosmeticTable_ = std::make_unique<CosmeticTable>(*window->map);
        catalog_.attach(*window->cosmeticTable_);
    }
    nextDocument_ = {};
    Window& adopted = *window;
    windows_.push_back(std::move(window));
    order_.insert(order_.begin(), adopted.id());
    retitle(adopted);
    syncFrame(adopted);
    changed.notify(WindowEvent::Opened, adopted.id());
    changed.notify(WindowEvent::Front, adopted.id());
    return adopted;
}

Window& WindowManager::openMap(const Catalog& catalog, const std::vector<std::string>& tables,
                               const NewWindowOptions& options) {
    MapState map;
    for (const std::string& name : tables)
        map.layers.push_back(makeTableLayer(catalog.get(name)));
    map.coordSys = tables.empty() ? longLatCoordSys() : tableCoordSys(catalog.get(tables.front()));
    map.cosmetic.name = "Cosmetic" + std::to_string(freeCosmeticNumber());
    map.cosmetic.kind = LayerKind::Cosmetic;
    map.cosmetic.editable = true;

    auto window = std::make_unique<Window>(nextId_++, WindowType::Map);
    place(*window, options);
    // The view is made before the window counts as open, so that a failure opens nothing.
    initialView(map, catalog, window->placement);
    window->map = std::move(map);
    return adopt(std::move(window));
}

Window& WindowManager::openBrowser(const Catalog& catalog, const std::string& table,
                                   std::vector<std::string> columns,
                                   const NewWindowOptions& options) {
    const Table& source = catalog.get(table);
    auto window = std::make_unique<Window>(nextId_++, WindowType::Browser);
    window->browseTable = source.name();
    window->browseColumns = std::move(columns);
    place(*window, options);
    return adopt(std::move(window));
}

Window& WindowManager::cloneMap(int id) {
    const Window& source = getMap(id);
    auto window = std::make_unique<Window>(nextId_++, WindowType::Map);
    window->map = source.map;
    window->map->redraw = true; // a new window draws, whatever its model was told
    window->map->cosmetic.name = "Cosmetic" + std::to_string(freeCosmeticNumber());
    // Where the clone lives is for Set Next Document to say, not the source.
    window->settings = source.settings;
    window->settings.parent = 0;
    window->settings.documentStyle = 0;
    window->settings.visible = true;
    if (source.customTitle_) {
        window->customTitle_ = true;
        window->title_ = source.title_;
    }
    NewWindowOptions options;
    options.x = source.placement.x;
    options.y = source.placement.y;
    options.width = source.placement.width;
    options.height = source.placement.height;
    place(*window, options);
    return adopt(std::move(window));
}

void WindowManager::close(int id) {
    const Window& window = get(id);
    // The cosmetic table leaves the catalog before it is destroyed with the window.
    const std::vector<std::string> gone = window.cosmeticTable_
                                              ? catalog_.detach(*window.cosmeticTable_)
                                              : std::vector<std::string>{};
    std::erase(order_, id);
    std::erase_if(windows_, [id](const auto& w) { return w->id() == id; });
    changed.notify(WindowEvent::Closed, id);
    if (!order_.empty()) changed.notify(WindowEvent::Front, order_.front());
    for (const std::string& table : gone)
        tableClosed(table);
}

int WindowManager::mostRecentWindow() const {
    return windows_.empty() ? 0 : windows_.back()->id();
}

int WindowManager::idAtNumber(int number) const {
    if (number < 1 || number > count()) return 0;
    return windows_[static_cast<std::size_t>(number - 1)]->id();
}

std::vector<int> WindowManager::ids() const {
    std::vector<int> out;
    out.reserve(windows_.size());
    for (const auto& w : windows_)
        out.push_back(w->id());
    return out;
}

Window* WindowManager::find(int id) {
    for (const auto& w : windows_)
        if (w->id() == id) return w.get();
    return nullptr;
}

const Window* WindowManager::find(int id) const {
    return const_cast<WindowManager*>(this)->find(id);
}

Window& WindowManager::get(int id) {
    Window* window = find(id);
    if (!window) raiseInvalidWindowId(id);
    return *window;
}

Window& WindowManager::getMap(int id) {
    Window& window = get(id);
    if (window.type() != WindowType::Map) raiseNotAMapWindow(id);
    return window;
}

Window& WindowManager::resolve(double which) {
    if (which != std::floor(which) || std::fabs(which) > 2147483647.0) raiseInvalidWindowId(which);
    const auto value = static_cast<int>(which);
    if (Window* byId = find(value)) return *byId;
    if (value == 0) {
        if (windows_.empty()) raiseInvalidWindowId(which);
        return *windows_.back();
    }
    if (const int id = idAtNumber(std::abs(value))) return get(id);
    raiseInvalidWindowId(which);
}

Window& WindowManager::topMap() {
    for (int id : order_) {
        Window& window = get(id);
        if (window.type() == WindowType::Map) return window;
    }
    raiseNoMapWindow();
}

void WindowManager::bringToFront(int id) {
    get(id);
    std::erase(order_, id);
    order_.insert(order_.begin(), id);
    changed.notify(WindowEvent::Front, id);
}

void WindowManager::setTitle(int id, std::optional<std::string> title) {
    Window& window = get(id);
    window.customTitle_ = title.has_value();
    if (title) window.title_ = std::move(*title);
    window.baseTitle_.clear(); // a made title is numbered afresh
    retitle(window);
    syncFrame(window);
    changed.notify(WindowEvent::Title, id);
}

void WindowManager::placementChanged(int id) {
    syncFrame(get(id));
    changed.notify(WindowEvent::Placement, id);
}

std::string WindowManager::madeTitle(const Window& window) const {
    if (window.type() == WindowType::Browser) return window.browseTable + " Browser";
    std::string names;
    for (const Layer& layer : window.map->layers) {
        if (!names.empty()) names += ',';
        names += layer.name;
    }
    return names.empty() ? "Map" : names + " Map";
}

void WindowManager::retitle(Window& window) {
    if (window.customTitle_) return;
    const std::string base = madeTitle(window);
    if (base == window.baseTitle_) return;
    int instance = 1;
    for (bool taken = true; taken; ++instance) {
        taken = std::ranges::any_of(windows_, [&](const auto& other) {
            return other.get() != &window && !other->customTitle_ && other->baseTitle_ == base &&
                   other->titleInstance_ == instance;
        });
        if (!taken) break;
    }
    window.baseTitle_ = base;
    window.titleInstance_ = instance;
    window.title_ = instance > 1 ? base + ":" + std::to_string(instance) : base;
}

void WindowManager::syncFrame(Window& window) {
    platform::Control& frame = window.frame();
    frame.setCaption(window.title_);
    frame.setLeft(static_cast<int>(std::lround(window.placement.x * kTwipsPerInch)));
    frame.setTop(static_cast<int>(std::lround(window.placement.y * kTwipsPerInch)));
    frame.setWidth(static_cast<int>(std::lround(window.placement.width * kTwipsPerInch)));
    frame.setHeight(static_cast<int>(std::lround(window.placement.height * kTwipsPerInch)));
    frame.setVisible(window.settings.visible);
}

int WindowManager::freeCosmeticNumber() const {
    // Open maps' cosmetic tables are in the catalog, so one look-up covers them and any table
    // opened under such a name.
    for (int n = 1;; ++n) {
        if (catalog_.find("Cosmetic" + std::to_string(n)) == nullptr) return n;
    }
}

void WindowManager::mapChanged(int id, bool layerListChanged) {
    Window& window = get(id);
    if (layerListChanged) retitle(window);
    syncFrame(window);
    changed.notify(WindowEvent::Contents, id);
}

void WindowManager::addCosmeticObject(Engine& engine, int id,
                                      std::shared_ptr<const MapObject> object) {
    Window& window = id == 0 ? topMap() : getMap(id);
    window.cosmeticTable_->insertRow({}, std::move(object));
    mapChanged(window.id());
    engine.windowContentsChanged(window.id());
}

void WindowManager::addLayers(const Catalog& catalog, int id,
                              const std::vector<std::string>& tables, bool automatic) {
    Window& window = getMap(id);
    MapState& map = *window.map;
    // Every table is checked before the map changes, so a bad name leaves the map as it was.
    std::vector<Layer> added;
    std::vector<int> ranks;
    for (const std::string& name : tables) {
        const Table& table = catalog.get(name);
        added.push_back(makeTableLayer(table));
        ranks.push_back(stackingRank(table));
    }
    auto rankAt = [&](std::size_t index) {
        const Table* table = catalog.find(map.layers[index].name);
        return table ? stackingRank(*table) : 1;
    };
    for (std::size_t i = 0; i < added.size(); ++i) {
        std::size_t position = i; // without Auto: on top, in the order given
        if (automatic) {
            position = 0;
            while (position < map.layers.size() && rankAt(position) > ranks[i])
                ++position;
        }
        map.layers.insert(map.layers.begin() + static_cast<std::ptrdiff_t>(position),
                          std::move(added[i]));
    }
    mapChanged(window.id());
}

void WindowManager::removeLayers(int id, const std::vector<int>& numbers) {
    Window& window = getMap(id);
    engine::removeLayers(*window.map, numbers);
    mapChanged(id);
}

void WindowManager::tableClosed(std::string_view table) {
    std::vector<int> emptied;
    for (const auto& window : windows_) {
        if (window->type() == WindowType::Browser) {
            if (sameName(window->browseTable, table)) emptied.push_back(window->id());
            continue;
        }
        auto& layers = window->map->layers;
        const auto removed =
            std::erase_if(layers, [&](const Layer& layer) { return sameName(layer.name, table); });
        if (removed == 0) continue;
        if (layers.empty()) {
            emptied.push_back(window->id());
        } else {
            mapChanged(window->id());
        }
    }
    for (int id : emptied) {
        // Closing one may have closed the next, through the queries of its cosmetic table.
        if (find(id) != nullptr) close(id);
    }
}

void WindowManager::setMapTool(int tool) {
    mapTool_ = tool;
    changed.notify(WindowEvent::Tool, tool);
}

bool WindowManager::runMenuCommand(Engine& /*engine*/, int id) {
    if (id == kCloneMapCommand) {
        const int front = frontWindow();
        if (front == 0) raiseNoMapWindow();
        cloneMap(getMap(front).id());
        return true;
    }
    if (isMapTool(id)) {
        setMapTool(id);
        return true;
    }
    return false;
}

} // namespace vellant::engine
