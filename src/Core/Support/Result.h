#pragma once

#include <utility>
#include <variant>

// A value or the error that stands in its place. The data layer reports failures as values so that
// callers decide what to keep; nothing here throws.
template<typename T, typename E>
class Result {
public:
    Result(T value) : m_state(std::in_place_index<0>, std::move(value)) {}
    static Result failure(E error) { return Result(std::in_place_index<1>, std::move(error)); }

    bool ok() const { return m_state.index() == 0; }
    explicit operator bool() const { return ok(); }

    const T &value() const & { return std::get<0>(m_state); }
    T &&value() && { return std::get<0>(std::move(m_state)); }
    const T &operator*() const & { return value(); }
    const T *operator->() const { return &value(); }

    const E &error() const { return std::get<1>(m_state); }

private:
    template<std::size_t Index, typename V>
    Result(std::in_place_index_t<Index> index, V &&value) : m_state(index, std::forward<V>(value))
    {}

    std::variant<T, E> m_state;
};
