#include "services/tax_numbers.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr std::string_view kSymbols = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kPanShape = "AAAAA9999A";
constexpr std::string_view kGstinShape = "99AAAAA9999A***";

/// "A" stands for a capital letter, "9" for a digit, "*" for either.
bool HasShape(std::string_view text, std::string_view shape)
{
    const auto fits = [](char c, char kind) {
        const bool isLetter = 'A' <= c && c <= 'Z';
        const bool isDigit = '0' <= c && c <= '9';
        return kind == '*' ? isLetter || isDigit : kind == 'A' ? isLetter : isDigit;
    };
    return text.size() == shape.size() && std::equal(text.begin(), text.end(), shape.begin(), fits);
}

/// Every second symbol counts twice; what goes beyond 36 is carried into the sum.
char CheckCharacter(std::string_view body)
{
    const std::size_t base = kSymbols.size();
    std::size_t sum = 0;
    for (std::size_t i = 0; i < body.size(); ++i) {
        const std::size_t product = kSymbols.find(body[i]) * (1 + i % 2);
        sum += product / base + product % base;
    }
    return kSymbols[(base - sum % base) % base];
}

} // namespace

bool IsPan(std::string_view text) { return HasShape(text, kPanShape); }

std::string FaultOfGstin(std::string_view text)
{
    if (text.size() != kGstinShape.size())
        return "has " + std::to_string(text.size()) + " characters in place of 15";
    if (!HasShape(text, kGstinShape))
        return "is not built as a GSTIN is";
    return text.back() == CheckCharacter(text.substr(0, text.size() - 1)) ? "" : "has a wrong check character";
}

} // namespace pgbp
