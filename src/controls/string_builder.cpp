#include "controls/string_builder.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

static constexpr std::int64_t mostBytes = std::numeric_limits<std::int32_t>::max();

static std::size_t Size(std::int64_t bytes)
{
    return static_cast<std::size_t>(bytes);
}

/// Cleared bytes; the old ones are kept as far as they go, and aren't moved where the machine can spare that.
void CStringBuilder::Resize(Bytes& bytes, std::int32_t oldSize, std::int32_t size)
{
    auto* const resized = static_cast<std::byte*>(std::realloc(bytes.get(), Size(size)));
    if (!resized)
        throw std::bad_alloc();
    static_cast<void>(bytes.release());
    bytes.reset(resized);
    if (size > oldSize)
        std::memset(resized + oldSize, 0, Size(size - oldSize));
}

/// Whole characters: even, at least 2.
static std::int32_t EvenUnit(std::int32_t unit)
{
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(std::int64_t { unit } + unit % 2, 2, mostBytes - 1));
}

CStringBuilder::CStringBuilder()
{
    Resize(m_buffer, 0, m_capacity);
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
    Resize(m_buffer, m_capacity, capacity);
    m_bufferBump = unit;
    m_used = std::min(m_used, capacity);
    m_scratch.reset();
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
        throw StringBuilderError("CStringBuilder.Chars", "Tried reading character past end of buffer.");
    char16_t character;
    std::memcpy(&character, m_buffer.get() + Size(position) * 2, sizeof character);
    return character;
}

void CStringBuilder::SetChars(std::int32_t position, TextView value)
{
    if (position < 0 || position >= Length() || value.empty())
        throw StringBuilderError("CStringBuilder.Chars", "Tried assigning character past end of buffer.");
    std::memcpy(m_buffer.get() + Size(position) * 2, value.data(), sizeof(char16_t));
}

void CStringBuilder::SetLength(std::int32_t value)
{
    if (value < 0)
        return;
    Grow(std::int64_t { value } * 2);
    m_used = value * 2;
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
    std::memcpy(m_buffer.get() + m_used, text.data(), Size(size));
    m_used += static_cast<std::int32_t>(size);
    return *this;
}

CStringBuilder& CStringBuilder::Insert(std::int32_t startIndex, TextView text)
{
    std::int64_t const start = std::int64_t { startIndex } * 2;
    if (start < 0 || start > m_used)
        throw StringBuilderError("CStringBuilder.Insert", "Argument(s) out of range.");
    if (text.empty())
        return *this;
    auto const size = static_cast<std::int64_t>(text.size()) * 2;
    Grow(m_used + size);
    if (!m_scratch)
        Resize(m_scratch, 0, m_capacity);
    std::memcpy(m_scratch.get(), m_buffer.get(), Size(start));
    std::memcpy(m_scratch.get() + start, text.data(), Size(size));
    std::memcpy(m_scratch.get() + start + size, m_buffer.get() + start, Size(m_used - start));
    std::swap(m_buffer, m_scratch);
    m_used += static_cast<std::int32_t>(size);
    return *this;
}

CStringBuilder& CStringBuilder::Remove(std::int32_t startIndex, std::int32_t length)
{
    std::int64_t const start = std::int64_t { startIndex } * 2;
    std::int64_t const size = std::int64_t { length } * 2;
    if (start < 0 || size < 0 || start + size > m_used)
        throw StringBuilderError("CStringBuilder.Remove", "Argument(s) out of range.");
    std::memmove(m_buffer.get() + start, m_buffer.get() + start + size, Size(m_used - start - size));
    m_used -= static_cast<std::int32_t>(size);
    return *this;
}

Text CStringBuilder::ToString() const
{
    // Nothing but characters has been copied into the buffer.
    return Text(reinterpret_cast<char16_t const*>(m_buffer.get()), Size(m_used) / 2);
}
