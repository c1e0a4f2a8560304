#include "drive/json.h"

#include <charconv>
#include <cmath>

Json ToJson(TextView text)
{
    return ToUtf8(text);
}

Json ToJson(float number)
{
    if (!std::isfinite(number))
        return nullptr;
    if (std::trunc(number) == number && std::abs(number) < 1e9F)
        return static_cast<std::int64_t>(number);
    char digits[32];
    auto const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return Json::parse(digits, end, nullptr, false);
}

Json ToJson(Value const& value)
{
    return std::visit(
        [](auto const& held) -> Json {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::same_as<Held, std::vector<Text>>) {
                Json list = Json::array();
                for (Text const& text : held)
                    list.push_back(ToJson(text));
                return list;
            } else if constexpr (std::same_as<Held, Text> || std::same_as<Held, float>) {
                return ToJson(held);
            } else {
                return held;
            }
        },
        value);
}

Json PropertiesOf(Control const& control)
{
    Json properties = Json::object();
    for (PropertyBase const* property : control.Properties())
        properties[property->Name()] = ToJson(property->Get());
    return properties;
}
