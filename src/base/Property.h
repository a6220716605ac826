#pragma once

#include "base/Signal.h"

namespace korvex {

/// A value that tells when it changes. Setting the value that it already has tells nothing.
template <class T>
class Property {
public:
    Property() = default;
    explicit Property(T value) : m_value(std::move(value)) {}
    Property(const Property&) = delete;
    /// Its value is to be had by get(), its handlers by nobody.
    Property& operator=(const Property&) = delete;

    const T& get() const { return m_value; }
    operator const T&() const { return m_value; }

    void set(T value) {
        if (value == m_value) return;
        m_value = std::move(value);
        changed.emit(m_value);
    }
    Property& operator=(T value) {
        set(std::move(value));
        return *this;
    }

    /// Calls the handler now with the present value and then at every change.
    Connection bind(typename Signal<const T&>::Handler handler) {
        handler(m_value);
        return changed.connect(std::move(handler));
    }

    Signal<const T&> changed;

private:
    T m_value{};
};

}  // namespace korvex
