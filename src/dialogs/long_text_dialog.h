#pragma once
// A dialog that shows a long text, with a button that closes it.

#include "controls/button.h"
#include "controls/form.h"
#include "controls/rich_text_box.h"
#include "dialogs/long_text.h"

class LongTextDialog : public Form {
protected:
    struct Design {
        char const* name;
        TextView caption;
        Size client;
        Bounds textBox, button; ///< in twips, like `client`
        std::span<LongTextParagraph const> text;
    };

    LongTextDialog(Screen& screen, Design const& design); // `screen` outlives the form

    RichTextBox RichTextBox1;
    CommandButton Command1;

private:
    void Form_Load() override;
    void Command1_Click() { Unload(*this); }

    std::span<LongTextParagraph const> m_text;
};
