#pragma once

#include <QVariant>

#include <span>
#include <utility>

class QAbstractItemModel;
class QTableView;

namespace pgbp {

/// How wide a column is: as a text that usually stands in it, and never narrower than its heading.
using UsualText = std::pair<int, const char*>;

/// A list of the suite's windows: rows chosen as a whole, sorted by their headings. `stretched` is the column that
/// takes the room which the others leave.
QTableView* MakeListTable(QAbstractItemModel& model, int stretched, std::span<const UsualText> usualTexts);

/// What a list tells of the heading of a column, whose texts stand in the middle of its height at one side.
QVariant HeadingOf(int column, const char* heading, bool isAmount, int role);
int AlignmentOf(bool isAmount);

} // namespace pgbp
