#include "controls/string_builder.h"

#include <algorithm>
#include <limits>
#include <utility>

static constexpr std::int64_t mostBytes = std::numeric_limits<std::int32_t>::max();

/// Whole characters: even, at least 2.
static std::int32_t EvenUnit(std::int32_t unit)
{
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(std::int64_t { unit } + unit % 2, 2, mostBytes - 1));
}

static std::size_t Characters(std::int64_t bytes)
{
    return static_cast<std::size_t>(bytes) / 2;
}

CStringBuilder::CStringBuilder()
{
    m_buffer.reserve(Characters(m_capacity));
}

std::int32_t CStringBuilder::BufferBump() const
{
    if (m_sizingMethod == 0)
        return m_bufferBump;
    return static_cast<std::int32_t>(std::int64_t { m_capacity } * m_sizingPercent / 100);
}

void CStringBuilder::SetBufferBump(std::int32_t value)
{
    if (m_sizingMethod == 0 && value > 0)
        m_bufferBump = EvenUnit(value);
}

void CStringBuilder::SetCapacity(std::int32_t value)
{
    if (value <= 0)
        return;
    std::int32_t const unit = EvenUnit(BufferBump());
    std::int64_t const rounded = (std::int64_t { value } + unit - 1) / unit * unit;
    if (rounded > mostBytes)
        throw std::length_error("CStringBuilder.Capacity");
    auto const capacity = static_cast<std::int32_t>(rounded);
    m_buffer.resize(std::min(m_buffer.size(), Characters(capacity)));
    m_buffer.reserve(Characters(capacity));
    m_bufferBump = unit;
    m_used = std::min(m_used, capacity);
    m_capacity = capacity;
}

std::int32_t CStringBuilder::EnsureCapacity(std::int32_t value)
{
    if (value > m_capacity)
        SetCapacity(value);
    return m_capacity;
}

void CStringBuilder::Grow(std::int64_t bytes)
{
    if (bytes > mostBytes)
        throw std::length_error("CStringBuilder.Capacity");
    EnsureCapacity(static_cast<std::int32_t>(bytes));
}

char16_t CStringBuilder::Chars(std::int32_t position) const
{
    if (position < 0 || position >= Length())
        throw StringBuilderError(
            "CStringBuilder.Chars", "Tried reading character past end of buffer.");
    return m_buffer[static_cast<std::size_t>(position)];
}

void CStringBuilder::SetChars(std::int32_t position, TextView value)
{
    if (position < 0 || position >= Length() || value.empty())
        throw StringBuilderError(
            "CStringBuilder.Chars", "Tried assigning character past end of buffer.");
    m_buffer[static_cast<std::size_t>(position)] = value.front();
}

void CStringBuilder::SetLength(std::int32_t value)
{
    if (value < 0)
        return;
    Grow(std::int64_t { value } * 2);
    m_used = value * 2;
    m_buffer.resize(std::max(m_buffer.size(), Characters(m_used)));
}

void CStringBuilder::SetSizingMethod(std::int32_t value)
{
    if (value == 0 || value == 1)
        m_sizingMethod = value;
}

void CStringBuilder::SetSizingPercent(std::int32_t value)
{
    if (value >= 1 && value <= 100)
        m_sizingPercent = value;
}

CStringBuilder& CStringBuilder::Append(TextView text)
{
    if (text.empty())
        return *this;
    auto const size = static_cast<std::int64_t>(text.size()) * 2;
    if (m_used + size > m_capacity)
        Grow(m_used + size);
    if (auto const end = Characters(m_used); end == m_buffer.size())
        m_buffer.append(text);
    else
        m_buffer.replace(end, text.size(), text);
    m_used += static_cast<std::int32_t>(size);
    return *this;
}

CStringBuilder& CStringBuilder::Insert(std::int32_t startIndex, TextView text)
{
    if (startIndex < 0 || startIndex > Length())
        throw StringBuilderError("CStringBuilder.Insert", "Argument(s) out of range.");
    if (text.empty())
        return *this;
    auto const size = static_cast<std::int64_t>(text.size()) * 2;
    Grow(m_used + size);
    m_buffer.resize(Characters(m_used));
    m_buffer.insert(static_cast<std::size_t>(startIndex), text);
    m_used += static_cast<std::int32_t>(size);
    return *this;
}

CStringBuilder& CStringBuilder::Remove(std::int32_t startIndex, std::int32_t length)
{
    if (startIndex < 0 || length < 0 || std::int64_t { startIndex } + length > Length())
        throw StringBuilderError("CStringBuilder.Remove", "Argument(s) out of range.");
    m_buffer.erase(static_cast<std::size_t>(startIndex), static_cast<std::size_t>(length));
    m_used -= length * 2;
    return *this;
}

Text CStringBuilder::ToString() const&
{
    return m_buffer.substr(0, Characters(m_used));
}

Text CStringBuilder::ToString() &&
{
    m_buffer.resize(Characters(std::exchange(m_used, 0)));
    return std::exchange(m_buffer, Text());
}
