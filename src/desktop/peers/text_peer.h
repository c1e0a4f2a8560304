#pragma once
// Peers of text boxes. The widget edits, the peer passes on the result.

#include "controls/text_box.h"
#include "desktop/peers/peer.h"

class QLineEdit;
class TextEdit;

/// A box of several lines.
class TextPeer : public Peer {
public:
    TextPeer(PeerContext& context, TextInput& control, QWidget& ground);
    void Mirror() override;

protected:
    bool WantsKey(int keyCode) const override;
    bool EditsByShortcuts() const override { return true; }

    /// Updates the text of the widget.
    virtual void MirrorText() = 0;
    virtual bool HasBorder() const = 0;
    /// The user has moved the caret or changed the text.
    virtual void UserActed() { }
    void MirrorCaret();
    /// True while the model is given what the user has typed.
    bool IsEditing() const { return m_editing; }
    /// True while it is, and the model took it unchanged: the widget shows it already.
    bool IsTyped() const;
    void ConnectDocument();

    TextInput& m_box;
    TextEdit& m_shown;

private:
    void Changed();

    bool m_documentChanged = false;
    bool m_editing = false;
};

class TextBoxPeer final : public TextPeer {
public:
    TextBoxPeer(PeerContext& context, TextBox& control, QWidget& ground);

protected:
    void MirrorText() override;
    bool HasBorder() const override { return m_textBox.Border; }

private:
    TextBox& m_textBox;
};

/// A box of one line.
class LinePeer final : public Peer {
public:
    LinePeer(PeerContext& context, TextBox& control, QWidget& ground);
    void Mirror() override;

protected:
    bool EditsByShortcuts() const override { return true; }

private:
    void Changed();

    TextBox& m_box;
    QLineEdit& m_shown;
    QString m_known; // the text that both the widget and the model have
};
