#include "entry/partners.h"

#include "law/remuneration_limit.h"
#include "records/rows_of_type.h"
#include "records/working_copies.h"
#include "services/format.h"
#include "services/states.h"
#include "services/text.h"
#include "startup/shared_services.h"
#include "startup/status.h"
#include "store/schema.h"

#include <cmath>
#include <utility>

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

/// The kinds that the return writes as a code, in words.
std::string KindInWords(const std::string& kind)
{
    constexpr std::pair<std::string_view, const char*> kWords[] = {
        {"SETTLER", "Settlor"},
        {"TRUSTEE", "Trustee"},
        {"BENEFICIARY", "Beneficiary"},
        {"PRINCIPAL_OFFICER", "Principal officer"},
        {"IND_WORKING", "Individual, working"},
        {"IND_RETIRED", "Individual, retired"},
        {"EXECUTOR", "Executor"},
    };
    for (const auto& [code, words] : kWords)
        if (kind == code)
            return words;
    return kind;
}

std::string LeftInWords(const std::string& left) { return left == "True" ? "Left" : ""; }

} // namespace

PartnerFields::PartnerFields(Screen& form) : screen(form)
{
    for (TextBox* text : std::initializer_list<TextBox*>{&txtpartner, &TxtPart_PAN, &TxtPart_Add, &TxtCity, &txtstate,
                                                         &TxtPIN, &CboStatus, &TXTDin})
        text->maxLength = ColumnWidth("company", "business1", "name1");
}

Partners::Partners(Screen& form, PartnersUse use)
    : PartnerFields(form), DbPart(form, "DbPart", GridColumns(Columns())), entry(form, DbPart, cmdaddpart, Columns()),
      run_(form.run), use_(std::move(use))
{
    LayOut();
    Wire();
    entry.Close();
    ShowIdentity();
}

/// In the order of the grid; the interest comes before what is allowed of it, which follows it.
std::vector<ItemColumn<PartnerRow>> Partners::Columns()
{
    using enum GridColumnKind;
    return {
        {.shown = {"Partner's Name", Text, 3}, .member = &PartnerRow::name, .field = &txtpartner, .tellsApart = true},
        {.shown = {"Ratio", Rate}, .member = &PartnerRow::ratio, .field = &txtratio, .tellsApart = true},
        {.shown = {"Interest", Amount}, .member = &PartnerRow::interest, .field = &txtpart1, .tellsApart = true},
        {.shown = {"Remuneration", Amount},
         .member = &PartnerRow::remuneration,
         .field = &txtpart2,
         .tellsApart = true},
        {.shown = {"Allow", Amount}, .member = &PartnerRow::allowableInterest, .field = &txtAllow, .tellsApart = true},
        {.shown = {"Current", Text, 1, LeftInWords}, .member = &PartnerRow::left, .tick = &ChkCurrent},
        {.shown = {"City", Text}, .member = &PartnerRow::city, .field = &TxtCity},
        {.shown = {"State", Text}, .member = &PartnerRow::state, .field = &txtstate},
        {.shown = {"PIN", Text}, .member = &PartnerRow::pin, .field = &TxtPIN},
        {.shown = {"Status", Text, 1, KindInWords}, .member = &PartnerRow::status, .field = &CboStatus},
        {.shown = {"DIN", Text}, .member = &PartnerRow::identity, .field = &TXTDin},
        {.shown = {"Intt Rate", Rate}, .member = &PartnerRow::interestRate, .field = &TxtInttRate},
        {.shown = {"PAN", Text}, .member = &PartnerRow::pan, .field = &TxtPart_PAN},
        {.shown = {"Address"}, .member = &PartnerRow::address, .field = &TxtPart_Add, .inGrid = false},
    };
}

void Partners::LayOut()
{
    // in columns of its own: a long caption does not part those above from their fields
    fratotals.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Caption, LayoutColumn::Amount},
                   .rows = {{{&ChkChange, &lblallowremuc, &lblallowremu}}}});
    frapartner.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button, LayoutColumn::Caption,
                                LayoutColumn::Field, LayoutColumn::Button},
                    .rows = {{{&lblpartner, &txtpartner, &ImgHelp, &lblpan, &TxtPart_PAN, &Image2}},
                             {{&lbladdress, &TxtPart_Add, nullptr, &lblcity, &TxtCity}},
                             {{&lblstate, &txtstate, nullptr, &lblpin, &TxtPIN}},
                             {.cells = {&lblstatus, &CboStatus, nullptr, &Label6, &TXTDin}, .keepsPlace = true},
                             {{&lblratioc, &txtratio, nullptr, &lblrate, &TxtInttRate}},
                             {{&lblpart1c, &txtpart1, nullptr, &lblallow, &txtAllow}},
                             {{&lblpart2c, &txtpart2, nullptr, nullptr, &ChkCurrent, &cmdaddpart}},
                             {{&DbPart}},
                             {{&fratotals}}},
                    .buttonsLeft = {&previous.CmdImp, &cmdImport},
                    .buttonsRight = {&cmdsavepart, &cmdbackpartner}});
    cmdsavepart.isDefault = true;
}

void Partners::Wire()
{
    entry.checks = ChecksOfAdd();
    entry.complete = [](PartnerRow& partner) { partner.name = Replace(partner.name, "'", " "); };
    entry.given = [this](const PartnerRow& partner) { TakeOver(partner); };
    entry.changed = [this] { Changed(); };
    entry.footer = [this] { return std::vector<std::string>{"Total : ", lblratio.text(), lblin.text(), lblre.text()}; };
    txtpart1.onChange = [this] { txtAllow = Amount(Val(txtpart1)); };
    CboStatus.onChange = [this] { ShowIdentity(); };
    TxtPart_PAN.onGotFocus = [this] { TxtPart_PAN.Select(static_cast<int>(TxtPart_PAN.text().size()), 0); };
    TxtPart_PAN.onLostFocus = [this] { LookUp(); };
    ImgHelp.onClick = [this] { search.Open(); };
    Image2.onClick = [this] { CheckPAN(screen, TxtPart_PAN.text()); };
    cmdImport.onClick = [this] { ImportCapital(); };
    cmdsavepart.onClick = [this] { Save(); };
    cmdbackpartner.onClick = [this] { Leave(); };
    frapartner.onUndo = [this] { entry.Undo(); };
    frapartner.onEscape = [this] {
        if (MayDiscard(run_, Altered()))
            Leave();
    };
    search.chosen = [this](const Person& person) {
        Take(person);
        txtpartner.locked = TxtPart_PAN.locked = !person.pan.empty();
    };
    details.accepted = [this](const Person& person) { Take(person); };
    details.rejected = [this] { screen.SetFocus(TxtPart_Add); };
    previous.chosen = [this](const PartnerRow& partner) {
        entry.Enter(partner);
        screen.SetFocus(txtpartner);
    };
    previous.allChosen = [this](const std::vector<PartnerRow>& partners) { entry.Append(partners); };
}

void Partners::FillLists()
{
    txtstate.SetItems(FirstFields(run_.tax.Query("select nm from {statecode} order by nm")));
    TxtCity.SetItems(FirstFields(run_.company.Query("select name from {misc} where [type] = 'CITY' order by name")));
    std::vector<std::string> kinds;
    for (const Kind& kind : kKinds)
        if (run_.Year() >= kind.since)
            kinds.emplace_back(kind.name);
    CboStatus.SetItems(std::move(kinds));
}

std::vector<Check> Partners::ChecksOfAdd()
{
    const auto isEmpty = [](const TextBox& field) { return [&field] { return field.text().empty(); }; };
    const auto from = [this](int year, const std::function<bool()>& fails) {
        return [isThen = run_.Year() >= year, fails] { return isThen && fails(); };
    };
    const auto isPaidAfterLeaving = [this] { return ChkCurrent.value && Val(txtpart2) > 0; };
    const bool refusesRetired = run_.Year() >= 2016 && run_.Year() <= 2018;
    return {
        {[this] { return !ChkCurrent.value && Val(Amount(Val(lblratio) + Val(txtratio))) > 100; },
         "Total Ratio can not be greater than 100....", &txtratio},
        {isEmpty(txtpartner), "Please fill name of Partner....", &txtpartner},
        {from(2017, isEmpty(TxtPart_Add)), "Please fill Address....", &TxtPart_Add},
        {isEmpty(TxtCity), "Please fill City....", &TxtCity},
        {isEmpty(txtstate), "Please fill State....", &txtstate},
        {[this] { return StateCode(txtstate.text()) == "0"; }, "Please select the name of state from the list...",
         &txtstate},
        {isEmpty(TxtPIN), "Please fill Pin Code....", &TxtPIN},
        {[this] { return Val(txtratio) < 0 && IsFirm(run_.Glstatus); },
         "Please fill profit sharing ratio of Partner correctly....", &txtratio},
        {from(2012, isEmpty(CboStatus)), "Please fill Status of Partner...", &CboStatus},
        {isPaidAfterLeaving, refusesRetired ? kNotForRetired : kNotForRetiredConfirm, &txtpart2,
         refusesRetired ? Asking::TellPlainly : Asking::Confirm},
        {from(2017, [this] { return use_.refusesPay() && (Val(txtAllow) > 0 || Val(txtpart2) > 0); }),
         "Remuneration and Interest are not allowed u/s 44AD and ADA, Please correct the details to save...",
         &txtAllow},
    };
}

void Partners::Open()
{
    const bool takes = !use_.takesNothing();
    txtpart1.enabled = txtAllow.enabled = txtpart2.enabled = takes;
    FillLists();
    entry.Open(OfTheLine());
    previous.Read();
    linked_ = run_.Year() >= 2007 ? FindLinkedClient(run_) : std::nullopt;
    cmdImport.visible = linked_.has_value();
    screen.Raise(frapartner, txtpartner);
}

std::vector<PartnerRow> Partners::OfTheLine() const
{
    const auto rowsOf = [this](const char* type) {
        return run_.qeltemp.Query("select * from {temp1} where code = ? and [Type] = ?" +
                                      std::string(run_.qeltemp.dialect().insertionOrder),
                                  run_.Code(), type);
    };
    return MergePartners(rowsOf("PARTREMU"), rowsOf("PARTINTT"));
}

/// A partner was put into the fields: they can be typed into again, and nobody is looked up for his PAN.
void Partners::TakeOver(const PartnerRow& given)
{
    txtpartner.locked = TxtPart_PAN.locked = false;
    knownPan_ = given.pan;
}

void Partners::Changed()
{
    std::vector<std::vector<Field>> rows;
    for (const PartnerRow& partner : entry.items())
        rows.push_back(ToWork(partner));
    WriteWorkRows(run_, std::move(rows));
    ShowTotals();
    ShowLimit();
}

/// One who left has no share on the last day of the year.
void Partners::ShowTotals()
{
    for (Label* total : {&lblin, &lblre, &lblratio})
        total->Set("0.00");
    for (const PartnerRow& partner : entry.items()) {
        lblin = Amount(Val(lblin) + partner.interest);
        lblre = Amount(Val(lblre) + partner.remuneration);
        lblratio = Amount(Val(lblratio) + (partner.left ? 0 : partner.ratio));
    }
}

double Partners::BookProfit() const { return use_.bookProfit(Val(lblin), Val(lblre)); }

void Partners::ShowLimit() { lblallowremu = Amount(RemunerationLimit(BookProfit(), run_.Year(), run_.Glstatus)); }

/// A natural person has a DIN or an Aadhaar number.
void Partners::ShowIdentity() { TXTDin.visible = Label6.visible = IsNaturalPerson(CboStatus.text()); }

void Partners::Take(const Person& person)
{
    txtpartner = person.name;
    TxtPart_PAN = person.pan;
    TxtPart_Add = person.address;
    TxtCity = person.city;
    txtstate = person.state;
    TxtPIN = person.pin;
    knownPan_ = person.pan;
    screen.SetFocus(CboStatus);
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
    entry.Replace(std::move(partners));
}

bool Partners::RatiosAreWrong() const { return IsFirm(run_.Glstatus) && !RatiosAddUp(entry.items()); }

void Partners::Save()
{
    if (!entry.Finish())
        return;
    if (entry.items().empty()) {
        screen.notice = "No partner is entered: nothing was saved.";
        return;
    }
    for (const PartnerRow& partner : entry.items())
        if (StateCode(partner.state) == "0")
            return run_.Inform("Please fill state correctly for " + partner.name);
    if (RatiosAreWrong())
        return run_.Inform("Please fill the partnership ratios of the partners correctly...");
    Store();
    use_.saved();
    screen.TellTakenOver(frapartner.caption.get() + ": " + entry.Summary());
    Leave();
}

void Partners::Store() const
{
    Transaction transaction({run_.qeltemp});
    run_.qeltemp.Delete("from {temp1} where code = ? and ([Type] = 'PARTINTT' or [Type] = 'PARTREMU')", run_.Code());
    for (const PartnerRow& partner : entry.items())
        for (std::vector<Field>& detail : ToDetails(partner)) {
            detail.push_back({"code", run_.Code()});
            run_.qeltemp.Insert("temp1", detail);
        }
    transaction.Commit();
}

void Partners::Leave()
{
    DropWorkList(run_);
    screen.Lower(frapartner);
    entry.Close();
}

} // namespace pgbp
