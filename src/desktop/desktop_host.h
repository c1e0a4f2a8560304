#pragma once
// The host that shows the forms in windows of the desktop. Changes of the model are mirrored when
// the outermost handler ends or a turn is due; user actions are passed to Input.

#include "controls/host.h"
#include "desktop/peers/peer_context.h"
#include "desktop/qt_printer.h"

#include <QObject>

#include <chrono>
#include <thread>
#include <unordered_map>
#include <vector>

class FormPeer;
class Peer;
class QEventLoop;
class QKeyEvent;
class QWheelEvent;

class DesktopHost final : public QObject, public Host {
public:
    /// `files` outlives the host. `placeOf` gives the real path of a file that the program names.
    DesktopHost(FileSystem const& files, std::function<Text(TextView path)> placeOf,
        float missingScale = 1);
    ~DesktopHost() override;

    /// Begins what the first screens wait for longest, on threads of its own: their pictures, and
    /// Qt's table of fonts. To be called early, before the settings are opened.
    void PrepareFirstScreen();
    /// Runs the program, whose first form has been shown, to its end, then deletes all windows.
    void Run();
    /// Closes all forms, as at an orderly end of the program.
    void CloseAll();
    /// Brings the active window and a message over it to the front, even if minimised. May be
    /// called while a handler waits for a modal form or a message.
    void ComeUp();
    /// False before the first form and after the program's end.
    bool MayComeUp() const;

    void FormLoaded(Form& form) override;
    void FormUnloaded(Form& form) override;
    void FormActivated(Form* form) override;
    void Assigned(Control& control, PropertyBase const& property) override
    {
        MarkDirty(control, &property);
    }
    void ContentChanged(Control& control) override { MarkDirty(control, nullptr); }
    void FocusMoved(Form&) override { }
    void HandlersEnded() override;

    void RunModal(Form& form) override;
    void MessageBox(TextView text, TextView title) override;
    Text ClipboardText() const override;
    void SetClipboardText(TextView text) override;
    Size MeasureText(Font const& font, TextView text, float wrapWidth) const override;
    Size ScreenSize() const override;
    std::optional<Size> PictureSize(TextView picture) override;
    float MissingScale() const override { return m_missingScale; }
    Printer& DefaultPrinter() override { return m_printer; }
    void Navigate(WebBrowser& browser, TextView url) override;

protected:
    /// Keeps user actions from windows that can't take them now.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void TurnDue() override;
    void Mirror();
    void MirrorWindows();
    QWidget* OwnerOfNewWindows() const;
    void Retire(FormPeer& window);
    void Reap();
    void TakeDown();
    void CatchUp();
    void QuitLoops();
    void WidgetFocused(QWidget* widget);
    bool PressedShortcut(QKeyEvent const& key, Form& form);
    bool TurnedWheel(QWheelEvent const& wheel, QWidget const& at);
    void MarkDirty(Control const& control, PropertyBase const* property);
    Peer* PeerOf(Control const& control) const;
    Peer* PeerOf(QWidget const* widget) const;
    FormPeer* WindowOf(QObject const* receiver) const;

    PeerContext m_context;
    float m_missingScale;
    QtPrinter m_printer;
    std::unordered_map<Control const*, Peer*> m_peers;
    std::vector<FormPeer*> m_windows;
    std::vector<Peer*> m_dirty;
    std::vector<QWidget*> m_retired; // windows of forms that are gone
    std::vector<std::pair<Form*, QEventLoop*>> m_modal;
    FormPeer* m_active = nullptr; // the model's, and the one that was before it
    FormPeer* m_before = nullptr;
    FormPeer* m_toActivate = nullptr;
    std::jthread m_fontReader;
    int m_turned = 0; // the wheel, with Ctrl, beyond the last step: in eighths of a degree
    std::chrono::steady_clock::time_point m_served; // when events were last served inside a handler
};
