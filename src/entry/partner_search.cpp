#include "entry/partner_search.h"

#include "services/text.h"

#include <algorithm>

namespace pgbp {
namespace {

/// The set of address columns that `comm` names as the current one.
struct AddressColumns {
    std::string_view comm;
    std::string_view lines[4];
    std::string_view city;
    std::string_view state;
    std::string_view pin;
};

/// Office, which also serves any other mark, and residence.
constexpr AddressColumns kAddresses[] = {
    {"O", {"add_o1", "add_o2", "add_o3", "add_o4"}, "city_o", "state_o", "pin_o"},
    {"R", {"add_r1", "add_r2", "add_r3", "add_r4"}, "city_r", "state_r", "pin_r"},
};

constexpr const char* kPersonColumns =
    "select comp_name, pan, comm, add_o1, add_o2, add_o3, add_o4, city_o, state_o, pin_o, add_r1, add_r2, add_r3, "
    "add_r4, city_r, state_r, pin_r from {assessee} where ";

const AddressColumns& CurrentAddress(const Row& row)
{
    const std::string comm = Trim(row["comm"].Text());
    const auto found = std::find_if(std::begin(kAddresses), std::end(kAddresses),
                                    [&](const auto& address) { return EqualsIgnoringCase(address.comm, comm); });
    return found == std::end(kAddresses) ? kAddresses[0] : *found;
}

Person PersonOf(const Row& row)
{
    const AddressColumns& columns = CurrentAddress(row);
    Person person{.name = row["comp_name"].Text(),
                  .pan = Trim(row["pan"].Text()),
                  .city = row[columns.city].Text(),
                  .state = row[columns.state].Text(),
                  .pin = row[columns.pin].Text()};
    for (const std::string_view line : columns.lines)
        if (const std::string text = Trim(row[line].Text()); !text.empty())
            person.address += (person.address.empty() ? "" : " ") + text;
    return person;
}

} // namespace

std::optional<Person> FindByPan(const Run& run, const std::string& pan)
{
    const Recordset found = run.company.Query(std::string(kPersonColumns) + "pan = ?", pan);
    return found.Empty() ? std::nullopt : std::optional(PersonOf(found.First()));
}

PartnerSearch::PartnerSearch(Screen& form)
    : FraPart(form, "FraPart", "Select Partner"), lblsearch(form, "lblsearch", "Name begins with :"),
      TxtSearch(form, "TxtSearch"),
      MSH(form, "MSH", {{"Name", GridColumnKind::Text, 3}, {"PAN", GridColumnKind::Text}}),
      lblhint(form, "lblhint", "Double Click to Select", LabelLook::Hint), CmdBackPart(form, "CmdBackPart", "&Cancel"),
      run_(form.run), form_(form)
{
    FraPart.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field},
                 .rows = {{{&lblsearch, &TxtSearch}}, {{&MSH}}, {{&lblhint}}},
                 .buttonsRight = {&CmdBackPart}});
    TxtSearch.onChange = [this] { Search(); };
    MSH.onDoubleClick = [this](int row) { Choose(row); };
    FraPart.onEscape = CmdBackPart.onClick = [this] { form_.Lower(FraPart); };
}

void PartnerSearch::Open()
{
    persons_.clear();
    std::vector<std::vector<std::string>> rows;
    for (const Row row : run_.company.Query(kPersonColumns + std::string(run_.company.dialect().statusAtMost3) +
                                            " order by comp_name")) {
        persons_.push_back(PersonOf(row));
        rows.push_back({persons_.back().name, persons_.back().pan});
    }
    MSH.SetRows(std::move(rows));
    TxtSearch = "";
    form_.Raise(FraPart, TxtSearch);
}

/// Goes to the first name that begins with the text; without one the row stays.
void PartnerSearch::Search()
{
    const std::string& wanted = TxtSearch.text();
    const auto begins = [&](const Person& person) {
        return EqualsIgnoringCase(std::string_view(person.name).substr(0, wanted.size()), wanted);
    };
    const auto found = std::find_if(persons_.begin(), persons_.end(), begins);
    if (found != persons_.end())
        MSH.SetCurrentRow(static_cast<int>(found - persons_.begin()) + 1);
}

void PartnerSearch::Choose(int row)
{
    form_.Lower(FraPart);
    chosen(persons_[static_cast<std::size_t>(row) - 1]);
}

PanDetails::PanDetails(Screen& form)
    : FraDEt(form, "FraDEt", "Partner's Address Details "), lblnamec(form, "lblD1c", "Name :"), LblD1(form, "LblD1"),
      lbladdressc(form, "lblD2c", "Address :"), LblD2(form, "LblD2"), lblcityc(form, "lblD3c", "City :"),
      LblD3(form, "LblD3"), lblstatec(form, "lblD4c", "State :"), LblD4(form, "LblD4"),
      lblpinc(form, "lblD5c", "PIN :"), LblD5(form, "LblD5"), CmdACC(form, "CmdACC", "&Accept"),
      CmdREj(form, "CmdREj", "&Reject"), form_(form)
{
    FraDEt.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field},
                .rows = {{{&lblnamec, &LblD1}},
                         {{&lbladdressc, &LblD2}},
                         {{&lblcityc, &LblD3}},
                         {{&lblstatec, &LblD4}},
                         {{&lblpinc, &LblD5}}},
                .buttonsRight = {&CmdACC, &CmdREj}});
    CmdACC.isDefault = true;
    CmdACC.onClick = [this] {
        isAccepted_ = true;
        form_.Lower(FraDEt);
    };
    FraDEt.onEscape = CmdREj.onClick = [this] { form_.Lower(FraDEt); };
    FraDEt.onLowered = [this] { isAccepted_ ? accepted(person_) : rejected(); };
}

void PanDetails::Open(const Person& person)
{
    person_ = person;
    isAccepted_ = false;
    const std::pair<Label*, const std::string*> lines[] = {{&LblD1, &person_.name},
                                                           {&LblD2, &person_.address},
                                                           {&LblD3, &person_.city},
                                                           {&LblD4, &person_.state},
                                                           {&LblD5, &person_.pin}};
    for (const auto& [shown, text] : lines)
        shown->ShowData(*text);
    form_.Raise(FraDEt, CmdACC);
}

} // namespace pgbp
