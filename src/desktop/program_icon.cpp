#include "desktop/program_icon.h"

namespace pgbp {

QIcon ProgramIcon()
{
    QIcon icon;
    for (const int size : {16, 32, 48, 128})
        icon.addFile(QStringLiteral(":/icons/hicolor/%1x%1/apps/pgbp.png").arg(size));
    return icon;
}

} // namespace pgbp
