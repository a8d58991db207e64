#include "services/amount_text.h"

#include "services/format.h"
#include "services/text.h"
#include "services/utf8.h"

#include <algorithm>
#include <array>

namespace pgbp {
namespace {

constexpr std::string_view kNotTaken = "Not taken: ";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool AreDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), IsDigit); }
bool HasDigit(std::string_view text) { return std::any_of(text.begin(), text.end(), IsDigit); }

constexpr char kUnknown = '?';

/// One character as the reading below knows it; 0 for a mark that is not seen.
char Plain(char32_t character)
{
    switch (character) {
    case U'\u00A0': // blanks at which no line ends, and narrow ones
    case U'\u2007':
    case U'\u2009':
    case U'\u202F':
        return ' ';
    case U'\u2010': // hyphens, dashes and the minus sign
    case U'\u2011':
    case U'\u2012':
    case U'\u2013':
    case U'\u2212':
        return '-';
    case U'\u20B9': // rupee
    case U'\u20A8':
        return '$';
    case U'\u2028': // line, paragraph
    case U'\u2029':
        return '\n';
    case U'\u200B': // without width, marks of direction
    case U'\u200E':
    case U'\u200F':
    case U'\uFEFF':
        return 0;
    default:
        return character < 128 && character != U'$' ? static_cast<char>(character) : kUnknown;
    }
}

std::string Plain(std::string_view text)
{
    std::string plain;
    for (const char32_t character : Characters(text))
        if (const char c = Plain(character))
            plain += c;
    return Upper(Trim(plain));
}

/// The cells of a copied range stand behind tabs and line ends. None when more than one holds a number.
std::optional<std::string> OneCell(std::string text)
{
    constexpr std::string_view kBetween = "\t\n\r\v\f";
    int numbers = 0;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find_first_of(kBetween, at), text.size());
        numbers += HasDigit(std::string_view(text).substr(at, end - at)) ? 1 : 0;
        at = end + 1;
    }
    if (numbers > 1)
        return std::nullopt;
    for (char& c : text)
        if (kBetween.find(c) != std::string_view::npos)
            c = ' ';
    return text;
}

enum class Mark { Currency, Minus, Plus, Debit, Credit };

struct Token {
    std::string_view text;
    Mark mark;
};

// a longer one stands before the one it begins or ends with
constexpr std::array kBefore = {
    Token{"RS.", Mark::Currency}, Token{"RS", Mark::Currency}, Token{"RE.", Mark::Currency},
    Token{"INR", Mark::Currency}, Token{"$", Mark::Currency},  Token{"DR.", Mark::Debit},
    Token{"DR", Mark::Debit},     Token{"CR.", Mark::Credit},  Token{"CR", Mark::Credit},
    Token{"-", Mark::Minus},      Token{"+", Mark::Plus},
};
constexpr std::array kBehind = {
    Token{"/-", Mark::Currency}, Token{"/=", Mark::Currency},  Token{"RS.", Mark::Currency},
    Token{"RS", Mark::Currency}, Token{"INR", Mark::Currency}, Token{"$", Mark::Currency},
    Token{"DR.", Mark::Debit},   Token{"DR", Mark::Debit},     Token{"CR.", Mark::Credit},
    Token{"CR", Mark::Credit},   Token{"-", Mark::Minus},
};

/// The marks around a number, taken off one after the other.
class Marks {
  public:
    /// The text between the marks.
    std::string Strip(std::string text)
    {
        do
            text = Trim(text);
        while (StripBrackets(text) || StripBefore(text) || StripBehind(text));
        return text;
    }

    bool AreClear() const { return signs_ <= 1; }
    bool IsMinus() const { return isMinus_; }
    const char* Side() const { return side_; } ///< "Dr" or "Cr" when that gave the sign, else empty

  private:
    bool StripBrackets(std::string& text)
    {
        if (text.size() < 2 || text.front() != '(' || text.back() != ')')
            return false;
        text = text.substr(1, text.size() - 2);
        Note(Mark::Minus);
        return true;
    }

    bool StripBefore(std::string& text)
    {
        const auto found = std::find_if(kBefore.begin(), kBefore.end(),
                                        [&](const Token& each) { return text.starts_with(each.text); });
        if (found == kBefore.end())
            return false;
        text.erase(0, found->text.size());
        Note(found->mark);
        return true;
    }

    bool StripBehind(std::string& text)
    {
        const auto found =
            std::find_if(kBehind.begin(), kBehind.end(), [&](const Token& each) { return text.ends_with(each.text); });
        if (found == kBehind.end())
            return false;
        text.erase(text.size() - found->text.size());
        Note(found->mark);
        return true;
    }

    void Note(Mark mark)
    {
        if (mark == Mark::Currency)
            return;
        ++signs_;
        isMinus_ = mark == Mark::Minus || mark == Mark::Debit;
        if (mark == Mark::Debit || mark == Mark::Credit)
            side_ = mark == Mark::Debit ? "Dr" : "Cr";
    }

    int signs_ = 0;
    bool isMinus_ = false;
    const char* side_ = "";
};

/// Digits, or groups of them: the last has three digits, those before it two or three, the first up to three.
bool AreGroups(std::string_view whole, char separator)
{
    const auto last = whole.rfind(separator);
    if (last == std::string_view::npos)
        return !whole.empty() && AreDigits(whole);
    const auto isGroup = [](std::string_view group, std::size_t least) {
        return AreDigits(group) && group.size() >= least && group.size() <= 3;
    };
    bool areGroups = isGroup(whole.substr(last + 1), 3);
    for (std::size_t at = 0; at <= last;) {
        const auto end = whole.find(separator, at);
        areGroups = areGroups && isGroup(whole.substr(at, end - at), at == 0 ? 1 : 2);
        at = end + 1;
    }
    return areGroups;
}

/// The number without the separators of its groups; none when they stand elsewhere, or when it is no number.
std::optional<std::string> WithoutSeparators(std::string_view number, char separator)
{
    const auto point = std::min(number.find('.'), number.size());
    const auto whole = number.substr(0, point);
    const auto places = number.substr(std::min(point + 1, number.size()));
    if (!HasDigit(number) || !AreDigits(places) || (!whole.empty() && !AreGroups(whole, separator)))
        return std::nullopt;
    return Replace(number, std::string_view(&separator, 1), "");
}

/// As it would be typed: no zero in front, no point without places behind it.
std::string Tidied(std::string_view number, int places)
{
    const auto point = std::min(number.find('.'), number.size());
    std::string whole(number.substr(0, point));
    std::string behind(number.substr(std::min(point + 1, number.size())));
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    while (static_cast<int>(behind.size()) > places && behind.back() == '0')
        behind.pop_back();
    return (whole.empty() ? "0" : whole) + (behind.empty() ? "" : "." + behind);
}

int PlacesOf(std::string_view number)
{
    const auto point = number.find('.');
    return point == std::string_view::npos ? 0 : static_cast<int>(number.size() - point - 1);
}

AmountReading Refused(const std::string& why) { return {"", std::string(kNotTaken).append(why)}; }

AmountReading NoAmount(std::string_view text)
{
    constexpr int kLongest = 30;
    std::string shown = Trim(text);
    if (CharacterCount(shown) > kLongest)
        shown = shown.substr(0, ByteOfCharacter(shown, kLongest)) + "...";
    return Refused('"' + Replace(Replace(shown, "\n", " "), "\t", " ") + "\" is no amount");
}

std::string TooManyPlaces(int places)
{
    return places == 0 ? "whole rupees stand here, without paise"
                       : "more than " + std::to_string(places) + " places behind the point";
}

std::string HowRead(const Marks& marks, bool byBlanks, const std::string& text)
{
    const std::string side = marks.Side();
    if (side.empty() && !byBlanks)
        return "";
    const std::string read = "read as " + GroupedAmount(text);
    return side.empty() ? "Blanks between digits " + read
                        : '"' + side + "\" " + read + "; the key \"-\" turns the sign";
}

} // namespace

int DigitCount(std::string_view text) { return static_cast<int>(std::count_if(text.begin(), text.end(), IsDigit)); }

std::optional<std::string> WithoutGrouping(std::string_view number) { return WithoutSeparators(number, ','); }

AmountReading ReadAmount(std::string_view text, int places)
{
    const auto cell = OneCell(Plain(text));
    if (!cell)
        return Refused("more than one amount was copied");
    Marks marks;
    const std::string body = marks.Strip(*cell);
    const bool byBlanks = body.find(' ') != std::string::npos;
    const auto number = byBlanks ? WithoutSeparators(body, ' ') : WithoutGrouping(body);
    if (!number || !marks.AreClear())
        return NoAmount(text);
    const std::string typed = Tidied(*number, places);
    if (PlacesOf(typed) > places)
        return Refused(TooManyPlaces(places));
    if (DigitCount(typed) > kAmountDigits)
        return Refused("more than fifteen digits");
    const bool isZero = typed.find_first_not_of("0.") == std::string::npos;
    const std::string amount = (marks.IsMinus() && !isZero ? "-" : "") + typed;
    return {amount, HowRead(marks, byBlanks, amount)};
}

bool IsTypedAmount(std::string_view text, int places)
{
    if (text.starts_with('-'))
        text.remove_prefix(1);
    const auto point = std::min(text.find('.'), text.size());
    const bool hasPoint = point < text.size();
    return AreDigits(text.substr(0, point)) && AreDigits(text.substr(std::min(point + 1, text.size()))) &&
           (!hasPoint || places > 0) && PlacesOf(text) <= places && DigitCount(text) <= kAmountDigits;
}

std::string UngroupedAmount(std::string_view text)
{
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    const auto number = WithoutGrouping(text.substr(sign));
    return number ? std::string(text.substr(0, sign)) + *number : std::string(text);
}

std::string GroupedAmount(std::string_view text) { return FormatAmountIndian(UngroupedAmount(text), kIndianGrouping); }

std::string WithPlaces(std::string_view typed, int places)
{
    const bool isNegative = typed.starts_with('-');
    const std::string_view number = typed.substr(isNegative ? 1 : 0);
    const auto point = std::min(number.find('.'), number.size());
    if (!AreDigits(number.substr(0, point)) || !AreDigits(number.substr(std::min(point + 1, number.size()))))
        return std::string(typed);
    std::string drawn = point == 0 ? "0" + std::string(number) : std::string(number);
    if (point == number.size() && places > 0)
        drawn += '.';
    drawn.append(static_cast<std::size_t>(std::max(0, places - PlacesOf(drawn))), '0');
    const bool isZero = drawn.find_first_not_of("0.") == std::string::npos;
    return (isNegative && !isZero ? "-" : "") + drawn;
}

} // namespace pgbp
