#include "platform/form.h"

#include "base/runtime_error.h"
#include "platform/toolkit.h"

#include <utility>

namespace vellant::platform {

Form::Form(std::string name, Toolkit& toolkit) : Control(std::move(name)), toolkit_(toolkit) {
    setVisible(false);
    subscribe([this](Control&, Property p) {
        if (loaded_ && (p == Property::Width || p == Property::Height)) Form_Resize();
    });
}

Form::~Form() {
    // The derived form is gone by now, so no hook can run; the toolkit must still forget the
    // window.
    if (loaded_) toolkit_.formUnloaded(*this);
}

void Form::Load() {
    if (loaded_) return;
    loaded_ = true;
    shownSinceLoad_ = false;
    toolkit_.formLoaded(*this);
    Form_Load();
}

void Form::Show(int style, Form* owner) {
    if (style != vbModeless && style != vbModal) raiseError(kErrInvalidCall);
    if (!loaded_) {
        Load();
        if (!loaded_) raiseError(kErrObjectUnloaded, "Object was unloaded");
    }
    if (style == vbModeless) {
        appear();
        toolkit_.showModeless(*this);
        return;
    }
    if (Visible()) raiseError(kErrFormAlreadyShown, "Form already displayed; can't show modally");
    Form* const previousOwner = owner_;
    owner_ = owner;
    ++modalDepth_;
    struct Leave {
        Form& form;
        Form* previousOwner;
        ~Leave() {
            --form.modalDepth_;
            form.owner_ = previousOwner;
        }
    } leave{*this, previousOwner};
    appear();
    // Form_Resize of the first show may already have closed the form.
    if (loaded_ && Visible()) toolkit_.showModal(*this);
}

void Form::Hide() {
    if (loaded_) setVisible(false);
}

void Form::Unload() {
    unloadFor(vbFormCode);
}

void Form::userClose() {
    unloadFor(vbFormControlMenu);
}

void Form::unloadFor(int unloadMode) {
    // An Unload from inside Form_Unload or QueryUnload is the one already under way.
    if (!loaded_ || unloading_) return;
    unloading_ = true;
    struct Leave {
        bool& flag;
        ~Leave() { flag = false; }
    } leave{unloading_};
    bool cancel = false;
    QueryUnload(cancel, unloadMode);
    if (cancel) return;
    Form_Unload(cancel);
    if (cancel) return;
    setVisible(false);
    loaded_ = false;
    toolkit_.formUnloaded(*this);
}

void Form::ZOrder(int position) {
    if (position != 0 && position != 1) raiseError(kErrInvalidCall);
    toolkit_.ZOrder(*this, position);
}

void Form::PopupMenu(MenuItem& menu) {
    toolkit_.PopupMenu(*this, menu);
}

Control* Form::findControl(const std::string& name, int index) const {
    for (Control* control : controls_)
        if (control->Name() == name && control->Index() == index) return control;
    return nullptr;
}

void Form::appear() {
    setVisible(true);
    if (!shownSinceLoad_) {
        shownSinceLoad_ = true;
        Form_Resize();
    }
}

} // namespace vellant::platform
