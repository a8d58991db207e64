#include "suite/search_words.h"

#include "services/text.h"
#include "suite/assessee_kinds.h"

#include <algorithm>

namespace pgbp {

std::string SearchedWords(const AssesseeYear& assesseeYear)
{
    // a line end, which nobody types, keeps the end of one from joining with the beginning of the next
    return Upper(assesseeYear.code + '\n' + assesseeYear.name + '\n' + assesseeYear.pan + '\n' +
                 KindInWords(assesseeYear.status) + '\n' + assesseeYear.year);
}

std::vector<std::string> WordsOf(std::string_view text)
{
    constexpr std::string_view blanks = " \t\n\r";
    std::vector<std::string> words;
    for (auto from = text.find_first_not_of(blanks); from != std::string_view::npos;
         from = text.find_first_not_of(blanks, from)) {
        const auto end = std::min(text.find_first_of(blanks, from), text.size());
        words.push_back(Upper(text.substr(from, end - from)));
        from = end;
    }
    return words;
}

bool HoldsAll(std::string_view words, const std::vector<std::string>& wanted)
{
    return std::ranges::all_of(wanted, [&](const std::string& word) { return words.find(word) != words.npos; });
}

} // namespace pgbp
