#pragma once

#include "startup/hand_over.h"
#include "suite/assessee_years.h"

namespace pgbp {

/// The hand-over record of an assessee-year: who, which year, the year before, the folders of the practice. The other
/// variables stand at their blank values.
HandOver PrepareHandOver(const Practice& practice, const AssesseeYear& assesseeYear);

/// Sets one column of the record from "COLUMN=VALUE", the name in any case. Throws std::runtime_error when there is no
/// such column or the value does not fit it: its kind, its width, 16 bits of `GLlock`.
void SetColumn(HandOver& record, std::string_view columnAndValue);

/// Puts the record in the place of the one in the practice's hand-over file, which is made where it is missing.
void WriteHandOverFile(const Practice& practice, const HandOver& record);

} // namespace pgbp
