#include "annexure/annexure.h"

#include "annexure/annexure_screen.h"
#include "annexure/frmEditfassetsNew.h"

namespace pgbp {

void RegisterAnnexureScreens(Screens& screens)
{
    screens.Register<frmfassetsNew>(screens::frmfassetsNew);
    screens.Register<frmfassets>(screens::frmfassets);
    screens.Register<frmfassetsNew_1>(screens::frmfassetsNew_1);
    screens.Register<frmEditfassetsNew>(screens::frmEditfassetsNew);
}

} // namespace pgbp
