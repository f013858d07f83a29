#include "qtui/forms/control_view.h"

#include "hostmodel/mapx_control.h"
#include "platform/combo_box.h"
#include "platform/flexgrid.h"
#include "qtui/art/artwork.h"
#include "qtui/forms/form_view.h"
#include "qtui/forms/key_codes.h"
#include "qtui/grid/grid_view.h"
#include "qtui/host/native_windows.h"
#include "qtui/mapx/map_picture_widget.h"
#include "qtui/ole_colors.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>

namespace vellant::qtui {

namespace {

using K = ControlKind;

// The largest picture a push button shows beside its caption, in pixels.
constexpr int kButtonIconPixels = 20;

struct Applying {
    int& depth;
    explicit Applying(int& d) : depth(d) { ++depth; }
    ~Applying() { --depth; }
    Applying(const Applying&) = delete;
    Applying& operator=(const Applying&) = delete;
};

std::string artName(const ControlDesign& design, const platform::Control& control) {
    if (design.art == "-") return {};
    std::string name = design.art.empty() ? control.Name() : std::string(design.art);
    // A graphical option of an array shows the picture of its index.
    if (design.kind == K::PictureOption && control.Index() >= 0)
        name += std::to_string(control.Index());
    return name;
}

} // namespace

ControlView::ControlView(platform::Control& control, const ControlDesign& design, FormView& form,
                         QWidget* parent)
    : QObject(nullptr), control_(&control), hwnd_(control.hWnd()), design_(design), form_(form),
      alive_(std::make_shared<bool>(true)) {
    makeWidget(parent);
    if (widget_ == nullptr) return;
    std::weak_ptr<bool> alive = alive_;
    token_ = control.subscribe([this, alive](platform::Control&, platform::Property p) {
        if (!alive.expired()) apply(p);
    });
    wireInput();
    form.host().nativeWindows().add(control.hWnd(), widget_);
}

ControlView::~ControlView() {
    detach();
}

void ControlView::detach() {
    if (control_ == nullptr) return;
    if (widget_) {
        form_.host().nativeWindows().remove(hwnd_);
        widget_->removeEventFilter(this);
        if (auto* grid = qobject_cast<GridView*>(widget_.data())) grid->detach();
    }
    alive_.reset();
    control_ = nullptr;
}

void ControlView::input(const std::function<void()>& work) {
    if (control_ == nullptr || applying_ != 0) return;
    // A hidden form takes no input: what its widgets do as it goes (a combo box that matches
    // its text once more as it loses the focus) is not the user's.
    if (form_.form() == nullptr || !form_.form()->Visible()) return;
    form_.host().guardInput(work);
}

// ---- the widget of each kind ----

void ControlView::makeWidget(QWidget* parent) {
    platform::Control& control = *control_;
    switch (design_.kind) {
    case K::None:
        return;
    case K::Grid:
        if (auto* grid = dynamic_cast<platform::FlexGrid*>(&control)) {
            auto* view = new GridView(*grid, parent);
            view->setScale(form_.scale());
            view->setInputGuard([this](const std::function<void()>& work) { input(work); });
            widget_ = view;
        }
        break;
    case K::Frame:
        widget_ = new QGroupBox(parent);
        break;
    case K::Panel:
        widget_ = new QWidget(parent);
        break;
    case K::MapFrame: {
        auto* frame = new QFrame(parent);
        frame->setFrameShape(QFrame::StyledPanel);
        frame->setFrameShadow(QFrame::Sunken);
        frame->setAutoFillBackground(true);
        widget_ = frame;
        break;
    }
    case K::MapControl:
        widget_ = new MapPictureWidget(parent);
        showControlMap();
        break;
    case K::Button:
        widget_ = new QPushButton(parent);
        break;
    case K::ToolButton:
    case K::PictureOption: {
        auto* button = new QToolButton(parent);
        button->setCheckable(design_.kind == K::PictureOption);
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        widget_ = button;
        break;
    }
    case K::CheckBox:
        widget_ = new QCheckBox(parent);
        break;
    case K::OptionButton: {
        auto* option = new QRadioButton(parent);
        // The set is the model's to keep: see chooseOption.
        option->setAutoExclusive(false);
        widget_ = option;
        break;
    }
    case K::Label: {
        auto* label = new QLabel(parent);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        if (control.onClick) label->setCursor(Qt::PointingHandCursor);
        widget_ = label;
        break;
    }
    case K::Picture: {
        auto* picture = new QLabel(parent);
        picture->setAlignment(Qt::AlignCenter);
        widget_ = picture;
        break;
    }
    case K::TextBox:
        widget_ = new QLineEdit(parent);
        break;
    case K::ComboBox: {
        auto* combo = new QComboBox(parent);
        combo->setEditable(true);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setMaxVisibleItems(16);
        widget_ = combo;
        break;
    }
    case K::TextArea: {
        auto* text = new QPlainTextEdit(parent);
        text->setReadOnly(true);
        widget_ = text;
        break;
    }
    }
    if (widget_)
        widget_->setObjectName(QString::fromStdString(
            control.Index() >= 0 ? control.Name() + "(" + std::to_string(control.Index()) + ")"
                                 : control.Name()));
}

void ControlView::wireInput() {
    QWidget* w = widget_;
    if (auto* button = qobject_cast<QPushButton*>(w)) {
        connect(button, &QPushButton::clicked, this,
                [this] { input([this] { control_->Click(); }); });
    } else if (auto* check = qobject_cast<QCheckBox*>(w)) {
        connect(check, &QCheckBox::clicked, this, [this](bool checked) {
            input([this, checked] { control_->setValue(checked ? 1 : 0); });
        });
    } else if (auto* option = qobject_cast<QRadioButton*>(w)) {
        connect(option, &QRadioButton::clicked, this, [this] { chooseOption(); });
    } else if (auto* tool = qobject_cast<QToolButton*>(w)) {
        if (design_.kind == K::PictureOption)
            connect(tool, &QToolButton::clicked, this, [this] { chooseOption(); });
        else
            connect(tool, &QToolButton::clicked, this,
                    [this] { input([this] { control_->Click(); }); });
    } else if (auto* edit = qobject_cast<QLineEdit*>(w)) {
        connect(edit, &QLineEdit::textEdited, this, [this, edit](const QString& text) {
            input([this, edit, text] {
                control_->setText(text.toStdString());
                control_->setSelStart(edit->cursorPosition());
            });
        });
    } else if (auto* combo = qobject_cast<QComboBox*>(w)) {
        auto* box = dynamic_cast<platform::ComboBox*>(control_);
        connect(combo, &QComboBox::activated, this, [this, box](int index) {
            if (box) input([box, index] { box->pick(index); });
        });
        if (combo->lineEdit() != nullptr) {
            connect(combo->lineEdit(), &QLineEdit::textEdited, this, [this, box](const QString& t) {
                if (box) input([box, t] { box->type(t.toStdString()); });
            });
            combo->lineEdit()->installEventFilter(this);
        }
    }
    if (design_.kind != K::Grid) w->installEventFilter(this);
}

void ControlView::chooseOption() {
    input([this] {
        if (control_->Value() != 0) {
            applyValue(); // the desktop keeps a chosen option chosen
            return;
        }
        for (ControlView* other : form_.optionSet(*this))
            if (other->control() != nullptr && other->control()->Value() != 0)
                other->control()->clearOptionValue();
        control_->setValue(1);
    });
}

bool ControlView::eventFilter(QObject* watched, QEvent* event) {
    if (control_ == nullptr) return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress && keyEvent(event)) return true;
    // A label that answers a click takes one, as the desktop's labels do.
    if (event->type() == QEvent::MouseButtonRelease && design_.kind == K::Label &&
        control_->onClick && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        input([this] { control_->Click(); });
        return true;
    }
    if (event->type() == QEvent::MouseButtonDblClick && control_->onDblClick) {
        // The program hears of the double click at its second press; the press goes on to the
        // button as well.
        input([this] { control_->DblClick(); });
        return false;
    }
    return QObject::eventFilter(watched, event);
}

bool ControlView::keyEvent(QEvent* event) {
    const auto* key = static_cast<QKeyEvent*>(event);
    platform::Control& control = *control_;
    if (!control.onKeyDown && !control.onKeyPress) return false;
    bool swallowed = false;
    const int code = keyCodeOf(*key);
    if (code != 0 && control.onKeyDown) {
        int left = code;
        input([&] { left = control_->KeyDown(code, shiftStateOf(key->modifiers())); });
        swallowed = left == 0;
        if (control_ == nullptr) return true;
    }
    const int ascii = keyAsciiOf(*key);
    if (!swallowed && ascii != 0 && control.onKeyPress) {
        int left = ascii;
        input([&] { left = control_->KeyPress(ascii); });
        swallowed = left == 0;
    }
    // Keys that end the editing never reach the widget: Enter would otherwise go on to the
    // form's default button, Tab to the next field.
    return swallowed || code == 13 || code == 9 || code == 27;
}

// ---- the model's properties on the widget ----

void ControlView::applyAll() {
    if (widget_ == nullptr || control_ == nullptr) return;
    for (const platform::Property p :
         {platform::Property::Caption, platform::Property::ToolTipText, platform::Property::Enabled,
          platform::Property::Picture, platform::Property::Text, platform::Property::Value,
          platform::Property::BackColor, platform::Property::Left, platform::Property::Visible})
        apply(p);
}

void ControlView::apply(platform::Property property) {
    if (widget_ == nullptr || control_ == nullptr) return;
    Applying applying(applying_);
    platform::Control& c = *control_;
    switch (property) {
    case platform::Property::Left:
    case platform::Property::Top:
    case platform::Property::Width:
    case platform::Property::Height:
        applyGeometry();
        // A picture box draws its picture to its size.
        if (design_.kind == K::Picture || design_.kind == K::ToolButton ||
            design_.kind == K::PictureOption || design_.kind == K::Button)
            applyPicture();
        break;
    case platform::Property::Visible:
        applyVisible();
        break;
    case platform::Property::Enabled:
        widget_->setEnabled(c.Enabled());
        break;
    case platform::Property::Caption:
        applyCaption();
        break;
    case platform::Property::ToolTipText:
        if (design_.kind != K::Grid) widget_->setToolTip(QString::fromStdString(c.ToolTipText()));
        break;
    case platform::Property::Value:
    case platform::Property::Checked:
        applyValue();
        break;
    case platform::Property::Picture:
        applyPicture();
        break;
    case platform::Property::Text:
        applyText();
        break;
    case platform::Property::SelStart:
        if (auto* edit = qobject_cast<QLineEdit*>(widget_.data()))
            edit->setCursorPosition(c.SelStart());
        break;
    case platform::Property::BackColor:
        applyBackColour();
        break;
    case platform::Property::Interval:
        break;
    }
}

void ControlView::applyGeometry() {
    const platform::Control& c = *control_;
    const QRect rect = form_.scale().pixelRect(c.Left(), c.Top(), c.Width(), c.Height());
    widget_->setGeometry(rect);
    if (isColumnGlyph()) applyVisible();
}

void ControlView::applyVisible() {
    bool shown = control_->Visible();
    // A column glyph follows its head even when the grid has scrolled or folded that head out
    // of its window; on screen it shows only where it stands above the grid.
    if (shown && isColumnGlyph()) {
        if (const GridView* grid = form_.gridView()) {
            const QRect under = grid->geometry();
            const QRect mine = widget_->geometry();
            shown = mine.left() >= under.left() && mine.right() <= under.right();
        }
    }
    widget_->setVisible(shown);
}

bool ControlView::isColumnGlyph() const {
    return control_->Name() == "CollapseColsPic" || control_->Name() == "ExpandColsPic";
}

void ControlView::applyCaption() {
    const QString caption = QString::fromStdString(control_->Caption());
    if (auto* button = qobject_cast<QAbstractButton*>(widget_.data()))
        button->setText(design_.kind == K::ToolButton || design_.kind == K::PictureOption
                            ? QString()
                            : caption);
    else if (auto* frame = qobject_cast<QGroupBox*>(widget_.data()))
        frame->setTitle(caption);
    else if (auto* label = qobject_cast<QLabel*>(widget_.data()); label && design_.kind == K::Label)
        label->setText(caption);
}

void ControlView::applyValue() {
    const platform::Control& c = *control_;
    if (auto* check = qobject_cast<QCheckBox*>(widget_.data())) {
        const QSignalBlocker quiet(check);
        check->setCheckState(c.Value() == 2   ? Qt::PartiallyChecked
                             : c.Value() != 0 ? Qt::Checked
                                              : Qt::Unchecked);
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget_.data());
               button && button->isCheckable()) {
        const QSignalBlocker quiet(button);
        button->setChecked(c.Value() != 0);
        // The program chose this option itself: the others of its set let go.
        if (c.Value() != 0)
            for (ControlView* other : form_.optionSet(*this))
                if (other->control() != nullptr && other->control()->Value() != 0)
                    other->control()->clearOptionValue();
    }
}

void ControlView::showControlMap() {
    auto* view = dynamic_cast<MapPictureWidget*>(widget_.data());
    const auto* control = dynamic_cast<const hostmodel::MapXControl*>(control_);
    if (view == nullptr || control == nullptr) return;
    view->setMap(std::dynamic_pointer_cast<mapx::Map>(control->mapObject()));
}

void ControlView::applyPicture() {
    if (design_.kind == K::MapControl) {
        showControlMap();
        return;
    }
    const platform::Control& c = *control_;
    const qreal ratio = widget_->devicePixelRatioF();
    const QSize box = form_.scale().pixelRect(0, 0, c.Width(), c.Height()).size();
    if (design_.kind == K::Picture) {
        auto* label = qobject_cast<QLabel*>(widget_.data());
        if (label == nullptr) return;
        label->setPixmap(c.Picture().empty() ? QPixmap() : picturePixmap(c.Picture(), box, ratio));
        return;
    }
    auto* button = qobject_cast<QAbstractButton*>(widget_.data());
    if (button == nullptr) return;
    // The control's own picture where there is one to draw, else the art its design names.
    const bool ownPicture = c.Picture().bitmap || hasArt(c.Picture().name);
    const std::string art = ownPicture ? std::string() : artName(design_, c);
    QSize icon;
    if (design_.kind == K::Button) {
        const int side = std::clamp(box.height() - 8, 0, kButtonIconPixels);
        icon = QSize(side, side);
    } else {
        const int side = std::max(0, std::min(box.width(), box.height()) - 8);
        icon = QSize(side, side);
    }
    QPixmap pixmap = ownPicture    ? picturePixmap(c.Picture(), icon, ratio)
                     : hasArt(art) ? artPixmap(art, icon, ratio)
                                   : QPixmap();
    button->setIcon(pixmap.isNull() ? QIcon() : QIcon(pixmap));
    button->setIconSize(icon);
}

void ControlView::applyText() {
    const platform::Control& c = *control_;
    const QString text = QString::fromStdString(c.Text());
    if (auto* edit = qobject_cast<QLineEdit*>(widget_.data())) {
        // The program's text: the caret goes where the program's SelStart says.
        if (edit->text() != text) {
            edit->setText(text);
            edit->setCursorPosition(c.SelStart());
        }
    } else if (auto* combo = qobject_cast<QComboBox*>(widget_.data())) {
        const QSignalBlocker quiet(combo);
        if (const auto* box = dynamic_cast<const platform::ComboBox*>(&c)) {
            QStringList items;
            for (const std::string& item : box->items())
                items << QString::fromStdString(item);
            QStringList shown;
            for (int i = 0; i < combo->count(); ++i)
                shown << combo->itemText(i);
            if (shown != items) {
                combo->clear();
                combo->addItems(items);
            }
            combo->setCurrentIndex(box->ListIndex());
        }
        if (combo->currentText() != text) combo->setEditText(text);
    } else if (auto* area = qobject_cast<QPlainTextEdit*>(widget_.data())) {
        // The form's text uses the desktop's line ends.
        QString plain = text;
        plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        if (area->toPlainText() != plain) area->setPlainText(plain);
    }
}

void ControlView::applyBackColour() {
    const std::uint32_t colour = control_->BackColor();
    // The default system colours are the widget's own; only a colour the program chose shows.
    if (colour & kSystemColour) return;
    QPalette palette = widget_->palette();
    const QColor qcolour = oleColour(colour, palette);
    palette.setColor(QPalette::Base, qcolour);
    palette.setColor(QPalette::Window, qcolour);
    palette.setColor(QPalette::Button, qcolour);
    widget_->setPalette(palette);
    widget_->setAutoFillBackground(true);
}

} // namespace vellant::qtui
