#include "trial_balance/words.h"

#include "services/text.h"

#include <algorithm>

namespace pgbp::trial {
namespace {

bool IsOfWord(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           static_cast<unsigned char>(c) >= 0x80;
}

char Small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

} // namespace

std::vector<std::string> WordsOf(std::string_view text)
{
    std::vector<std::string> words;
    bool goesOn = false;
    for (const char c : text) {
        const bool isOfWord = IsOfWord(c);
        if (isOfWord && !goesOn)
            words.emplace_back();
        if (isOfWord)
            words.back() += Small(c);
        goesOn = isOfWord;
    }
    return words;
}

bool HasWord(const std::vector<std::string>& words, std::string_view word)
{
    return std::ranges::find(words, word) != words.end();
}

std::string KeyOf(std::string_view accountName)
{
    std::string key;
    for (const char c : Upper(Replace(accountName, "'", " ")))
        if (c != ' ' || (!key.empty() && key.back() != ' '))
            key += c;
    return Trim(key);
}

} // namespace pgbp::trial
