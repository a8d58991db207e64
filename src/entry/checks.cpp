#include "entry/checks.h"

#include "startup/run.h"

namespace pgbp {
namespace {

/// A question that is answered by Yes refuses nothing.
bool Refuses(const Run& run, const Check& check)
{
    if (!check.fails())
        return false;
    switch (check.asking) {
    case Asking::Confirm:
        return run.Show(check.message, "Confirmation", Icon::Question, Buttons::YesNo, Answer::No) != Answer::Yes;
    case Asking::TellPlainly:
        run.host.boxes.Show({check.message, ""});
        return true;
    case Asking::Tell:
        run.Inform(check.message);
        return true;
    }
    return true;
}

} // namespace

bool PassesAll(Screen& screen, const std::vector<Check>& checks)
{
    for (const Check& check : checks)
        if (Refuses(screen.run, check)) {
            if (check.focus)
                screen.SetFocus(*check.focus);
            return false;
        }
    return true;
}

bool MayDiscard(const Run& run, bool altered)
{
    return !altered || run.Show("Some data has been altered but changes will not be saved..\n"
                                "Do you want to discard changes ?",
                                "Confirmation", Icon::Question, Buttons::YesNo, Answer::No) == Answer::Yes;
}

} // namespace pgbp
