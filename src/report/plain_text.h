#pragma once

#include "report/document.h"

#include <string>

namespace pgbp::report {

/// The document for a terminal, a hundred characters wide.
std::string PlainText(const Document& document);

} // namespace pgbp::report
