#include "controls/text_controls.h"

#include "controls/form.h"
#include "controls/grid.h"
#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"
#include "services/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace pgbp {

void TextControl::Set(std::string text, Notify notify)
{
    if (text == text_)
        return;
    text_ = std::move(text);
    changed();
    if (notify == Notify::Yes && onChange)
        onChange();
}

double Val(const TextControl& control) { return Val(control.text()); }

Label::Label(Form& form, std::string_view name, std::string text, LabelLook labelLook)
    : TextControl(form, name), look(labelLook)
{
    Set(std::move(text));
}

void Label::ShowData(std::string_view text) { Set(Replace(text, "&", "&&")); }

void Label::Click()
{
    if (onClick)
        onClick();
}

bool Label::KeyDown(Key key)
{
    if (key == Key::Enter)
        Click();
    return key == Key::Enter;
}

bool Label::Type(char32_t character)
{
    if (character == U' ')
        Click();
    return character == U' ';
}

TextBox::TextBox(Form& form, std::string_view name, Walks walks) : TextControl(form, name), walks_(walks) {}

void TextBox::Select(int start, int length)
{
    const int count = CharacterCount(text());
    selStart_ = std::clamp(start, 0, count);
    selLength_ = std::clamp(length, 0, count - selStart_);
    changed();
}

void TextBox::SelectAll() { Select(0, CharacterCount(text())); }

bool TextBox::WholeTextSelected() const { return selLength_ > 0 && selLength_ == CharacterCount(text()); }

Verdict TextBox::KeyPress(char32_t& character)
{
    if (onKeyPress)
        character = onKeyPress(character);
    return character == 0 || locked ? Verdict::Swallow : Filter(character);
}

void TextBox::Enter()
{
    if (multiLine) // a key must not replace a whole note
        Select(CharacterCount(text()), 0);
    else
        SelectAll();
    Control::Enter();
}

bool TextBox::Leave()
{
    offers_.Close();
    return Control::Leave();
}

void TextBox::SetOffers(std::vector<std::string> texts, OfferMatch match)
{
    offers_.SetTexts(std::move(texts), match);
    changed();
}

void TextBox::OpenOffers()
{
    if (!locked)
        offers_.Show("");
    changed();
}

void TextBox::TakeOffer(int entry)
{
    const std::string taken = offers_.shown().at(static_cast<std::size_t>(entry));
    SelectAll();
    Paste(taken);
    offers_.Close();
    changed();
}

bool TextBox::OfferKey(Key key)
{
    if (!offers_.IsOpen())
        return false;
    const bool isMarked = offers_.marked() >= 0;
    if (key == Key::Down)
        offers_.MarkNext();
    else if (key == Key::Up && isMarked)
        offers_.MarkPrevious();
    else if ((key == Key::Enter || key == Key::Tab) && isMarked)
        TakeOffer(offers_.marked());
    else if (key == Key::Escape)
        offers_.Close();
    else
        return false;
    changed();
    return key != Key::Tab; // which goes on to the next field
}

bool TextBox::Type(char32_t character)
{
    if (KeyPress(character) == Verdict::Pass)
        ReplaceSelection(Utf8(character));
    return true;
}

void TextBox::ReplaceSelection(std::string_view utf8)
{
    const int count = CharacterCount(text());
    if (maxLength > 0 && count - selLength_ + CharacterCount(utf8) > maxLength)
        return;
    std::string fresh = WithSelection(utf8);
    selStart_ = std::min(selStart_, count) + CharacterCount(utf8);
    selLength_ = 0;
    Set(std::move(fresh));
    text().empty() ? offers_.Close() : offers_.Show(text());
    changed();
}

std::string TextBox::WithSelection(std::string_view replaced) const
{
    const int count = CharacterCount(text());
    const auto from = ByteOfCharacter(text(), std::min(selStart_, count));
    const auto to = ByteOfCharacter(text(), std::min(selStart_ + selLength_, count));
    return text().substr(0, from).append(replaced).append(text(), to);
}

void TextBox::Paste(std::string_view utf8)
{
    if (locked || (host && host->PasteLines(utf8)))
        return;
    const auto pasted = Pasted(utf8);
    if (!pasted)
        return;
    const int length = CharacterCount(WithSelection(*pasted));
    if (maxLength > 0 && length > maxLength)
        return Hint("Not taken: " + std::to_string(length) + " characters, and there is room for " +
                    std::to_string(maxLength));
    ReplaceSelection(*pasted);
}

/// Line ends at the end are left out, others and tabs are blanks where there is one line; each character goes through
/// the filters.
std::optional<std::string> TextBox::Pasted(std::string_view utf8)
{
    constexpr std::string_view kLineEnds = "\r\n";
    const auto last = utf8.find_last_not_of(kLineEnds);
    std::string pasted;
    for (char32_t character : Characters(Replace(utf8.substr(0, last + 1), "\r\n", "\n"))) {
        const bool isBreak = character == U'\n' || character == U'\r' || character == U'\t';
        if (isBreak)
            character = multiLine && character != U'\t' ? U'\n' : U' ';
        if ((isBreak || character >= U' ') && KeyPress(character) == Verdict::Pass)
            pasted += Utf8(character);
    }
    Hint("");
    return pasted;
}

void TextBox::Hint(std::string hint)
{
    if (!hint.empty() || form().notice.get() == hint_)
        form().notice = hint;
    hint_ = std::move(hint);
}

bool TextBox::KeyDown(Key key)
{
    if (OfferKey(key) || (host && host->EditorKey(key)))
        return true;
    if (multiLine && key == Key::Enter)
        return Type(U'\n');
    if (key == Key::Enter && onEnter)
        onEnter();
    if (walks_ == Walks::No && (key == Key::Up || key == Key::Down))
        return true;
    if (walks_ == Walks::Yes && key == Key::Enter) {
        if (form().focused() == this) // else onEnter has led to another place
            form().FocusNextField();
        return true;
    }
    if (walks_ == Walks::Yes && key == Key::Down) {
        form().FocusBelow();
        return true;
    }
    if (walks_ == Walks::Yes && key == Key::Up) {
        form().FocusPrevious();
        return true;
    }
    if (key == Key::Backspace || key == Key::Delete) {
        Erase(key);
        return true;
    }
    return MoveCaret(key);
}

void TextBox::Erase(Key key)
{
    if (locked)
        return;
    if (selLength_ == 0) {
        if (key == Key::Backspace && selStart_ == 0)
            return;
        if (key == Key::Backspace)
            --selStart_;
        selLength_ = selStart_ < CharacterCount(text()) ? 1 : 0;
    }
    ReplaceSelection("");
}

bool TextBox::MoveCaret(Key key)
{
    switch (key) {
    case Key::Home:
        Select(0, 0);
        return true;
    case Key::End:
        Select(CharacterCount(text()), 0);
        return true;
    case Key::Left:
        Select(selLength_ > 0 ? selStart_ : selStart_ - 1, 0);
        return true;
    case Key::Right:
        Select(selLength_ > 0 ? selStart_ + selLength_ : selStart_ + 1, 0);
        return true;
    default:
        return false;
    }
}

std::string SumLine::Shows() const
{
    return result.error.empty() ? text + " = " + result.text : text + " (" + result.error + ')';
}

void NumberBox::TypeSum(std::string line)
{
    std::erase(line, '=');
    SumLine fresh{line, WorkOut(line, deci)};
    if (maxLength > 0 && CharacterCount(fresh.result.text) > maxLength)
        fresh.result = {"", "longer than the field"};
    sum_ = std::move(fresh);
    changed();
}

void NumberBox::CloseSum()
{
    sum_.reset();
    Hint("");
    changed();
}

/// True when the line is closed, its result taken; a line without a result stays open.
bool NumberBox::TakeSum()
{
    const SumResult result = sum_->result;
    if (!result.error.empty())
        return false;
    CloseSum();
    if (!result.text.empty()) {
        Set(result.text);
        Select(CharacterCount(text()), 0);
    }
    return true;
}

void NumberBox::Enter()
{
    sum_.reset(); // the field was hidden with an open line
    TextBox::Enter();
}

bool NumberBox::Leave()
{
    if (sum_ && !TakeSum()) {
        Hint("The sum in this field: " + sum_->result.error + ". Escape leaves the amount as it was.");
        return false;
    }
    return TextBox::Leave();
}

bool NumberBox::KeyDown(Key key) { return (sum_ && SumKey(key)) || TextBox::KeyDown(key); }

/// The keys of the open line; the others walk.
bool NumberBox::SumKey(Key key)
{
    switch (key) {
    case Key::Enter:
        TakeSum();
        return true;
    case Key::Escape:
        CloseSum();
        return true;
    case Key::Backspace:
        TypeSum(sum_->text.substr(0, ByteOfCharacter(sum_->text, CharacterCount(sum_->text) - 1)));
        return true;
    case Key::Left:
    case Key::Right:
    case Key::Home:
    case Key::End:
    case Key::Delete:
    case Key::Undo:
        return true; // the caret of the line is the window's
    default:
        return false;
    }
}

bool NumberBox::Type(char32_t character)
{
    if (!sum_)
        return TextBox::Type(character);
    TypeSum(sum_->text + Utf8(character));
    return true;
}

Verdict NumberBox::Filter(char32_t character)
{
    if (character == U'=') {
        TypeSum("");
        return Verdict::Swallow;
    }
    if (character == U'-') {
        TurnSign();
        return Verdict::Swallow;
    }
    if (character == U'.') {
        const bool second = text().find('.') != std::string::npos && !WholeTextSelected();
        return deci <= 0 || second ? Verdict::Swallow : Verdict::Pass;
    }
    if (character < U'0' || character > U'9')
        return Verdict::Swallow;
    return DecimalsAreFull() || DigitsAreFull() ? Verdict::Swallow : Verdict::Pass;
}

void NumberBox::TurnSign()
{
    const double value = Val(text());
    if (text().empty() || WholeTextSelected() || value == 0) {
        Set("-");
    } else {
        std::array<char, 400> digits;
        const auto end =
            std::to_chars(digits.data(), digits.data() + digits.size(), -value, std::chars_format::fixed).ptr;
        Set(std::string(digits.data(), end));
    }
    Select(CharacterCount(text()), 0);
}

std::optional<std::string> NumberBox::Pasted(std::string_view utf8)
{
    const AmountReading reading = ReadAmount(utf8, deci);
    Hint(reading.hint);
    if (reading.text.empty())
        return std::nullopt;
    if (selLength() == 0)
        SelectAll();
    if (!WholeTextSelected() && !IsTypedAmount(WithSelection(reading.text), deci)) {
        Hint("Not taken: with the digits beside it, it would be no amount");
        return std::nullopt;
    }
    return reading.text;
}

std::string NumberBox::Drawn() const
{
    const std::string whole = WithPlaces(text(), deci);
    return grouped ? GroupedAmount(whole) : whole;
}

/// A text that stood here before comes back as it was; any other is pasted over the whole.
void NumberBox::Amend(std::string_view utf8)
{
    const std::string whole = WithSelection(utf8);
    SelectAll();
    if (locked || !IsTypedAmount(whole, deci))
        return Paste(whole);
    Set(whole);
    Select(CharacterCount(whole), 0);
}

bool NumberBox::DecimalsAreFull() const
{
    const auto point = text().find('.');
    return point != std::string::npos && selLength() == 0 && selStart() > static_cast<int>(point) &&
           static_cast<int>(text().size() - point) - 1 >= deci;
}

/// A double holds fifteen digits; a sixteenth would change the others.
bool NumberBox::DigitsAreFull() const { return selLength() == 0 && DigitCount(text()) >= kAmountDigits; }

bool Txtn1::KeyDown(Key key)
{
    if (key == Key::Enter && !sum() && !host)
        return true;
    return NumberBox::KeyDown(key);
}

char32_t DropQuotes(char32_t character) { return character == U'"' || character == U'\'' ? 0 : character; }

char32_t InCapitals(char32_t character)
{
    return U'a' <= character && character <= U'z' ? character - U'a' + U'A' : character;
}

} // namespace pgbp
