#pragma once

#include "drive/driven_host.h"
#include "startup/run.h"

#include <istream>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace pgbp {

class PushControl;
class TextBox;
class Grid;

/// What a script asked for that a person could not do, or an expectation that did not hold.
class DriveError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

enum class OnError { Stop, GoOn };

/// Runs commands against the screens of a run, one a line, through the same controls as the window does.
class Interpreter {
  public:
    /// What commands print goes to `transcript`; the boxes of the run print there too.
    Interpreter(Run& run, DrivenBoxes& boxes, DrivenFiles& files, std::ostringstream& transcript);

    /// Runs one line. Throws DriveError; the run goes on as far as the line got.
    void Execute(const std::string& line);

    /// Runs a whole script and prints the transcript to `out`. Lines that begin with ">" tell what the command before
    /// them prints, line by line; where there is one, every printed line must be told. Throws DriveError that begins
    /// with the number of the line, also when an answer or a file is left over at the end. Told to go on, it prints the
    /// error behind "error | " and throws at the end.
    void ExecuteScript(std::istream& script, std::ostream& out, OnError onError = OnError::Stop);

    /// The commands, one a line, for --help.
    static std::string Help();

  private:
    struct Target;
    struct Command;
    static const std::vector<Command>& Commands();

    Target Resolve(const std::string& path) const;
    Target ResolveForAction(const std::string& path) const;
    template <typename Kind>
    Kind& As(const Target& target, const char* wanted) const;
    void Act(Form& form, const std::function<void()>& action) const;
    TextBox& Focus(const Target& target) const;

    void Show(const std::string&);
    void Get(const std::string& path);
    void Set(const std::string& arguments);
    void Keys(const std::string& arguments);
    void Click(const std::string& path);
    void Cross(const std::string&);
    void Say(const std::string& text);
    void Select(const std::string& arguments);
    void Cell(const std::string& arguments);
    void Rows(const std::string& path);
    void Look(const std::string& arguments);
    void Enter(const std::string& arguments);
    void DoubleClick(const std::string& arguments);
    void AnswerNext(const std::string& word);
    void FileNext(const std::string& path);
    void Sql(const std::string& arguments);
    void Dump(const std::string& formName);

    Run& run_;
    DrivenBoxes& boxes_;
    DrivenFiles& files_;
    std::ostringstream& out_;
};

} // namespace pgbp
