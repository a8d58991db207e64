#include "workbook/shared_strings.h"

#include "workbook/workbook.h"

namespace pgbp::xls {

std::size_t SharedStrings::NumberOf(const std::string& text)
{
    const auto [entry, isNew] = numbers_.try_emplace(text, texts_.size());
    if (isNew)
        texts_.push_back(Encode(text, kLongestText));
    ++uses_;
    return entry->second;
}

void SharedStrings::Write(std::string& stream) const
{
    LongRecord record(stream, RecordId::SharedStrings);
    record.U32(uses_).U32(texts_.size());
    for (const EncodedText& text : texts_)
        record.Text(text);
}

} // namespace pgbp::xls
