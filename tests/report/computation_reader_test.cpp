#include "report/demonstration.h"
#include "report/plain_text.h"
#include "services/format.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

using namespace pgbp;
using Texts = std::set<std::string>;

namespace {

bool IsAmount(const std::string& text)
{
    return text.find_first_of("123456789") != std::string::npos &&
           text.find_first_not_of("-0123456789.,") == std::string::npos;
}

/// All figures that a screen holds, in its fields, labels and grids.
void Collect(const Screen& screen, Texts& texts)
{
    const auto add = [&](const std::string& text) {
        if (IsAmount(text))
            texts.insert(text);
    };
    for (const Control* control : screen.controls()) {
        if (const auto* text = dynamic_cast<const TextControl*>(control))
            add(text->text());
        if (const auto* grid = dynamic_cast<const Grid*>(control)) {
            for (int row = 1; row <= grid->Rows(); ++row)
                for (int column = 0; column < static_cast<int>(grid->columns().size()); ++column)
                    add(grid->Cell(row, column));
            std::ranges::for_each(grid->footer(), add);
        }
    }
}

/// A rate that is proposed for other receipts where there are none.
constexpr std::string_view kProposedRate = "TxtNetAd(2)";

/// What the page of a screen shows beside 0.
Texts ShownOn(const Screen& screen)
{
    Texts texts;
    for (const Control* control : screen.controls()) {
        const auto* text = dynamic_cast<const TextControl*>(control);
        if (text && control->Shown() && control->InFront() && control->container && IsAmount(text->text()) &&
            control->name() != kProposedRate)
            texts.insert(text->text());
    }
    return texts;
}

Texts AmountsOf(const report::Section& section)
{
    Texts amounts;
    for (const report::Table& table : section.tables) {
        if (table.title.starts_with("Maximum remuneration")) // its working is on no screen
            continue;
        for (const report::Row& row : table.rows)
            for (std::size_t column = 1; column < row.cells.size(); ++column)
                if (IsAmount(row.cells[column]) && table.columns[column].IsNumber())
                    amounts.insert(row.cells[column]);
    }
    return amounts;
}

/// The module itself on the practice, its screens opened one after the other as a preparer would.
class Walk {
  public:
    Walk(const Demonstration& practice, const HandOver& record)
    {
        HandOver wanted = record;
        wanted.GLlock = 0;
        WriteHandOverFile(Practice(practice.root), wanted);
        run_ = std::make_unique<Run>(
            Host{.boxes = boxes_, .files = files_, .processes = processes_, .programFolder = practice.root});
        RegisterScreens(*run_);
        std::string why;
        SubMain(*run_, why);
        summary = dynamic_cast<frmbusiness*>(run_->screens.OnDisplay());
    }

    /// The line on display, then all that its buttons lead to.
    void Look(Screen& line, Texts& texts)
    {
        Collect(line, texts);
        // the partners come late: without pay of theirs the lists of interest and remuneration are hidden behind them
        for (const char* door :
             {"cmdsave44ad", "cmd511",     "cmd560",   "cmd23a",   "cmd17",  "cmdless", "cmd23l", "cmdintt",
              "cmdremu",     "CmdPartner", "CmdPart",  "CmdMulti", "CmdDep", "CmdPNL",  "cmd28a", "cmd28l",
              "CmdPro",      "CmdAOP",     "cmdother", "cmd564",   "cmd568", "cmd570"})
            Open(line, door, texts);
    }

    Screen* OnDisplay() const { return run_->screens.OnDisplay(); }
    void Leave(Screen& screen)
    {
        while (Frame* card = screen.Card())
            screen.Do([&] { card->onEscape(); });
        if (screen.name() != summary->name())
            screen.PressCross();
    }

    frmbusiness* summary = nullptr;

  private:
    void Open(Screen& line, const char* door, Texts& texts)
    {
        auto* button = dynamic_cast<PushControl*>(line.Find(door));
        if (!button || !button->Reachable() || (door == std::string("cmdsave44ad") && button->caption.get()[0] == '&'))
            return;
        line.Click(*button);
        Collect(line, texts);
        if (Screen* opened = OnDisplay(); opened != &line) {
            Collect(*opened, texts);
            if (opened->Find("CmdMulEntry"))
                LookAtDetails(*opened, texts);
            Leave(*opened);
        } else if (line.Card() && line.Card()->name() != "fra3") {
            line.Do([&] { line.Card()->onEscape(); });
        }
    }

    static void LookAtDetails(Screen& statement, Texts& texts)
    {
        auto& grid = dynamic_cast<Grid&>(*statement.Find("MSH"));
        for (int row = 1; row <= grid.Rows(); ++row) {
            if (grid.Cell(row, 6) != "Filled")
                continue;
            grid.EnterCell(row, 2);
            statement.Click(dynamic_cast<PushControl&>(*statement.Find("CmdMulEntry")));
            Collect(statement, texts);
            statement.Do([&] { statement.Card()->onEscape(); });
        }
    }

    SilentBoxes boxes_;
    TestFiles files_;
    TestProcesses processes_;
    std::unique_ptr<Run> run_;
};

/// Every figure of the sections stands on the screens, and every figure of the page stands in them.
void ExpectSame(std::span<const report::Section> sections, const Texts& onScreens, const Texts& onPage,
                const std::string& what)
{
    Texts inReport;
    for (const report::Section& section : sections)
        inReport.merge(AmountsOf(section));
    for (const std::string& amount : inReport)
        EXPECT_TRUE(onScreens.contains(amount)) << what << ": " << amount << " is on no screen";
    for (const std::string& amount : onPage)
        EXPECT_TRUE(inReport.contains(amount)) << what << ": " << amount << " is not in the report";
}

/// Sections of the document from this one up to the next one of the first level.
std::span<const report::Section> WithItsParts(const report::Document& document, std::size_t first)
{
    std::size_t end = first + 1;
    while (end < document.sections.size() && document.sections[end].level > 1)
        ++end;
    return std::span(document.sections).subspan(first, end - first);
}

} // namespace

TEST(ComputationReader, HoldsTheFiguresOfTheScreensForAllClients)
{
    for (const std::string& code : Demonstration().Codes()) {
        Demonstration practice; // its own: the module stores what it recomputes
        HandOver record = practice.RecordOf(code);
        record.GlLarge = true;
        const report::Document document = practice.Read(record);
        Walk walk(practice, record);
        Texts onSummary;
        Collect(*walk.summary, onSummary);
        std::size_t at = 0;
        ExpectSame(WithItsParts(document, at), onSummary, ShownOn(*walk.summary), code);
        const auto next = [&] {
            at += WithItsParts(document, at).size();
            return at < document.sections.size();
        };
        const auto lookAt = [&](Screen& screen) {
            ASSERT_TRUE(next()) << code << ": " << screen.caption.get();
            Texts texts;
            const Texts page = ShownOn(screen);
            walk.Look(screen, texts);
            ExpectSame(WithItsParts(document, at), texts, page, code + ' ' + document.sections[at].title);
        };
        for (const char* door : {"cmd1", "cmd2", "CmdSp", "cmd3", "cmd9", "cmd4", "cmd5", "cmd6", "cmd7", "cmdlic"}) {
            auto& button = dynamic_cast<PushControl&>(*walk.summary->Find(door));
            const auto figure =
                std::find_if(walk.summary->framain.layout().rows.begin(), walk.summary->framain.layout().rows.end(),
                             [&](const LayoutRow& row) { return row.cells.front() == &button; });
            if (figure == walk.summary->framain.layout().rows.end() || !button.Reachable() ||
                Val(figure->cells[2]->Shows()) == 0)
                continue;
            walk.summary->Click(button);
            if (walk.summary->Card() == &walk.summary->lines.fra1) {
                Grid& list = walk.summary->lines.DBGrid1;
                for (int row = 1, rows = list.Rows(); row <= rows; ++row) {
                    if (Val(list.Cell(row, 3)) != 0) { // a child's: that run has a test of its own
                        next();
                        continue;
                    }
                    walk.summary->Click(button);
                    list.DoubleClick(row);
                    Screen& line = *walk.OnDisplay();
                    lookAt(line);
                    walk.Leave(line);
                }
            } else {
                lookAt(*walk.OnDisplay());
            }
            walk.Leave(*walk.OnDisplay());
        }
        EXPECT_FALSE(next()) << code << ": no screen for "
                             << document.sections[std::min(at, document.sections.size() - 1)].title;
    }
}

TEST(ComputationReader, ShowsAChildsLineAsItsOwnRunDoes)
{
    const Demonstration practice;
    HandOver child = practice.RecordOf("1007r2023-24");
    const report::Document parents = practice.Read(child);
    child.GLminor = 1;
    const report::Document own = practice.Read(child);
    EXPECT_EQ(own.incomeOf, "Income of minor 1");
    const report::Section* inParents = FindSection(parents, "Income of minor 1");
    const report::Section* inOwn = FindSection(own, "Handicrafts made by Anjali");
    ASSERT_TRUE(inParents && inOwn);
    EXPECT_EQ(AmountsOf(*inParents), AmountsOf(*inOwn));
    EXPECT_EQ(FindSection(own, "Chess lessons"), nullptr);
}

// Worked on paper from the firm's rows: 24,72,131 of two lines, 17,300 of it bank interest under another head, interest
// of 2,04,000 paid to the partners: book profit 22,85,431, of which 90 % of 3,00,000 and 60 % of the rest.
TEST(ComputationReader, WorksTheLimitOfTheRemunerationSlabBySlab)
{
    const report::Document document = Demonstration().Read("1003r2023-24");
    const report::Section& summary = document.sections.front();
    using Cells = std::vector<std::string>;
    EXPECT_EQ(CellsOf(summary, "First"), (Cells{"First", "300000.00", "90", "270000.00"}));
    EXPECT_EQ(CellsOf(summary, "Next"), (Cells{"Next", "1985431.00", "60", "1191258.60"}));
    EXPECT_EQ(CellsOf(summary, "Maximum"), (Cells{"Maximum", "2285431.00", "", "1461259.00"}));
    EXPECT_EQ(CellsOf(summary, "Less : Remuneration"), (Cells{"Less : Remuneration", "960000.00", "840000.00"}));
    EXPECT_EQ(RemarkOf(summary, "Less : Remuneration"), "as paid, Max 14,61,259");
    const auto after = std::ranges::find(summary.tables.front().rows, "Income after Interest & Remuneration",
                                         [](const report::Row& row) { return row.cells.front(); });
    EXPECT_EQ(after->sums.at(1).size(), 3U) << "a live sum of the total and what comes off it";
}

TEST(ComputationReader, ReadsALockedYearAsAnyOther)
{
    const Demonstration practice;
    HandOver record = practice.RecordOf("1003r2023-24");
    const std::string open = report::PlainText(practice.Read(record));
    record.GLlock = 1;
    EXPECT_EQ(report::PlainText(practice.Read(record)), open);
}

TEST(ComputationReader, TellsWhatDecidedAFigure)
{
    const struct {
        const char* code;
        const char* section;
        const char* caption;
        const char* remark;
    } rows[] = {
        {"1007r2023-24", "Commission", "Ad hoc Deduction", "none above a commission of 60,000"},
        {"1021r2025-26", "44AD", "Deemed Profit", "floor 8 % in cash, 6 % through a bank: 2,76,000"},
        {"1023r2024-25", "44AD", "Deemed Profit", "above the floor 8 % in cash, 6 % through a bank: 9,20,000"},
        {"1022r2026-27", "44ADA", "Deemed Profit", "floor 50 %: 27,00,000"},
        {"1008r2010-11", "44AF", "Deemed Profit", "floor 5 %: 1,62,000"},
        {"1024r2018-19", "44AE", "Deemed Profit", "a month: heavy vehicle 7,500, light vehicle 7,500"},
        {"1024r2023-24", "44AE", "Deemed Profit", "7,500 a month each, above 12 tons 1,000 a ton and month"},
    };
    const Demonstration practice;
    for (const auto& [code, title, caption, remark] : rows) {
        const report::Document document = practice.Read(code);
        const report::Section* section = FindSection(document, title);
        ASSERT_TRUE(section) << code;
        EXPECT_EQ(RemarkOf(*section, caption), remark) << code;
    }
}

// 8000 + 300 less (4000 - 0) + (2500 - 1000), less 500, less 250 is 2050.
TEST(ComputationReader, HoldsTheItemsOfEveryList)
{
    struct Item {
        const char* type;
        std::vector<Field> fields;
    };
    const Item items[] = {
        {"511", {{"name1", "Closing stock by cost"}, {"amt1", 1200}}},
        {"560", {{"name1", "28(iv)"}, {"name2", "Benefit"}, {"amt1", 5000}}},
        {"564", {{"name1", "41(1)"}, {"name2", "Liability that ceased"}, {"amt1", 8000}}},
        {"570", {{"name1", "44BB"}, {"name2", "Oil field"}, {"amt1", 300}}},
        {"568", {{"name1", "35D"}, {"name2", "Preliminary"}, {"amt1", 2}, {"amt2", 0}, {"amt3", 4000}}},
        {"568", {{"name1", "35E"}, {"name2", "Prospecting"}, {"amt1", 1}, {"amt2", 1000}, {"amt3", 2500}}},
        {"35", {{"name1", "35(1)(i)"}, {"amt1", 1000}, {"amt2", 1500}, {"amt3", 500}, {"amt4", 0}}},
        {"10ABC", {{"name3", "10A"}, {"name2", "Unit in the zone"}, {"amt2", 250}, {"amt4", 0}}},
    };
    const Demonstration practice;
    const Practice files(practice.root);
    const Value sno = files.company.Scalar("select min(SNO) from {business} where code = '1001r2023-24'");
    for (const auto& [type, fields] : items) {
        std::vector<Field> row = fields;
        row.insert(row.end(), {{"code", "1001r2023-24"}, {"SNO", sno}, {"Type", type}});
        files.company.Insert("business1", row);
    }
    files.company.Execute("update {business} set q10abc1 = 1 where SNO = ?", sno);

    const report::Document document = practice.Read("1001r2023-24");
    const report::Section& line = *FindSection(document, "Normal Business: Asha Sarees");
    using Cells = std::vector<std::string>;
    const Cells expected[] = {
        {"Closing stock by cost", "1200.00", ""},
        {"28(iv), Benefit", "5000.00", ""},
        {"Other Specific Adjustments", "", "2050.00"},
        {"41(1), Liability that ceased", "8000.00", ""},
        {"44BB, Oil field", "300.00", ""},
        {"35E", "Prospecting", "1", "1000.00", "2500.00"},
        {"35(1)(i)", "1000.00", "1500.00", "500.00"},
    };
    for (const Cells& cells : expected)
        EXPECT_EQ(CellsOf(line, cells.front()), cells) << cells.front();
    EXPECT_EQ(line.tables.back().rows.front().cells.back(), "250.00");
}

TEST(ComputationReader, ReadsAStatementUnderIndASWithItsDetails)
{
    const Demonstration practice;
    const Practice files(practice.root);
    const char* code = "1004r2023-24";
    const Value sno = files.company.Scalar("select min(SNO) from {business} where code = ? and [Type] = '1'", code);
    files.company.Insert("misc_items", {{"code", code}, {"Type", "FRMCHK"}, {"add1", "Yes"}});
    const auto cell = [&](const char* type, int slno, const char* name, const char* amount) {
        files.balance.Insert(
            "qelgeneral",
            {{"code", code}, {"Type", type}, {"amt1", slno}, {"amt2", sno}, {"name9", name}, {"name8", amount}});
    };
    cell("NEWINDPL", 7003, "Sale of products/goods", "9000000");
    cell("NEWINDPL", 7004, "Sale of services", "300000");
    cell("INDNEWPL", 7004, "Job work", "300000");
    const report::Document document = practice.Read(code);
    const report::Section* statement = FindSection(document, "Profit and loss account");
    ASSERT_TRUE(statement);
    using Cells = std::vector<std::string>;
    EXPECT_EQ(CellsOf(*statement, "1  Revenue from operations"), (Cells{"1  Revenue from operations", "", ""}));
    EXPECT_EQ(CellsOf(*statement, "i  Sale of products/goods"), (Cells{"i  Sale of products/goods", "", "90,00,000"}));
    EXPECT_EQ(CellsOf(*statement, "Job work"), (Cells{"Job work", "300000", ""}));
    EXPECT_EQ(CellsOf(*statement, "vi  Total (i + ii + iiic + iv + v)").back(), "93,00,000");
}

TEST(ComputationReader, NamesTheDebtorsBehindTheirLineOfTheStatement)
{
    const Demonstration practice;
    const Practice files(practice.root);
    const char* code = "1001r2023-24";
    const Value sno = files.company.Scalar("select min(SNO) from {business} where code = ?", code);
    files.balance.Insert("qelgeneral", {{"code", code},
                                        {"Type", "NEWPL"},
                                        {"amt1", 540},
                                        {"amt2", sno},
                                        {"name9", "Other (More than 1 lakh) where PAN is not available"},
                                        {"name8", "150000"}});
    files.company.Insert(
        "misc_items",
        {{"code", code}, {"Type", "ITR6PLQ47"}, {"name1", "Mehta's Stores"}, {"Na3", "RAJASTHAN"}, {"amt1", 150000}});
    const report::Document document = practice.Read(code);
    EXPECT_EQ(CellsOf(*FindSection(document, "Profit and loss account"), "Mehta's Stores, RAJASTHAN"),
              (std::vector<std::string>{"Mehta's Stores, RAJASTHAN", "150000.00", ""}));
}

TEST(ComputationReader, LimitsTheRemunerationToTheMaximumInAWord)
{
    Demonstration practice;
    Practice(practice.root)
        .company.Execute("update {business1} set amt1 = amt1 * 10 where code = ? and [Type] = 'PARTREMU'",
                         "1003r2023-24");
    const report::Document document = practice.Read("1003r2023-24");
    // the accounts are as they were: 96,00,000 of remuneration is added back in place of 9,60,000
    const report::Section& summary = document.sections.front();
    EXPECT_EQ(CellsOf(summary, "Less : Remuneration")[1], CellsOf(summary, "Maximum")[3]);
    EXPECT_EQ(RemarkOf(summary, "Less : Remuneration"), "limited to Max, paid 96,00,000");
}

TEST(ComputationReader, LeavesThePracticeAsItWas)
{
    const Demonstration practice;
    const auto bytes = [&] {
        std::string all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(practice.root))
            if (entry.is_regular_file()) {
                std::ostringstream content;
                content << std::ifstream(entry.path(), std::ios::binary).rdbuf();
                all += entry.path().string() + content.str();
            }
        return all;
    };
    const std::vector<std::string> codes = practice.Codes();
    const std::string before = bytes();
    for (const std::string& code : codes)
        practice.Read(code);
    EXPECT_EQ(bytes(), before);
}

TEST(ComputationReader, RefusesAClientWhomThePracticeDoesNotHave)
{
    const Demonstration practice;
    HandOver record = practice.RecordOf("1003r2023-24");
    record.Glcode = "1003r2001-02";
    EXPECT_THROW(practice.Read(record), std::runtime_error);
}
