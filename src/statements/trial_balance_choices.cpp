#include "statements/trial_balance_choices.h"

#include "startup/shared_services.h"
#include "trial_balance/words.h"

namespace pgbp {

AccountPlaces TrialBalanceChoices::OfCode(const std::string& code) const
{
    AccountPlaces places;
    for (const Row row : ScheduleCells(run_, type_).OfCode(code).Read("name1, amt1"))
        places.insert_or_assign(trial::KeyOf(row.At(0).Text()),
                                AccountPlace{row.At(0).Text(), static_cast<int>(row.At(1).Number())});
    return places;
}

AccountPlaces TrialBalanceChoices::Read() const
{
    AccountPlaces places = OfCode(run_.Code());
    if (const std::string before = PreviousYearCode(run_); !before.empty())
        places.merge(OfCode(before));
    return places;
}

void TrialBalanceChoices::Add(const AccountPlaces& places, const Transaction& proof) const
{
    if (places.empty())
        return;
    AccountPlaces all = places;
    all.merge(OfCode(run_.Code()));
    const RowsOfType rows = ScheduleCells(run_, type_);
    rows.Delete(proof);
    for (const auto& [key, place] : all)
        rows.Add({{"name1", place.account}, {"amt1", place.slno}}, proof);
}

} // namespace pgbp
