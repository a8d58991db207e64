#include "services/processes.h"

#include "support/temporary_folder.h"

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

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

TEST(Processes, FileIsShownByThePlatform)
{
    TemporaryFolder folder;
    const std::string path = std::getenv("PATH");
    folder.Write("xdg-open", "#!/bin/sh\necho \"$1\" > \"$0.part\" && mv \"$0.part\" \"$0.shown\"\n");
    std::filesystem::permissions(folder.path() / "xdg-open", std::filesystem::perms::owner_all);
    setenv("PATH", (folder.path().string() + ':' + path).c_str(), 1);
    SystemProcesses processes;
    EXPECT_TRUE(processes.Open(folder.path() / "P & L.xls"));
    for (int tries = 0; tries < 200 && folder.Read("xdg-open.shown").empty(); ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(folder.Read("xdg-open.shown"), (folder.path() / "P & L.xls").string() + '\n');
    setenv("PATH", (folder.path() / "none").c_str(), 1);
    EXPECT_FALSE(processes.Open("P & L.xls"));
    setenv("PATH", path.c_str(), 1);
}
