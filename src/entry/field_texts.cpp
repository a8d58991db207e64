#include "entry/field_texts.h"

#include "controls/buttons.h"
#include "controls/text_controls.h"
#include "services/format.h"

namespace pgbp {

std::string ComparedText(const Control& field)
{
    if (const auto* amount = dynamic_cast<const NumberBox*>(&field))
        return Amount(Val(*amount));
    if (const auto* tick = dynamic_cast<const CheckBox*>(&field))
        return tick->value ? "1" : "0";
    return field.Shows();
}

std::vector<std::string> FieldTexts::Of(const Frame& shown)
{
    std::vector<std::string> texts;
    for (const LayoutRow& row : shown.layout().rows)
        for (const Control* cell : row.cells) {
            if (!cell || dynamic_cast<const Label*>(cell)) // half of the cells: nothing else has to be asked of them
                continue;
            if (const auto* group = dynamic_cast<const Frame*>(cell))
                for (std::string& text : Of(*group))
                    texts.push_back(std::move(text));
            else if (dynamic_cast<const TextBox*>(cell) || dynamic_cast<const CheckBox*>(cell))
                texts.push_back(ComparedText(*cell));
        }
    return texts;
}

} // namespace pgbp
