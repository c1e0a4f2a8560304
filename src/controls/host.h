#pragma once
// The interface of a host, which shows the forms and offers the services of the machine. The model
// notifies the host of changes; the host passes user actions to Input (controls/input.h).

#include "base/text.h"
#include "base/turns.h"
#include "controls/control.h"

#include <optional>

class Form;
class Printer;
class WebBrowser;

struct Font {
    Text name;
    float size = 8.25F; ///< points
    bool bold = false;
};

class Host {
public:
    virtual ~Host() = default;

    /// The turns that long work gives to the event loop. The host arms the count.
    Turns turns { [this] { TurnDue(); } };

    // Called by the model, perhaps in the middle of a handler.

    virtual void FormLoaded(Form& form) = 0;
    virtual void FormUnloaded(Form& form) = 0;
    /// Null if no form is active now; else the form is to be raised above the others.
    virtual void FormActivated(Form* form) = 0;
    virtual void Assigned(Control& control, PropertyBase const& property) = 0;
    virtual void ContentChanged(Control& control) = 0;
    /// The focus of a form moved to another control.
    virtual void FocusMoved(Form& form) = 0;
    /// The outermost handler has ended: the widgets should be updated.
    virtual void HandlersEnded() = 0;

    // Services.

    /// Runs the event loop until the form, which is shown modally, is no longer loaded.
    virtual void RunModal(Form& form) = 0;
    /// Shows a message with the button OK and returns when it has been answered.
    virtual void MessageBox(TextView text, TextView title) = 0;
    virtual Text ClipboardText() const = 0;
    /// Puts the text on the clipboard; an empty one leaves it empty.
    virtual void SetClipboardText(TextView text) = 0;
    /// In twips; wrapped at blanks within `wrapWidth` twips if that is above 0.
    virtual Size MeasureText(Font const& font, TextView text, float wrapWidth) const = 0;
    /// The usable screen in twips.
    virtual Size ScreenSize() const = 0;
    /// In pixels, of a picture file or a built-in picture; nothing if it isn't a picture.
    virtual std::optional<Size> PictureSize(TextView picture) = 0;
    virtual Printer& DefaultPrinter() = 0;
    /// By how much letters in reading panes are enlarged because the screen had no room to enlarge
    /// the windows as far as the user's system asks; 1 where it had.
    virtual float MissingScale() const { return 1; }
    /// Loads and shows the page at a file address.
    virtual void Navigate(WebBrowser& browser, TextView url) = 0;

protected:
    /// The armed turn is due.
    virtual void TurnDue() = 0;
};
