#include "drive/interpreter.h"
#include "module/module.h"
#include "startup/sub_main.h"

#include <fstream>
#include <iostream>

namespace {

constexpr const char* kUsage = R"(pgbp-drive: runs the module without a window, driven by commands, one a line

  pgbp-drive [--program-folder FOLDER] [--go-on] [SCRIPT]

Reads the hand-over record, starts the module and reads commands from SCRIPT, or from standard input. F is a form, C a
control of it, members of a control array are written C(0). # begins a comment; > begins a line that the command before
it must have printed. Each message box is printed as "message | title | buttons | text", a file that would be shown in
another program as "open | name". An unknown name, or an action on a control that is hidden or disabled, ends the script
with the number of its line and exit status 1. With --go-on it is printed behind "error | ", the next line follows, and
the exit status is 1 at the end.

)";

struct Options {
    std::filesystem::path programFolder;
    std::string script;
    bool help = false;
    pgbp::OnError onError = pgbp::OnError::Stop;
};

Options ReadOptions(std::vector<std::string> words)
{
    Options options;
    options.programFolder = pgbp::TakeProgramFolder(words);
    for (const std::string& word : words)
        if (word == "--help")
            options.help = true;
        else if (word == "--go-on")
            options.onError = pgbp::OnError::GoOn;
        else if (word[0] != '-' && options.script.empty())
            options.script = word;
        else
            throw pgbp::DriveError("unknown option " + word + "; try --help");
    return options;
}

int Drive(const Options& options)
{
    std::ostringstream transcript;
    pgbp::DrivenBoxes boxes(transcript);
    pgbp::DrivenFiles files;
    pgbp::DrivenProcesses processes(transcript);
    pgbp::Run run({.boxes = boxes,
                   .files = files,
                   .processes = processes,
                   .programFolder = options.programFolder,
                   .checksFiles = true});
    pgbp::RegisterScreens(run);
    std::string why;
    if (!pgbp::SubMain(run, why)) {
        std::cerr << why << '\n';
        return 0;
    }
    pgbp::Interpreter interpreter(run, boxes, files, transcript);
    if (options.script.empty()) {
        interpreter.ExecuteScript(std::cin, std::cout, options.onError);
        return 0;
    }
    std::ifstream script(options.script);
    if (!script)
        throw pgbp::DriveError("the script " + options.script + " can not be read");
    interpreter.ExecuteScript(script, std::cout, options.onError);
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    try {
        const Options options = ReadOptions({arguments + 1, arguments + count});
        if (!options.help)
            return Drive(options);
        std::cout << kUsage << pgbp::Interpreter::Help();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << pgbp::PreparersWords(error) << '\n';
        return 1;
    }
}
