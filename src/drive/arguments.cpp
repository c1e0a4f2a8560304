#include "drive/arguments.h"

#include <charconv>
#include <cmath>

void Arguments::ExpectCount(std::size_t fewest, std::size_t most) const
{
    if (m_words.size() < fewest)
        throw CommandError("the command needs more words");
    if (m_words.size() > most)
        throw CommandError("the command has too many words");
}

std::string const& Arguments::StringAt(std::size_t index) const
{
    if (index >= m_words.size())
        throw CommandError("the command needs more words");
    return m_words[index].text;
}

Text Arguments::TextAt(std::size_t index) const
{
    return FromUtf8(StringAt(index));
}

template <class Number> static Number Parse(std::string const& word)
{
    Number number {};
    auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc {} || end != word.data() + word.size())
        throw CommandError("not a number: " + word);
    return number;
}

int Arguments::IntegerAt(std::size_t index) const
{
    return Parse<int>(StringAt(index));
}

float Arguments::NumberAt(std::size_t index) const
{
    float const number = Parse<float>(StringAt(index));
    if (!std::isfinite(number))
        throw CommandError("not a number: " + StringAt(index));
    return number;
}

bool Arguments::BooleanAt(std::size_t index) const
{
    if (StringAt(index) != "true" && StringAt(index) != "false")
        throw CommandError("neither true nor false: " + StringAt(index));
    return StringAt(index) == "true";
}

Form& Arguments::FindForm(std::string_view name) const
{
    if (Form* form = m_screen.Find(name))
        return *form;
    throw CommandError("there is no form " + std::string(name));
}

Form& Arguments::FormAt(std::size_t index) const
{
    return FindForm(StringAt(index));
}

static Control& FindControl(Form& form, std::string_view name)
{
    if (Control* control = form.FindControl(name))
        return *control;
    throw CommandError(std::string(form.Name()) + " has no control " + std::string(name));
}

Control& Arguments::ControlAt(std::size_t index) const
{
    std::string_view const word = StringAt(index);
    auto const dot = word.find('.');
    Form& form = FindForm(word.substr(0, dot));
    if (dot == std::string_view::npos)
        return form;
    return FindControl(form, word.substr(dot + 1));
}

Node& Arguments::NodeAt(std::size_t index) const
{
    if (Node* const node = ControlOf<TreeView>(index).Find(TextAt(index + 1)))
        return *node;
    throw CommandError(StringAt(index) + " has no node " + StringAt(index + 1));
}

PropertyBase& Arguments::PropertyAt(std::size_t index, Control** owner) const
{
    std::string_view const word = StringAt(index);
    auto const dot = word.find('.');
    if (dot == std::string_view::npos)
        throw CommandError("not a property: " + std::string(word));
    Form& form = FindForm(word.substr(0, dot));
    auto const rest = word.substr(dot + 1);
    auto const second = rest.find('.');
    bool const isOfForm = second == std::string_view::npos;
    Control& control = isOfForm ? form : FindControl(form, rest.substr(0, second));
    auto const name = isOfForm ? rest : rest.substr(second + 1);
    if (owner)
        *owner = &control;
    if (PropertyBase* property = control.FindProperty(name))
        return *property;
    throw CommandError(std::string(control.Name()) + " has no property " + std::string(name));
}

Value Arguments::ValueAt(std::size_t index, PropertyBase const& property) const
{
    auto const present = property.Get();
    if (std::holds_alternative<bool>(present))
        return BooleanAt(index);
    if (std::holds_alternative<std::int64_t>(present))
        return Parse<std::int64_t>(StringAt(index));
    if (std::holds_alternative<float>(present))
        return NumberAt(index);
    if (std::holds_alternative<Text>(present))
        return TextAt(index);
    std::vector<Text> list;
    auto const json = Json::parse(StringAt(index), nullptr, false);
    if (!json.is_array())
        throw CommandError("not a list: " + StringAt(index));
    for (auto const& entry : json)
        list.push_back(FromUtf8(entry.is_string() ? entry.get<std::string>() : entry.dump()));
    return list;
}
