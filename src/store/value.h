#pragma once

#include "services/dates.h"

#include <concepts>
#include <string>
#include <string_view>
#include <variant>

namespace pgbp {

/// One cell of a table or one value bound to a statement. Null is told apart from 0 and "".
class Value {
  public:
    Value() = default;
    Value(std::nullptr_t) {}
    Value(bool flag) : held_(flag ? 1.0 : 0.0) {}
    template <typename Number>
    requires(std::integral<Number> || std::floating_point<Number>) Value(Number number)
        : held_(static_cast<double>(number))
    {
    }
    Value(std::string text) : held_(std::move(text)) {}
    Value(std::string_view text) : held_(std::string(text)) {}
    Value(const char* text) : held_(std::string(text)) {}
    Value(const DateTime& date) : held_(date) {}

    bool IsNull() const { return std::holds_alternative<std::monostate>(held_); }

    /// The number; a text counts as the number it begins with, Null as 0.
    double Number() const;

    /// The text; a number as its shortest text, a date as ISO text, Null as "".
    std::string Text() const;

    /// What is held as a text, as long as the value lives; "" for a value of any other kind.
    std::string_view HeldText() const
    {
        const auto* text = std::get_if<std::string>(&held_);
        return text ? std::string_view(*text) : std::string_view();
    }

    /// True for any number but 0.
    bool Flag() const { return Number() != 0; }

    /// The date, also of an ISO text; nothing for any other value.
    std::optional<DateTime> Date() const;

    const std::variant<std::monostate, double, std::string, DateTime>& Held() const { return held_; }

  private:
    std::variant<std::monostate, double, std::string, DateTime> held_;
};

} // namespace pgbp
