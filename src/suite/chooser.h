#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace pgbp {

/// The practice, and the programs that the chooser starts.
struct ChooserPrograms {
    std::filesystem::path folder;
    std::filesystem::path module;
    std::filesystem::path reporter;
    std::filesystem::path checker;
    std::function<void()> ensure{}; ///< makes the practice where there is none, and puts its links right
};

/// Opens the chooser window, on what holds the words of `search`, and waits until it is closed; gives the exit code of
/// the program. With a `picture` the window is drawn into that file instead, without a display. Where the folder is
/// free it offers to make a practice there. Throws std::runtime_error when there is no practice, no display, or the
/// picture cannot be written.
int ShowChooser(int argc, char** argv, const ChooserPrograms& programs, const std::string& search,
                const std::string& picture);

} // namespace pgbp
