#pragma once
// A growable text buffer. Capacities and growth units are bytes, lengths and positions 16-bit
// characters.

#include "base/text.h"

#include <cstdint>
#include <stdexcept>
#include <string>

/// Thrown for an argument outside the text. The builder is unchanged.
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

    /// The unit by which the capacity grows, in bytes: with sizing method 0 the value set, with 1 a
    /// percentage of the capacity. Setting it is ignored with method 1 and for values below 1; odd
    /// values are rounded up. Growth rounds the unit up to an even number, at least 2.
    std::int32_t BufferBump() const;
    void SetBufferBump(std::int32_t value);

    /// Bytes. Setting it rounds up to whole units, cuts a longer text, and makes the unit that of
    /// method 0; values below 1 are ignored. Near the 32-bit limit it throws std::length_error.
    std::int32_t Capacity() const { return m_capacity; }
    void SetCapacity(std::int32_t value);
    /// Makes the capacity at least this; gives the capacity.
    std::int32_t EnsureCapacity(std::int32_t value);

    /// A character by its position from 0.
    char16_t Chars(std::int32_t position) const;
    /// Replaces it by the first character of the text; an empty text is an error.
    void SetChars(std::int32_t position, TextView value);

    /// Setting it cuts the text, or lengthens it by what the buffer holds; below 0 is ignored.
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
    Text m_buffer; // the text, and what came after it before it was cut
};
