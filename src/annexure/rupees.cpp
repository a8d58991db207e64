#include "annexure/rupees.h"

#include "services/format.h"

namespace pgbp::rupees {

double ShownByText(double amount) { return Val(Rupees(amount)); }

double RoundedByText(double amount) { return ShownRupees(RoundOff(amount, 0)); }

} // namespace pgbp::rupees
