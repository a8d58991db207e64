#pragma once

#include <QObject>

#include <functional>

namespace pgbp {

/// What the preparer does, one action at a time. A message box inside an action keeps the event loop turning, so what
/// must wait until no handler of a screen runs any more - unmaking screens, dropping their widgets - is done in
/// `settled`, from the event loop, once the outermost action has ended.
class Actions : public QObject {
  public:
    std::function<void()> settled;
    /// At the end of the outermost action, before the next key, which may already be waiting.
    std::function<void()> done;

    void Run(const std::function<void()>& action);
    /// Has `settled` called, after the action that runs, if any.
    void Settle();

  private:
    int running_ = 0;
    bool queued_ = false;
};

} // namespace pgbp
