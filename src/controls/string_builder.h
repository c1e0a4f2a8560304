#pragma once
// A growable text buffer, for texts that are built from many pieces. Capacities and growth units
// count bytes, lengths and positions count 16-bit characters of two bytes each.

#include "base/text.h"

#include <cstdint>
#include <stdexcept>
#include <string>

/// What CStringBuilder raises: an argument outside the text. The builder is unchanged.
class StringBuilderError : public std::out_of_range {
public:
    StringBuilderError(char const* errorSource, char const* message)
        : std::out_of_range(message)
        , source(errorSource)
    {
    }

    static constexpr std::int32_t number = -2147220992; ///< 0x80040200
    std::string source; ///< "CStringBuilder." and the member's name
};

class CStringBuilder {
public:
    CStringBuilder();
    CStringBuilder(CStringBuilder const&) = delete;
    CStringBuilder& operator=(CStringBuilder const&) = delete;

    /// The unit in which the capacity grows next, in bytes: with sizing method 0 as it was set,
    /// with 1 the percentage of the present capacity. Setting it counts with method 0 and above 0
    /// alone; odd values go up by 1. Growth itself goes in whole characters: an odd unit counts as
    /// one more, one below 2 as 2.
    std::int32_t BufferBump() const;
    void SetBufferBump(std::int32_t value);

    /// Bytes. Setting it goes up to a whole number of units, cuts a text that is longer, and makes
    /// that unit the one of method 0; a value of 0 or less is ignored. A value near the 32-bit
    /// limit raises std::length_error.
    std::int32_t Capacity() const { return m_capacity; }
    void SetCapacity(std::int32_t value);
    /// Makes the capacity at least this; gives the capacity.
    std::int32_t EnsureCapacity(std::int32_t value);

    /// A character by its position from 0.
    char16_t Chars(std::int32_t position) const;
    /// Replaces it by the first character of the text; an empty text is an argument out of range.
    void SetChars(std::int32_t position, TextView value);

    /// Characters. Setting it cuts the text, or lengthens it by whatever the buffer holds; a
    /// negative value is ignored.
    std::int32_t Length() const { return m_used / 2; }
    void SetLength(std::int32_t value);

    std::int32_t SizingMethod() const { return m_sizingMethod; }
    void SetSizingMethod(std::int32_t value); ///< 0 or 1, else ignored
    std::int32_t SizingPercent() const { return m_sizingPercent; }
    void SetSizingPercent(std::int32_t value); ///< 1 to 100, else ignored

    CStringBuilder& Append(TextView text);
    /// Inserts before the character at the position, which may be the end.
    CStringBuilder& Insert(std::int32_t startIndex, TextView text);
    /// Removes so many characters, all of them within the text.
    CStringBuilder& Remove(std::int32_t startIndex, std::int32_t length);
    Text ToString() const&;
    /// Takes the text out of a builder that isn't needed any more, without a copy.
    Text ToString() &&;

private:
    void Grow(std::int64_t bytes);

    std::int32_t m_bufferBump = 2048;
    std::int32_t m_sizingPercent = 25;
    std::int32_t m_sizingMethod = 1;
    std::int32_t m_used = 0; // bytes
    std::int32_t m_capacity = 8192; // bytes
    Text m_buffer; // the text, and what stood behind it before it was cut
};
