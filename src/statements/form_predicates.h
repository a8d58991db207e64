#pragma once

#include "statements/statement_form.h"

#include <limits>

/// Whom a line of the module's tables serves: by the number that the statement runs with (`GlITR`), or by the return
/// that the assessee files (`FormITR`). An individual's profit and loss account from 2014 runs as a firm's.
namespace pgbp::forms {

inline constexpr int kNoStart = std::numeric_limits<int>::min();
inline constexpr int kNoEnd = std::numeric_limits<int>::max();

inline bool Any(const StatementForm&) { return true; }
inline bool RunsAsIndividual(const StatementForm& form) { return form.GlITR == 4; }
inline bool RunsAsFirm(const StatementForm& form) { return form.GlITR == 5; }
inline bool RunsAsCompany(const StatementForm& form) { return form.GlITR == 6; }
inline bool RunsAsFirmOrCompany(const StatementForm& form) { return RunsAsFirm(form) || RunsAsCompany(form); }
inline bool FilesAsIndividual(const StatementForm& form) { return form.FormITR == 4; }
inline bool FilesAsFirm(const StatementForm& form) { return form.FormITR == 5; }
inline bool IsItrThree(const StatementForm& form) { return form.ItrThreeCase; }

} // namespace pgbp::forms
