#include "controls/offers.h"

#include "services/text.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <sstream>

namespace pgbp {
namespace {

bool HasWordThatBegins(const std::string& text, const std::string& word)
{
    for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
        if (at == 0 || !std::isalnum(static_cast<unsigned char>(text[at - 1])))
            return true;
    return false;
}

} // namespace

void Offers::SetTexts(std::vector<std::string> texts, OfferMatch match)
{
    texts_ = std::move(texts);
    match_ = match;
    Close();
}

bool Offers::Matches(const std::string& text, std::string_view typed) const
{
    if (match_ == OfferMatch::Begins)
        return EqualsIgnoringCase(std::string_view(text).substr(0, typed.size()), typed);
    const std::string all = Upper(text);
    std::istringstream words(Upper(typed));
    return std::all_of(std::istream_iterator<std::string>(words), {},
                       [&](const std::string& word) { return HasWordThatBegins(all, word); });
}

void Offers::Show(std::string_view typed)
{
    Close();
    for (const std::string& text : texts_)
        if (static_cast<int>(shown_.size()) < kMost && text != typed && Matches(text, typed))
            shown_.push_back(text);
}

void Offers::Close()
{
    shown_.clear();
    marked_ = -1;
}

void Offers::MarkNext() { marked_ = std::min(marked_ + 1, static_cast<int>(shown_.size()) - 1); }

void Offers::MarkPrevious() { marked_ = std::max(marked_ - 1, -1); }

} // namespace pgbp
