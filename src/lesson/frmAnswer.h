#pragma once
// The small window with the publisher's answer to a page. It is shown beside the lesson; a click on
// the text or the button closes it.

#include "controls/button.h"
#include "controls/form.h"
#include "controls/label.h"

class frmAnswer final : public Form {
public:
    explicit frmAnswer(Screen& screen); // outlives the form

    /// Loads the form with this text, and with the height that the text needs. Doesn't show it.
    void SetText(TextView text);
    /// The letters have another size: gives the form, if it is loaded, the height that they need.
    void FitText();

private:
    void Label1_Click() { Unload(*this); }
    void OKButton_Click() { Unload(*this); }

    Label Label1 { *this, *this, "Label1", { 180, 525, 4935, 195 } };
    CommandButton OKButton { *this, *this, "OKButton", { 3915, 1095, 645, 330 }, u"OK" };
};
