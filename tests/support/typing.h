#pragma once

#include "controls/form.h"
#include "services/utf8.h"

#include <string>

namespace pgbp {

/// Types the text where the focus of the form is, key by key.
inline void TypeText(Form& form, const std::string& text)
{
    for (const char32_t character : Characters(text))
        form.Type(character);
}

} // namespace pgbp
