#pragma once
// A form on the desktop: its window with menu bar and client area.

#include "controls/form.h"
#include "desktop/peers/peer.h"
#include "desktop/peers/window_scroll.h"

#include <QElapsedTimer>
#include <QMargins>
#include <QSize>

class ClientArea;
class QMenuBar;

class FormPeer final : public Peer {
public:
    FormPeer(PeerContext& context, Form& form);

    Form& ParentForm() const { return m_form; }
    QWidget* Ground() const override;
    /// Nothing if the form has no menus.
    QMenuBar* MenuBar() const { return m_menuBar; }

    void PropertyAssigned(PropertyBase const& property) override;
    /// Everything but whether the window is up.
    void Mirror() override;
    /// Shows the window, above `owner` if it isn't in the task bar; MirrorHidden hides it.
    void MirrorShown(QWidget* owner);
    void MirrorHidden();
    /// Puts the focus of the window where the form's is.
    void MirrorFocus(Peer const* focus);

    /// Reports what couldn't be reported during a handler of the form or an update of the widgets.
    void CatchUp();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Arrange();
    void Place();
    void FixSize();
    QPoint Corner() const;
    /// Of a window in the middle of the screen, its frame included.
    QPoint CentredCorner(QSize const& inner) const;
    QSize InnerSize(Size const& outer) const;
    QMargins RealFrame() const;
    QSize Room() const;
    bool IsSettling() const;
    void QueueReport();
    void ReportSize();
    void ReportActivation();
    void ReportClose();
    bool WindowEvent(QEvent& event);
    bool ClientEvent(QEvent& event);

    Form& m_form;
    QMenuBar* m_menuBar = nullptr;
    ClientArea& m_client;
    WindowScroll& m_scroll;
    Size m_placed; // the form's outer size when the window was last resized to it, in twips
    // In pixels, needs no report: the size that the form asks for, cut to the screen.
    QSize m_agreed;
    FormState m_state = FormState::Normal;
    QElapsedTimer m_sinceShown; // when the window was last brought up
    bool m_pictureIsStale = true;
    bool m_moveWanted = false;
    bool m_reportQueued = false;
    bool m_sizeMissed = false; // reports that wait for the end of a handler
    bool m_activationMissed = false;
    bool m_closeMissed = false;
    bool m_pressed = false;
};
