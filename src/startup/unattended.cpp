#include "startup/unattended.h"

#include "services/fault.h"

namespace pgbp {

Answer SilentBoxes::Show(const Message& message)
{
    if (message.icon == Icon::Critical)
        throw Fault(message.text);
    return message.buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
}

} // namespace pgbp
