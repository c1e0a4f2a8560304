#pragma once
// Why an operation failed, as a value.

#include "base/text.h"

#include <cassert>
#include <utility>
#include <variant>

/// What a user needs to know about a failure: the file, the line where that helps, and the reason.
struct Failure {
    Text file; ///< as the program named it; empty if no file is concerned
    int line = 0; ///< counted from 1; 0 if no line is concerned
    Text reason; ///< a sentence without a full stop, such as "the file doesn't exist"

    /// "<file>, line <line>: <reason>.", without the parts that are missing.
    Text Message() const;
};

/// A value, or the failure that prevented it.
template <class Value> class [[nodiscard]] Outcome {
public:
    Outcome(Value value)
        : m_state(std::in_place_index<0>, std::move(value))
    {
    }
    Outcome(Failure failure)
        : m_state(std::in_place_index<1>, std::move(failure))
    {
    }

    explicit operator bool() const { return m_state.index() == 0; }
    Value& operator*() { return *std::get_if<0>(&m_state); }
    Value const& operator*() const { return *std::get_if<0>(&m_state); }
    Value* operator->() { return std::get_if<0>(&m_state); }
    Value const* operator->() const { return std::get_if<0>(&m_state); }
    /// Call this only if the operation failed.
    Failure const& failure() const
    {
        assert(m_state.index() == 1);
        return *std::get_if<1>(&m_state);
    }

private:
    std::variant<Value, Failure> m_state;
};

/// The value of an operation that returns nothing but may fail.
struct Done { };
