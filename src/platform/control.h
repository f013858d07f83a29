#pragma once
// Controls and forms as property bags. The program reads and writes their properties; the Qt
// front observes the changes and mirrors them in real widgets, and user input comes back as
// calls of the form's event handlers.

#include "platform/observer_list.h"
#include "platform/picture.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vellant::platform {

enum class Property {
    Left,
    Top,
    Width,
    Height,
    Visible,
    Enabled,
    Value,
    Caption,
    ToolTipText,
    Checked,
    Picture,
    Text,
    Interval,
    BackColor,
    SelStart,
};

class Control {
public:
    using Observer = std::function<void(Control&, Property)>;

    explicit Control(std::string name, int index = -1);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }
    // Position in its control array, -1 for a control that is not in one.
    int Index() const { return index_; }
    std::int32_t hWnd() const { return hwnd_; }

    int Left() const { return left_; }
    int Top() const { return top_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    bool Visible() const { return visible_; }
    bool Enabled() const { return enabled_; }
    int Value() const { return value_; }
    const std::string& Caption() const { return caption_; }
    const std::string& ToolTipText() const { return toolTipText_; }
    bool Checked() const { return checked_; }
    const vellant::platform::Picture& Picture() const { return picture_; }
    const std::string& Text() const { return text_; }
    // 0x00BBGGRR, or a system colour such as 0x80000005 (the window background), the default.
    std::uint32_t BackColor() const { return backColor_; }
    // Where the caret stands in a text box, counted in characters from the start.
    int SelStart() const { return selStart_; }

    void setLeft(int v) { assign(left_, v, Property::Left); }
    void setTop(int v) { assign(top_, v, Property::Top); }
    void setWidth(int v) { assign(width_, v, Property::Width); }
    void setHeight(int v) { assign(height_, v, Property::Height); }
    void setVisible(bool v) { assign(visible_, v, Property::Visible); }
    void setEnabled(bool v) { assign(enabled_, v, Property::Enabled); }
    // A value assignment fires the control's click handler when it changes, as a check box or
    // option button does when the program sets it.
    virtual void setValue(int v);
    // An option button whose set has another choice now: the value goes to 0 and observers
    // hear of it, but no click follows, as the desktop's option buttons raise none then.
    void clearOptionValue() { assign(value_, 0, Property::Value); }
    void setCaption(const std::string& v) { assign(caption_, v, Property::Caption); }
    void setToolTipText(const std::string& v) { assign(toolTipText_, v, Property::ToolTipText); }
    void setChecked(bool v) { assign(checked_, v, Property::Checked); }
    void setPicture(const vellant::platform::Picture& v) { assign(picture_, v, Property::Picture); }
    void setText(const std::string& v) { assign(text_, v, Property::Text); }
    void setBackColor(std::uint32_t v) { assign(backColor_, v, Property::BackColor); }
    void setSelStart(int v) { assign(selStart_, v, Property::SelStart); }
    void Move(int left, int top, int width, int height);

    // The handler a click (by the user or by a value change) reaches.
    std::function<void()> onClick;
    void Click() {
        if (onClick) onClick();
    }
    // The user's double click, and the keys while the control has the focus: KeyDown with the
    // key code and the shift state, KeyPress with the character. A handler may set the key to
    // 0 to swallow it.
    std::function<void()> onDblClick;
    std::function<void(int& keyCode, int shift)> onKeyDown;
    std::function<void(int& keyAscii)> onKeyPress;
    void DblClick() {
        if (onDblClick) onDblClick();
    }
    // Each answers the key as the handler left it, 0 when it was swallowed.
    int KeyDown(int keyCode, int shift = 0) {
        if (onKeyDown) onKeyDown(keyCode, shift);
        return keyCode;
    }
    int KeyPress(int keyAscii) {
        if (onKeyPress) onKeyPress(keyAscii);
        return keyAscii;
    }

    // Observers hear of every property that changes value, after the change. An observer may
    // subscribe or unsubscribe while it is being told.
    int subscribe(Observer observer);
    void unsubscribe(int token);

protected:
    void notify(Property p);

private:
    template <class T> void assign(T& field, const T& v, Property p) {
        if (field == v) return;
        field = v;
        notify(p);
    }

    std::string name_;
    int index_;
    std::int32_t hwnd_;
    int left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    bool visible_ = true;
    bool enabled_ = true;
    int value_ = 0;
    std::string caption_;
    std::string toolTipText_;
    bool checked_ = false;
    vellant::platform::Picture picture_;
    std::string text_;
    std::uint32_t backColor_ = 0x80000005;
    int selStart_ = 0;
    ObserverList<Control&, Property> observers_;
};

} // namespace vellant::platform
