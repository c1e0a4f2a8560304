#pragma once
// Rich text boxes on the desktop. Appended text is added to what is shown. Of a long text only what
// is on show is written at once, the rest while the program has nothing else to do.

#include "controls/rich_text_box.h"
#include "desktop/peers/rich_text_writer.h"
#include "desktop/peers/text_peer.h"

#include <QTimer>

#include <functional>
#include <optional>

class RichTextPeer final : public TextPeer {
public:
    RichTextPeer(PeerContext& context, RichTextBox& control, QWidget& ground);
    void PropertyAssigned(PropertyBase const& property) override
    {
        m_scrollWanted |= &property == &m_rich.TopOffset;
    }
    void Mirror() override;

protected:
    void MirrorText() override;
    bool HasBorder() const override { return m_rich.Border; }
    void UserActed() override { m_keepsTop = false; }

private:
    bool IsPlain() const;
    bool CanBeUndone() const;
    void Fill(int offset);
    void WriteRest();
    void Write(std::function<bool()> const& goesOn);
    void Scroll();

    RichTextBox& m_rich;
    unsigned m_revision = 0; // what the widget shows of the model
    unsigned m_generation = 0;
    bool m_isPlain = false; // what it shows, and can be written in
    std::optional<RichTextWriter> m_writer; // of the document
    QTimer m_rest; // runs until all is written
    float m_letterScale = 1; // at which the text was last shown
    bool m_scrollWanted = true;
    bool m_keepsTop = true; // until the user scrolls, the line at the top stays there
};
