#include "suite/client_settings.h"

#include "services/format.h"
#include "services/ini_file.h"
#include "services/text.h"
#include "services/year.h"
#include "startup/status.h"
#include "suite/yes_or_no.h"

#include <algorithm>
#include <stdexcept>

namespace pgbp {
namespace {

constexpr int kFirstYearOfIndAs = 2023;

constexpr ClientSwitch kSwitches[] = {
    {"locked", "locked", "Nothing can be keyed; Back writes the head of income anew.", &ClientSettings::locked,
     [](const AssesseeYear&) { return true; }},
    {"previous-year", "previous year beside it", "The summary shows the preceding year's figures in a second column.",
     &ClientSettings::comparative, [](const AssesseeYear&) { return true; }},
    {"remuneration-by-hand", "remuneration by hand",
     "The program leaves the partners' remuneration as it was keyed. Otherwise it computes it at each opening.",
     &ClientSettings::remunerationByHand, [](const AssesseeYear& year) { return IsFirm(year.status); }},
    {"ind-as", "Ind AS", "Balance sheet and profit and loss account are those of Ind AS.", &ClientSettings::indAs,
     [](const AssesseeYear& year) { return IsCompany(year.status) && YearNumber(year.year) >= kFirstYearOfIndAs; }},
    {"section-11-4", "business income u/s 11(4)", "The summary has a field for it.", &ClientSettings::section11,
     [](const AssesseeYear& year) { return IsTrust(year.status); }},
};

constexpr ReturnFormChoice kReturnForms[] = {
    {0, "as usual for the kind of client"},
    {4, "4   business of an individual or HUF"},
    {5, "5   firm or association"},
    {6, "6   company"},
};

clsIniFile ReturnForms(const Practice& practice) { return {practice.folders.program / "QelCtrl.ini"}; }

/// Where a switch is stored: a column of the assessee-year's row, of this type where the table has types.
struct Place {
    bool ClientSettings::*value;
    Connection Practice::*file;
    std::string_view table;
    std::string_view type;
    std::string_view column;
    std::string_view yes; ///< what stands there when it is on; empty: a number that is not 0

    bool Read(const Practice& practice, std::string_view code, bool whenMissing) const
    {
        const Recordset rows = QueryRow(practice.*file, code);
        if (rows.Empty())
            return whenMissing;
        const Value held = rows.First().At(0);
        return yes.empty() ? held.Flag() : held.Text() == yes;
    }

    void Store(const Practice& practice, std::string_view code, bool on) const
    {
        const Connection& connection = practice.*file;
        const Value held = yes.empty() ? Value(on) : Value(on ? yes : "No");
        const std::string update =
            "update {" + std::string(table) + "} set " + std::string(column) + " = ? where code = ?";
        const long changed = type.empty() ? connection.Execute(update, held, code)
                                          : connection.Execute(update + " and [Type] = ?", held, code, type);
        if (changed != 0)
            return;
        std::vector<Field> fields{{"code", code}, {column, held}};
        if (!type.empty())
            fields.push_back({"Type", type});
        connection.Insert(table, fields);
    }

  private:
    Recordset QueryRow(const Connection& connection, std::string_view code) const
    {
        const std::string select =
            "select " + std::string(column) + " from {" + std::string(table) + "} where code = ?";
        return type.empty() ? connection.Query(select, code) : connection.Query(select + " and [Type] = ?", code, type);
    }
};

constexpr Place kPlaces[] = {
    {&ClientSettings::locked, &Practice::company, "misc_items", "LOCKED", "amt1", ""},
    {&ClientSettings::comparative, &Practice::company, "misc_items", "COMPARE", "amt1", ""},
    {&ClientSettings::remunerationByHand, &Practice::company, "setup", "", "auto_rem", ""},
    {&ClientSettings::indAs, &Practice::company, "misc_items", "FRMCHK", "add1", "Yes"},
    {&ClientSettings::section11, &Practice::balance, "qelgeneral", "CHERI", "amt1", ""},
};

/// What does not concern an assessee-year is never stored for it.
bool Concerns(bool ClientSettings::*value, const AssesseeYear& assesseeYear)
{
    return std::ranges::find(kSwitches, value, &ClientSwitch::value)->concerns(assesseeYear);
}

} // namespace

ReturnFormChange::ReturnFormChange(const Practice& practice, std::string_view code, double form)
    : practice_(practice), code_(code), before_(ReturnForm(practice, code)), kept_(form == before_)
{
    if (!kept_)
        SetReturnForm(practice_, code_, form);
}

ReturnFormChange::~ReturnFormChange()
{
    if (kept_)
        return;
    try {
        SetReturnForm(practice_, code_, before_);
    } catch (const std::exception&) { // what ended the change is being told already
    }
}

std::span<const ClientSwitch> ClientSwitches() { return kSwitches; }

std::span<const ReturnFormChoice> ReturnFormChoices() { return kReturnForms; }

double UsualReturnForm(std::string_view status)
{
    constexpr double individual = 4, firm = 5, company = 6;
    if (IsCompany(status))
        return company;
    const bool isPerson = status == "01" || status == "02" || status == "03";
    return isPerson ? individual : firm;
}

double ReturnForm(const Practice& practice, std::string_view code)
{
    return Val(ReturnForms(practice).GetValue("ITR", code));
}

void SetReturnForm(const Practice& practice, std::string_view code, double itr)
{
    ReturnForms(practice).WriteValue("ITR", code, Value(itr).Text());
}

ClientSettings ReadSettings(const Practice& practice, std::string_view code)
{
    ClientSettings settings;
    settings.returnForm = ReturnForm(practice, code);
    for (const Place& place : kPlaces)
        settings.*place.value = place.Read(practice, code, settings.*place.value);
    return settings;
}

void WriteSettings(const Practice& practice, const AssesseeYear& assesseeYear, const ClientSettings& settings)
{
    const ClientSettings stored = ReadSettings(practice, assesseeYear.code);
    for (const Place& place : kPlaces)
        if (settings.*place.value != stored.*place.value && Concerns(place.value, assesseeYear))
            place.Store(practice, assesseeYear.code, settings.*place.value);
}

void StoreSettings(const Practice& practice, const AssesseeYear& assesseeYear, const ClientSettings& settings)
{
    Transaction transaction({practice.company, practice.balance});
    WriteSettings(practice, assesseeYear, settings);
    ReturnFormChange form(practice, assesseeYear.code, settings.returnForm);
    transaction.Commit();
    form.Keep();
}

void SetSetting(ClientSettings& settings, const AssesseeYear& assesseeYear, std::string_view nameAndValue)
{
    const auto equals = nameAndValue.find('=');
    const std::string name(nameAndValue.substr(0, equals));
    if (equals == std::string_view::npos)
        throw std::runtime_error("\"" + name + "\": NAME=VALUE is wanted, such as locked=yes.");
    const std::string value(nameAndValue.substr(equals + 1));
    if (EqualsIgnoringCase(name, "form")) {
        const auto* choice = std::ranges::find_if(
            kReturnForms, [&](const ReturnFormChoice& each) { return Value(each.form).Text() == value; });
        if (choice == std::end(kReturnForms) || choice->form == 0)
            throw std::runtime_error("form: \"" + value + "\" is no return form with business income: 4, 5 or 6.");
        settings.returnForm = choice->form;
        return;
    }
    const auto* found =
        std::ranges::find_if(kSwitches, [&](const ClientSwitch& each) { return EqualsIgnoringCase(each.name, name); });
    if (found == std::end(kSwitches) || !found->concerns(assesseeYear))
        throw std::runtime_error("There is no setting " + name + " of " + assesseeYear.code + '.');
    const auto yes = YesOrNo(value);
    if (!yes)
        throw std::runtime_error(name + ": \"" + value + "\" is neither yes nor no.");
    settings.*found->value = *yes;
}

void ApplySettings(HandOver& record, const ClientSettings& settings)
{
    record.GlLarge = settings.comparative;
    record.GLlock = settings.locked ? 1 : 0;
}

std::string InWords(const ClientSettings& settings, const AssesseeYear& assesseeYear)
{
    std::string words = settings.returnForm == 0 ? "No return form noted" : "ITR-" + Value(settings.returnForm).Text();
    for (const ClientSwitch& each : kSwitches)
        if (each.concerns(assesseeYear) && settings.*each.value)
            words.append(", ").append(each.words);
    return words;
}

} // namespace pgbp
