#include "income/FrmHelp.h"

#include "services/text.h"

#include <utility>

namespace pgbp {
namespace {

constexpr std::pair<std::string_view, std::string_view> kFixedTopics[] = {
    {"Why 234A Interest in 2020-21 ?",
     "The Government has extended the due date of IT Return filing for AY 2020-21 to 15-02-2021 under the Taxation and "
     "Other Laws (Relaxation of Certain Provisions) Ordinance, 2020 but date for Interest u/s 234A is not extended in "
     "case where Self Assessment Tax is more than Rs 1 Lakh. Hence if Self Assessment tax is more than 1 Lakh and the "
     "same was not deposited before 31-July-2020 or 31-Oct-2020, as the case may be, Interest u/s 234A will be charged "
     "even if return is filed  before 15-02-2021."},
    {"Why 234A Interest in 2021-22 ?",
     "The Government has extended the due date of IT Return filing for AY 2021-22 to 31-12-2021/15-03-2022 but date "
     "for "
     "Interest u/s 234A is not extended in case where Self Assessment Tax is more than Rs 1 Lakh. Hence if Self "
     "Assessment tax is more than 1 Lakh and the same was not deposited before 31-July-2021 or 31-Oct-2021, as the "
     "case "
     "may be, Interest u/s 234A will be charged even if return is filed  before 31-12-2021/15-03-2022."},
};

} // namespace

FrmHelp::FrmHelp(Run& itsRun) : Screen(itsRun, "FrmHelp", "Vorn Help")
{
    txtDesc.multiLine = true;
    txtDesc.locked = true;
    framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&LblCaption}}, {{&txtDesc}}}});
    framain.onEscape = [this] { Close(); };
    CmdBack.isDefault = true;
    CmdBack.onClick = [this] { Close(); };
    bar = {&CmdBack};
}

void FrmHelp::Open(const HelpOpening& opening)
{
    LblCaption = opening.topic + " ?";
    txtDesc = TextOf(opening.topic);
}

std::string FrmHelp::TextOf(const std::string& topic) const
{
    for (const auto& [fixed, text] : kFixedTopics)
        if (fixed == topic)
            return std::string(text);
    const Recordset help =
        run.tax.Query("select * from {vornhelp} where " + run.tax.dialect().Upper("name") + " = ?", Upper(topic));
    return help.Empty() ? "Nothing to show help" : help.First()["Desc"].Text();
}

} // namespace pgbp
