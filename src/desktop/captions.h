#pragma once

#include <QString>

#include <string>

namespace pgbp {

inline QString Text(const std::string& utf8) { return QString::fromStdString(utf8); }

/// The caption as it is read: without the mark of its mnemonic, "&&" as "&".
QString PlainCaption(const std::string& caption);

/// The caption with `letter` underlined, in the toolkit's notation; 0 underlines none.
QString MarkedCaption(const std::string& caption, char letter);

} // namespace pgbp
