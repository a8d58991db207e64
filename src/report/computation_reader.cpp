#include "report/computation_reader.h"

#include "annexure/annexure_screen.h"
#include "computation/frmbusinesscal.h"
#include "income/frmbusiness.h"
#include "report/decisions.h"
#include "report/frame_reader.h"
#include "schedules/Frm44AENew.h"
#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"
#include "startup/status.h"
#include "statements/template_row.h"

#include <algorithm>
#include <set>

namespace pgbp::report {
namespace {

/// A door of the summary, and the rows in `business` without which it leads to something new.
struct SummaryDoor {
    std::string_view button;
    std::string_view type;
    std::string_view title; ///< empty: the caption of what it opens
};
constexpr SummaryDoor kSummaryDoors[] = {
    {"cmd1", "1", ""}, {"cmd2", "2", ""}, {"CmdSp", "8", ""},
    {"cmd3", "3", ""}, {"cmd9", "A", ""}, {"cmd4", "4", "Transport Business u/s 44AE"},
    {"cmd5", "5", ""}, {"cmd6", "6", ""}, {"cmd7", "7", ""},
};

/// A button that leads to the working of a figure.
struct Door {
    std::string_view button;
    bool alsoOfNothing = false; ///< there may be something behind a figure of 0
};
constexpr Door kDoors[] = {
    {"cmd511"},       {"cmd560"},         {"cmd23a"},           {"cmd17"},         {"cmdless"},
    {"cmd23l"},       {"cmdother", true}, {"cmd564"},           {"cmd570"},        {"cmd568"},
    {"Cmd35"},        {"cmd10abc"},       {"cmd28a"},           {"cmd28l"},        {"cmdintt"},
    {"cmdremu"},      {"Command3", true}, {"CmdPartner", true}, {"CmdPart", true}, {"CmdMulti", true},
    {"CmdDep", true}, {"CmdPNL", true},   {"CmdPro", true},     {"CmdAOP", true},  {"Cmd10A(0)"},
    {"Cmd10A(1)"},    {"Cmd10A(2)"},      {"Cmd10A(3)"},        {"Cmd10A(4)"},     {"Cmd10A(5)"},
    {"Cmd10A(6)"},    {"Cmd10A(7)"},
};

/// Figures that come off the total above them.
constexpr std::string_view kDeducted[] = {"lbl17",        "lblless", "txtlessdep", "lbl23l",  "txtlesspart1",
                                          "txtlesspart2", "lbl28l",  "TxtIntt",    "txtremu", "lblRemu",
                                          "LblIntt",      "lblded",  "lbl568",     "Lbl35",   "lbl10abc"};
/// A part of the total above it.
constexpr std::string_view kPartOfTotal = "lblothers";

const Door* DoorNamed(std::string_view button)
{
    const auto found = std::ranges::find(kDoors, button, &Door::button);
    return found == std::end(kDoors) ? nullptr : found;
}

int SignOf(const Entry& entry)
{
    const auto isOf = [&](std::string_view name) {
        return std::ranges::any_of(entry.shownBy, [&](const Control* value) { return value && value->name() == name; });
    };
    if (isOf(kPartOfTotal))
        return 0;
    return std::ranges::any_of(kDeducted, isOf) ? -1 : 1;
}

RowLook LookOf(RowStyle style)
{
    return style == RowStyle::Final ? RowLook::Final : style == RowStyle::Total ? RowLook::Total : RowLook::Plain;
}

bool IsText(const Entry& entry)
{
    return std::ranges::none_of(entry.values, [](const std::string& value) {
        return value.empty() || value.find_first_not_of("-0123456789.,") == std::string::npos;
    });
}

const Frame* MainFrameOf(const Screen& screen)
{
    for (const Control* control : screen.controls())
        if (const auto* frame = dynamic_cast<const Frame*>(control);
            frame && frame->place == FramePlace::Main && frame->visible)
            return frame;
    return nullptr;
}

/// A title in capitals is too loud among others: "Balance sheet".
std::string InSmallLetters(std::string title)
{
    if (title.empty() || Upper(title) != title)
        return title;
    for (std::size_t i = 1; i < title.size(); ++i)
        title[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(title[i])));
    return title;
}

/// A figure that a table of its own ends in.
bool IsToldElsewhere(const Entry& entry)
{
    return entry.shownBy.size() == 1 && entry.shownBy.front()->name() == "lblallowremu";
}

bool IsNoAmount(const std::string& text) { return IsNothing(text); }

/// A rate between two amounts of 0 says nothing.
bool SaysNothing(const Entry& entry) { return IsNothing(entry.values.front()) && IsNothing(entry.values.back()); }

/// Takes out a column without any amount.
void DropIfEmpty(Table& table, std::size_t column)
{
    if (std::ranges::any_of(table.rows, [&](const Row& row) { return !row.cells[column].empty(); }))
        return;
    table.columns.erase(table.columns.begin() + static_cast<std::ptrdiff_t>(column));
    const auto moved = [&](std::size_t its) { return its > column ? its - 1 : its; };
    for (Row& row : table.rows) {
        row.cells.erase(row.cells.begin() + static_cast<std::ptrdiff_t>(column));
        std::map<std::size_t, std::vector<Summand>> sums;
        for (auto& [its, summands] : row.sums) {
            for (Summand& summand : summands)
                summand.column = moved(summand.column);
            sums.emplace(moved(its), std::move(summands));
        }
        row.sums = std::move(sums);
    }
}

/// What of a block stands in the fields alone: halves of the depreciation, additional depreciation, sales by halves.
std::string RestOf(const AnnexureRow& row, const AnnexureScreen& screen, std::span<const Entry> fields)
{
    std::string words;
    for (const auto& column : screen.entry.columns()) {
        const bool isWhole = column.field == &screen.TxtDep1 && row.depreciation1 == row.depreciation;
        if (column.inGrid || isWhole || column.field == &screen.CBOGRP || (!column.field && !column.tick))
            continue;
        const std::string text = column.Text(row);
        if (IsNothing(text))
            continue;
        std::string part = PlainCaption(column.tick ? screen.ChkEmpty.caption.get() : screen.Label22.text());
        for (const Entry& entry : fields)
            if (std::ranges::find(entry.shownBy, column.field) != entry.shownBy.end())
                part = entry.caption;
        if (!column.tick)
            part += ' ' + (column.IsNumber() ? GroupedAmount(text) : text);
        words += (words.empty() ? "" : "; ") + part;
    }
    return words;
}

/// What a button has opened.
struct Opened {
    Screen* screen;
    Frame* card; ///< none: another screen than the button's
};

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
    Table LedgerOf(Screen& screen, const FrameContent& content);
    void AddItems(Screen& screen, Table& table, std::vector<int>& signs, const Entry& entry);
    std::string RemarkOn(const Screen& screen, const Entry& entry) const;
    void ReadAnnexure(AnnexureScreen& screen);
    void ReadStatement(Screen& screen);
    void AddDetails(Screen& screen, Grid& lines, int line, Table& table);
    void AddLimit(Screen& screen, const Frame& card);

    std::optional<Opened> Press(Screen& screen, std::string_view button);
    void Leave(const Opened& opened);

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

std::optional<Opened> Reader::Press(Screen& screen, std::string_view button)
{
    auto* door = dynamic_cast<PushControl*>(screen.Find(button));
    if (!door || !door->Reachable())
        return std::nullopt;
    const Frame* before = screen.Card();
    screen.Click(*door);
    if (Screen* now = run_.screens.OnDisplay(); now != &screen)
        return Opened{now, nullptr};
    return screen.Card() == before ? std::nullopt : std::optional(Opened{&screen, screen.Card()});
}

void Reader::Leave(const Opened& opened)
{
    if (opened.card)
        opened.screen->Do([&] { opened.card->onEscape(); });
    else
        opened.screen->PressCross();
}

/// Its lines without an amount in either year are left out, but for the totals.
void Reader::ReadSummary()
{
    at_ = 0;
    Begin("Computation of income: " + summary_->caption.get(), 1);
    const FrameContent content = ReadFrame(summary_->framain).front();
    Table table{.columns = {{"Particulars"},
                            {"A.Y. " + run_.Glyear, GridColumnKind::Amount},
                            {"Previous Year", GridColumnKind::Amount, true}}};
    std::vector<int> signs;
    for (const Entry& entry : content.entries) {
        const RowLook look = LookOf(entry.style);
        if (IsNothing(entry) && look == RowLook::Plain)
            continue;
        Row row{.look = look, .cells = {entry.caption, "", ""}, .remark = RemarkOn(*summary_, entry)};
        if (entry.caption.empty())
            row.cells = {entry.values.front(), "", entry.values.back()};
        for (std::size_t i = 0; i < entry.values.size() && !entry.caption.empty(); ++i)
            row.cells[entry.shownBy[i]->name().ends_with('P') && entry.values.size() > 1 ? 2 : i + 1] = entry.values[i];
        if (IsNothing(entry.values.front()))
            row.remark.clear();
        table.rows.push_back(std::move(row));
        signs.push_back(SignOf(entry));
    }
    constexpr std::size_t kBefore = 2;
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
    return run_.company.Scalar("select count(*) from {business} where code = ? and [Type] = ?", run_.Glcode, door.type)
               .Number() != 0;
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
    Table ledger = LedgerOf(screen, content);
    ledger.title = content.grids.empty() && &content.caption != &frame.caption.get() ? title : "";
    Add(std::move(ledger));
}

/// A frame of captions and amounts. What a list behind a button holds stands under the amount, in a column of its own.
Table Reader::LedgerOf(Screen& screen, const FrameContent& content)
{
    std::size_t values = 1;
    for (const Entry& entry : content.entries)
        values = std::max(values, entry.values.size());
    const bool hasItems = values == 1;
    Table table{.columns = {{"Particulars"}}};
    if (hasItems)
        table.columns.push_back({"", GridColumnKind::Amount});
    for (std::size_t i = 0; i < values; ++i)
        table.columns.push_back({i < content.headings.size() ? content.headings[i] : "", GridColumnKind::Amount});
    if (table.columns.back().heading.empty())
        table.columns.back().heading = "Rupees";
    std::vector<int> signs;
    std::size_t sinceTotal = 0;
    for (const Entry& entry : content.entries) {
        const RowLook look = LookOf(entry.style);
        const std::string remark = RemarkOn(screen, entry);
        if (entry.caption.empty() || IsToldElsewhere(entry) || IsText(entry) ||
            (SaysNothing(entry) && look == RowLook::Plain && remark.empty()))
            continue;
        if (look == RowLook::Total && sinceTotal == 1 && table.rows.back().cells.back() == entry.values.back())
            continue;
        sinceTotal = look == RowLook::Plain ? sinceTotal + 1 : 1;
        Row row{.look = look, .cells = {entry.caption}, .remark = remark};
        row.cells.resize(table.columns.size() - entry.values.size());
        row.cells.insert(row.cells.end(), entry.values.begin(), entry.values.end());
        table.rows.push_back(std::move(row));
        signs.push_back(SignOf(entry));
        if (hasItems)
            AddItems(screen, table, signs, entry);
    }
    if (std::ranges::all_of(
            table.rows, [](const Row& row) { return std::all_of(row.cells.begin() + 1, row.cells.end(), IsNoAmount); }))
        return {};
    FindSums(table, table.columns.size() - 1, signs);
    for (std::size_t column = table.columns.size() - 1; column > 1; --column)
        DropIfEmpty(table, column - 1);
    if (table.rows.size() == 1 && table.columns.size() == 2)
        for (Column& column : table.columns)
            column.heading.clear();
    return table;
}

/// The items of the list behind the entry's button, where they are a text and an amount each.
void Reader::AddItems(Screen& screen, Table& table, std::vector<int>& signs, const Entry& entry)
{
    if (!entry.door || IsNothing(entry))
        return;
    const Door* door = DoorNamed(entry.door->name());
    if (!door || door->alsoOfNothing)
        return;
    const auto opened = Press(screen, door->button);
    if (!opened)
        return;
    if (opened->card) {
        const FrameContent content = ReadFrame(*opened->card).front();
        if (content.grids.size() == 1 && IsPlainList(*content.grids.front())) {
            const std::size_t total = table.rows.size() - 1;
            const std::size_t column = table.columns.size() - 1;
            std::vector<Summand> items;
            double sum = 0;
            for (const auto& [text, amount] : ItemsOf(*content.grids.front())) {
                items.push_back({table.rows.size(), 1});
                sum += ParseAmount(amount);
                Row row{.look = RowLook::Item, .cells = {text, amount}};
                row.cells.resize(table.columns.size());
                table.rows.push_back(std::move(row));
                signs.push_back(0);
            }
            if (!items.empty() && Amount(sum) == Amount(ParseAmount(table.rows[total].cells[column])))
                table.rows[total].sums[column] = std::move(items);
            read_.insert(entry.door);
        }
    }
    Leave(*opened);
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
            ReadAnnexure(*annexure);
        } else if (opened->screen->Find("CmdMulEntry")) {
            ReadStatement(*opened->screen);
        } else if (const Frame* main = MainFrameOf(*opened->screen)) {
            for (const FrameContent& content : ReadFrame(*main))
                ReadContent(*opened->screen, *main, content, caption);
        }
        Leave(*opened);
    }
    at_ = own;
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

/// The blocks under their groups, and under each what the columns do not hold.
void Reader::ReadAnnexure(AnnexureScreen& screen)
{
    const Table plain = TableOf(screen.DBGrid1);
    if (plain.rows.empty())
        return;
    const std::vector<Entry> fields = ReadFrame(screen.framain).front().fields;
    Table table{.title = plain.title, .columns = plain.columns};
    const auto add = [&](RowLook look, const std::string& text) {
        table.rows.push_back({.look = look, .cells = {text}});
        table.rows.back().cells.resize(table.columns.size());
    };
    std::vector<std::size_t> places; // of the plain rows
    std::string group;
    std::size_t item = 0;
    for (const Row& row : plain.rows) {
        const bool isOfItem = row.look == RowLook::Plain && item < screen.entry.items().size();
        if (isOfItem && screen.entry.items()[item].group != group)
            add(RowLook::Heading, group = screen.entry.items()[item].group);
        places.push_back(table.rows.size());
        table.rows.push_back(row);
        if (!isOfItem)
            continue;
        if (const std::string words = RestOf(screen.entry.items()[item++], screen, fields); !words.empty())
            add(RowLook::Note, words);
    }
    for (Row& row : table.rows)
        for (auto& [column, summands] : row.sums)
            for (Summand& summand : summands)
                summand.row = places[summand.row];
    at_ = document_.sections.size();
    Begin(InSmallLetters(PlainCaption(screen.caption)) + ": " + name_, 2);
    Add(std::move(table));
}

/// The lines of a statement that have an amount, under the headings that lead to them.
void Reader::ReadStatement(Screen& screen)
{
    auto& lines = dynamic_cast<Grid&>(*screen.Find("MSH"));
    Table table{.columns = {{"Particulars"}, {"", GridColumnKind::Amount}, {"Rupees", GridColumnKind::Amount}}};
    std::vector<std::pair<std::size_t, std::string>> headings; // with their indents, the widest first
    for (int line = 1; line <= lines.Rows(); ++line) {
        if (lines.IsHidden(line))
            continue;
        const std::string& description = lines.Cell(line, kDescription);
        const std::size_t indent = description.find_first_not_of(' ');
        if (indent == std::string::npos)
            continue;
        const std::string serial = Trim(lines.Cell(line, kSerial));
        const std::string caption = (serial.empty() ? "" : serial + "  ") + description.substr(indent);
        const std::string& amount = lines.Cell(line, kAmount);
        // the preparer's own words do not tell how deep the line stands
        const bool isOwn = lines.Look(line, kDescription) == CellLook::Own;
        while (!isOwn && !headings.empty() && headings.back().first >= indent)
            headings.pop_back();
        const bool isClosed = lines.Look(line, kAmount) == CellLook::Computed;
        if (IsNothing(amount)) {
            if (isClosed && Trim(amount).empty())
                headings.emplace_back(indent, caption);
            continue;
        }
        int depth = 0;
        for (auto& [its, heading] : headings) {
            if (!heading.empty())
                table.rows.push_back(
                    {.look = RowLook::Heading, .depth = depth, .cells = {std::exchange(heading, ""), "", ""}});
            ++depth;
        }
        table.rows.push_back(
            {.look = isClosed ? RowLook::Strong : RowLook::Plain, .depth = depth, .cells = {caption, "", amount}});
        if (isClosed) // a sum above its parts heads them
            headings.emplace_back(indent, "");
        if (lines.Cell(line, kDetail) == kDetailsFilled)
            AddDetails(screen, lines, line, table);
    }
    if (table.rows.empty())
        return;
    at_ = document_.sections.size();
    Begin(InSmallLetters(PlainCaption(screen.caption)) + ": " + name_, 2);
    DropIfEmpty(table, 1);
    FindSumsOfGroups(table, table.columns.size() - 1);
    Add(std::move(table));
}

void Reader::AddDetails(Screen& screen, Grid& lines, int line, Table& table)
{
    lines.EnterCell(line, kAmount);
    const auto opened = Press(screen, "CmdMulEntry");
    if (!opened)
        return;
    const FrameContent content = ReadFrame(*opened->card).front();
    for (const auto& [text, amount] : ItemsOf(*content.grids.front()))
        table.rows.push_back({.look = RowLook::Item, .cells = {text, amount, ""}});
    Leave(*opened);
}

} // namespace

Document ReadComputation(ClientCopy& client) { return Reader(client).Read(); }

} // namespace pgbp::report
