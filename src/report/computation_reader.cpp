#include "report/computation_reader.h"

#include "annexure/annexure_screen.h"
#include "computation/frmbusinesscal.h"
#include "income/frmbusiness.h"
#include "records/keys.h"
#include "report/annexure_table.h"
#include "report/decisions.h"
#include "report/doors.h"
#include "report/ledger.h"
#include "report/statement_table.h"
#include "schedules/Frm44AENew.h"
#include "services/text.h"
#include "startup/status.h"

#include <algorithm>
#include <set>

namespace pgbp::report {
namespace {

/// A door of the summary, and the rows without which it leads to something new.
struct SummaryDoor {
    std::string_view button;
    std::string_view type;        ///< in `business`
    std::string_view title = {};  ///< empty: the caption of what it opens
    std::string_view exempt = {}; ///< type of rows that are no income: in `qelgeneral`, or in `misc_items`
};
constexpr SummaryDoor kSummaryDoors[] = {
    {"cmd1", "1"},
    {"cmd2", "2"},
    {"CmdSp", "8"},
    {"cmd3", "3"},
    {"cmd9", "A"},
    {"cmd4", "4", "Transport Business u/s 44AE"},
    {"cmd5", "5"},
    {"cmd6", "6", {}, "FIRM"},
    {"cmd7", "7", {}, "SAOP"},
};

/// A title in capitals is too loud among others: "Balance sheet".
std::string InSmallLetters(std::string title)
{
    if (title.empty() || Upper(title) != title)
        return title;
    for (std::size_t i = 1; i < title.size(); ++i)
        title[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(title[i])));
    return title;
}

class Reader {
  public:
    explicit Reader(ClientCopy& client) : run_(client.run())
    {
        document_.client = run_.clientName;
        document_.pan = client.pan();
        document_.status = StatusInWords(run_.Glstatus);
        document_.year = run_.Glyear;
        document_.incomeOf = run_.IncomeOf();
    }

    Document Read()
    {
        summary_ = dynamic_cast<frmbusiness*>(run_.screens.OnDisplay());
        ReadSummary();
        for (const SummaryDoor& door : kSummaryDoors)
            if (HasRows(door))
                ReadBehind(door);
        if (Val(summary_->lbllic) != 0)
            ReadCommission();
        return std::move(document_);
    }

  private:
    Section& Begin(const std::string& title, int level)
    {
        return document_.sections.emplace_back(Section{.title = title, .level = level});
    }

    void ReadSummary();
    bool HasRows(const SummaryDoor& door) const;
    void ReadBehind(const SummaryDoor& door);
    void ReadLines(const SummaryDoor& door, Frame& list);
    void ReadCommission();
    void ReadScreen(Screen& screen, const std::string& title);
    void ReadMain(Screen& screen, const Frame& frame);
    void ReadContent(Screen& screen, const Frame& frame, const FrameContent& content, const std::string& title);
    void ReadCard(Screen& screen, Frame& card, const std::string& title);
    void ReadBehindDoors(Screen& screen, const Frame& frame);
    std::string RemarkOn(const Screen& screen, const Entry& entry) const;
    void AddLimit(Screen& screen, const Frame& card);
    void AddPart(const Screen& screen, Table table);

    /// The tables of the section that is being read; those of a card opened meanwhile come behind.
    void Add(Table table)
    {
        Section& section = document_.sections[at_];
        if (table.title == section.title)
            table.title.clear();
        if (!table.rows.empty())
            section.tables.push_back(std::move(table));
    }

    Run& run_;
    Document document_;
    frmbusiness* summary_ = nullptr;
    std::size_t at_ = 0;            ///< the section
    std::string name_;              ///< of the line of business
    std::set<const Control*> read_; ///< doors of the screen that were gone through
};

/// Its lines without an amount in either year are left out, but for the totals.
void Reader::ReadSummary()
{
    at_ = 0;
    Begin("Computation of income: " + summary_->caption.get(), 1);
    const FrameContent content = ReadFrame(summary_->framain).front();
    Table table{.columns = {{"Particulars"},
                            {"A.Y. " + run_.Glyear, GridColumnKind::Amount},
                            {"Previous Year", GridColumnKind::Amount, true}}};
    constexpr std::size_t kBefore = 2;
    std::vector<int> signs;
    for (const Entry& entry : content.entries) {
        const RowLook look = LookOf(entry.style);
        if (IsNothing(entry) && look == RowLook::Plain)
            continue;
        Row row{.look = look, .cells = {entry.caption, "", ""}, .remark = RemarkOn(*summary_, entry)};
        if (entry.caption.empty())
            row.cells = {entry.values.front(), "", entry.values.back()};
        // the previous year's figure is named as this year's, with a P behind
        for (std::size_t i = 0; i < entry.values.size() && !entry.caption.empty(); ++i)
            row.cells[entry.shownBy[i]->name().ends_with('P') ? kBefore : 1] = entry.values[i];
        if (IsNothing(entry.values.front()))
            row.remark.clear();
        table.rows.push_back(std::move(row));
        signs.push_back(SignOf(entry));
    }
    if (std::ranges::all_of(table.rows, [](const Row& row) { return IsNothing(row.cells[kBefore]); }))
        for (Row& row : table.rows)
            row.cells[kBefore].clear();
    DropIfEmpty(table, kBefore);
    for (std::size_t column = 1; column < table.columns.size(); ++column)
        FindSums(table, column, signs);
    Add(std::move(table));
    if (IsFirm(run_.Glstatus) && Val(summary_->partners.txtlesspart2) != 0)
        Add(WorkingOfLimit(summary_->partners.BookProfit(), run_));
}

bool Reader::HasRows(const SummaryDoor& door) const
{
    const auto isThere = [&](const Connection& file, const char* sql) {
        return !door.exempt.empty() && !file.Query(sql, run_.Glcode, door.exempt).Empty();
    };
    return !QueryOfMinor(run_, "select code from {business} where code = ? and [Type] = ?", {run_.Glcode, door.type})
                .Empty() ||
           isThere(run_.balance, "select code from {qelgeneral} where code = ? and [Type] = ?") ||
           isThere(run_.company, "select code from {misc_items} where code = ? and [Type] = ?");
}

void Reader::ReadBehind(const SummaryDoor& door)
{
    name_.clear();
    const auto opened = Press(*summary_, door.button);
    if (!opened)
        return;
    if (opened->card && opened->card->name() == summary_->lines.fra1.name())
        return ReadLines(door, *opened->card);
    if (opened->card) {
        at_ = document_.sections.size();
        Begin(PlainCaption(opened->card->caption), 1);
        ReadCard(*summary_, *opened->card, "");
        ReadBehindDoors(*summary_, *opened->card);
    } else {
        ReadScreen(*opened->screen, std::string(door.title));
    }
    Leave(*opened);
}

/// The lines of a kind, in the order of their list. A child's line is opened as in the child's own run.
void Reader::ReadLines(const SummaryDoor& door, Frame& list)
{
    const Grid& grid = summary_->lines.DBGrid1;
    constexpr int kMinor = 3;
    const int count = grid.Rows();
    const double minor = run_.GLminor;
    for (int row = 1; row <= count; ++row) {
        if (row > 1)
            Press(*summary_, door.button);
        if (minor == 0)
            run_.GLminor = Val(grid.Cell(row, kMinor));
        const std::string owner = minor == 0 ? run_.IncomeOf() : "";
        summary_->Do([&] { summary_->lines.DBGrid1.DoubleClick(row); });
        if (Screen* screen = run_.screens.OnDisplay(); screen != summary_) {
            ReadScreen(*screen, owner.empty() ? "" : PlainCaption(list.caption) + ", " + owner);
            run_.GLminor = minor;
            Leave({screen, nullptr});
        }
        run_.GLminor = minor;
    }
}

void Reader::ReadCommission()
{
    const auto opened = Press(*summary_, "cmdlic");
    if (!opened)
        return;
    at_ = document_.sections.size();
    Begin(PlainCaption(opened->card->caption), 1);
    ReadCard(*summary_, *opened->card, "");
    Leave(*opened);
}

std::string Reader::RemarkOn(const Screen& screen, const Entry& entry) const
{
    for (const Control* value : entry.shownBy) {
        if (!value)
            continue;
        if (value == &summary_->commission.lblded)
            return RemarkOnCommission(*summary_);
        if (&screen == summary_)
            if (const std::string remark = RemarkOnSummary(*summary_, value->name()); !remark.empty())
                return remark;
        if (const auto* line = dynamic_cast<const frmbusinesscal*>(&screen);
            line && value == &line->presumptive.Lbl44AD)
            return RemarkOnDeemedProfit(*line);
        if (const auto* carriages = dynamic_cast<const Frm44AENew*>(&screen); carriages && value == &carriages->Lbl44AD)
            return std::string(kRemarkOnCarriages);
    }
    return {};
}

void Reader::ReadScreen(Screen& screen, const std::string& title)
{
    const auto text = [&](std::string_view control) {
        const auto* field = dynamic_cast<const TextControl*>(screen.Find(control));
        return field ? Trim(field->text()) : std::string();
    };
    const Frame* frame = MainFrameOf(screen);
    if (!frame)
        return;
    name_ = Trim(text("txtdescr1") + ' ' + text("txtdescr2"));
    if (name_.empty())
        name_ = Trim(text("txt44ad1") + ' ' + text("txt44ad2"));
    const std::string kind = title.empty() ? InSmallLetters(PlainCaption(screen.caption)) : title;
    at_ = document_.sections.size();
    Begin(name_.empty() ? kind : kind + ": " + name_, 1);
    if (name_.empty())
        name_ = kind;
    ReadMain(screen, *frame);
    if (auto* line = dynamic_cast<frmbusinesscal*>(&screen);
        line && frame == &line->presumptive.fra44ad && line->presumptive.chk44ad.value) {
        const std::size_t own = at_;
        screen.Click(line->presumptive.cmdsave44ad);
        at_ = own;
        if (line->framain.visible)
            ReadMain(screen, line->framain);
    }
}

void Reader::ReadMain(Screen& screen, const Frame& frame)
{
    const std::size_t own = at_;
    read_.clear();
    for (const FrameContent& content : ReadFrame(frame))
        ReadContent(screen, frame, content, content.caption);
    ReadBehindDoors(screen, frame);
    at_ = own;
}

void Reader::ReadContent(Screen& screen, const Frame& frame, const FrameContent& content, const std::string& title)
{
    for (const Grid* grid : content.grids) {
        Table table = TableOf(*grid);
        table.title = title;
        Add(std::move(table));
    }
    Table ledger = LedgerOf(
        screen, content, [&](const Entry& entry) { return RemarkOn(screen, entry); }, read_);
    ledger.title = content.grids.empty() && &content.caption != &frame.caption.get() ? title : "";
    Add(std::move(ledger));
}

/// What has a table of its own: lists of several amounts, partners, side frames, annexure and statement.
void Reader::ReadBehindDoors(Screen& screen, const Frame& frame)
{
    const std::size_t own = at_;
    std::vector<std::pair<const PushControl*, std::string>> doors;
    for (const FrameContent& content : ReadFrame(frame))
        for (const Entry& entry : content.entries)
            if (const Door* door = entry.door ? DoorNamed(entry.door->name()) : nullptr;
                door && (door->alsoOfNothing || !IsNothing(entry)))
                doors.emplace_back(entry.door, entry.caption);
    const auto addAlways = [&](const Control* control) {
        const auto* button = dynamic_cast<const cmd*>(control);
        const Door* door = button && button->visible ? DoorNamed(button->name()) : nullptr;
        if (door && door->alsoOfNothing &&
            std::ranges::none_of(doors, [&](const auto& known) { return known.first == button; }))
            doors.emplace_back(button, PlainCaption(button->caption));
    };
    for (const LayoutRow& row : frame.layout().rows)
        std::ranges::for_each(row.cells, addAlways);
    std::ranges::for_each(frame.layout().buttonsLeft, addAlways);
    for (const auto& [button, caption] : doors) {
        if (!read_.insert(button).second)
            continue;
        const auto opened = Press(screen, button->name());
        if (!opened)
            continue;
        at_ = own;
        if (opened->card) {
            ReadCard(screen, *opened->card, caption);
            ReadBehindDoors(screen, *opened->card);
        } else if (auto* annexure = dynamic_cast<AnnexureScreen*>(opened->screen)) {
            AddPart(*annexure, AnnexureTable(*annexure));
        } else if (opened->screen->Find("CmdMulEntry")) {
            AddPart(*opened->screen, StatementTable(*opened->screen));
        } else if (const Frame* main = MainFrameOf(*opened->screen)) {
            for (const FrameContent& content : ReadFrame(*main))
                ReadContent(*opened->screen, *main, content, caption);
        }
        Leave(*opened);
    }
    at_ = own;
}

/// A section of the second level, below the line's own.
void Reader::AddPart(const Screen& screen, Table table)
{
    if (table.rows.empty())
        return;
    at_ = document_.sections.size();
    Begin(InSmallLetters(PlainCaption(screen.caption)) + ": " + name_, 2);
    Add(std::move(table));
}

/// A list without items has nothing to say, whatever stands below it.
void Reader::ReadCard(Screen& screen, Frame& card, const std::string& title)
{
    const std::vector<FrameContent> contents = ReadFrame(card);
    const auto& grids = contents.front().grids;
    if (!grids.empty() && std::ranges::all_of(grids, [](const Grid* grid) { return TableOf(*grid).rows.empty(); }))
        return;
    for (const FrameContent& content : contents)
        ReadContent(screen, card, content, content.caption.empty() ? title : content.caption);
    AddLimit(screen, card);
}

/// Behind the partners: how the maximum comes about.
void Reader::AddLimit(Screen& screen, const Frame& card)
{
    if (!IsFirm(run_.Glstatus))
        return;
    const Partners* partners = nullptr;
    if (const auto* line = dynamic_cast<const frmbusinesscal*>(&screen))
        partners = &line->partners;
    else if (const auto* carriages = dynamic_cast<const Frm44AENew*>(&screen))
        partners = &carriages->partners;
    if (partners && &card == &partners->frapartner && Val(partners->lblallowremu) != 0)
        Add(WorkingOfLimit(partners->BookProfit(), run_));
}

} // namespace

Document ReadComputation(ClientCopy& client) { return Reader(client).Read(); }

} // namespace pgbp::report
