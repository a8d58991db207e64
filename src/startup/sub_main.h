#pragma once

#include "startup/run.h"
#include "store/files.h"

namespace pgbp {

/// Starts the run: settings, hand-over record, connections, rights, then the frame and the summary. False when the run
/// ends here because the database server cannot be reached: no message box tells it, `why` tells it to the program
/// that started the module. Throws StoreError when a data file cannot be opened; nothing has been changed
/// then. Where a data file of the practice can only be read the run goes on as a locked one, which the notice tells.
bool SubMain(Run& run, std::string& why);

/// The first half of a start, which is all that a sibling program needs: settings, the record of that hand-over file,
/// connections. False and throws as SubMain does.
bool OpenPractice(Run& run, std::string_view handOverFile, std::string& why);

/// The return form that the suite noted for this assessee-year; 0 when it noted none.
double ReturnFormOf(const std::filesystem::path& programFolder, const std::string& code);

/// The suite's hand-over file, and that of the link with the accounts product.
inline constexpr std::string_view kHandOverFile = "VornTemp.mdb";
inline constexpr std::string_view kLinkHandOverFile = "VornOV.mdb";
DataFile HandOverFile(const Run& run, std::string_view name = kHandOverFile);

/// A data file of the run by its name: "company", "balance", "tax", "qeltemp", "misc", "export1" or "export2".
DataFile DataFileNamed(const Run& run, const std::string& name);

} // namespace pgbp
