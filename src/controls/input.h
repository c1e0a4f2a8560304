#pragma once
// Applies user actions to the model. A hidden or disabled control refuses them; one that takes the
// focus gets it before it acts; actions on a busy form are dropped or, with Form::queuesActions,
// queued until it is free. The host handles keys inside a text and passes on the result.

#include "controls/form.h"
#include "controls/list.h"
#include "controls/screen.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "controls/timer.h"
#include "controls/tree_view.h"

#include <string>

class MenuEntry;

/// Why an action was refused, in a few words that name the form or control; empty if it was
/// applied, or dropped or queued because the form is busy.
using Refusal = std::string;

enum class BarStep { Less, More, PageLess, PageMore }; ///< towards `Min`, or towards `Max`
enum class MouseAction { Down, Move, Up };

class Input {
public:
    explicit Input(Screen& screen); // outlives this object

    /// A click on the form itself.
    Refusal Click(Form& form);
    /// A click on a control: it toggles a check box; a shape, a line, a disabled label or picture
    /// passes it to the form. A menu entry doesn't take the focus.
    Refusal Click(Control& control);
    /// Moves the focus, as Tab would.
    Refusal Focus(Control& control);
    /// A click on the caption of a node. Its closed parents are opened first, without clicks.
    Refusal ClickNode(TreeView& tree, Node& node);
    /// A click on the sign that expands a node.
    Refusal Expand(TreeView& tree, Node& node, bool expanded);
    /// The user has changed the text of the control that has the focus, or is given it by this.
    Refusal Edit(TextInput& box, Text text, int start, int length);
    Refusal Select(TextInput& box, int start, int length);
    /// Picks an entry of a drop-down list.
    Refusal Choose(ComboBox& list, int index);
    /// Drags the thumb: `Scroll`, and when released, `Change` if the value has changed.
    Refusal DragThumb(ScrollBar& bar, int value, bool released);
    Refusal Step(ScrollBar& bar, BarStep step);
    /// A mouse event in the control's own scale.
    Refusal Mouse(Control& control, MouseAction action, float x, float y);
    /// Fires the timer, then reports a resting pointer under which a control has moved.
    Refusal Fire(Timer& timer);

    /// Raises the key events of a control, or of a form on which nothing has the focus.
    Refusal KeyDown(Control& control, int keyCode, int shift);
    Refusal KeyPress(Control& control, char16_t character);
    Refusal KeyUp(Control& control, int keyCode, int shift);
    /// Enter or Escape: clicks the form's default or cancel button. False if no usable one exists.
    bool PressDefault(Form& form, int keyCode);
    /// The enabled menu entry with this shortcut, such as "Ctrl+X"; null if there is none.
    MenuEntry* FindShortcut(Form& form, TextView shortcut) const;
    /// Runs a shortcut of the form itself; the control with the focus doesn't get that key. False
    /// if the form has no such shortcut, or is blocked.
    bool PressShortcut(Form& form, int keyCode, int shift);

    /// The user brought a form to the front.
    Refusal Activate(Form& form);
    Refusal Resize(Form& form, float width, float height);
    Refusal ChangeState(Form& form, FormState state);
    /// The close box.
    Refusal Close(Form& form);

    /// Why nothing on the form can be acted on; empty if it can.
    Refusal Blocked(Form const& form) const;
    /// Why the control can't be acted on; empty if it can.
    Refusal Blocked(Control const& control) const;

private:
    template <class Action> Refusal Act(Form& form, Action action);
    template <class Action> Refusal Act(Control& control, bool focusFirst, Action action);
    void ReportRestingPointer();

    Screen& m_screen;
    ScrollBar* m_dragged = nullptr;
    int m_valueBeforeDrag = 0;
    // with where the pointer rests, in twips from the form's client area
    Control* m_underPointer = nullptr;
    float m_pointerX = 0, m_pointerY = 0;
    // what the last mouse event told the control, in its own scale
    float m_reportedX = 0, m_reportedY = 0;
};

/// Does what the user asked of a form, unless it can't be asked now.
template <class Action> Refusal Input::Act(Form& form, Action action)
{
    if (auto refusal = Blocked(form); !refusal.empty())
        return refusal;
    if (form.IsBusy()) {
        if (form.queuesActions)
            form.QueueAction([this, &form, action] { Act(form, action); });
        return {};
    }
    m_screen.Activate(form);
    m_screen.RunHandler(form, [] {});
    if (Blocked(form).empty())
        action();
    // What the action changed is shown also if no handler ran.
    m_screen.RunHandler(form, [] {});
    return {};
}

template <class Action> Refusal Input::Act(Control& control, bool focusFirst, Action action)
{
    if (auto refusal = Blocked(control); !refusal.empty())
        return refusal;
    return Act(control.ParentForm(), [this, &control, focusFirst, action] {
        if (focusFirst)
            control.SetFocus();
        if (Blocked(control).empty())
            action();
    });
}
