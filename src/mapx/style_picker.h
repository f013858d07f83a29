#pragma once
// How a Style's pickers reach the user. A front end implements StylePicker with its style
// dialogs; QueuedStylePicker answers scripts and tests from a queue of answers, as the replay
// runner's "style <clause>" and "style cancel" give them. Styles travel as MapBasic clauses,
// the language of the host's style dialogs (style_clauses.h says which clauses a kind takes).

#include "mapx/style_clauses.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace vellant::mapx {

struct StylePickRequest {
    PickKind kind = PickKind::Region;
    std::string startClauses; // what the dialog opens with
};

class StylePicker {
public:
    virtual ~StylePicker() = default;
    // Blocks until the user has chosen: the chosen clauses, or nothing when the user cancelled.
    virtual std::optional<std::string> pick(const StylePickRequest& request) = 0;
};

class QueuedStylePicker : public StylePicker {
public:
    // The next pick chooses these clauses, or cancels.
    void answer(std::string clauses) { answers_.emplace_back(std::move(clauses)); }
    void cancel() { answers_.emplace_back(std::nullopt); }

    // The oldest answer not yet given; a pick with none left is cancelled, as a dialog that
    // nobody answers would be closed.
    std::optional<std::string> pick(const StylePickRequest& request) override;

    // Every pick asked for, oldest first.
    const std::vector<StylePickRequest>& requests() const { return requests_; }
    std::size_t pendingAnswers() const { return answers_.size(); }

private:
    std::deque<std::optional<std::string>> answers_;
    std::vector<StylePickRequest> requests_;
};

} // namespace vellant::mapx
