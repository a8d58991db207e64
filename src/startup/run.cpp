#include "startup/run.h"

#include "services/format.h"
#include "services/text.h"
#include "services/year.h"

namespace pgbp {

int Run::Year() const { return YearNumber(Glyear); }

std::string Run::Code() const { return Trim(Glcode); }

std::string Run::IncomeOf() const { return GLminor == 0 ? "" : "Income of minor " + Rupees(GLminor); }

Answer Run::Show(const std::string& text, const std::string& kind, Icon icon, Buttons buttons, Answer byDefault) const
{
    return host.boxes.Show({text, title + " - " + kind, icon, buttons, byDefault});
}

void Run::Inform(const std::string& text) const { Show(text, "Information", Icon::Information); }

} // namespace pgbp
