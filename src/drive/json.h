#pragma once
// Answers as JSON.

#include "controls/control.h"

#include <nlohmann/json.hpp>

#include <stdexcept>

using Json = nlohmann::ordered_json;

/// A command that can't be carried out; its text becomes the command's answer.
struct CommandError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

Json ToJson(TextView text);
inline Json ToJson(Text const& text)
{
    return ToJson(TextView(text));
}
/// A number without a fraction becomes an integer, any other the shortest decimal that is the same
/// float.
Json ToJson(float number);
Json ToJson(Value const& value);
/// All properties of a control by their names.
Json PropertiesOf(Control const& control);
