#pragma once
// All forms of the program: which are loaded and active, where the focus is, which handlers are
// running. Input applies user actions (controls/input.h).

#include "controls/form.h"
#include "controls/host.h"

#include <functional>
#include <string_view>
#include <utility>
#include <vector>

class Screen {
public:
    explicit Screen(Host& host); // outlives the screen
    Screen(Screen const&) = delete;
    Screen& operator=(Screen const&) = delete;

    Host& GetHost() const { return m_host; }
    Turns& GetTurns() const { return m_host.turns; }

    /// The loaded forms, in the order of their loading.
    std::vector<Form*> const& Loaded() const { return m_loaded; }
    /// By name, loaded or not; null if there is none.
    Form* Find(std::string_view name) const;
    Form* Active() const { return m_active; }
    /// The form that is shown modally above all others; nothing if none is.
    Form* Modal() const { return m_modal.empty() ? nullptr : m_modal.back(); }
    bool IsModal(Form const& form) const;

    /// The size of the letters in all reading panes, in percent of their design.
    int TextSize() const { return m_textSize; }
    /// Sets it to the nearest of the sizes from 50 to 300 percent at which the keys stop.
    void SetTextSize(int percent);
    /// The user wants the next larger (1) or smaller size (-1), or that of the design (0).
    void StepTextSize(int step);
    /// Null if the key isn't one for the size of letters: Ctrl with plus, minus or 0.
    KeyShortcut const* FindTextSizeKey(int keyCode, int shift) const;
    Event textSizeStepped; ///< when the user has changed it

    /// Takes the present state of all forms as their design: once, before the first is loaded.
    void SaveDesigns();

    void Load(Form& form);
    /// Makes the form visible and active; a minimised one returns to its former state.
    void Show(Form& form);
    void ShowModal(Form& form);
    void Hide(Form& form);
    void Unload(Form& form);

    /// Makes a visible form the active one: the form left loses its focus, this one gets it.
    void Activate(Form& form);
    void SetFocus(Control& control);
    /// The window system took the active form's focus away (LostFocus), or gave it back (GotFocus).
    void SuspendFocus();
    void ResumeFocus();
    /// The next control after `from` (null: the first) in the tab order that can take the focus.
    Control* NextInTabOrder(Form const& form, Control const* from, bool backwards = false) const;

    /// A message box of the program, with its title.
    void Message(TextView text);

    /// Ends the program without unloading forms. A running handler runs to its end.
    void End() { m_ended = true; }
    /// True once the program has ended: by End, or because its last form was unloaded.
    bool Ended() const { return m_ended || (m_everLoaded && m_loaded.empty()); }
    /// Closes every form, modal ones first, as at an orderly end of the program.
    void CloseAll();

    /// Runs a handler. At the end of the outermost one the focus leaves a control that can't hold
    /// it any more, and the host is told. If memory runs out, only the innermost handler is
    /// aborted.
    void RunHandler(Form& form, std::function<void()> const& handler);
    Event handlersEnded; ///< after the outermost handler, when the host has been told
    Event handlerFailed; ///< after the outermost handler, if memory ran out in one

private:
    friend class Form;
    void BeginHandler(Form& form);
    void EndHandler(Form& form);
    void Try(std::function<void()> const& work);
    void ReportFailure();
    void Register(Form& form) { m_made.push_back(&form); }
    void RunBlockedHandlers(Form const& modal);
    void BringToFront(Form& form);
    void ActivateLast();
    void MoveFocus(Form& form, Control* control);
    void SettleFocus();
    bool CanTakeFocus(Control const& control) const;

    Host& m_host;
    std::vector<KeyShortcut> const m_textSizeKeys;
    int m_textSize = 100;
    std::vector<Form*> m_made;
    std::vector<Form*> m_loaded;
    std::vector<Form*> m_zOrder; // visible forms, the active one last
    std::vector<Form*> m_modal;
    Form* m_active = nullptr;
    bool m_hasFocus = false; // the active form's focus control had GotFocus, not yet LostFocus
    int m_depth = 0;
    bool m_handlerFailed = false;
    bool m_reportsFailure = false;
    bool m_everLoaded = false;
    bool m_ended = false;
};
