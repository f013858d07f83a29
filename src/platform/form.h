#pragma once
// A form: a window with a caption and controls, loaded, shown, hidden and unloaded through
// the toolkit. The program's forms derive from it and override the event hooks; the front end
// finds the controls a form registers and mirrors them.

#include "platform/control.h"

#include <string>
#include <vector>

namespace vellant::platform {

class MenuItem;
class Toolkit;

inline constexpr int vbModeless = 0;
inline constexpr int vbModal = 1;

// Why a form is being unloaded, as QueryUnload is told.
inline constexpr int vbFormControlMenu = 0; // the user closed the window
inline constexpr int vbFormCode = 1;        // the program unloaded it

inline constexpr int kErrFormAlreadyShown = 400; // "Form already displayed; can't show modally"
inline constexpr int kErrObjectUnloaded = 364;   // "Object was unloaded"

class Form : public Control {
public:
    // The toolkit outlives the forms it serves.
    Form(std::string name, Toolkit& toolkit);
    ~Form() override;

    Toolkit& toolkit() const { return toolkit_; }
    bool Loaded() const { return loaded_; }
    bool IsModal() const { return modalDepth_ > 0; }
    // The form a modal show named as its owner, while it is shown.
    Form* Owner() const { return owner_; }

    // Runs Form_Load once; a loaded form is left as it is.
    void Load();
    // Loads the form if need be, then shows it. A modal show returns only when the form has
    // been hidden or unloaded. Raises 364 when Form_Load unloaded the form (its way of
    // refusing to open), 400 for a modal show of a form that is already visible.
    void Show(int style = vbModeless, Form* owner = nullptr);
    // Hides the form without unloading it; this ends a modal show.
    void Hide();
    // Asks QueryUnload and Form_Unload, either of which may cancel, then unloads.
    void Unload();
    // The user's close box: the same as Unload, but QueryUnload hears vbFormControlMenu.
    void userClose();
    // 0 front, 1 back.
    void ZOrder(int position = 0);
    void PopupMenu(MenuItem& menu);

    void registerControl(Control& control) { controls_.push_back(&control); }
    const std::vector<Control*>& Controls() const { return controls_; }
    // nullptr when the form has no such control.
    Control* findControl(const std::string& name, int index = -1) const;

protected:
    virtual void Form_Load() {}
    virtual void Form_Unload(bool& /*cancel*/) {}
    // After the first show and after every change of the form's width or height while loaded.
    virtual void Form_Resize() {}
    virtual void QueryUnload(bool& /*cancel*/, int /*unloadMode*/) {}

private:
    void unloadFor(int unloadMode);
    void appear();

    Toolkit& toolkit_;
    bool loaded_ = false;
    bool unloading_ = false;
    bool shownSinceLoad_ = false;
    int modalDepth_ = 0;
    Form* owner_ = nullptr;
    std::vector<Control*> controls_;
};

} // namespace vellant::platform
