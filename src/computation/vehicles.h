#pragma once

#include "controls/frame.h"
#include "controls/lists.h"
#include "entry/item_entry.h"
#include "startup/run.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pgbp {

/// Goods vehicles of one kind, held for the same months: a row of type "VEH".
struct VehicleGroup {
    std::string kind = "Heavy Vehicle";
    double number = 0;
    double months = 0;
    double perMonth = 7500; ///< income of a vehicle and month, rupees

    bool operator==(const VehicleGroup&) const = default;
};

/// The fields of the vehicles, made before the grid and the list that are entered through them.
struct VehicleFields {
    explicit VehicleFields(Screen& form);

    Screen& screen;
    Label lblveh{screen, "lblveh", "Vehicle Type :"};
    combo cboveh{screen, "cboveh"};
    Label lblnos{screen, "lblnos", "Nos. :"};
    txtn txtveh{screen, "txtveh"};
    Label Label41_7{screen, "Label41(7)", "Income Per Vehicle"};
    txtn TxtRate{screen, "TxtRate"};
    Label lblmonths{screen, "lblmonths", "Months :"};
    txtn txtmonths{screen, "txtmonths"};
};

/// `fra442`: the goods vehicles of a transport line u/s 44AE up to 2018-19, heavy and light ones, and `Fr44AE`, the
/// income deemed from each kind. The vehicles are rows of `temp1` like the other details of the line that is open.
class Vehicles : public VehicleFields {
  public:
    /// `deemed` is told the income of all vehicles, rupees, whenever it is computed anew.
    Vehicles(Screen& form, std::function<void(double income)> deemed);

    /// Reads the law's figures of the year and the vehicles of the line that is open; the deemed profit of the line
    /// stays as it is.
    void Open();
    /// Before a save: vehicles that are typed are added. False when a check refuses them.
    bool Finish() { return (Val(txtveh) == 0 && Val(txtmonths) == 0) || entry.Finish(); }
    void Store(const Transaction& proof) const;
    /// Income by kind, as `Fr44AE` has it.
    double DeemedByKind() const { return Val(heavy) + Val(light); }
    void ShowByKind() { screen.Raise(Fr44AE, heavy); }

    Frame fra442{screen, "fra442", "Vehicles", FramePlace::Group};
    cmd cmdaddveh{screen, "cmdaddveh", "&Add"};
    Grid dbveh;
    ItemEntry<VehicleGroup> entry;

    cmd Cmd44AEDet{screen, "Cmd44AEDet", "Heavy and Light &Vehicles"};
    Frame Fr44AE{screen, "Fr44AE", "Deemed Income From"};
    Label lblheavy{screen, "lblheavy", "Heavy Vehicles :"};
    Txtn1 heavy{screen, "Txtn1(0)"};
    Label lbllight{screen, "lbllight", "Light Vehicles :"};
    Txtn1 light{screen, "Txtn1(1)"};
    cmd CmdBack44AE{screen, "CmdBack44AE", "&Back"};

  private:
    struct Income {
        double heavy = 0;
        double light = 0;
    };

    std::vector<ItemColumn<VehicleGroup>> Columns();
    std::vector<Check> ChecksOfAdd();
    void LayOut();
    void Write() const;
    Income Deemed() const;
    void CalVeh();
    void CalVeh1();
    bool TellsIncome() const;

    Run& run_;
    const std::function<void(double)> deemed_;
    double perHeavyMonth_ = 0;      ///< `H_VEH` of the year
    double perLightMonth_ = 0;      ///< `O_VEH`
    double vehicleLimitMonths_ = 0; ///< vehicles allowed, times the months of a year
    double vehicleMonthsUsed_ = 0;
};

} // namespace pgbp
