#include "schedules/FrmQ47ii.h"

#include "support/empty_practice.h"
#include "support/failing_store.h"
#include "support/typing.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

const BadDebt kMehta{.name = "Mehta",
                     .flat = "12",
                     .town = "Surat",
                     .state = "GUJARAT",
                     .country = "INDIA",
                     .pin = "395001",
                     .amount = 150000};
const BadDebt kThapa{.name = "Thapa",
                     .flat = "3 B",
                     .state = "State outside India",
                     .country = "NEPAL",
                     .zip = "44600",
                     .amount = 200000.5};

class BadDebts : public testing::Test {
  protected:
    BadDebts()
    {
        const Connection tax = practice.Tax();
        for (const char* state : {"PUNJAB", "FOREIGN", "GUJARAT"})
            tax.Insert("statecode", {{"nm", state}});
        for (const char* country : {"NEPAL", "INDIA"})
            tax.Insert("Coun", {{"Coun_Name", country}});
    }

    FrmQ47ii& Open()
    {
        pgbp::Run& run = practice.run ? *practice.run : practice.Start();
        run.screens.ShowModal(screens::FrmQ47ii, {.saved = [this](double rupees) { totals.push_back(rupees); }});
        return dynamic_cast<FrmQ47ii&>(*run.screens.OnDisplay());
    }

    static void Type(FrmQ47ii& form, const BadDebt& debt)
    {
        for (const ItemColumn<BadDebt>& column : form.entry.columns())
            if (column.field && column.field->Reachable()) {
                column.field->Set("");
                form.Do([&] { form.SetFocus(*column.field); });
                TypeText(form, column.Text(debt));
            }
    }

    static void Add(FrmQ47ii& form, const BadDebt& debt)
    {
        Type(form, debt);
        form.Click(form.CmdAdd);
    }

    bool IsOpen() const { return practice.run->screens.Find("FrmQ47ii") != nullptr; }

    std::string Stored(const char* type = "ITR6PLQ47") const
    {
        std::string lines;
        for (const Row row : practice.Company().Query("select * from {misc_items} where [Type] = ?", type))
            for (const char* column :
                 {"code", "Name1", "Name2", "Name3", "Name4", "Name5", "Na2", "Na3", "Na4", "Add1", "Add2", "Amt1"})
                lines += row[column].Text() + (std::string_view(column) == "Amt1" ? '\n' : '|');
        return lines;
    }

    EmptyPractice practice;
    std::vector<double> totals;
};

} // namespace

TEST_F(BadDebts, ADebtorIsRefusedUntilHisAddressIsThere)
{
    FrmQ47ii& form = Open();
    struct Case {
        const char* message; ///< "": he is taken
        BadDebt debt;
        const Control* focus;
    };
    const auto with = [](BadDebt debt, std::string BadDebt::*member, const char* text) {
        debt.*member = text;
        return debt;
    };
    const Case cases[] = {
        {"Please Enter Name...", with(kMehta, &BadDebt::name, "  "), &form.Txt1},
        {"Please Enter Name...", with(with(kMehta, &BadDebt::name, ""), &BadDebt::flat, ""), &form.Txt1},
        {"Please Enter Address...", with(kMehta, &BadDebt::flat, ""), &form.Txt2},
        {"Please Select State ...", with(kMehta, &BadDebt::state, ""), &form.CombState},
        {"Please Select Country...", with(kMehta, &BadDebt::country, " "), &form.CombCountry},
        {"Please Select Correct State...", with(kMehta, &BadDebt::state, "GUJRAT"), &form.CombState},
        {"Please Select Correct Country...", with(kThapa, &BadDebt::country, "BHARAT"), &form.CombCountry},
        {"", kMehta, nullptr},
        {"", kThapa, nullptr},
        {"", with(kMehta, &BadDebt::state, " gujarat"), nullptr},
        {"", with(kMehta, &BadDebt::country, "India"), nullptr},
    };
    for (const Case& each : cases) {
        const std::size_t before = form.entry.items().size();
        Add(form, each.debt);
        EXPECT_EQ(form.entry.items().size(), before + (each.focus ? 0 : 1)) << each.debt.name;
        EXPECT_EQ(form.focused(), each.focus ? each.focus : &form.Txt1) << each.message;
        if (each.focus) {
            EXPECT_EQ(practice.boxes.Take().text, each.message);
        }
    }
    EXPECT_EQ(form.CombState.items(), (std::vector<std::string>{"GUJARAT", "PUNJAB", "State outside India"}));
    EXPECT_EQ(form.CombCountry.items(), (std::vector<std::string>{"INDIA", "NEPAL"}));
}

TEST_F(BadDebts, CountryDecidesBetweenPinAndZip)
{
    FrmQ47ii& form = Open();
    const std::pair<const char*, bool> cases[] = {{"", false},   {"NEPAL", true},    {"INDIA", false},
                                                  {"IND", true}, {" india ", false}, {" ", false}};
    for (const auto& [country, hasZip] : cases) {
        form.CombCountry = country;
        EXPECT_EQ(form.Txt8.enabled, hasZip) << country;
        EXPECT_EQ(form.Txt7.enabled, !hasZip) << country;
    }
}

TEST_F(BadDebts, RowsAreNumberedAndTakenBack)
{
    FrmQ47ii& form = Open();
    EXPECT_EQ(form.MSH.Rows(), 1) << "a blank one";
    BadDebt quoted = kMehta;
    quoted.name = "D'Souza's";
    Add(form, quoted);
    Add(form, kThapa);
    Add(form, kMehta);
    const auto names = [&] {
        std::string lines;
        for (int row = 1; row <= form.MSH.Rows(); ++row)
            lines += form.MSH.Cell(row, 0) + ' ' + form.MSH.Cell(row, 1) + ' ' + form.MSH.Cell(row, 11) + '\n';
        return lines;
    };
    EXPECT_EQ(names(), "1 D Souza s 150000.00\n2 Thapa 200000.50\n3 Mehta 150000.00\n");
    form.MSH.onDelete(1);
    EXPECT_EQ(names(), "1 Thapa 200000.50\n2 Mehta 150000.00\n");
    form.MSH.DoubleClick(1);
    EXPECT_EQ(names(), "1 Mehta 150000.00\n");
    EXPECT_EQ(form.Txt8.text() + form.CombState.text(), "44600State outside India");
    EXPECT_TRUE(form.Txt8.enabled);
}

TEST_F(BadDebts, SaveReplacesTheListAndHandsOverItsTotal)
{
    const Connection company = practice.Company();
    for (const auto& [code, type] :
         {std::pair{"A0001r2023-24", "ITR6PLQ47"}, {"A0002r2023-24", "ITR6PLQ47"}, {"A0001r2023-24", "FRMCHK"}})
        company.Insert("misc_items", {{"code", code}, {"Type", type}, {"Name1", "Old"}, {"Amt1", 5}});
    FrmQ47ii* form = &Open();
    EXPECT_EQ(form->MSH.Cell(1, 1), "Old");
    form->MSH.onDelete(1);
    Add(*form, kThapa);
    Type(*form, kMehta); // not added yet
    form->Click(form->Command11);
    EXPECT_EQ(practice.boxes.Take().text, "Saved");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(totals, std::vector<double>{350000.5});
    const std::string other = "A0002r2023-24|Old||||||||||5\n";
    EXPECT_EQ(Stored(), other + "A0001r2023-24|Thapa|3 B|||||State outside India|NEPAL||44600|200000.5\n"
                                "A0001r2023-24|Mehta|12||||Surat|GUJARAT|INDIA|395001||150000\n");
    EXPECT_EQ(Stored("FRMCHK"), "A0001r2023-24|Old||||||||||5\n");

    form = &Open();
    EXPECT_EQ(form->entry.items(), (std::vector<BadDebt>{kThapa, kMehta}));
    form->MSH.onDelete(2);
    form->MSH.onDelete(1);
    form->Click(form->Command11);
    EXPECT_EQ(totals.back(), 0);
    EXPECT_EQ(Stored(), other);
}

TEST_F(BadDebts, SaveThatFailsStoresNothingAndKeepsTheList)
{
    practice.Company().Insert("misc_items",
                              {{"code", "A0001r2023-24"}, {"Type", "ITR6PLQ47"}, {"Name1", "Old"}, {"Amt1", 5}});
    FrmQ47ii& form = Open();
    Add(form, kMehta);
    const std::string before = Stored();
    Refusal refusal;
    LetFail(*practice.run, refusal);
    int failures = 0;
    while (IsOpen() && ++failures < 20) {
        refusal = {.write = failures};
        practice.boxes.shown.clear();
        form.Click(form.Command11);
        if (IsOpen()) {
            EXPECT_EQ(Stored(), before) << failures;
            EXPECT_EQ(form.entry.items().size(), 2U);
            EXPECT_TRUE(totals.empty());
        }
    }
    EXPECT_EQ(failures, 6) << "begin, delete, two rows and commit were refused in turn";
    EXPECT_EQ(totals, std::vector<double>{150005});
}

TEST_F(BadDebts, LeavingAsksForWhatWasNotSaved)
{
    FrmQ47ii& form = Open();
    TypeText(form, "Me");
    practice.boxes.answers = {Answer::No, Answer::Yes};
    form.Click(form.CmdBack);
    EXPECT_TRUE(IsOpen());
    form.Press(Key::Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(practice.boxes.answers.empty());
    Open().Press(Key::Escape);
    EXPECT_FALSE(IsOpen()) << "nothing was altered";
    EXPECT_TRUE(totals.empty());
}

TEST_F(BadDebts, LockedYearCanBeReadAlone)
{
    practice.handOver.GLlock = 1;
    practice.Company().Insert("misc_items", {{"code", "A0001r2023-24"}, {"Type", "ITR6PLQ47"}, {"Name1", "Old"}});
    FrmQ47ii& form = Open();
    for (const ItemColumn<BadDebt>& column : form.entry.columns())
        EXPECT_TRUE(!column.field || !column.field->enabled) << column.shown.heading;
    EXPECT_FALSE(form.CmdAdd.enabled || form.Command11.enabled);
    form.SetFocus(form.MSH);
    form.MSH.DoubleClick(1);
    form.Press(Key::Delete);
    EXPECT_EQ(form.MSH.Cell(1, 1), "Old");
    form.Press(Key::Escape);
    EXPECT_FALSE(IsOpen());
}

} // namespace pgbp
