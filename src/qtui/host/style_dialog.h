#pragma once
// The host's style dialogs: Region Style, Line Style, Symbol Style and Text Style, as the
// companion opens them for a client's "Dialog <kind> <clause>". Each opens seeded with the
// clause (the host's initial style of its kind when the clause cannot be read), shows the style
// at hand in a sample box as the map will draw it, and answers the style chosen as a clause in
// the host's own form ("Brush (2,255,16777215)").

#include "engine/host/companion.h"

#include <QDialog>
#include <memory>
#include <string>

class QFormLayout;
class QGroupBox;

namespace vellant::qtui {

class StylePreview;

class StyleDialog : public QDialog {
    Q_OBJECT
public:
    // The dialog of that kind, seeded with the clause.
    static std::unique_ptr<StyleDialog>
    create(engine::StyleDialogKind kind, const std::string& startClause, QWidget* parent = nullptr);

    virtual engine::StyleDialogKind kind() const = 0;
    // The style as the controls now stand.
    virtual std::string clause() const = 0;

protected:
    StyleDialog(const QString& title, QWidget* parent);
    // The controls' groups beside the sample box, OK and Cancel under them.
    void arrange(std::initializer_list<QGroupBox*> groups);
    // A titled group of labelled rows.
    static QGroupBox* group(const QString& title, QFormLayout*& rows);
    // Every control calls this when it changes.
    void styleChanged();
    virtual void showSample(StylePreview& preview) const = 0;

private:
    StylePreview* preview_ = nullptr;
};

} // namespace vellant::qtui
