#include "income/line_list.h"

#include "records/keys.h"
#include "services/format.h"

#include <algorithm>

namespace pgbp {

/// A kind of business with many lines.
struct LineList::Kind {
    BusinessKind kind;
    const char* caption;
    ScreenName<LineOpening> screen;
    bool canAdd; ///< a further line can be added from the list
};

const LineList::Kind LineList::kKinds[] = {
    {kNormal, "Normal Business", screens::frmbusinesscal, true},
    {kSpeculation, "Speculation Business", screens::frmbusinesscal1, true},
    {kSpecified, "Specified Business u/s 35AD", screens::frmbusinesscal1, false},
};

namespace {

enum ListColumn { kDescription, kProfit, kIncome, kMinor, kSno };

} // namespace

LineList::LineList(Screen& summary, LineListUse use)
    : fra1(summary, "fra1"), lblchoose(summary, "lblchoose", "Double click to choose", LabelLook::Hint),
      DBGrid1(summary, "DBGrid1",
              {{"Description", GridColumnKind::Text},
               {"Profit/Loss", GridColumnKind::Amount},
               {"Income", GridColumnKind::Amount},
               {"Amt3", GridColumnKind::Hidden},
               {"Sno", GridColumnKind::Hidden}}),
      CmdAdd(summary, "CmdAdd", "&Add"), cmdback1(summary, "cmdback1", "&Cancel"), form_(summary), run_(summary.run),
      use_(std::move(use))
{
    fra1.Lay({.columns = {LayoutColumn::Field},
              .rows = {{{&DBGrid1}}, {{&lblchoose}}},
              .buttonsLeft = {&CmdAdd},
              .buttonsRight = {&cmdback1}});
    fra1.onEscape = [this] { Leave(); };
    fra1.onUndo = [this] {
        use_.bringBack();
        Open(KindByCaption().kind);
    };
    DBGrid1.onDoubleClick = [this](int row) { Choose(row); };
    CmdAdd.onClick = [this] { Add(); };
    cmdback1.onClick = [this] { Leave(); };
}

const LineList::Kind& LineList::Find(BusinessKind kind)
{
    return *std::find_if(std::begin(kKinds), std::end(kKinds), [&](const Kind& each) { return each.kind == kind; });
}

const LineList::Kind& LineList::KindByCaption() const
{
    return *std::find_if(std::begin(kKinds), std::end(kKinds),
                         [&](const Kind& each) { return each.caption == fra1.caption.get(); });
}

Recordset LineList::LinesOf(BusinessKind kind) const
{
    return QueryOfMinor(run_, "select * from {business} where code = ? and [Type] = ?", {run_.Glcode, TypeOf(kind)},
                        run_.company.dialect().insertionOrder);
}

void LineList::Open(BusinessKind kind)
{
    const Kind& chosen = Find(kind);
    const Recordset lines = LinesOf(kind);
    if (lines.Empty())
        return run_.screens.Show(chosen.screen, {.caption = chosen.caption});
    Fill(lines);
    fra1.caption = chosen.caption;
    form_.Raise(fra1, DBGrid1);
}

/// The working table gives the order, by name as the store sorts.
void LineList::Fill(const Recordset& lines)
{
    const Connection& work = run_.qeltemp;
    Transaction transaction({work});
    work.Delete("from {misc} where code1 = ?", run_.Glcode);
    for (const Row line : lines)
        work.Insert("misc", {{"code1", run_.Glcode},
                             {"Name", line["name1"].Text() + ' ' + line["name2"].Text()},
                             {"amt1", line["PNL"].Number()},
                             {"amt2", line["NET"].Number()},
                             {"amt3", line["Minor"]},
                             {"SNO", line["SNO"]}});
    transaction.Commit();

    double profit = 0;
    double income = 0;
    for (const Row line : lines) {
        profit += line["PNL"].Number();
        income += line["NET"].Number();
    }
    std::vector<std::vector<std::string>> rows;
    for (const Row row : work.Query("select * from {misc} where code1 = ? order by name", run_.Glcode))
        rows.push_back({row["Name"].Text(), Amount(row["amt1"].Number()), Amount(row["amt2"].Number()),
                        row["amt3"].Text(), row["SNO"].Text()});
    DBGrid1.SetRows(std::move(rows));
    DBGrid1.SetFooter(
        {std::to_string(lines.Size()) + (lines.Size() == 1 ? " line" : " lines"), SumText(profit), SumText(income)});
}

void LineList::Choose(int row)
{
    if (run_.GLminor == 0 && Val(DBGrid1.Cell(row, kMinor)) != 0)
        return run_.Inform("This business belongs to minor & can not be changed from here.");
    const Kind& kind = KindByCaption();
    const Recordset line = run_.company.Query("select * from {business} where code = ? and [Type] = ? and sno = ?",
                                              run_.Glcode, TypeOf(kind.kind), Val(DBGrid1.Cell(row, kSno)));
    form_.Lower(fra1);
    if (line.Empty()) // another user deleted it meanwhile
        return use_.lineIsGone();
    run_.screens.Show(kind.screen, {.caption = kind.caption, .business = Record(line.First())});
}

void LineList::Add()
{
    const Kind& kind = KindByCaption();
    if (!kind.canAdd)
        return;
    form_.Lower(fra1);
    run_.screens.Show(kind.screen, {.caption = kind.caption});
}

void LineList::Leave()
{
    form_.Lower(fra1);
    form_.SetFocus(use_.buttonOf(KindByCaption().kind));
}

} // namespace pgbp
