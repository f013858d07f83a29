#pragma once
// The sample box of a style dialog: the style at hand drawn by the map renderer's painters on a
// white ground, the way the map will show it.

#include "engine/tables/style_clause.h"

#include <QFrame>
#include <variant>

namespace vellant::qtui {

class StylePreview : public QFrame {
public:
    using Style =
        std::variant<engine::BrushStyle, engine::PenStyle, engine::SymbolStyle, engine::FontStyle>;

    explicit StylePreview(QWidget* parent = nullptr);

    void setStyle(const Style& style);
    const Style& style() const { return style_; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Style style_;
};

} // namespace vellant::qtui
