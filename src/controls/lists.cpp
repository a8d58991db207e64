#include "controls/lists.h"

#include "controls/form.h"
#include "controls/grid.h"

#include <algorithm>

namespace pgbp {

void combo::SetItems(std::vector<std::string> items)
{
    items_ = std::move(items);
    changed();
}

void combo::Choose(int item)
{
    Set(item < 0 ? "" : items_.at(static_cast<std::size_t>(item)));
    if (onClick)
        onClick();
}

int combo::Chosen() const
{
    const auto found = std::find(items_.begin(), items_.end(), text());
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

bool combo::KeyDown(Key key)
{
    if (OfferKey(key) || (host && host->EditorKey(key)))
        return true;
    const int last = static_cast<int>(items_.size()) - 1;
    if ((key == Key::Down || key == Key::Up) && last >= 0) {
        Choose(std::clamp(Chosen() + (key == Key::Down ? 1 : -1), 0, last));
        return true;
    }
    return TextBox::KeyDown(key);
}

bool combo::Type(char32_t character)
{
    if (editable)
        return TextBox::Type(character);
    const auto begins = [&](const std::string& item) {
        return !item.empty() && (static_cast<unsigned char>(item.front()) | 0x20U) == (character | 0x20U);
    };
    // the next item with this first letter behind the chosen one, round to the first
    const auto behind = items_.begin() + (Chosen() + 1);
    auto found = std::find_if(behind, items_.end(), begins);
    if (found == items_.end())
        found = std::find_if(items_.begin(), behind, begins);
    if (found != items_.end())
        Choose(static_cast<int>(found - items_.begin()));
    return true;
}

void List::SetItems(std::vector<std::string> items)
{
    items_ = std::move(items);
    current_ = 0;
    changed();
}

void List::Click(int entry)
{
    current_ = std::clamp(entry, 0, static_cast<int>(items_.size()));
    changed();
    if (current_ > 0 && onClick)
        onClick(current_);
}

void List::DoubleClick(int entry)
{
    current_ = std::clamp(entry, 0, static_cast<int>(items_.size()));
    changed();
    if (onDoubleClick)
        onDoubleClick(current_);
}

std::string List::Shows() const
{
    std::string lines;
    for (const auto& item : items_)
        lines += (lines.empty() ? "" : "\n") + item;
    return lines;
}

bool List::KeyDown(Key key)
{
    const int last = static_cast<int>(items_.size());
    if (key == Key::Down || key == Key::Up) {
        const int next = current_ + (key == Key::Down ? 1 : -1);
        current_ = next > last ? 0 : std::max(next, 0);
        changed();
        return true;
    }
    if (key != Key::Enter)
        return false;
    if (current_ > 0)
        Click(current_);
    else
        DoubleClick(0);
    return true;
}

} // namespace pgbp
