#include "statements/statements.h"

#include "statements/statement_screen.h"

namespace pgbp {

void RegisterStatementScreens(Screens& screens)
{
    screens.Register<FrmbspnlPGBP>(screens::FrmbspnlPGBP);
    screens.Register<FrmbspnlINDAS>(screens::FrmbspnlINDAS);
}

} // namespace pgbp
