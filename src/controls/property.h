#pragma once
// A property of a control: used like a field, notifies its control of each assignment.

#include "base/text.h"
#include "controls/value.h"

#include <concepts>
#include <utility>

class Control;

/// What all properties have in common, whatever their type.
class PropertyBase {
public:
    /// Enters the property in the list of its control. `name` is a literal.
    PropertyBase(Control& owner, char const* name);
    virtual ~PropertyBase() = default;
    PropertyBase(PropertyBase const&) = delete;
    PropertyBase& operator=(PropertyBase const&) = delete;

    char const* Name() const { return m_name; }

    virtual Value Get() const = 0;
    /// False if the value is of another kind or the property is read-only.
    virtual bool Set(Value const& value) = 0;

    /// Saves the present value as the design; RestoreDesign returns to it without notification.
    virtual void SaveDesign() = 0;
    virtual void RestoreDesign() = 0;

protected:
    void NotifyAssigned(bool changed);

    Control& m_owner;

private:
    char const* m_name;
};

template <class T> class Property final : public PropertyBase {
public:
    /// Turns the assigned value into one that the control can take.
    using Fit = T (*)(Control const&, T);

    Property(Control& owner, char const* name, T design = {}, Fit fit = nullptr)
        : PropertyBase(owner, name)
        , m_value(std::move(design))
        , m_fit(fit)
    {
    }

    Property& operator=(T value)
    {
        if (m_fit)
            value = m_fit(m_owner, std::move(value));
        bool const changed = !(m_value == value);
        if (changed)
            m_value = std::move(value);
        NotifyAssigned(changed);
        return *this;
    }
    Property& operator=(Property const& other) { return *this = other.m_value; }

    operator T const&() const { return m_value; }
    operator TextView() const requires std::same_as<T, Text> { return m_value; }
    T const& operator()() const { return m_value; }

    /// Doesn't notify the control: it keeps related values consistent itself.
    void AssignSilently(T value) { m_value = std::move(value); }
    /// The value itself, for a control that changes a part of it and notifies the host itself.
    T& Part() { return m_value; }

    Value Get() const override { return ToValue(m_value); }
    bool Set(Value const& value) override
    {
        auto converted = FromValue<T>(value);
        if (converted)
            *this = *std::move(converted);
        return converted.has_value();
    }
    void SaveDesign() override { m_design = m_value; }
    void RestoreDesign() override { m_value = m_design; }

private:
    T m_value;
    T m_design {};
    Fit m_fit;
};

/// A property that is computed at each reading.
template <class T> class ComputedProperty final : public PropertyBase {
public:
    using Compute = T (*)(Control const&);

    ComputedProperty(Control& owner, char const* name, Compute compute)
        : PropertyBase(owner, name)
        , m_compute(compute)
    {
    }

    operator T() const { return m_compute(m_owner); }

    Value Get() const override { return ToValue(m_compute(m_owner)); }
    bool Set(Value const&) override { return false; }
    void SaveDesign() override { }
    void RestoreDesign() override { }

private:
    Compute m_compute;
};
