#include "services/processes.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

std::filesystem::path Script(TemporaryFolder& folder, const std::string& text)
{
    folder.Write("sibling.exe", "#!/bin/sh\n" + text);
    const auto path = folder.path() / "sibling.exe";
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
}

} // namespace

TEST(Processes, WaitForTheSiblingAndGiveItsExitCode)
{
    TemporaryFolder folder;
    SystemProcesses processes;
    EXPECT_EQ(processes.RunAndWait(Script(folder, "sleep 0.1; echo done > \"$(dirname \"$0\")/trace\"; exit 3\n")), 3);
    EXPECT_EQ(folder.Read("trace"), "done\n");
}

TEST(Processes, TellWhichProgramIsMissing)
{
    SystemProcesses processes;
    try {
        processes.RunAndWait("missing/sibling.exe");
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("sibling.exe"), std::string::npos);
    }
}
