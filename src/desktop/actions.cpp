#include "desktop/actions.h"

#include <utility>

namespace pgbp {

void Actions::Run(const std::function<void()>& action)
{
    ++running_;
    action();
    if (--running_ == 0 && done)
        done();
    Settle();
}

void Actions::Settle()
{
    if (running_ > 0 || std::exchange(queued_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            queued_ = false;
            if (running_ == 0 && settled)
                settled();
        },
        Qt::QueuedConnection);
}

} // namespace pgbp
