#pragma once

#include "controls/form.h"

#include <string>
#include <variant>
#include <vector>

namespace pgbp {

/// One key press of a script: a character, a key, a mnemonic with Alt, or the selection of the whole text.
struct AltKey {
    char32_t letter;
};
struct SelectAllKey {};
using KeyStroke = std::variant<char32_t, Key, AltKey, SelectAllKey>;

/// Reads "12{ENTER}{ALT+S}". Throws DriveError for an unknown name in braces.
std::vector<KeyStroke> ReadKeys(const std::string& text);

/// Presses it where the focus is.
void Strike(Form& form, const KeyStroke& stroke);

} // namespace pgbp
