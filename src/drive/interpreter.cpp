#include "drive/interpreter.h"

#include "controls/buttons.h"
#include "controls/date_control.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "drive/key_script.h"
#include "services/format.h"
#include "services/text.h"
#include "services/utf8.h"
#include "startup/daily_check.h"
#include "startup/sub_main.h"

#include <algorithm>
#include <deque>
#include <map>
#include <sstream>

namespace pgbp {
namespace {

/// The text up to the first blank, and what stands behind it.
std::pair<std::string, std::string> FirstWord(const std::string& text)
{
    const std::string trimmed = Trim(text);
    const auto end = trimmed.find(' ');
    return {trimmed.substr(0, end), end == std::string::npos ? "" : Trim(trimmed.substr(end))};
}

/// Quotes keep the blanks at the ends of a text.
std::string Unquoted(const std::string& text)
{
    return text.size() >= 2 && text.front() == '"' && text.back() == '"' ? text.substr(1, text.size() - 2) : text;
}

int Number(const std::string& text)
{
    constexpr std::size_t kDigits = 9;
    if (text.empty() || text.size() > kDigits || text.find_first_not_of("0123456789") != std::string::npos)
        throw DriveError("a number is wanted, not \"" + text + "\"");
    return static_cast<int>(Val(text));
}

std::string OnOneLine(const std::string& text) { return Replace(text, "\n", "\\n"); }

/// Enabled with the frames around it, and nothing lies over it.
bool CanBeUsed(const Control& control)
{
    for (const Control* each = &control; each; each = each->container)
        if (!each->enabled)
            return false;
    return control.InFront();
}

std::string Lines(const std::vector<std::string>& texts)
{
    std::string lines;
    for (const std::string& text : texts)
        lines += (lines.empty() ? "" : "\n") + text;
    return lines;
}

std::string YesNo(bool yes) { return yes ? "true" : "false"; }

std::string CaptionOf(const Control& control)
{
    if (const auto* button = dynamic_cast<const PushControl*>(&control))
        return button->caption;
    if (const auto* panel = dynamic_cast<const Frame*>(&control))
        return panel->Shows();
    if (const auto* text = dynamic_cast<const Label*>(&control))
        return text->text();
    throw DriveError(control.name() + " has no caption");
}

std::string EntryOf(const List& titles, int entry)
{
    if (entry < 1 || entry > static_cast<int>(titles.items().size()))
        throw DriveError(titles.name() + " has no entry " + std::to_string(entry));
    return OnOneLine(titles.items()[static_cast<std::size_t>(entry - 1)]);
}

std::string LookOf(const Grid& cells, int row, int column)
{
    if (cells.IsHidden(row) || !cells.columns()[static_cast<std::size_t>(column)].IsShown())
        return "hidden";
    switch (row == 0 ? CellLook::Plain : cells.Look(row, column)) {
    case CellLook::Computed:
        return "computed";
    case CellLook::Own:
        return "own";
    default:
        return "plain";
    }
}

bool IsBlankOrComment(const std::string& line)
{
    const std::string text = Trim(line);
    return text.empty() || text.front() == '#';
}

/// What a script expects of the lines that were printed last.
class Expectations {
  public:
    explicit Expectations(std::ostream& out) : out_(out) {}

    void Print(const std::string& text)
    {
        out_ << text << std::flush; // who reads along knows that the command is done
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            printed_.push_back(Trim(line));
    }

    void Expect(const std::string& line)
    {
        if (printed_.empty())
            throw DriveError("expected \"" + line + "\", but nothing more was printed");
        if (printed_.front() != line)
            throw DriveError("expected \"" + line + "\", but \"" + printed_.front() + "\" was printed");
        printed_.pop_front();
        expected_ = true;
    }

    /// Before the next command.
    void Finish()
    {
        if (expected_ && !printed_.empty())
            throw DriveError("also printed: \"" + printed_.front() + '"');
        printed_.clear();
        expected_ = false;
    }

  private:
    std::ostream& out_;
    std::deque<std::string> printed_;
    bool expected_ = false;
};

} // namespace

struct Interpreter::Command {
    const char* name;
    void (Interpreter::*run)(const std::string& arguments);
    const char* help;
};

const std::vector<Interpreter::Command>& Interpreter::Commands()
{
    static const std::vector<Command> commands = {
        {"show", &Interpreter::Show, "show                         name and caption of the form on display"},
        {"get", &Interpreter::Get,
         "get F.C                      text of a control; also F.C.enabled, .visible, .caption, .tip, .footer (of "
         "a grid), .sum\n"
         "                             (the open line of an amount), .offers (below a field), and F.caption, F.notice"},
        {"set", &Interpreter::Set,
         "set F.C text                 focus, replace the text key by key through the key filter, leave the field; a "
         "text\n"
         "                             in double quotes keeps the blanks at its ends, here and in keys"},
        {"keys", &Interpreter::Keys,
         "keys F.C text{ENTER}         focus, then type; {SELECTALL} {ENTER} {TAB} {BACKTAB} {UP} {DOWN} {LEFT} "
         "{RIGHT} {HOME}\n"
         "                             {END} {PGUP} {PGDN} {BACKSPACE} {DELETE} {ESC} {F1} {CTRL+DOWN} {CTRL+Z} "
         "{CTRL+F} {ALT+x};\n"
         "                             {{ is a brace; keys F ... types\n"
         "                             where the focus is"},
        {"click", &Interpreter::Click, "click F.C                    press a button, image, check box, option or link"},
        {"cross", &Interpreter::Cross, "cross                        closes the window by its cross"},
        {"select", &Interpreter::Select,
         "select F.C \"text\"            choose an entry of a drop-down field or a list"},
        {"cell", &Interpreter::Cell,
         "cell F.G row column          text of a grid cell; row 0 is the heading, columns count from 0; of a list: "
         "cell F.L "
         "entry"},
        {"rows", &Interpreter::Rows,
         "rows F.G                     number of rows below the heading that are not hidden, or of the entries of a "
         "list"},
        {"look", &Interpreter::Look,
         "look F.G row column          how a grid cell is shown: hidden, plain, computed or own (the preparer's "
         "words)"},
        {"enter", &Interpreter::Enter,
         "enter F.G row column         click a grid cell; where a field comes to stand over it, set and keys go there"},
        {"dblclick", &Interpreter::DoubleClick,
         "dblclick F.G row             double click on a grid row, a list entry (0: the empty spot) or a date field"},
        {"answer", &Interpreter::AnswerNext,
         "answer Yes                   answer for the next message box (else its default button): Yes, No, OK"},
        {"file", &Interpreter::FileNext,
         "file path                    answer for the next file dialog (else it is cancelled)"},
        {"sql", &Interpreter::Sql,
         "sql company select ...       run a statement on a data file (company, balance, tax, qeltemp, misc ...)"},
        {"say", &Interpreter::Say, "say text                     prints the text, for who reads along"},
        {"dump", &Interpreter::Dump, "dump F                       every control with its text, one a line"},
    };
    return commands;
}

std::string Interpreter::Help()
{
    std::string lines;
    for (const auto& command : Commands())
        lines += std::string("  ") + Replace(command.help, "\n", "\n  ") + '\n';
    return lines;
}

/// A form, or one of its controls, with the property that was asked for.
struct Interpreter::Target {
    Screen* form = nullptr;
    Control* control = nullptr;
    std::string property;
};

Interpreter::Interpreter(Run& run, DrivenBoxes& boxes, DrivenFiles& files, std::ostringstream& transcript)
    : run_(run), boxes_(boxes), files_(files), out_(transcript)
{
}

Interpreter::Target Interpreter::Resolve(const std::string& path) const
{
    const auto dot = path.find('.');
    Target target;
    if (run_.screens.Ended())
        throw DriveError("the run has ended");
    target.form = run_.screens.Find(path.substr(0, dot));
    if (!target.form)
        throw DriveError("there is no form " + path.substr(0, dot) + " now");
    if (dot == std::string::npos)
        return target;
    const std::string rest = path.substr(dot + 1);
    const auto last = rest.find('.');
    target.control = target.form->Find(rest.substr(0, last));
    if (last != std::string::npos)
        target.property = rest.substr(last + 1);
    else if (!target.control)
        target.property = rest;
    if (!target.control && target.property != "caption" && target.property != "notice")
        throw DriveError("the form " + target.form->name() + " has no control " + rest.substr(0, last));
    return target;
}

Interpreter::Target Interpreter::ResolveForAction(const std::string& path) const
{
    Target target = Resolve(path);
    if (run_.screens.OnDisplay() != target.form)
        throw DriveError("the form " + target.form->name() + " is not on display");
    if (!target.control)
        throw DriveError("a control is wanted: form.control");
    if (!target.control->Shown())
        throw DriveError(path + " is hidden");
    if (!target.control->Reachable())
        throw DriveError(path + (target.control->InFront() ? " is disabled" : " lies behind another frame"));
    return target;
}

template <typename Kind>
Kind& Interpreter::As(const Target& target, const char* wanted) const
{
    if (auto* control = dynamic_cast<Kind*>(target.control))
        return *control;
    throw DriveError((target.control ? target.control->name() : target.form->name()) + " is no " + wanted);
}

void Interpreter::Act(Form& form, const std::function<void()>& action) const { form.Do(action); }

TextBox& Interpreter::Focus(const Target& target) const
{
    auto& box = As<TextBox>(target, "text field");
    Act(*target.form, [&] { target.form->SetFocus(box); });
    if (target.form->focused() != &box)
        throw DriveError("the focus stays in " +
                         (target.form->focused() ? target.form->focused()->name() : std::string("no field")));
    return box;
}

void Interpreter::Execute(const std::string& line)
{
    const auto [word, arguments] = FirstWord(line);
    const auto& commands = Commands();
    const auto command =
        std::find_if(commands.begin(), commands.end(),
                     [&, name = std::string_view(word)](const Command& each) { return each.name == name; });
    if (command == commands.end())
        throw DriveError("there is no command " + word);
    TellDamage(run_);
    (this->*command->run)(arguments);
    run_.screens.Sweep();
    if (!boxes_.complaint.empty())
        throw DriveError(std::exchange(boxes_.complaint, ""));
}

void Interpreter::ExecuteScript(std::istream& script, std::ostream& out, OnError onError)
{
    Expectations expectations(out);
    const auto printAll = [&] { expectations.Print(std::exchange(out_, std::ostringstream()).str()); };
    printAll(); // what the start of the run told
    std::string line;
    int failed = 0;
    for (int number = 1; std::getline(script, line); ++number) {
        try {
            if (line.starts_with('>')) {
                expectations.Expect(Trim(line.substr(1)));
            } else if (!IsBlankOrComment(line)) {
                expectations.Finish();
                Execute(line);
                printAll();
            }
        } catch (const std::exception& error) {
            printAll();
            const auto* fault = dynamic_cast<const Fault*>(&error);
            const std::string technical = fault ? fault->technical() : "";
            const std::string what =
                "line " + std::to_string(number) + ": " + error.what() + (technical.empty() ? "" : '\n' + technical);
            if (onError == OnError::Stop)
                throw DriveError(what);
            expectations.Print("error | " + OnOneLine(what) + '\n');
            ++failed;
        }
    }
    if (failed > 0)
        throw DriveError(std::to_string(failed) + " lines could not be done");
    expectations.Finish();
    if (!boxes_.answers.empty() || !files_.files.empty())
        throw DriveError("an answer was left over: its box never came");
}

void Interpreter::Show(const std::string&)
{
    const Screen* form = run_.screens.OnDisplay();
    out_ << (form ? form->name() + ' ' + form->caption.get() : "ended") << '\n';
}

void Interpreter::Get(const std::string& path)
{
    const auto [form, control, property] = Resolve(path);
    if (!control)
        out_ << (property == "notice" ? form->notice : form->caption).get();
    else if (property.empty())
        out_ << OnOneLine(control->Shows());
    else if (property == "caption")
        out_ << CaptionOf(*control);
    else if (property == "enabled")
        out_ << YesNo(run_.screens.OnDisplay() == form && CanBeUsed(*control));
    else if (property == "visible")
        out_ << YesNo(control->Shown());
    else if (const auto* amount = property == "sum" ? dynamic_cast<const NumberBox*>(control) : nullptr)
        out_ << (amount->sum() ? amount->sum()->Shows() : "");
    else if (const auto* box = property == "offers" ? dynamic_cast<const TextBox*>(control) : nullptr)
        out_ << OnOneLine(Lines(box->offers().shown()));
    else if (property == "tip")
        out_ << control->toolTip.get();
    else if (const auto* lines = dynamic_cast<const Grid*>(control); lines && property == "footer")
        out_ << lines->ShowsBelow();
    else
        throw DriveError("there is no property " + property);
    out_ << '\n';
}

void Interpreter::Set(const std::string& arguments)
{
    const auto [path, quoted] = FirstWord(arguments);
    const std::string text = Unquoted(quoted);
    const Target target = ResolveForAction(path);
    TextBox& box = Focus(target);
    if (box.locked)
        throw DriveError(path + " can not be typed into");
    Act(*target.form, [&] { box.SelectAll(); });
    if (text.empty())
        target.form->Press(Key::Delete);
    for (const char32_t character : Characters(text))
        target.form->Type(character);
    target.form->Press(Key::Tab);
}

void Interpreter::Keys(const std::string& arguments)
{
    const auto [path, quoted] = FirstWord(arguments);
    const std::string text = Unquoted(quoted);
    Screen* form = path.find('.') == std::string::npos ? Resolve(path).form : nullptr;
    if (!form) {
        const Target target = ResolveForAction(path);
        form = target.form;
        Act(*form, [&] { form->SetFocus(*target.control); });
        if (form->focused() != target.control)
            throw DriveError(path + " does not take the focus");
    }
    for (const auto& stroke : ReadKeys(text)) {
        if (run_.screens.OnDisplay() != form)
            throw DriveError("the form " + form->name() + " is not on display any more");
        Strike(*form, stroke);
    }
}

void Interpreter::Click(const std::string& path)
{
    const Target target = ResolveForAction(path);
    if (auto* link = dynamic_cast<Label*>(target.control); link && link->onClick)
        target.form->Click(*link);
    else
        target.form->Click(As<PushControl>(target, "button"));
}

void Interpreter::Cross(const std::string&) { run_.screens.PressCross(); }

void Interpreter::Say(const std::string& text) { out_ << text << '\n'; }

void Interpreter::Select(const std::string& arguments)
{
    const auto [path, quoted] = FirstWord(arguments);
    const std::string text = Unquoted(quoted);
    const Target target = ResolveForAction(path);
    const auto* field = dynamic_cast<combo*>(target.control);
    const auto& items = field ? field->items() : As<List>(target, "list").items();
    const auto found = std::find(items.begin(), items.end(), text);
    if (found == items.end())
        throw DriveError(path + " has no entry \"" + text + "\"");
    const int at = static_cast<int>(found - items.begin());
    Act(*target.form, [&] {
        target.form->SetFocus(*target.control);
        if (field)
            As<combo>(target, "list").Choose(at);
        else
            As<List>(target, "list").Click(at + 1);
    });
}

void Interpreter::Cell(const std::string& arguments)
{
    const auto [path, numbers] = FirstWord(arguments);
    const auto [row, column] = FirstWord(numbers);
    const Target target = Resolve(path);
    if (const auto* titles = dynamic_cast<List*>(target.control))
        out_ << EntryOf(*titles, Number(row)) << '\n';
    else
        out_ << As<Grid>(target, "grid or list").Cell(Number(row), Number(column)) << '\n';
}

void Interpreter::Rows(const std::string& path)
{
    const Target target = Resolve(path);
    if (const auto* titles = dynamic_cast<List*>(target.control))
        out_ << titles->items().size() << '\n';
    else
        out_ << As<Grid>(target, "grid or list").ShownRows() << '\n';
}

void Interpreter::Look(const std::string& arguments)
{
    const auto [path, numbers] = FirstWord(arguments);
    const auto [row, column] = FirstWord(numbers);
    const Target target = Resolve(path);
    const auto& cells = As<Grid>(target, "grid");
    cells.Cell(Number(row), Number(column));
    out_ << LookOf(cells, Number(row), Number(column)) << '\n';
}

void Interpreter::Enter(const std::string& arguments)
{
    const auto [path, numbers] = FirstWord(arguments);
    const auto [row, column] = FirstWord(numbers);
    const Target target = ResolveForAction(path);
    auto& cells = As<Grid>(target, "grid");
    cells.Cell(Number(row), Number(column)); // a cell that is not there is an error of the script
    if (LookOf(cells, Number(row), Number(column)) == "hidden")
        throw DriveError("the cell " + numbers + " of " + path + " is hidden");
    Act(*target.form, [&, at = std::pair(Number(row), Number(column))] {
        target.form->SetFocus(cells);
        cells.ClickCell(at.first, at.second);
    });
}

void Interpreter::DoubleClick(const std::string& arguments)
{
    const auto [path, where] = FirstWord(arguments);
    const Target target = ResolveForAction(path);
    Act(*target.form, [&] { target.form->SetFocus(*target.control); });
    if (auto* date = dynamic_cast<txtdate*>(target.control))
        return Act(*target.form, [&] { date->calendarShown = !date->calendarShown; });
    const int row = Number(where);
    if (auto* titles = dynamic_cast<List*>(target.control)) {
        if (row > static_cast<int>(titles->items().size()))
            throw DriveError(path + " has no entry " + where);
        return Act(*target.form, [&] { titles->DoubleClick(row); });
    }
    auto& cells = As<Grid>(target, "grid");
    if (row < 1 || row > cells.Rows())
        throw DriveError(path + " has no row " + where);
    Act(*target.form, [&] { cells.DoubleClick(row); });
}

void Interpreter::AnswerNext(const std::string& word)
{
    const auto answer = AnswerNamed(word);
    if (!answer)
        throw DriveError("an answer is Yes, No or OK, not \"" + word + "\"");
    boxes_.answers.push_back(*answer);
}

void Interpreter::FileNext(const std::string& path) { files_.files.emplace_back(path); }

/// Each data file is opened for itself, so that a table's plain name means the table of that file. The working file has
/// a session of its own already, and what is keyed lies in that session alone.
void Interpreter::Sql(const std::string& arguments)
{
    const auto [name, sql] = FirstWord(arguments);
    const std::map<std::string, const Connection*> connections = {
        {"company", &run_.company}, {"balance", &run_.balance}, {"tax", &run_.tax},        {"qeltemp", &run_.qeltemp},
        {"misc", &run_.misc},       {"export1", &run_.export1}, {"export2", &run_.export2}};
    const auto found = connections.find(name);
    if (found == connections.end())
        throw DriveError("there is no data file " + name);
    const bool onServer = run_.IsSqlStore && (name == "company" || name == "balance");
    const Connection connection = onServer || name == "qeltemp" ? *found->second : OpenFile(DataFileNamed(run_, name));
    if (!EqualsIgnoringCase(sql.substr(0, 6), "select")) {
        out_ << connection.Execute(sql) << " rows\n";
        return;
    }
    for (const Row row : connection.Query(sql)) {
        for (std::size_t i = 0; i < row.Size(); ++i)
            out_ << (i == 0 ? "" : "\t") << (row.At(i).IsNull() ? "Null" : OnOneLine(row.At(i).Text()));
        out_ << '\n';
    }
}

void Interpreter::Dump(const std::string& formName)
{
    for (const Control* control : Resolve(formName).form->controls())
        out_ << control->name() << " = " << OnOneLine(control->Shows()) << (control->Shown() ? "" : " (hidden)")
             << (control->enabled ? "" : " (disabled)") << '\n';
}

} // namespace pgbp
