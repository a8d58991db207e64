#include "computation/vehicles.h"

#include "law/goods_carriages.h"
#include "records/limits.h"
#include "records/rows_of_type.h"
#include "services/format.h"
#include "services/text.h"

#include <utility>

namespace pgbp {
namespace {

constexpr const char* kHeavy = "Heavy Vehicle";
constexpr const char* kLight = "Light Vehicle";
constexpr std::string_view kType = "VEH";
constexpr std::string_view kByKind = "44AE";

} // namespace

VehicleFields::VehicleFields(Screen& form) : screen(form)
{
    cboveh.SetItems({kHeavy, kLight});
    for (txtn* counted : {&txtveh, &txtmonths}) {
        counted->deci = 0;
        counted->grouped = false;
    }
}

Vehicles::Vehicles(Screen& form, std::function<void(double)> deemed)
    : VehicleFields(form), dbveh(form, "dbveh", GridColumns(Columns())), entry(form, dbveh, cmdaddveh, Columns()),
      run_(form.run), deemed_(std::move(deemed))
{
    LayOut();
    Label41_7.visible = TxtRate.visible = TellsIncome();
    heavy.Set("0");
    light.Set("0");
    entry.given = [this](const VehicleGroup& given) {
        if (given.perMonth <= 0)
            TxtRate = "7500";
    };
    entry.Close();
    txtmonths.onEnter = [this] { cmdaddveh.Click(); };
    Cmd44AEDet.onClick = [this] { ShowByKind(); };
    Fr44AE.onEscape = CmdBack44AE.onClick = [this] { screen.Lower(Fr44AE); };
}

bool Vehicles::TellsIncome() const { return run_.Year() >= kVehicleIncomeCanBeHigher; }

std::vector<ItemColumn<VehicleGroup>> Vehicles::Columns()
{
    using enum GridColumnKind;
    std::vector<ItemColumn<VehicleGroup>> columns = {
        {.shown = {"Vehicle Type", Text}, .member = &VehicleGroup::kind, .field = &cboveh, .tellsApart = true},
        {.shown = {"Nos.", Rate}, .member = &VehicleGroup::number, .field = &txtveh, .places = 0, .tellsApart = true},
        {.shown = {"Months", Rate},
         .member = &VehicleGroup::months,
         .field = &txtmonths,
         .places = 0,
         .tellsApart = true}};
    if (screen.run.Year() >= kVehicleIncomeCanBeHigher)
        columns.push_back(
            {.shown = {"Income Per Vehicle", Rate}, .member = &VehicleGroup::perMonth, .field = &TxtRate, .places = 0});
    return columns;
}

/// The months stand last: Enter in them adds.
void Vehicles::LayOut()
{
    fra442.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Caption, LayoutColumn::Field,
                            LayoutColumn::Button},
                .rows = {{{&lblveh, &cboveh, &lblnos, &txtveh}},
                         {{&Label41_7, &TxtRate, &lblmonths, &txtmonths, &cmdaddveh}},
                         {{&dbveh}}}});
    CmdBack44AE.isDefault = true;
    Fr44AE.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Amount},
                .rows = {{{&lblheavy, &heavy}}, {{&lbllight, &light}}},
                .buttonsRight = {&CmdBack44AE}});
}

std::vector<Check> Vehicles::ChecksOfAdd()
{
    return {
        {[this] { return Val(txtveh) * Val(txtmonths) + vehicleMonthsUsed_ > vehicleLimitMonths_; },
         "No. of vehicles can not be more than " + Value(vehicleLimitMonths_ / kMonthsOfYear).Text() + "...", &txtveh},
        {[this] { return Val(txtveh) == 0; }, "Please enter Vehicle Nos...", &txtveh},
        {[this] { return Val(txtmonths) == 0; },
         "Please enter Months for which vehicle is under possession of assessee...", &txtmonths},
        {[this] { return Val(txtmonths) > kMonthsOfYear; }, "Please enter months correctly...", &txtmonths},
    };
}

void Vehicles::Open()
{
    perHeavyMonth_ = YearLimit(run_, "H_VEH").value_or(0);
    perLightMonth_ = YearLimit(run_, "O_VEH").value_or(0);
    vehicleLimitMonths_ = YearLimit(run_, "L_VEH").value_or(kMostCarriages) * kMonthsOfYear;
    entry.checks = ChecksOfAdd();
    std::vector<VehicleGroup> groups;
    for (const Row row :
         run_.qeltemp.Query("select name1, amt1, amt2, amt3 from {temp1} where code = ? and [Type] = ?" +
                                std::string(run_.qeltemp.dialect().insertionOrder),
                            run_.Code(), kType))
        groups.push_back({row["name1"].Text(), row["amt1"].Number(), row["amt2"].Number(), row["amt3"].Number()});
    entry.changed = nullptr; // the stored profit may be higher than that of the vehicles
    entry.Open(std::move(groups));
    entry.changed = [this] {
        Write();
        CalVeh();
    };
    CalVeh1();
    const Recordset stored = ItemsOfBalance(run_, kByKind).Read("amt1, amt2");
    if (stored.Empty())
        return;
    heavy = Rupees(stored.First()["amt1"].Number());
    light = Rupees(stored.First()["amt2"].Number());
}

void Vehicles::Write() const
{
    Transaction transaction({run_.qeltemp});
    run_.qeltemp.Delete("from {temp1} where code = ? and [Type] = ?", run_.Code(), kType);
    for (const VehicleGroup& group : entry.items()) {
        std::vector<Field> fields{{"code", run_.Code()},
                                  {"Type", kType},
                                  {"name1", group.kind},
                                  {"amt1", group.number},
                                  {"amt2", group.months}};
        if (TellsIncome())
            fields.push_back({"amt3", group.perMonth});
        run_.qeltemp.Insert("temp1", fields);
    }
    transaction.Commit();
}

/// Light vehicles count at the statute's income, whatever was told for them.
Vehicles::Income Vehicles::Deemed() const
{
    Income income;
    for (const VehicleGroup& group : entry.items()) {
        const double months = group.number * group.months;
        if (EqualsIgnoringCase(group.kind, kHeavy))
            income.heavy += months * HeavyVehicleMonth(run_.Year(), perHeavyMonth_, group.perMonth);
        else
            income.light += months * perLightMonth_;
    }
    return income;
}

void Vehicles::CalVeh()
{
    CalVeh1();
    const Income income = Deemed();
    deemed_(income.heavy + income.light);
}

void Vehicles::CalVeh1()
{
    vehicleMonthsUsed_ = 0;
    for (const VehicleGroup& group : entry.items())
        vehicleMonthsUsed_ += group.number * group.months;
    const Income income = Deemed();
    heavy = Rupees(income.heavy);
    light = Rupees(income.light);
}

void Vehicles::Store(const Transaction& proof) const
{
    ItemsOfBalance(run_, kByKind).Replace({{"amt1", Val(heavy)}, {"amt2", Val(light)}}, proof);
}

} // namespace pgbp
