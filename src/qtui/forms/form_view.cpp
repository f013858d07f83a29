#include "qtui/forms/form_view.h"

#include "qtui/forms/control_view.h"
#include "qtui/forms/key_codes.h"
#include "qtui/grid/grid_view.h"
#include "qtui/host/native_windows.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QTimer>
#include <algorithm>
#include <map>

namespace vellant::qtui {

namespace {

struct Applying {
    int& depth;
    explicit Applying(int& d) : depth(d) { ++depth; }
    ~Applying() { --depth; }
    Applying(const Applying&) = delete;
    Applying& operator=(const Applying&) = delete;
};

Qt::WindowFlags flagsFor(WindowKind kind) {
    switch (kind) {
    case WindowKind::Main:
        return Qt::Window;
    case WindowKind::Tool:
        return Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
    case WindowKind::Borderless:
        return Qt::Tool | Qt::FramelessWindowHint;
    }
    return Qt::Window;
}

// The forms were laid out for a small sans serif of about 85 twips a character; Liberation Sans
// at 11 pixels has that width, where the desktop's default font would clip captions.
QFont formFont() {
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(11);
    font.setStyleHint(QFont::SansSerif);
    return font;
}

bool isOption(ControlKind kind) {
    return kind == ControlKind::OptionButton || kind == ControlKind::PictureOption;
}

} // namespace

FormView::FormView(platform::Form& form, FormViewHost& host, const TwipScale& scale)
    : QWidget(nullptr, flagsFor(windowKindOf(form))), form_(&form), hwnd_(form.hWnd()), host_(host),
      scale_(scale), alive_(std::make_shared<bool>(true)) {
    setObjectName(QString::fromStdString(form.Name()));
    setAttribute(Qt::WA_DeleteOnClose, false);
    setFont(formFont());
    buildControls();
    std::weak_ptr<bool> alive = alive_;
    token_ = form.subscribe([this, alive](platform::Control&, platform::Property p) {
        if (!alive.expired()) formChanged(p);
    });
    host.nativeWindows().add(form.hWnd(), this);
    Applying applying(applying_);
    setWindowTitle(QString::fromStdString(form.Caption()));
    setEnabled(form.Enabled());
    applyGeometry();
}

FormView::~FormView() {
    detach();
}

void FormView::detach() {
    if (form_ == nullptr) return;
    host_.nativeWindows().remove(hwnd_);
    for (auto& control : controls_)
        control->detach();
    alive_.reset();
    form_ = nullptr;
}

void FormView::buildControls() {
    platform::Form& form = *form_;
    std::map<std::string, QWidget*> containers;
    std::vector<std::pair<ControlView*, std::string>> placed;
    for (platform::Control* control : form.Controls()) {
        const ControlDesign design = designOf(form, *control);
        if (design.kind == ControlKind::None) continue;
        auto view = std::make_unique<ControlView>(*control, design, *this, this);
        if (view->widget() == nullptr) continue;
        if (design.kind == ControlKind::Frame || design.kind == ControlKind::Panel ||
            design.kind == ControlKind::MapFrame)
            containers[control->Name()] = view->widget();
        placed.emplace_back(view.get(), std::string(design.container));
        controls_.push_back(std::move(view));
    }
    // Frames first hold their controls, then everything takes its place and look.
    for (auto& [view, container] : placed) {
        const auto frame = containers.find(container);
        if (!container.empty() && frame != containers.end())
            view->widget()->setParent(frame->second);
    }
    for (auto& [view, container] : placed)
        view->applyAll();
    // Pictures lie over the grid's edge and above its header.
    for (auto& control : controls_)
        if (control->design().kind == ControlKind::Picture) control->widget()->raise();
}

ControlView* FormView::viewOf(const platform::Control& control) const {
    for (const auto& view : controls_)
        if (view->control() == &control) return view.get();
    return nullptr;
}

QWidget* FormView::widgetOf(const std::string& name, int index) const {
    if (form_ == nullptr) return nullptr;
    const platform::Control* control = form_->findControl(name, index);
    const ControlView* view = control != nullptr ? viewOf(*control) : nullptr;
    return view != nullptr ? view->widget() : nullptr;
}

GridView* FormView::gridView() const {
    for (const auto& view : controls_)
        if (auto* grid = qobject_cast<GridView*>(view->widget())) return grid;
    return nullptr;
}

std::vector<ControlView*> FormView::optionSet(const ControlView& option) const {
    std::vector<ControlView*> set;
    for (const auto& view : controls_)
        if (view.get() != &option && isOption(view->design().kind) &&
            view->design().container == option.design().container)
            set.push_back(view.get());
    return set;
}

// ---- the form's properties on the window ----

void FormView::formChanged(platform::Property property) {
    Applying applying(applying_);
    switch (property) {
    case platform::Property::Caption:
        setWindowTitle(QString::fromStdString(form_->Caption()));
        break;
    case platform::Property::Left:
    case platform::Property::Top:
    case platform::Property::Width:
    case platform::Property::Height:
        applyGeometry();
        break;
    case platform::Property::Visible:
        applyVisible();
        break;
    case platform::Property::Enabled:
        setEnabled(form_->Enabled());
        break;
    default:
        break;
    }
}

QSize FormView::frameExtra() const {
    if (!isWindow()) return {};
    return frameGeometry().size() - geometry().size();
}

void FormView::applyGeometry() {
    if (form_ == nullptr) return;
    Applying applying(applying_);
    const platform::Form& f = *form_;
    const QRect outer = scale_.pixelRect(f.Left(), f.Top(), f.Width(), f.Height());
    applied_ = outer;
    appliedFrame_ = frameExtra();
    const QSize client = outer.size() - appliedFrame_;
    resize(std::max(1, client.width()), std::max(1, client.height()));
    move(outer.topLeft());
}

void FormView::applyVisible() {
    if (form_ == nullptr) return;
    if (form_->Visible()) {
        host_.formAppearing(*this);
    } else if (isVisible()) {
        hide();
        host_.formHidden(*this);
    } else {
        host_.formHidden(*this);
    }
}

void FormView::restoreVisibility() {
    if (form_ != nullptr && form_->Visible() && !isVisible()) show();
}

// ---- what the user does to the window ----

void FormView::reportGeometry() {
    if (form_ == nullptr || applying_ != 0 || !isVisible()) return;
    if (frameExtra() != appliedFrame_) {
        applyGeometry();
        return;
    }
    const QRect outer = frameGeometry();
    if (outer == applied_) return;
    applied_ = outer;
    platform::Form& f = *form_;
    host_.guardInput([&] {
        const int left = scale_.wholeTwips(outer.x());
        const int top = scale_.wholeTwips(outer.y());
        // A pixel that did not move leaves the twips the program set.
        if (outer.x() != scale_.pixels(f.Left())) f.setLeft(left);
        if (outer.y() != scale_.pixels(f.Top())) f.setTop(top);
        if (outer.width() != scale_.pixels(f.Width())) f.setWidth(scale_.wholeTwips(outer.width()));
        if (outer.height() != scale_.pixels(f.Height()))
            f.setHeight(scale_.wholeTwips(outer.height()));
    });
}

void FormView::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    reportGeometry();
}

void FormView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    reportGeometry();
}

void FormView::closeEvent(QCloseEvent* event) {
    // The model decides: QueryUnload may refuse, and an unloaded form takes its window along.
    event->ignore();
    if (form_ == nullptr) return;
    platform::Form* form = form_;
    host_.guardInput([form] { form->userClose(); });
}

void FormView::keyPressEvent(QKeyEvent* event) {
    if (form_ == nullptr) return QWidget::keyPressEvent(event);
    platform::Form* form = form_;
    const int code = keyCodeOf(*event);
    const int ascii = keyAsciiOf(*event);
    if (code != 0) host_.guardInput([&] { form->KeyDown(code, shiftStateOf(event->modifiers())); });
    if (ascii != 0 && form_ != nullptr) host_.guardInput([&] { form->KeyPress(ascii); });
}

void FormView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // The frame is known once the window shows: the outer size the program asked for is given
    // again with it.
    if (form_ != nullptr && frameExtra() != appliedFrame_) applyGeometry();
    // The first control that takes the keys has them, as on the desktop.
    for (const auto& control : controls_) {
        QWidget* w = control->widget();
        if (w != nullptr && w->isVisible() && w->isEnabled() && w->focusPolicy() != Qt::NoFocus &&
            control->design().kind != ControlKind::Frame) {
            w->setFocus(Qt::OtherFocusReason);
            break;
        }
    }
}

} // namespace vellant::qtui
