#pragma once

#include "suite/commands.h"

namespace pgbp {

// The commands of the backups, see RunCommand.
void BackupCommand(Suite& suite, std::span<const std::string> words);
void BackupsCommand(Suite& suite, std::span<const std::string> words);
void RestoreCommand(Suite& suite, std::span<const std::string> words);

} // namespace pgbp
