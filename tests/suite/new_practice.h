#pragma once

#include "suite/practice.h"
#include "support/temporary_folder.h"

namespace pgbp {

/// A practice as pgbp-suite makes it, for one test.
class NewPractice {
  public:
    NewPractice() { CreatePractice(folder(), PGBP_DATA); }
    std::filesystem::path folder() const { return temporary_.path() / "practice"; }
    Practice Open() const { return Practice(folder()); }

  private:
    TemporaryFolder temporary_;
};

} // namespace pgbp
