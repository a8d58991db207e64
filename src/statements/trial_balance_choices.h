#pragma once

#include "records/rows_of_type.h"

#include <map>
#include <string>

namespace pgbp {

/// Where an account was put: a line by its lasting number, or nowhere in this statement.
struct AccountPlace {
    static constexpr int kNotHere = 0;
    std::string account; ///< its name as the list wrote it
    int slno = kNotHere;
};
using AccountPlaces = std::map<std::string, AccountPlace>; ///< by the key of the account's name

/// The lines that were chosen for the accounts of a client's trial balance. Rows of a type of their own among the
/// schedule cells, one an account, without the number of a line of business: a client's shops have the same accounts.
class TrialBalanceChoices {
  public:
    /// `values`: type of the statement's amounts, so that each kind of statement has choices of its own.
    TrialBalanceChoices(const Run& run, const std::string& values) : run_(run), type_("TB" + values) {}

    /// Those of the year, and those of the preceding one for the accounts that the year has none for.
    AccountPlaces Read() const;
    /// Adds these to the year's; an account that has one gets the new one.
    void Add(const AccountPlaces& places, const Transaction& proof) const;

  private:
    AccountPlaces OfCode(const std::string& code) const;

    const Run& run_;
    std::string type_;
};

} // namespace pgbp
