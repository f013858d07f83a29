#include "engine/engine.h"

#include "engine/host/host_services.h"
#include "engine/lang/cursor.h"
#include "engine/lang/lexer.h"
#include "engine/lang/registry.h"
#include "engine/lang/variables.h"
#include "engine/mb_error.h"
#include "engine/render/map_renderer.h"
#include "engine/tables/catalog.h"
#include "engine/windows/window_manager.h"

namespace vellant::engine {

namespace {

// Statements nest through Run Command; deeper than this is a command that runs itself.
constexpr int kMaxRunDepth = 32;
// No statement of the host has more leading words than this.
constexpr std::size_t kMaxLeadingWords = 6;

class DepthGuard {
public:
    explicit DepthGuard(int& depth) : depth_(depth) {
        if (depth_ >= kMaxRunDepth) raiseMb(kMbSyntax, "Run Command nested too deeply.");
        ++depth_;
    }
    ~DepthGuard() { --depth_; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

private:
    int& depth_;
};

void assign(Engine& engine, Cursor& cursor) {
    const std::string name = cursor.identifier();
    cursor.expectSymbol("=");
    const MbValue value = cursor.expression();
    cursor.expectEnd();
    engine.variables().assign(name, value);
}

} // namespace

Engine::Engine()
    : registry_(std::make_unique<Registry>()), variables_(std::make_unique<Variables>()),
      catalog_(std::make_unique<Catalog>()), windows_(std::make_unique<WindowManager>(*catalog_)),
      host_(std::make_unique<HostServices>()), renderer_(std::make_unique<MapRenderer>(*this)) {
    registerCoreLanguage(*registry_);
    registerTableLanguage(*registry_);
    registerWindowLanguage(*registry_);
    registerHostLanguage(*registry_);
    registerRenderLanguage(*registry_);
    registerWorkspaceLanguage(*registry_);
}

Engine::~Engine() = default;

void Engine::run(std::string_view statement) {
    DepthGuard depth(runDepth_);
    Cursor cursor(*this, statement, tokenize(statement));
    if (cursor.atEnd()) return; // the host accepts an empty command and does nothing

    const Token& first = cursor.peek();
    const bool assignment = first.kind == Token::Kind::Identifier &&
                            cursor.peek(1).kind == Token::Kind::Symbol &&
                            cursor.peek(1).text == "=";
    if (assignment && variables_->find(first.lower) != nullptr) {
        assign(*this, cursor);
        return;
    }

    std::vector<std::string_view> words;
    for (std::size_t i = 0; i < kMaxLeadingWords; ++i) {
        const Token& t = cursor.peek(i);
        if (t.kind != Token::Kind::Identifier) break;
        words.push_back(t.lower);
    }
    const Registry::StatementMatch match = registry_->findStatement(words);
    if (match.handler == nullptr) {
        if (assignment) assign(*this, cursor); // reports the undefined variable
        raiseMb(kMbSyntax, "Unrecognized command: " + first.text + ".");
    }
    for (std::size_t i = 0; i < match.wordCount; ++i)
        cursor.advance();
    (*match.handler)(*this, cursor);
    cursor.expectEnd();
}

MbValue Engine::evaluate(std::string_view expression) {
    Cursor cursor(*this, expression, tokenize(expression));
    MbValue value = cursor.expression();
    cursor.expectEnd();
    return value;
}

void Engine::runMenuCommand(int id) {
    if (!windows_->runMenuCommand(*this, id)) {
        raiseMb(kMbCmdNotSupported, "Menu command " + std::to_string(id) + " is not supported.");
    }
}

void Engine::windowContentsChanged(int windowId) {
    host_->windowContentsChanged(windowId);
}

} // namespace vellant::engine
