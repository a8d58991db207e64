#include "controls/offers.h"

#include "services/text.h"

#include <algorithm>

namespace pgbp {

void Offers::SetTexts(std::vector<std::string> texts)
{
    texts_ = std::move(texts);
    Close();
}

void Offers::Show(std::string_view typed)
{
    Close();
    for (const std::string& text : texts_) {
        const bool begins = EqualsIgnoringCase(std::string_view(text).substr(0, typed.size()), typed);
        if (begins && text != typed && static_cast<int>(shown_.size()) < kMost)
            shown_.push_back(text);
    }
}

void Offers::Close()
{
    shown_.clear();
    marked_ = -1;
}

void Offers::MarkNext() { marked_ = std::min(marked_ + 1, static_cast<int>(shown_.size()) - 1); }

void Offers::MarkPrevious() { marked_ = std::max(marked_ - 1, -1); }

} // namespace pgbp
