#pragma once
// A form: a window with its controls. The object exists as long as the program; Screen loads and
// unloads it (controls/screen.h).

#include "controls/control.h"

#include <deque>
#include <functional>
#include <string_view>
#include <vector>

class Menu;
class Screen;

enum class FormState : int { Normal = 0, Minimised = 1, Maximised = 2 };
enum class BorderStyle : int { None = 0, Fixed = 1, Sizable = 2, Dialog = 3 };
enum class ScaleMode : int { Twips = 1, Pixels = 3 };
enum PointerShape : int {
    pointerDefault = 0,
    pointerSizeDiagonal = 8,
    pointerHourglass = 11,
    pointerHand = 98,
    pointerCustom = 99
};

/// A key that does something wherever the focus is in the window, without a menu entry.
struct KeyShortcut {
    int keyCode; ///< the virtual key code, as KeyDown gives it
    int shift; ///< exactly these modifiers: a sum of Shift values
    Event pressed;
};

class Form : public Control {
public:
    /// The size is that of the client area in its normal state, in the form's scale. `screen` and
    /// `name` outlive the form.
    Form(Screen& screen, char const* name, TextView caption, float clientWidth, float clientHeight,
        ScaleMode scale = ScaleMode::Twips);

    char const* Kind() const override { return "Form"; }
    Screen& GetScreen() const { return m_screen; }

    /// Shows the form beside the others and activates it; loads it first if it isn't loaded.
    void Show();
    /// Shows the form modally and returns when it has been unloaded. If it is visible already, only
    /// activates it.
    void ShowModal();
    void Hide();
    bool IsLoaded() const { return m_loaded; }
    /// True while the form is up modally.
    bool IsModal() const;
    /// True while a handler of the form is running, that is, within a turn of the event loop.
    bool IsBusy() const { return m_handlers > 0; }

    /// Keeps an action until the form is free and the actions queued before have run.
    void QueueAction(std::function<void()> action) { m_queuedActions.push_back(std::move(action)); }
    /// The user closed the form while it was busy: drops all queued actions.
    void RequestClose();
    /// True from then until the form is unloaded. Long work should end.
    bool IsCloseRequested() const { return m_closeRequested; }

    /// The controls in the order in which they were made.
    std::vector<Control*> const& Controls() const { return m_controls; }
    /// The menus of the menu bar, in their order.
    std::vector<Menu*> const& Menus() const { return m_menus; }
    Control* FindControl(std::string_view name) const;
    /// The outer size in twips that the form has in its normal state, or returns to.
    Size const& NormalSize() const { return m_normal; }
    /// The control that has the focus while the form is active; nothing if none has.
    Control* Focus() const { return m_focus; }
    float TwipsPerUnit() const override;
    /// What `Width` and `Height` count beyond the client area, in twips: a nominal frame and menu
    /// bar, the same on every system.
    Size FrameSize() const;
    /// Null if the key isn't a shortcut of this form. In a form with reading panes, the keys for
    /// the size of their letters are.
    KeyShortcut const* FindShortcut(int keyCode, int shift) const;

    /// Called by the host: the window's state and outer size, in twips with FrameSize. Runs
    /// Form_Resize if they changed.
    void Resized(float width, float height, FormState state);
    /// The user clicked on the form itself, or pressed a key (0 if it types no character) while no
    /// control had the focus.
    void RaiseClick();
    void RaiseKeyPress(char16_t character);
    /// A normal form takes its last normal size, a maximised one the screen's.
    void ChangeState(FormState state);

    Property<::Text> Caption;
    Property<Colour> BackColor;
    Property<::Text> Picture; ///< at the top left corner of the client area; empty for none
    Property<FormState> WindowState;
    Property<int> MousePointer;
    Property<::Text> MouseIcon;
    /// The client area, in the form's scale.
    ComputedProperty<float> ScaleWidth, ScaleHeight;

    void Reset() override;
    void SaveDesign() override;

protected:
    virtual void Form_Load() { }
    virtual void Form_Resize() { }
    virtual void Form_Unload() { }
    virtual void Form_Click() { }
    virtual void Form_KeyPress(char16_t) { }
    /// A modal form is being shown. This form won't see the release of a pressed mouse button.
    virtual void Form_Blocked() { }
    void Assigned(PropertyBase const& property, bool changed) override;

    // For Form_Resize: limits the size by `smallest`; the height, if not maximised, by the
    // screen's.
    void GrowToSmallest();
    void ShrinkToScreen();

public:
    // The design, set in the constructor and never changed.
    BorderStyle border = BorderStyle::Sizable;
    bool minimiseButton = true;
    bool maximiseButton = true;
    bool inTaskbar = true;
    bool centred = false;
    FormState opensAs = FormState::Normal;
    ScaleMode scale; ///< of the places of its controls
    char const* icon = "icon"; ///< the name of a built-in picture
    /// user actions while a handler is inside a turn are queued, not dropped
    bool queuesActions = false;
    Size smallest; ///< outer, in twips, for a window that isn't maximised; 0 for no limit
    std::vector<KeyShortcut> shortcuts; ///< a menu entry with the same shortcut comes first

private:
    friend class Control;
    friend class Input;
    friend class Menu;
    friend class Screen;

    bool HasReadingPane() const;
    void PlaceAtLoad();
    void Centre();
    void DockControls();
    void RunResize();
    void RunQueuedActions();

    Screen& m_screen;
    std::vector<Control*> m_controls;
    std::vector<Menu*> m_menus;
    Control* m_focus = nullptr;
    Size m_designClient;
    Size m_normal; // the outer size of the normal state
    FormState m_openState = FormState::Normal; // the last state other than minimised
    bool m_loaded = false;
    bool m_unloading = false;
    bool m_designSaved = false;
    bool m_wasShown = false; // since it was loaded
    bool m_resizing = false; // Form_Resize is running
    int m_handlers = 0;
    std::deque<std::function<void()>> m_queuedActions;
    bool m_runsQueuedActions = false;
    bool m_closeRequested = false;
};

/// Unless it is loaded: resets its controls to their design and runs Form_Load. Doesn't show it.
void Load(Form& form);
/// If it is loaded: runs Form_Unload and removes the form from the screen. A handler of the form
/// itself may do this.
void Unload(Form& form);
