#include "controls/xp_container.h"
#include "drive/commands.h"
#include "headless/keyboard.h"

#include <fstream>

static Json Answer(Refusal const& refusal)
{
    if (!refusal.empty())
        throw CommandError(refusal);
    return Json::object();
}

static Json Set(Machine& machine, Arguments const& arguments)
{
    Control* owner = nullptr;
    PropertyBase& property = arguments.PropertyAt(0, &owner);
    auto const value = arguments.ValueAt(1, property);
    Form& form = owner->ParentForm();
    // Code shows and hides a form in this way, so that the focus moves along.
    if (&property == &form.Visible) {
        std::get<bool>(value) ? form.Show() : form.Hide();
        return Json::object();
    }
    bool isSet = false;
    machine.screen.RunHandler(form, [&] { isSet = property.Set(value); });
    if (!isSet)
        throw CommandError(arguments.StringAt(0) + " can't be set to " + arguments.StringAt(1));
    return Json::object();
}

static Json Click(Machine& machine, Arguments const& arguments)
{
    Control& control = arguments.ControlAt(0);
    bool const isForm = &control == &control.ParentForm();
    return Answer(
        isForm ? machine.input.Click(control.ParentForm()) : machine.input.Click(control));
}

static Json ClickNode(Machine& machine, Arguments const& arguments)
{
    return Answer(machine.input.ClickNode(arguments.ControlOf<TreeView>(0), arguments.NodeAt(0)));
}

static Json Expand(Machine& machine, Arguments const& arguments)
{
    bool const expanded = arguments.BooleanAt(2);
    return Answer(
        machine.input.Expand(arguments.ControlOf<TreeView>(0), arguments.NodeAt(0), expanded));
}

static Json Focus(Machine& machine, Arguments const& arguments)
{
    return Answer(machine.input.Focus(arguments.ControlAt(0)));
}

static Json TypeText(Machine& machine, Arguments const& arguments)
{
    return Answer(Type(machine.input, arguments.ControlOf<TextInput>(0), arguments.TextAt(1)));
}

static Json Select(Machine& machine, Arguments const& arguments)
{
    return Answer(machine.input.Select(
        arguments.ControlOf<TextInput>(0), arguments.IntegerAt(1), arguments.IntegerAt(2)));
}

static Json PressKey(Machine& machine, Arguments const& arguments)
{
    Control* target = &arguments.ControlAt(0);
    Form& form = target->ParentForm();
    if (target == &form && form.Focus())
        target = form.Focus();
    int const shift = arguments.Count() > 2 ? arguments.IntegerAt(2) : 0;
    return Answer(Press(machine.input, machine.screen, *target, arguments.IntegerAt(1), shift));
}

static Json Choose(Machine& machine, Arguments const& arguments)
{
    return Answer(machine.input.Choose(arguments.ControlOf<ComboBox>(0), arguments.IntegerAt(1)));
}

static Json Scroll(Machine& machine, Arguments const& arguments)
{
    return Answer(
        machine.input.DragThumb(arguments.ControlOf<ScrollBar>(0), arguments.IntegerAt(1), true));
}

template <class Meaning> struct Named {
    char const* name;
    Meaning meaning;
};

template <class Meaning, std::size_t size>
static Meaning Choice(std::string const& word, Named<Meaning> const (&choices)[size])
{
    for (auto const& choice : choices)
        if (choice.name == word)
            return choice.meaning;
    throw CommandError("not among the choices: " + word);
}

static Json Bar(Machine& machine, Arguments const& arguments)
{
    static constexpr Named<BarStep> steps[]
        = { { "less", BarStep::Less }, { "more", BarStep::More }, { "pageless", BarStep::PageLess },
              { "pagemore", BarStep::PageMore } };
    return Answer(machine.input.Step(
        arguments.ControlOf<ScrollBar>(0), Choice(arguments.StringAt(1), steps)));
}

static Json Mouse(Machine& machine, Arguments const& arguments)
{
    static constexpr Named<MouseAction> mouseActions[] = { { "down", MouseAction::Down },
        { "move", MouseAction::Move }, { "up", MouseAction::Up } };
    auto const action = Choice(arguments.StringAt(1), mouseActions);
    return Answer(machine.input.Mouse(
        arguments.ControlAt(0), action, arguments.NumberAt(2), arguments.NumberAt(3)));
}

static Json Tick(Machine& machine, Arguments const& arguments)
{
    auto& timer = arguments.ControlOf<Timer>(0);
    int const times = arguments.Count() > 1 ? arguments.IntegerAt(1) : 1;
    for (int i = 0; i < times; ++i)
        Answer(machine.input.Fire(timer));
    return Json::object();
}

static Json Resize(Machine& machine, Arguments const& arguments)
{
    return Answer(
        machine.input.Resize(arguments.FormAt(0), arguments.NumberAt(1), arguments.NumberAt(2)));
}

static Json State(Machine& machine, Arguments const& arguments)
{
    static constexpr Named<FormState> states[] = { { "0", FormState::Normal },
        { "1", FormState::Minimised }, { "2", FormState::Maximised } };
    return Answer(
        machine.input.ChangeState(arguments.FormAt(0), Choice(arguments.StringAt(1), states)));
}

static Json Close(Machine& machine, Arguments const& arguments)
{
    return Answer(machine.input.Close(arguments.FormAt(0)));
}

static Json Clipboard(Machine& machine, Arguments const& arguments)
{
    if (arguments.Count() == 0)
        return { { "text", ToJson(machine.host.ClipboardText()) } };
    machine.host.SetClipboardText(arguments.TextAt(0));
    return Json::object();
}

static Json Setting(Machine& machine, Arguments const& arguments)
{
    auto const written
        = machine.settings.Write(arguments.TextAt(0), arguments.TextAt(1), arguments.TextAt(2));
    if (!written)
        throw CommandError(ToUtf8(written.failure().Message()));
    return Json::object();
}

static Json WritePixels(Machine&, Arguments const& arguments)
{
    auto const surface = arguments.ControlOf<XPContainer>(0).Surface();
    std::ofstream file(arguments.StringAt(1), std::ios::binary);
    file << "P6\n" << surface.Width() << ' ' << surface.Height() << "\n255\n";
    for (Colour const pixel : surface.Pixels())
        for (int shift = 0; shift < 24; shift += 8)
            file.put(static_cast<char>(pixel >> shift & 0xFF));
    if (!file.flush())
        throw CommandError("can't write " + arguments.StringAt(1));
    return { { "width", surface.Width() }, { "height", surface.Height() } };
}

std::span<Command const> Actions()
{
    static constexpr Command table[] = {
        { "set", 2, 2, Set },
        { "click", 1, 1, Click },
        { "node", 2, 2, ClickNode },
        { "expand", 3, 3, Expand },
        { "focus", 1, 1, Focus },
        { "type", 2, 2, TypeText },
        { "select", 3, 3, Select },
        { "press", 2, 3, PressKey },
        { "choose", 2, 2, Choose },
        { "scroll", 2, 2, Scroll },
        { "bar", 2, 2, Bar },
        { "mouse", 4, 4, Mouse },
        { "tick", 1, 2, Tick },
        { "resize", 3, 3, Resize },
        { "state", 2, 2, State },
        { "close", 1, 1, Close },
        { "clipboard", 0, 1, Clipboard },
        { "setting", 3, 3, Setting },
        { "pixels", 2, 2, WritePixels },
    };
    return table;
}
