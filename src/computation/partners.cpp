#include "computation/partners.h"

#include "law/remuneration_limit.h"
#include "records/working_copies.h"
#include "services/format.h"
#include "services/states.h"
#include "services/text.h"
#include "startup/shared_services.h"
#include "startup/status.h"
#include "store/schema.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr const char* kNotForRetired =
    "The IT Dept. is not allowing the remuneration given to retired partner, so please remove the remuneration from "
    "this chart and fill it anywhere else in the P & L Account...";
constexpr const char* kNotForRetiredConfirm =
    "The IT Dept. is not allowing the remuneration given to retired partner, so please remove the remuneration from "
    "this chart and fill it anywhere else in the P & L Account..\n"
    "Do you still want to save this ?";

/// Kinds of persons of the return, with the first year of its lists that knows them.
struct Kind {
    const char* name;
    int since;
};
constexpr Kind kKinds[] = {
    {"Individual", 0},
    {"HUF", 0},
    {"Firm", 0},
    {"LLP", 0},
    {"Domestic Company", 0},
    {"Foreign Company", 0},
    {"Co-Operative Society", 0},
    {"Local Authority", 0},
    {"Trust", 0},
    {"AOP", 0},
    {"BOI", 0},
    {"Any other AJP", 0},
    {"SETTLER", 2016},
    {"TRUSTEE", 2016},
    {"BENEFICIARY", 2016},
    {"PRINCIPAL_OFFICER", 2016},
    {"IND_WORKING", 2019},
    {"IND_RETIRED", 2019},
    {"EXECUTOR", 2019},
};

bool IsNaturalPerson(std::string_view kind)
{
    return kind == "Individual" || kind == "IND_WORKING" || kind == "IND_RETIRED";
}

std::vector<std::string> Names(const Recordset& rows)
{
    std::vector<std::string> names;
    for (const Row row : rows)
        names.push_back(row.At(0).Text());
    return names;
}

} // namespace

Partners::Partners(Screen& form, PartnersUse use)
    : frapartner(form, "frapartner", "Partners"), lblpartner(form, "lblpartner", "Name :"),
      txtpartner(form, "txtpartner"), ImgHelp(form, "ImgHelp", "Select Partner"), lblpan(form, "lblpan", "PAN :"),
      TxtPart_PAN(form, "TxtPart_PAN"), Image2(form, "Image2", "Check PAN from IT Records"),
      lbladdress(form, "lbladdress", "Address :"), TxtPart_Add(form, "TxtPart_Add"), lblcity(form, "lblcity", "City :"),
      TxtCity(form, "TxtCity", true), lblstate(form, "lblstate", "State :"), txtstate(form, "txtstate", true),
      lblpin(form, "lblpin", "PIN :"), TxtPIN(form, "TxtPIN"), lblstatus(form, "lblstatus", "Satatus :"),
      CboStatus(form, "CboStatus"), Label6(form, "Label6", "If LLP, DIN else Aadhar :"), TXTDin(form, "TXTDin"),
      lblratioc(form, "lblratioc", "Ratio :"), txtratio(form, "txtratio"), lblrate(form, "lblrate", "Intt Rate :"),
      TxtInttRate(form, "TxtInttRate"), lblpart1c(form, "lblpart1c", "%  Interest :"), txtpart1(form, "txtpart1"),
      lblallow(form, "lblallow", "Allow. Int. :"), txtAllow(form, "txtAllow"), lblpart2c(form, "lblpart2c", "Rem. :"),
      txtpart2(form, "txtpart2"),
      ChkCurrent(form, "ChkCurrent", "Whether the person was not the partner on year ending date ?"),
      ChkChange(form, "ChkChange", "Whether there was change in partnership during the year "),
      cmdaddpart(form, "cmdaddpart", "&Add"), DbPart(form, "DbPart",
                                                     {{"Partner's Name", GridColumnKind::Text, 6},
                                                      {"Ratio", GridColumnKind::Rate},
                                                      {"Interest", GridColumnKind::Amount},
                                                      {"Remuneration", GridColumnKind::Amount},
                                                      {"Allow", GridColumnKind::Amount},
                                                      {"Current", GridColumnKind::Text},
                                                      {"City", GridColumnKind::Text, 4},
                                                      {"State", GridColumnKind::Text, 5},
                                                      {"PIN", GridColumnKind::Text},
                                                      {"Status", GridColumnKind::Text, 6},
                                                      {"DIN", GridColumnKind::Text, 6},
                                                      {"Intt Rate", GridColumnKind::Rate}}),
      fratotals(form, "fratotals", "", FramePlace::Group), lbltotal(form, "lbltotal", "Total : "),
      lblratio(form, "lblratio", "0.00", LabelLook::Amount), lblin(form, "lblin", "0.00", LabelLook::Amount),
      lblre(form, "lblre", "0.00", LabelLook::Amount),
      lblallowremuc(form, "lblallowremuc", "Maximum Allowable Remuneration :"),
      lblallowremu(form, "lblallowremu", "0.00", LabelLook::Amount), cmdImport(form, "cmdImport", "&Import"),
      cmdsavepart(form, "cmdsavepart", "&Save"), cmdbackpartner(form, "cmdbackpartner", "&Cancel"), search(form),
      previous(form), details(form), run_(form.run), form_(form),
      use_(std::move(use)), texts_{{txtpartner, &PartnerRow::name},     {TxtPart_PAN, &PartnerRow::pan},
                                   {TxtPart_Add, &PartnerRow::address}, {TxtCity, &PartnerRow::city},
                                   {txtstate, &PartnerRow::state},      {TxtPIN, &PartnerRow::pin},
                                   {CboStatus, &PartnerRow::status},    {TXTDin, &PartnerRow::identity}},
      // the interest comes before what is allowed of it, which follows it
      numbers_{{txtratio, &PartnerRow::ratio},
               {TxtInttRate, &PartnerRow::interestRate},
               {txtpart1, &PartnerRow::interest},
               {txtAllow, &PartnerRow::allowableInterest},
               {txtpart2, &PartnerRow::remuneration}},
      checks_(ChecksOfAdd())
{
    for (const auto& [field, member] : texts_)
        field.maxLength = ColumnWidth("company", "business1", "name1");
    LayOut();
    Wire();
    FillLists();
    Clear();
    ShowIdentity();
}

void Partners::LayOut()
{
    // in the order of the grid's columns; the limit stands under the remuneration that it limits
    fratotals.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Amount, LayoutColumn::Amount, LayoutColumn::Amount},
                   .rows = {{{&lbltotal, &lblratio, &lblin, &lblre}, RowStyle::Total},
                            {{&lblallowremuc, nullptr, nullptr, &lblallowremu}}}});
    frapartner.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button, LayoutColumn::Caption,
                                LayoutColumn::Field, LayoutColumn::Button},
                    .rows = {{{&lblpartner, &txtpartner, &ImgHelp, &lblpan, &TxtPart_PAN, &Image2}},
                             {{&lbladdress, &TxtPart_Add, nullptr, &lblcity, &TxtCity}},
                             {{&lblstate, &txtstate, nullptr, &lblpin, &TxtPIN}},
                             {{&lblstatus, &CboStatus, nullptr, &Label6, &TXTDin}},
                             {{&lblratioc, &txtratio, nullptr, &lblrate, &TxtInttRate}},
                             {{&lblpart1c, &txtpart1, nullptr, &lblallow, &txtAllow}},
                             {{&lblpart2c, &txtpart2, nullptr, nullptr, &ChkCurrent, &cmdaddpart}},
                             {{&DbPart}},
                             {{&fratotals}},
                             {{&ChkChange}}},
                    .buttonsLeft = {&previous.CmdImp, &cmdImport},
                    .buttonsRight = {&cmdsavepart, &cmdbackpartner}});
    cmdsavepart.isDefault = true;
}

void Partners::Wire()
{
    txtpart1.onChange = [this] { txtAllow = Amount(Val(txtpart1)); };
    CboStatus.onChange = [this] { ShowIdentity(); };
    TxtPart_PAN.onGotFocus = [this] { TxtPart_PAN.Select(static_cast<int>(TxtPart_PAN.text().size()), 0); };
    TxtPart_PAN.onLostFocus = [this] { LookUp(); };
    ImgHelp.onClick = [this] { search.Open(); };
    Image2.onClick = [this] { CheckPAN(run_, TxtPart_PAN.text()); };
    cmdaddpart.onClick = [this] { Add(); };
    DbPart.onDoubleClick = [this](int row) { TakeBack(row); };
    cmdImport.onClick = [this] { ImportCapital(); };
    cmdsavepart.onClick = [this] { Save(); };
    frapartner.onEscape = cmdbackpartner.onClick = [this] { Leave(); };
    search.chosen = [this](const Person& person) {
        Take(person);
        txtpartner.locked = TxtPart_PAN.locked = !person.pan.empty();
    };
    search.left = details.left = previous.left = [this] { form_.SetFocus(txtpartner); };
    details.accepted = [this](const Person& person) { Take(person); };
    details.left = [this] { form_.SetFocus(TxtPart_Add); };
    previous.chosen = [this](const PartnerRow& partner) {
        Show(partner);
        form_.SetFocus(txtpartner);
    };
    previous.allChosen = [this](const std::vector<PartnerRow>& partners) { AddAll(partners); };
}

void Partners::FillLists()
{
    txtstate.SetItems(Names(run_.tax.Query("select nm from {statecode} order by nm")));
    TxtCity.SetItems(Names(run_.company.Query("select name from {misc} where [type] = 'CITY' order by name")));
    std::vector<std::string> kinds;
    for (const Kind& kind : kKinds)
        if (run_.Year() >= kind.since)
            kinds.emplace_back(kind.name);
    CboStatus.SetItems(std::move(kinds));
}

std::vector<Partners::Check> Partners::ChecksOfAdd()
{
    const auto isEmpty = [](const TextBox& field) { return [&field] { return field.text().empty(); }; };
    const auto from = [this](int year, const std::function<bool()>& fails) {
        return [isThen = run_.Year() >= year, fails] { return isThen && fails(); };
    };
    const auto isPaidAfterLeaving = [this] { return ChkCurrent.value && Val(txtpart2) > 0; };
    const bool refusesRetired = run_.Year() >= 2016 && run_.Year() <= 2018;
    return {
        {[this] { return !ChkCurrent.value && Val(Amount(Val(lblratio) + Val(txtratio))) > 100; },
         "Total Ratio can not be greater than 100....", txtratio},
        {isEmpty(txtpartner), "Please fill name of Partner....", txtpartner},
        {from(2017, isEmpty(TxtPart_Add)), "Please fill Address....", TxtPart_Add},
        {isEmpty(TxtCity), "Please fill City....", TxtCity},
        {isEmpty(txtstate), "Please fill State....", txtstate},
        {[this] { return StateCode(txtstate.text()) == "0"; }, "Please select the name of state from the list...",
         txtstate},
        {isEmpty(TxtPIN), "Please fill Pin Code....", TxtPIN},
        {[this] { return Val(txtratio) < 0 && IsFirm(run_.Glstatus); },
         "Please fill profit sharing ratio of Partner correctly....", txtratio},
        {from(2012, isEmpty(CboStatus)), "Please fill Status of Partner...", CboStatus},
        {isPaidAfterLeaving, refusesRetired ? kNotForRetired : kNotForRetiredConfirm, txtpart2,
         refusesRetired ? Asking::TellPlainly : Asking::Confirm},
        {from(2017, [this] { return use_.refusesPay() && (Val(txtAllow) > 0 || Val(txtpart2) > 0); }),
         "Remuneration and Interest are not allowed u/s 44AD and ADA, Please correct the details to save...", txtAllow},
    };
}

/// A question that is answered by Yes refuses nothing.
bool Partners::Refuses(const Check& check) const
{
    if (!check.fails())
        return false;
    if (check.asking == Asking::Confirm)
        return run_.Show(check.message, "Confirmation", Icon::Question, Buttons::YesNo, Answer::No) != Answer::Yes;
    if (check.asking == Asking::TellPlainly)
        form_.boxes().Show({check.message, ""});
    else
        run_.Inform(check.message);
    return true;
}

void Partners::Open()
{
    const bool takes = !use_.takesNothing();
    txtpart1.enabled = txtAllow.enabled = txtpart2.enabled = takes;
    Clear();
    for (label* total : {&lblin, &lblre, &lblratio})
        total->Set("0.00");
    FillFromLine();
    previous.Read();
    linked_ = run_.Year() >= 2007 ? FindLinkedClient(run_) : std::nullopt;
    cmdImport.visible = linked_.has_value();
    ShowLimit();
    ShowGrid();
    frapartner.visible = true;
    form_.SetFocus(txtpartner);
}

void Partners::FillFromLine()
{
    const auto rowsOf = [this](const char* type) {
        return run_.qeltemp.Query("select * from {temp1} where code = ? and [Type] = ?" +
                                      std::string(run_.qeltemp.dialect().insertionOrder),
                                  run_.Code(), type);
    };
    const auto partners = MergePartners(rowsOf("PARTREMU"), rowsOf("PARTINTT"));
    Transaction transaction({run_.qeltemp});
    DropWorkList(run_);
    for (const PartnerRow& partner : partners)
        Insert(partner);
    transaction.Commit();
    for (const PartnerRow& partner : partners)
        Count(partner, 1);
}

void Partners::Insert(const PartnerRow& partner) const
{
    std::vector<Field> fields = ToWork(partner);
    fields.push_back({"code", run_.Code()});
    run_.qeltemp.Insert("temp", fields);
}

PartnerRow Partners::Entered() const
{
    PartnerRow partner{.left = ChkCurrent.value};
    for (const auto& [field, member] : texts_)
        partner.*member = field.text();
    for (const auto& [field, member] : numbers_)
        partner.*member = Val(field);
    partner.name = Replace(partner.name, "'", " ");
    return partner;
}

void Partners::Show(const PartnerRow& partner)
{
    for (const auto& [field, member] : texts_)
        field.Set(partner.*member);
    for (const auto& [field, member] : numbers_)
        field.Set(field.enabled ? Amount(partner.*member) : "0.00");
    ChkCurrent = partner.left;
    txtpartner.locked = TxtPart_PAN.locked = false;
    knownPan_ = partner.pan;
}

void Partners::Clear() { Show({}); }

/// The totals grow by the partner, or drop by him with -1. One who left has no share on the last day of the year.
void Partners::Count(const PartnerRow& partner, int times)
{
    lblin = Amount(Val(lblin) + times * partner.interest);
    lblre = Amount(Val(lblre) + times * partner.remuneration);
    if (!partner.left)
        lblratio = Amount(Val(lblratio) + times * partner.ratio);
}

void Partners::ShowLimit()
{
    lblallowremu = Amount(RemunerationLimit(use_.bookProfit(Val(lblin), Val(lblre)), run_.Year(), run_.Glstatus));
}

void Partners::ShowGrid()
{
    shown_.clear();
    std::vector<std::vector<std::string>> rows;
    for (const Row row : run_.qeltemp.Query(
             "select * from {temp} where code = ?" + std::string(run_.qeltemp.dialect().insertionOrder), run_.Code())) {
        const PartnerRow partner = FromWork(row);
        rows.push_back({partner.name, Amount(partner.ratio), Amount(partner.interest), Amount(partner.remuneration),
                        Amount(partner.allowableInterest), partner.left ? "True" : "False", partner.city, partner.state,
                        partner.pin, partner.status, partner.identity, Amount(partner.interestRate)});
        shown_.push_back(partner);
    }
    DbPart.SetRows(std::move(rows));
}

/// A natural person has a DIN or an Aadhaar number.
void Partners::ShowIdentity() { TXTDin.visible = Label6.visible = IsNaturalPerson(CboStatus.text()); }

void Partners::Add()
{
    for (const Check& check : checks_)
        if (Refuses(check)) {
            form_.SetFocus(check.focus);
            return;
        }
    const PartnerRow partner = Entered();
    Insert(partner);
    Count(partner, 1);
    Clear();
    ShowLimit();
    ShowGrid();
    form_.SetFocus(txtpartner);
}

void Partners::TakeBack(int row)
{
    const PartnerRow partner = shown_[static_cast<std::size_t>(row) - 1];
    const long taken = run_.qeltemp.Delete(
        "from {temp} where name1 = ? and amt1 = ? and amt2 = ? and amt3 = ? and amt4 = ? and code = ?", partner.name,
        partner.interest, partner.remuneration, partner.ratio, partner.allowableInterest, run_.Code());
    Show(partner);
    Count(partner, -static_cast<int>(taken)); // rows that are alike go together
    ShowLimit();
    ShowGrid();
    form_.SetFocus(txtpartner);
}

void Partners::Take(const Person& person)
{
    txtpartner = person.name;
    TxtPart_PAN = person.pan;
    TxtPart_Add = person.address;
    TxtCity = person.city;
    txtstate = person.state;
    TxtPIN = person.pin;
    knownPan_ = person.pan;
    form_.SetFocus(CboStatus);
}

/// Offers the name and address of the client with this PAN, once.
void Partners::LookUp()
{
    const std::string pan = Trim(TxtPart_PAN.text());
    if (pan.empty() || EqualsIgnoringCase(pan, knownPan_))
        return;
    if (const auto person = FindByPan(run_, pan))
        details.Open(*person);
}

void Partners::AddAll(const std::vector<PartnerRow>& partners)
{
    Transaction transaction({run_.qeltemp});
    for (const PartnerRow& partner : partners)
        Insert(partner);
    transaction.Commit();
    for (const PartnerRow& partner : partners)
        Count(partner, 1);
    ShowGrid();
    form_.SetFocus(txtpartner);
}

/// Takes the capital accounts of the firm's books in place of what was entered.
void Partners::ImportCapital()
{
    std::vector<PartnerRow> partners;
    for (const Row row : linked_->books.Query("select p_name, p_interest, p_remuneration, p_share from {capital} where "
                                              "code = ? order by p_name",
                                              linked_->code))
        partners.push_back({.name = row["p_name"].Text(),
                            .interest = row["p_interest"].Number(),
                            .remuneration = row["p_remuneration"].Number(),
                            .ratio = row["p_share"].Number(),
                            .allowableInterest = row["p_interest"].Number()});
    Transaction transaction({run_.qeltemp});
    DropWorkList(run_);
    for (const PartnerRow& partner : partners)
        Insert(partner);
    transaction.Commit();
    for (label* total : {&lblin, &lblre, &lblratio})
        total->Set("0.00");
    for (const PartnerRow& partner : partners)
        Count(partner, 1);
    ShowLimit();
    ShowGrid();
}

const PartnerRow* Partners::WithoutState() const
{
    const auto found = std::find_if(shown_.begin(), shown_.end(),
                                    [](const PartnerRow& partner) { return StateCode(partner.state) == "0"; });
    return found == shown_.end() ? nullptr : &*found;
}

bool Partners::RatiosAreWrong() const
{
    double total = 0;
    for (const PartnerRow& partner : shown_)
        total += partner.left ? 0 : partner.ratio;
    return IsFirm(run_.Glstatus) && Amount(total) != "100.00";
}

void Partners::Save()
{
    if (shown_.empty())
        return;
    if (const PartnerRow* wrong = WithoutState())
        return run_.Inform("Please fill state correctly for " + wrong->name);
    if (RatiosAreWrong())
        return run_.Inform("Please fill the partnership ratios of the partners correctly...");
    Transaction transaction({run_.qeltemp});
    run_.qeltemp.Delete("from {temp1} where code = ? and ([Type] = 'PARTINTT' or [Type] = 'PARTREMU')", run_.Code());
    for (const PartnerRow& partner : shown_)
        for (std::vector<Field>& detail : ToDetails(partner)) {
            detail.push_back({"code", run_.Code()});
            run_.qeltemp.Insert("temp1", detail);
        }
    transaction.Commit();
    use_.saved(Val(lblin), Val(lblre));
    Leave();
}

void Partners::Leave()
{
    DropWorkList(run_);
    ShowGrid();
    frapartner.visible = false;
    use_.left();
}

} // namespace pgbp
