#pragma once

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace pgbp {

/// Tells listeners that something happened. Handlers may raise the event again, add listeners and remove themselves:
/// the telling goes over a copy of the list and passes over those removed meanwhile.
template <typename... Arguments>
class Event {
  public:
    using Listener = std::function<void(Arguments...)>;

    /// Gives the number by which the listener is removed.
    int Add(Listener listener)
    {
        listeners_.emplace_back(++last_, std::move(listener));
        return last_;
    }

    void Remove(int number)
    {
        std::erase_if(listeners_, [&](const auto& entry) { return entry.first == number; });
    }

    void operator()(Arguments... arguments) const
    {
        const auto told = listeners_;
        for (const auto& [number, listener] : told)
            if (Listens(number))
                listener(arguments...);
    }

  private:
    bool Listens(int number) const
    {
        return std::any_of(listeners_.begin(), listeners_.end(),
                           [&](const auto& entry) { return entry.first == number; });
    }

    std::vector<std::pair<int, Listener>> listeners_;
    int last_ = 0;
};

/// A value that tells when it changes: compares, stores, tells.
template <typename T>
class Property {
  public:
    Property(const Event<>& changed, T initial) : changed_(changed), value_(std::move(initial)) {}
    Property(const Property&) = delete;

    Property& operator=(T value)
    {
        if (value_ != value) {
            value_ = std::move(value);
            changed_();
        }
        return *this;
    }

    Property& operator=(const Property& other) { return *this = T(other.value_); }

    operator const T&() const { return value_; }
    const T& get() const { return value_; }

  private:
    const Event<>& changed_;
    T value_;
};

} // namespace pgbp
