#pragma once
// The About box: the program's name, its version and the publisher's notice.

#include "controls/button.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/picture.h"

class frmAbout final : public Form {
public:
    explicit frmAbout(Screen& screen); // outlives the form

private:
    void cmdOK_Click() { Unload(*this); }

    PictureBox picIcon { *this, *this, "picIcon", { 240, 240, 660, 510 }, u":about" };
    Label lblTitle { *this, *this, "lblTitle", { 1050, 240, 3885, 345 },
        u"Sparrowfield Interactive Bible Study" };
    Label lblVersion { *this, *this, "lblVersion", { 1065, 495, 3885, 225 },
        u"Version 2.0    3/31/06" };
    Label Label2 { *this, *this, "Label2", { 645, 975, 6510, 585 } }; // the publisher's notice
    Line Line1 { *this, *this, "Line1", { 75, 1755, 7485, 0 }, Rgb(128, 128, 128) };
    CommandButton cmdOK { *this, *this, "cmdOK", { 6780, 1890, 750, 345 }, u"OK" };
};
