#include "suite/chooser_model.h"

#include "desktop/captions.h"
#include "desktop/theme.h"
#include "services/format.h"
#include "startup/status.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr const char* kHeadings[] = {"Client", "Year", "Status", "PAN", "Business or Profession", "Code"};

std::string CellText(const AssesseeYear& year, int column)
{
    switch (column) {
    case AssesseeYearModel::Client:
        return year.name;
    case AssesseeYearModel::Year:
        return year.year;
    case AssesseeYearModel::Status:
        return StatusInWords(year.status);
    case AssesseeYearModel::Pan:
        return year.pan;
    case AssesseeYearModel::Head:
        return year.headOfIncome ? FormatAmountIndian(Amount(*year.headOfIncome), kIndianGrouping) : "not written yet";
    default:
        return year.code;
    }
}

QVariant ColorOf(const AssesseeYear& year, int column)
{
    if (column == AssesseeYearModel::Head && year.headOfIncome)
        return *year.headOfIncome < 0 ? QVariant(Theme().negative) : QVariant();
    return column == AssesseeYearModel::Head || column == AssesseeYearModel::Code ? QVariant(Theme().muted)
                                                                                  : QVariant();
}

} // namespace

void AssesseeYearModel::Show(std::vector<AssesseeYear> years)
{
    beginResetModel();
    years_ = std::move(years);
    endResetModel();
}

int AssesseeYearModel::RowOf(const std::string& code) const
{
    const auto found = std::ranges::find(years_, code, &AssesseeYear::code);
    return found == years_.end() ? -1 : static_cast<int>(found - years_.begin());
}

int AssesseeYearModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(years_.size());
}

int AssesseeYearModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QVariant AssesseeYearModel::data(const QModelIndex& index, int role) const
{
    const AssesseeYear& year = At(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return Text(CellText(year, index.column()));
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignVCenter | (index.column() == Head ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
        return ColorOf(year, index.column());
    default:
        return {};
    }
}

QVariant AssesseeYearModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignVCenter | (section == Head ? Qt::AlignRight : Qt::AlignLeft));
    return role == Qt::DisplayRole ? QVariant(QString::fromLatin1(kHeadings[section])) : QVariant();
}

SearchModel::SearchModel(AssesseeYearModel& years) : years_(years) { setSourceModel(&years); }

void SearchModel::Search(const QString& text)
{
    text_ = text.trimmed().toStdString();
    invalidateFilter();
}

bool SearchModel::filterAcceptsRow(int row, const QModelIndex&) const { return Matches(years_.At(row), text_); }

} // namespace pgbp
