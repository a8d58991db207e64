#include "income/frmReminder.h"

#include "services/text.h"
#include "store/schema.h"

namespace pgbp {

frmReminder::frmReminder(Run& itsRun) : Screen(itsRun, "frmReminder", "Reminder   -   (Alt + R)")
{
    txtmmo.multiLine = true;
    txthead.maxLength = ColumnWidth("balance", "misc_items", "name1");
    txthead.onKeyPress = DropQuotes;
    framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&LV}}, {{&lblhint}}}});
    framain.onEscape = [this] { HideOrClose(); };
    Frame1.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field},
                .rows = {{{&lblhead, &txthead}}, {{&txtmmo}}, {{nullptr, &lbldate}}},
                .buttonsLeft = {&mnudel},
                .buttonsRight = {&cmdsave, &cmdX}});
    Frame1.onEscape = [this] { LeaveFrame(); };
    cmdX.inSight = false;
    cmdsave.isDefault = true;
    bar = {&cmdhide};

    LV.onClick = [this](int entry) { OpenNote(entry); };
    LV.onDoubleClick = [this](int entry) { entry == 0 ? NewNote() : OpenNote(entry); };
    cmdsave.onClick = cmdX.onClick = [this] { Save(); };
    mnudel.onClick = [this] { DeleteOrCancel(); };
    cmdhide.onClick = [this] { HideOrClose(); };
}

void frmReminder::Open(const NoOpening&) { ShowTitles(); }

void frmReminder::ShowTitles()
{
    std::vector<std::string> titles;
    for (const Row row : run.balance.Query("select name1 from {misc_items} where code = ? and [Type] = 'REMINDER'" +
                                               std::string(run.balance.dialect().insertionOrder),
                                           run.Glcode))
        titles.push_back(row.At(0).Text());
    LV.SetItems(std::move(titles));
}

void frmReminder::NewNote()
{
    opened_.clear();
    txthead = "";
    txtmmo = "";
    lbldate = "";
    mnudel.caption = "Cancel";
    cmdhide.inSight = false; // Cancel is the way out then
    Raise(Frame1, txthead);
}

void frmReminder::OpenNote(int entry)
{
    const std::string& title = LV.items()[static_cast<std::size_t>(entry) - 1];
    const Recordset note = run.balance.Query(
        "select add1, name1, date1 from {misc_items} where code = ? and name1 = ? and [Type] = 'REMINDER'", run.Glcode,
        title);
    if (note.Empty()) // another user deleted it meanwhile
        return ShowTitles();
    opened_ = note.First()["name1"].Text();
    txtmmo = note.First()["add1"].Text();
    txthead = opened_;
    const auto written = note.First()["date1"].Date();
    lbldate = written ? StampText(*written) : "";
    mnudel.caption = "&Delete";
    Raise(Frame1, txtmmo);
}

bool frmReminder::TitleExists(const std::string& title) const
{
    return !run.balance
                .Query("select name1 from {misc_items} where code = ? and name1 = ? and [Type] = 'REMINDER'",
                       run.Glcode, title)
                .Empty();
}

void frmReminder::Save()
{
    const std::string title = Trim(txthead.text());
    if (title.empty())
        return LeaveFrame();
    if (!Store(title)) {
        run.Inform("Item Title already exists......");
        SetFocus(txthead);
        return;
    }
    TellSaved("Reminder " + title);
    ShowTitles();
    LeaveFrame();
}

/// False when another note has the title.
bool frmReminder::Store(const std::string& title)
{
    Transaction transaction({run.balance});
    if (!EqualsIgnoringCase(title, opened_) && TitleExists(title))
        return false;
    const long updated =
        opened_.empty() ? 0
                        : run.balance.Execute("update {misc_items} set add1 = ?, name1 = ?, date1 = ? where code = ? "
                                              "and name1 = ? and [Type] = 'REMINDER'",
                                              txtmmo.text(), title, run.host.now(), run.Code(), opened_);
    if (updated == 0)
        run.balance.Insert("misc_items", {{"code", run.Code()},
                                          {"Type", "REMINDER"},
                                          {"add1", txtmmo.text()},
                                          {"name1", title},
                                          {"date1", run.host.now()}});
    transaction.Commit();
    return true;
}

void frmReminder::DeleteOrCancel()
{
    if (mnudel.caption.get() == "&Delete") {
        run.balance.Delete("from {misc_items} where code = ? and [Type] = 'REMINDER' and name1 = ?", run.Code(),
                           opened_);
        ShowTitles();
    }
    LeaveFrame();
}

void frmReminder::LeaveFrame()
{
    txtmmo = "";
    txthead = "";
    cmdhide.inSight = true;
    Lower(Frame1);
}

void frmReminder::HideOrClose()
{
    if (Frame1.visible)
        return Save();
    run.GLrem = false;
    run.screens.Return();
}

void frmReminder::Close() { HideOrClose(); }

} // namespace pgbp
