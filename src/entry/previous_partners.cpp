#include "entry/previous_partners.h"

#include "services/format.h"
#include "services/text.h"

namespace pgbp {

PreviousPartners::PreviousPartners(Screen& form)
    : CmdImp(form, "CmdImp", "Imp."), FraPartners(form, "FraPartners", "Partners (Previous Year)"),
      MSHPart(form, "MSHPart",
              {{"Name", GridColumnKind::Text, 3},
               {"Ratio", GridColumnKind::Rate},
               {"pan", GridColumnKind::Text, 2},
               {"AD1", GridColumnKind::Text, 4},
               {"CITY", GridColumnKind::Text, 2},
               {"STATE", GridColumnKind::Text, 2},
               {"pIN", GridColumnKind::Text}}),
      lblhintprevious(form, "lblhintprevious", "Double Click to Select", LabelLook::Hint),
      Command2(form, "Command2", "Import &All"), CmdBackPartners(form, "CmdBackPartners", "&Cancel"), run_(form.run),
      form_(form)
{
    FraPartners.Lay({.columns = {LayoutColumn::Field},
                     .rows = {{{&MSHPart}}, {{&lblhintprevious}}},
                     .buttonsLeft = {&Command2},
                     .buttonsRight = {&CmdBackPartners}});
    CmdImp.toolTip = "Import Partner's Name";
    CmdImp.onClick = [this] { form_.Raise(FraPartners, MSHPart); };
    Command2.onClick = [this] {
        form_.Lower(FraPartners);
        allChosen(partners_);
    };
    MSHPart.onDoubleClick = [this](int row) {
        form_.Lower(FraPartners);
        chosen(partners_[static_cast<std::size_t>(row) - 1]);
    };
    FraPartners.onEscape = CmdBackPartners.onClick = [this] { form_.Lower(FraPartners); };
}

void PreviousPartners::Read()
{
    partners_.clear();
    std::vector<std::vector<std::string>> rows;
    if (!run_.GlPrCode.empty())
        for (const Row row :
             run_.company.Query("select * from {business1} where code = ? and ([Type] = 'PARTREMU' or [Type] = "
                                "'PARTINTT') order by name1",
                                run_.GlPrCode)) {
            PartnerRow partner = FromDetail(row);
            if (!partners_.empty() && EqualsIgnoringCase(partners_.back().name, partner.name))
                continue;
            rows.push_back({partner.name, Amount(partner.ratio), partner.pan, partner.address, partner.city,
                            partner.state, partner.pin});
            partners_.push_back({.name = partner.name,
                                 .ratio = partner.ratio,
                                 .pan = partner.pan,
                                 .address = partner.address,
                                 .city = partner.city,
                                 .state = partner.state,
                                 .pin = partner.pin});
        }
    CmdImp.visible = !rows.empty();
    MSHPart.SetRows(std::move(rows));
}

} // namespace pgbp
