#pragma once
#include "controls/buttons.h"
#include "controls/frame.h"
#include "startup/run.h"
namespace pgbp {
struct PartnersUse {
    std::function<double(double interest, double remuneration)> bookProfit;
    std::function<bool()> takesNothing;
    bool refusesPresumptivePay;
    std::function<void(double interest, double remuneration)> saved;
    std::function<void()> left;
};
class Partners {
  public:
    Partners(Screen& f, PartnersUse) : ChkChange(f, "ChkChange", "") {}
    void Open() {}
    bool NobodyListed() const { return true; }
    bool DrawNothing() const { return true; }
    check ChkChange;
};
} // namespace pgbp
