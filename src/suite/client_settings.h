#pragma once

#include "startup/hand_over.h"
#include "suite/assessee_years.h"

#include <span>

namespace pgbp {

/// What of an assessee-year steers its runs and is set before them, not by the module itself.
struct ClientSettings {
    double returnForm = 0;          ///< number of the return form; 0: not noted
    bool locked = false;            ///< nothing can be keyed
    bool comparative = true;        ///< the preceding year's figures stand beside this year's
    bool remunerationByHand = true; ///< the module never computes the partners' remuneration by itself
    bool indAs = false;             ///< the statements are those of Ind AS
    bool section11 = false;         ///< the trust has business income u/s 11(4)
    bool operator==(const ClientSettings&) const = default;
};

/// A setting that is on or off: its name on the command line, its words within a sentence, whom it concerns.
struct ClientSwitch {
    std::string_view name;
    std::string_view words;
    std::string_view explanation;
    bool ClientSettings::*value;
    bool (*concerns)(const AssesseeYear& assesseeYear);
};

std::span<const ClientSwitch> ClientSwitches();

/// A return form that can be chosen; 0 stands for the usual one of the status.
struct ReturnFormChoice {
    double form;
    std::string_view words;
};

std::span<const ReturnFormChoice> ReturnFormChoices();
/// The form on which an assessee with business income of this status makes his return.
double UsualReturnForm(std::string_view status);

/// The number of the return form of an assessee-year, as the module finds it; 0 when it is not noted.
double ReturnForm(const Practice& practice, std::string_view code);
void SetReturnForm(const Practice& practice, std::string_view code, double itr);

ClientSettings ReadSettings(const Practice& practice, std::string_view code);

/// The return form of an assessee-year, changed until the end of a transaction: a file knows none. Without Keep the old
/// one comes back.
class ReturnFormChange {
  public:
    ReturnFormChange(const Practice& practice, std::string_view code, double form);
    ~ReturnFormChange();
    ReturnFormChange(const ReturnFormChange&) = delete;
    void Keep() { kept_ = true; }

  private:
    const Practice& practice_;
    std::string code_;
    double before_;
    bool kept_;
};

/// The rows of the settings, within a transaction over `company` and `balance` that somebody else has begun.
void WriteSettings(const Practice& practice, const AssesseeYear& assesseeYear, const ClientSettings& settings);

/// Stores what differs from what is stored, all of it or nothing. A setting that does not concern the assessee-year is
/// left alone. Throws StoreError, and std::runtime_error when the file of the return forms can not be written.
void StoreSettings(const Practice& practice, const AssesseeYear& assesseeYear, const ClientSettings& settings);

/// Sets one from "NAME=VALUE", the name in any case: "form=5", "locked=yes". Throws std::runtime_error when there is no
/// such setting of this assessee-year or the value does not fit.
void SetSetting(ClientSettings& settings, const AssesseeYear& assesseeYear, std::string_view nameAndValue);

/// Puts into the record what it tells of the settings.
void ApplySettings(HandOver& record, const ClientSettings& settings);

/// The settings in a few words: "ITR-5, previous year beside it, locked".
std::string InWords(const ClientSettings& settings, const AssesseeYear& assesseeYear);

} // namespace pgbp
