// A field that has another value for the length of a scope.
#pragma once

#include <type_traits>

/// Gives a field another value for the length of a scope, and the old one back on every way out.
template <class T>
struct Keep
{
    Keep(T& field, const std::type_identity_t<T>& meanwhile) : where(field), before(field) { where = meanwhile; }
    /// Only restores: what the scope writes into the field is undone.
    explicit Keep(T& field) : where(field), before(field) {}
    ~Keep() { where = before; }
    Keep(const Keep&) = delete;
    Keep& operator=(const Keep&) = delete;

    T& where;
    const T before;
};
