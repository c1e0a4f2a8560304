#pragma once
// A host without a screen. A script or a test acts on the forms through Input; messages, printed
// pages and the clipboard are recorded. Its measures are fixed (text_measure.h).

#include "controls/host.h"
#include "headless/recording_printer.h"
#include "platform/file_system.h"

#include <functional>
#include <map>
#include <vector>

class HeadlessHost final : public Host {
public:
    /// `files` outlives the host. The screen is in pixels of 15 twips.
    explicit HeadlessHost(FileSystem const& files, Size screenPixels = { 1280, 1024 });

    struct Message {
        Text text, title;
    };
    /// The message boxes since the last call; each was answered with OK at once.
    std::vector<Message> TakeMessages();
    RecordingPrinter& Recorder() { return m_printer; }
    /// What a browser control shows; empty if nothing could be loaded.
    Text const& Html(WebBrowser const& browser) { return m_html[&browser]; }

    /// Serves a modal form until it is unloaded. If empty, the form is closed at once.
    std::function<void(Form& form)> serveModal;
    /// Runs in each turn that was armed with `turns.Arm`.
    std::function<void()> onTurn;
    /// Sees each assignment of a property of a loaded form.
    std::function<void(Control& control, PropertyBase const& property)> onAssigned;

    void FormLoaded(Form&) override { }
    void FormUnloaded(Form&) override { }
    void FormActivated(Form*) override { }
    void Assigned(Control& control, PropertyBase const& property) override;
    void ContentChanged(Control&) override { }
    void FocusMoved(Form&) override { }
    void HandlersEnded() override { }
    void RunModal(Form& form) override;
    void MessageBox(TextView text, TextView title) override;
    Text ClipboardText() const override { return m_clipboard; }
    void SetClipboardText(TextView text) override { m_clipboard = text; }
    Size MeasureText(Font const& font, TextView text, float wrapWidth) const override;
    Size ScreenSize() const override { return m_screen; }
    std::optional<Size> PictureSize(TextView picture) override;
    Printer& DefaultPrinter() override { return m_printer; }
    void Navigate(WebBrowser& browser, TextView url) override;

private:
    void TurnDue() override;

    FileSystem const& m_files;
    Size m_screen;
    RecordingPrinter m_printer;
    Text m_clipboard;
    std::vector<Message> m_messages;
    std::map<WebBrowser const*, Text> m_html;
};
