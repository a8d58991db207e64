#pragma once

#include "controls/text_controls.h"

namespace pgbp {

/// Reads dates typed in a loose form.
class clsdate {
  public:
    /// `title` is the module's title, which the message boxes carry.
    clsdate(MessageBoxes& boxes, std::string title) : boxes_(boxes), title_(std::move(title)) {}

    bool failed = false; ///< the last call refused its input

    /// The date as "dd-MM-yyyy", or "" after a message that tells what is wrong. "" gives "" without a message.
    std::string DateVal(std::string_view text);

  private:
    MessageBoxes& boxes_;
    std::string title_;
};

/// What is wrong with a date text, or the date itself: the rules behind DateVal without the message.
struct DateReading {
    std::string date;  ///< "dd-MM-yyyy", empty when refused
    std::string error; ///< the message, empty when accepted
};
DateReading ReadDate(std::string_view text);

/// A date field: text entry of digits, "-" and ".", normalised on leaving; a refused date keeps the focus. The month
/// view that drops down on a double click is open while `calendarShown` holds.
class txtdate : public TextBox {
  public:
    txtdate(Form& form, std::string_view name);
    using TextBox::operator=;

    Property<bool> calendarShown{changed, false};

    /// The month view chose a day.
    void Choose(int day, int month, int year);

    bool Leave() override;

  protected:
    Verdict Filter(char32_t character) override;
    std::optional<std::string> Pasted(std::string_view utf8) override; ///< one date, which replaces the whole text
};

} // namespace pgbp
