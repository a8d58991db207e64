#pragma once

#include "startup/run.h"
#include "store/files.h"

namespace pgbp {

/// Starts the run: settings, hand-over record, connections, rights, then the frame and the summary. False when the run
/// ends here because the database server cannot be reached: no message box tells it, `why` tells it to the program
/// that started the module. Throws StoreError when a data file cannot be opened; nothing has been changed
/// then. Where a data file of the practice can only be read the run goes on as a locked one, which the notice tells.
bool SubMain(Run& run, std::string& why);

/// What a start begins with, and all that a program needs which reads alone: settings, hand-over record, connections.
/// False and throws as SubMain does.
bool OpenHandedOver(Run& run, std::string& why);

/// The return form that the suite noted for this assessee-year; 0 when it noted none.
double ReturnFormOf(const std::filesystem::path& programFolder, const std::string& code);

/// The hand-over file.
DataFile HandOverFile(const Run& run);

/// A data file of the run by its name: "company", "balance", "tax", "qeltemp", "misc", "export1" or "export2".
DataFile DataFileNamed(const Run& run, const std::string& name);

} // namespace pgbp
