#pragma once

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

/// Asks Gnumeric to change cells of a file; false where it is not installed.
inline bool ChangedByGnumeric(const std::filesystem::path& from, const std::filesystem::path& to,
                              const std::string& sets)
{
    if (std::system("command -v ssconvert >/dev/null") != 0)
        return false;
    const std::string line = "ssconvert --recalc " + sets + " -T Gnumeric_Excel:excel_biff8 '" + from.string() + "' '" +
                             to.string() + "' >/dev/null 2>&1";
    EXPECT_EQ(std::system(line.c_str()), 0) << line;
    return true;
}
