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
    void NameClient();

    bool wasActive_ = false;
};

/// The statements of the assessee-year are those of Ind AS: companies, from assessment year 2023-24.
bool ReportsUnderIndAS(const Run& run);

} // namespace pgbp
