#pragma once

#include "startup/screens.h"

namespace pgbp {

/// The frame window of the module. Its caption is the title of the window; it has no controls of its own. The first
/// time it becomes active, and only then, it checks for Ind AS, names the client in its title and shows the summary.
class frmmdi : public Screen {
  public:
    explicit frmmdi(Run& itsRun);
    void Activate() override;
    /// Ends the run.
    void Close() override;

  private:
    void CheckIndAS();
    void NameClient();

    bool wasActive_ = false;
};

} // namespace pgbp
