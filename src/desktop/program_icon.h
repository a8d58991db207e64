#pragma once

#include <QIcon>

namespace pgbp {

/// The program's icon: a page of a ledger with its total.
QIcon ProgramIcon();

} // namespace pgbp
