#pragma once

#include "startup/run.h"
#include "store/files.h"

namespace pgbp {

/// Starts the run: settings, hand-over record, connections, rights, then the frame and the summary. False when the run
/// ends here because the database server cannot be reached: no message box tells it, `why` holds the engine's words for
/// the program that started the module. Throws StoreError when a data file cannot be opened; nothing has been changed
/// then.
bool SubMain(Run& run, std::string& why);

/// The connections of the run to its data files, and to the hand-over file.
DataFile HandOverFile(const Run& run);

} // namespace pgbp
