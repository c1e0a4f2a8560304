#include "headless/keyboard.h"

#include "controls/button.h"
#include "controls/key_codes.h"
#include "controls/menu.h"
#include "controls/picture.h"
#include "controls/screen.h"
#include "headless/text_keys.h"

/// Shift, Ctrl, Alt, the two system keys and the locking keys.
static bool IsModifier(int keyCode)
{
    return (keyCode >= keyShift && keyCode <= keyAlt) || keyCode == keyCapsLock
        || keyCode == keyLeftSystem || keyCode == keyRightSystem || keyCode == keyNumLock
        || keyCode == keyScrollLock || (keyCode >= keyLeftShift && keyCode <= keyRightAlt);
}

/// A key that opened another form is released over that form.
static bool ReceivesKeyUp(Input const& input, Control const& control)
{
    Form const& form = control.ParentForm();
    return input.Blocked(control).empty() && form.GetScreen().Active() == &form;
}

/// The virtual key code of a character.
static int KeyCodeOf(char16_t character)
{
    if (character >= u'a' && character <= u'z')
        return character - u'a' + 'A';
    bool const isItself = IsDigit(character) || (character >= u'A' && character <= u'Z')
        || character == u' ' || character == u'\r';
    return isItself ? character : 0;
}

static Refusal TypeCharacter(Input& input, TextInput& box, TextView character)
{
    int const keyCode = KeyCodeOf(character[0]);
    if (auto refusal = input.KeyDown(box, keyCode, 0); !refusal.empty())
        return refusal;
    input.KeyPress(box, character[0]);
    Refusal refusal;
    if (character[0] != u'\r' || box.IsMultiLine())
        refusal = ReplaceByUser(input, box, character);
    else
        input.PressDefault(box.ParentForm(), keyEnter);
    if (ReceivesKeyUp(input, box))
        input.KeyUp(box, keyCode, 0);
    return refusal;
}

Refusal Type(Input& input, TextInput& box, TextView text)
{
    if (auto refusal = input.Focus(box); !refusal.empty())
        return refusal;
    auto const whole = WithLineEnds(text);
    for (TextView rest = whole; !rest.empty();) {
        std::size_t const length = rest.starts_with(u"\r\n") ? 2 : 1;
        if (auto refusal = TypeCharacter(input, box, rest.substr(0, length)); !refusal.empty())
            return refusal;
        rest.remove_prefix(length);
    }
    return {};
}

static Node* NextVisible(TreeView const& tree, Node* from, bool downwards)
{
    std::vector<Node*> visible;
    auto const add = [&](auto const& self, std::pmr::vector<Node*> const& nodes) -> void {
        for (Node* node : nodes) {
            visible.push_back(node);
            if (node->Expanded())
                self(self, node->Children());
        }
    };
    add(add, tree.Roots());
    for (std::size_t i = 0; i < visible.size(); ++i) {
        if (visible[i] != from)
            continue;
        if (downwards)
            return i + 1 < visible.size() ? visible[i + 1] : from;
        return i > 0 ? visible[i - 1] : from;
    }
    return visible.empty() ? nullptr : visible.front();
}

static void PressInTree(Input& input, TreeView& tree, int keyCode)
{
    Node* const node = tree.Selected();
    if (keyCode == keyUp || keyCode == keyDown) {
        tree.Select(NextVisible(tree, node, keyCode == keyDown));
    } else if (node && (keyCode == keyEnter || keyCode == keySpace)) {
        input.ClickNode(tree, *node);
    } else if (node && keyCode == keyRight) {
        input.Expand(tree, *node, true);
    } else if (node && keyCode == keyLeft) {
        if (node->Expanded())
            input.Expand(tree, *node, false);
        else if (node->Parent())
            tree.Select(node->Parent());
    }
}

static void PressOnBar(Input& input, ScrollBar& bar, int keyCode)
{
    if (keyCode == keyLeft || keyCode == keyUp)
        input.Step(bar, BarStep::Less);
    else if (keyCode == keyRight || keyCode == keyDown)
        input.Step(bar, BarStep::More);
    else if (keyCode == keyPageUp || keyCode == keyPageDown)
        input.Step(bar, keyCode == keyPageUp ? BarStep::PageLess : BarStep::PageMore);
    else if (keyCode == keyHome || keyCode == keyEnd)
        input.DragThumb(bar, keyCode == keyHome ? bar.Min() : bar.Max(), true);
}

/// What a control does with a key; false if it does nothing with it.
static bool PressInControl(Input& input, Screen& screen, Control& target, int keyCode, int shift)
{
    bool const clicks = keyCode == keyEnter || keyCode == keySpace;
    if (auto* const box = dynamic_cast<TextInput*>(&target)) {
        if (keyCode == keyEnter && box->IsMultiLine() && !box->Locked)
            return ReplaceByUser(input, *box, u"\r\n").empty();
        return PressInText(input, screen.GetHost(), *box, keyCode, shift);
    }
    if (auto* const tree = dynamic_cast<TreeView*>(&target)) {
        PressInTree(input, *tree, keyCode);
        return keyCode == keyEnter;
    }
    if (auto* const bar = dynamic_cast<ScrollBar*>(&target)) {
        PressOnBar(input, *bar, keyCode);
        return false;
    }
    if (auto* const list = dynamic_cast<ComboBox*>(&target)) {
        int const index = list->ListIndex + (keyCode == keyDown) - (keyCode == keyUp);
        if (index != list->ListIndex)
            input.Choose(*list, index);
        return false;
    }
    bool const isClickable = dynamic_cast<CommandButton*>(&target) || dynamic_cast<Image*>(&target)
        || (dynamic_cast<CheckBox*>(&target) && keyCode == keySpace);
    return clicks && isClickable && input.Click(target).empty();
}

/// The character that a key types with these modifiers; 0 for none.
static char16_t CharacterOf(int keyCode, int shift)
{
    if ((shift & (controlHeld | altHeld)) != 0)
        return 0;
    if (keyCode >= 'A' && keyCode <= 'Z')
        return static_cast<char16_t>((shift & shiftHeld) != 0 ? keyCode : keyCode - 'A' + 'a');
    bool const isItself = keyCode == keyEnter || keyCode == keyEscape || keyCode == keySpace
        || keyCode == keyBackspace || (keyCode >= '0' && keyCode <= '9' && shift == 0);
    return isItself ? static_cast<char16_t>(keyCode) : u'\0';
}

static void ApplyKey(Input& input, Screen& screen, Control& target, int keyCode, int shift)
{
    Form& form = target.ParentForm();
    Control* const next = keyCode == keyTab
        ? screen.NextInTabOrder(form, form.Focus(), (shift & shiftHeld) != 0)
        : nullptr;
    if (next) {
        input.Focus(*next);
        return;
    }
    char16_t const character = CharacterOf(keyCode, shift);
    // A form also gets keys that type nothing.
    if (&target == &form ? !IsModifier(keyCode) : character != 0)
        input.KeyPress(target, character);
    if (!input.Blocked(form).empty() || PressInControl(input, screen, target, keyCode, shift))
        return;
    if (keyCode == keyEnter || keyCode == keyEscape) {
        input.PressDefault(form, keyCode);
        return;
    }
    auto* const box = dynamic_cast<TextInput*>(&target);
    if (box && character >= u' ' && !box->Locked)
        ReplaceByUser(input, *box, TextView(&character, 1));
}

Refusal Press(Input& input, Screen& screen, Control& target, int keyCode, int shift)
{
    bool const isForm = &target == &target.ParentForm();
    if (auto refusal = isForm ? input.Blocked(target.ParentForm()) : input.Blocked(target);
        !refusal.empty())
        return refusal;
    if (!isForm && target.CanFocus())
        input.Focus(target);
    Form& form = target.ParentForm();
    if (keyCode == keyF4 && shift == altHeld)
        return input.Close(form);
    if (shift == controlHeld && keyCode >= 'A' && keyCode <= 'Z') {
        Text const shortcut = u"Ctrl+" + Text(1, static_cast<char16_t>(keyCode));
        if (MenuEntry* entry = input.FindShortcut(form, shortcut))
            return input.Click(*entry);
    }
    if (input.PressShortcut(form, keyCode, shift))
        return {};
    if (!isForm)
        input.KeyDown(target, keyCode, shift);
    if (isForm ? input.Blocked(form).empty() : input.Blocked(target).empty())
        ApplyKey(input, screen, target, keyCode, shift);
    if (!isForm && ReceivesKeyUp(input, target))
        input.KeyUp(target, keyCode, shift);
    return {};
}
