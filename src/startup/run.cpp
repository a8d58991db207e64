#include "startup/run.h"

#include "services/error_log.h"
#include "services/format.h"
#include "services/text.h"
#include "services/year.h"

#include <utility>

namespace pgbp {

int Run::Year() const { return YearNumber(Glyear); }

std::string Run::Code() const { return Trim(Glcode); }

std::string Run::IncomeOf() const { return GLminor == 0 ? "" : "Income of minor " + Rupees(GLminor); }

Answer Run::Show(const std::string& text, const std::string& kind, Icon icon, Buttons buttons, Answer byDefault) const
{
    return host.boxes.Show({text, title + " - " + kind, icon, buttons, byDefault});
}

void Run::Inform(const std::string& text) const { Show(text, "Information", Icon::Information); }

void Run::Guard(const std::function<void()>& action)
{
    ++actions_;
    try {
        action();
    } catch (const std::exception& error) {
        Log(error);
        if (!std::exchange(told_, true))
            host.boxes.Show({PreparersWords(error), title, Icon::Critical});
    }
    if (--actions_ == 0)
        EndAction();
}

void Run::EndAction()
{
    told_ = false;
    for (const Connection* connection : {&company, &balance, &tax, &qeltemp})
        if (connection->IsOpen())
            connection->engine()->RenewPatience();
}

void Run::Log(const std::exception& error) const
{
    LogError(GlClient.empty() ? host.programFolder : std::filesystem::path(GlClient), host.now(), error);
}

} // namespace pgbp
