#include "services/format.h"
#include "services/year.h"
#include "statements/ind_as_totals.h"
#include "statements/statement_totals.h"
#include "statements/totals_rules.h"
#include "suite/assessee_years.h"
#include "suite/client_settings.h"
#include "suite/clients.h"
#include "suite/new_practice.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

// The demonstration clients must stand up to a tax person's pencil: every stored total is added up again here from the
// rows it comes from.
namespace pgbp {
namespace {

class DemonstrationClients : public testing::Test {
  protected:
    double Company(const std::string& sumFromWhere, const std::string& code) const
    {
        return practice.company.Scalar("select " + sumFromWhere + " and code = ?", code).Number();
    }
    double Balance(const std::string& sumFromWhere, const std::string& code) const
    {
        return practice.balance.Scalar("select " + sumFromWhere + " and code = ?", code).Number();
    }
    double Net(const std::string& code, const std::string& kind) const
    {
        return Company("sum(net) from {business} where type = '" + kind + "'", code);
    }
    /// The higher of the actual profit and the presumptive one; the actual one wins only when it is a profit.
    double Presumptive(const std::string& code, const std::string& kind) const
    {
        const double deemed = Company("sum(net44) from {business} where type = '" + kind + "'", code);
        const double actual = Net(code, kind);
        return actual > 0 && actual > deemed ? actual : deemed;
    }
    double Commission(const std::string& code) const
    {
        return Company("sum(amt1 + coalesce(amt2, 0) + coalesce(amt3, 0) + coalesce(amt4, 0)) from {business1} "
                       "where type in ('LIC', 'UTI', 'SEC', 'MF')",
                       code) -
               Company("sum(amt1) from {business1} where type = 'ZADHOC'", code);
    }
    /// Sum over the detail rows of a line.
    double Details(const Row& line, const std::string& types) const
    {
        return practice.company
            .Scalar("select sum(amt1) from {business1} where code = ? and sno = ? and type in (" + types + ")",
                    line["code"], line["sno"])
            .Number();
    }
    bool IsIndAs(const Row& line) const { return ReadSettings(practice, line["code"].Text()).indAs; }
    /// Sum over the cells of the line's statement, or over their details.
    double Cell(const Row& line, int slno, const char* ofReturn = "NEWPL", const char* underIndAs = "NEWINDPL") const
    {
        return practice.balance
            .Scalar("select sum(cast(name8 as float)) from {qelgeneral} where code = ? and [Type] = ? and amt2 = ? and "
                    "amt1 = ?",
                    line["code"], IsIndAs(line) ? underIndAs : ofReturn, line["sno"], slno)
            .Number();
    }
    /// Net profit with books, without them, or under Ind AS.
    double NetProfit(const Row& line) const { return Cell(line, 255) + Cell(line, 272) + Cell(line, 7149); }
    Recordset Lines(const std::string& kinds) const
    {
        return practice.company.Query("select * from {business} where type in (" + kinds + ")");
    }

    NewPractice made;
    Practice practice = made.Open();
};

TEST_F(DemonstrationClients, HeadOfIncomeOfClosedYearsIsTheSumOfTheirRows)
{
    const Recordset heads = practice.balance.Query("select * from {qelgeneral} where [Type] = 'BUSI'");
    EXPECT_EQ(heads.Size(), 23u);
    for (const Row head : heads) {
        const std::string code = head["code"].Text();
        SCOPED_TRACE(code);
        const double listed[] = {Net(code, "1"),         Net(code, "2"), Presumptive(code, "3"), Presumptive(code, "4"),
                                 Presumptive(code, "5"), Net(code, "6"), Net(code, "7"),         Commission(code)};
        double total = Net(code, "8") + Presumptive(code, "A") + Net(code, "9");
        for (int i = 0; i < 8; ++i) {
            EXPECT_DOUBLE_EQ(head["amt" + std::to_string(i + 1)].Number(), listed[i]) << "amt" << i + 1;
            total += listed[i];
        }
        const double interest = Company("sum(amt3) from {business1} where type = 'PARTINTT'", code);
        const double remuneration = Company("sum(amt1) from {business1} where type = 'LESSREMU'", code);
        const double loss = Company("sum(loss) from {business} where type = '0'", code);
        EXPECT_DOUBLE_EQ(head["amt9"].Number(), total);
        EXPECT_DOUBLE_EQ(head["Amt10"].Number(), interest);
        EXPECT_DOUBLE_EQ(head["amt11"].Number(), remuneration);
        EXPECT_DOUBLE_EQ(head["amt12"].Number(), total - interest - remuneration);
        EXPECT_DOUBLE_EQ(head["amt13"].Number(), loss);
        EXPECT_DOUBLE_EQ(head["amt14"].Number(), total - interest - remuneration + loss);
    }
}

TEST_F(DemonstrationClients, NetIncomeOfEachLineFollowsFromItsAccountAndItsAdjustments)
{
    for (const Row line : Lines("'1'")) {
        SCOPED_TRACE(line["code"].Text() + " " + line["name1"].Text());
        EXPECT_EQ(line["PNL"].Number(), NetProfit(line));
        EXPECT_EQ(line["dep1"].Number(), Cell(line, 254) + Cell(line, 8015));
        const double allowed = practice.balance
                                   .Scalar("select sum(f_dep) from {fassets} where code = ? and type = 'P' and sno = ?",
                                           line["code"], line["sno"])
                                   .Number();
        EXPECT_EQ(line["dep2"].Number(), allowed);
        const double other =
            practice.company
                .Scalar("select sum(amt1) from {misc_items} where code = ? and type = 'BusOth' and sno = ?",
                        line["code"], line["sno"])
                .Number();
        EXPECT_DOUBLE_EQ(line["NET"].Number(), NetProfit(line) + Cell(line, 254) + Cell(line, 8015) - allowed + other +
                                                   Details(line, "'23a', 'PARTINTT', 'PARTREMU'") -
                                                   Details(line, "'23l', 'less', '544'"));
    }
    for (const Row line : Lines("'2', '8'")) {
        SCOPED_TRACE(line["code"].Text() + " " + line["name1"].Text());
        EXPECT_EQ(line["PNL"].Number(), NetProfit(line));
        EXPECT_DOUBLE_EQ(line["NET"].Number(), Cell(line, 255) + Details(line, "'28a'") - Details(line, "'28l'"));
    }
    for (const Row line : Lines("'6', '7'"))
        EXPECT_DOUBLE_EQ(line["NET"].Number(), Details(line, "'PART', 'AOP'")) << line["code"].Text();
}

TEST_F(DemonstrationClients, DeemedProfitFollowsFromReceiptsBusinessesAndVehicles)
{
    for (const Row line : Lines("'3', 'A', '5'")) {
        const std::string code = line["code"].Text();
        SCOPED_TRACE(code);
        const Recordset stored =
            practice.company.Query("select * from {misc_items} where code = ? and type = ? and sno = ?", code,
                                   "PGBP" + line["Type"].Text(), line["sno"]);
        ASSERT_EQ(stored.Size(), 1u);
        const Row split = stored.First();
        EXPECT_EQ(line["turnover"].Number(), split["Am3"].Number() + split["am4"].Number() + split["intt"].Number());
        const bool isSplit = split["amt2"].Number() != 0 && line["Type"].Text() == "3";
        const double atRates =
            isSplit ? split["tds"].Number() + split["sur"].Number() + split["penal"].Number()
                    : line["turnover"].Number() * (line["Type"].Text() == "A" ? 50 : split["amt1"].Number()) / 100;
        EXPECT_GE(line["sec44"].Number(), atRates);
        EXPECT_EQ(line["net44"].Number(), line["sec44"].Number() - Details(line, "'intt', 'remu'"));
        const double ofBusinesses = practice.company
                                        .Scalar("select sum(amt3) from {business1} where code = ? and sno = ? and type "
                                                "= '44AD'",
                                                code, line["sno"])
                                        .Number();
        EXPECT_TRUE(ofBusinesses == 0 || ofBusinesses == line["sec44"].Number());
        EXPECT_EQ(Cell(line, 270) + Cell(line, 1164) - Cell(line, 271) - Cell(line, 1165),
                  Cell(line, 272) + Cell(line, 1166));
    }
    for (const Row line : Lines("'4'")) {
        const std::string code = line["code"].Text();
        SCOPED_TRACE(code);
        const double byKind = Balance("sum(amt1 + amt2) from {misc_items} where type = '44AE'", code);
        EXPECT_EQ(line["sec44"].Number(), byKind + Company("sum(am3) from {misc_items} where type = '44AE_N'", code));
        EXPECT_EQ(byKind, Company("sum(amt1 * amt2 * amt3) from {business1} where type = 'VEH'", code));
    }
}

TEST_F(DemonstrationClients, StatementsAddUp)
{
    for (const Row line : Lines("'1', '2', '8'")) {
        const std::string code = line["code"].Text();
        SCOPED_TRACE(code + " " + line["name1"].Text());
        const StatementForm form =
            OpenStatementForm(YearNumber(code.substr(code.size() - 7)), static_cast<int>(ReturnForm(practice, code)),
                              StatementKind::ProfitAndLoss);
        const bool isIndAs = IsIndAs(line);
        const Recordset rows =
            practice.tax.Query(std::string("select slno, blocked from {") + (isIndAs ? "taxauditjson" : "taxaudit") +
                                   "} where d_type = ? order by pslno",
                               isIndAs ? "INDASPL" : TemplateName(form));
        ASSERT_FALSE(rows.Empty());
        std::vector<AmountCell> amounts(1);
        for (const Row row : rows)
            amounts.emplace_back(row["blocked"].Flag() ? ""
                                                       : Rupees(Cell(line, static_cast<int>(row["slno"].Number()))));
        StatementTotals(isIndAs ? IndTotalsRules(IndStatement::INDPNL, rows.Size())
                                : TotalsRules(OperationFor(form), form),
                        rows.Size())
            .Run(amounts);
        for (std::size_t i = 0; i < rows.Size(); ++i) {
            const int slno = static_cast<int>(rows[i]["slno"].Number());
            EXPECT_EQ(amounts[i + 1].figure(), Cell(line, slno)) << "line " << slno;
            const double details = Cell(line, slno, "SNEWPL", "INDNEWPL");
            EXPECT_TRUE(details == 0 || details == Cell(line, slno)) << "line " << slno;
        }
    }
}

TEST_F(DemonstrationClients, AnnexureFollowsTheBlocksFromYearToYear)
{
    std::map<std::string, double> closing; // by client and asset
    for (const Row row : practice.balance.Query("select * from {fassets} where type = 'P' order by code")) {
        SCOPED_TRACE(row["code"].Text() + " " + row["f_name"].Text());
        const double first = row["f_opbal"].Number() + row["f_pur1"].Number() - row["f_sales1"].Number();
        const double rate = row["f_deprate"].Number();
        EXPECT_EQ(row["f_dep1"].Number(), RoundOff(first * rate / 100, 0));
        EXPECT_EQ(row["f_dep2"].Number(), RoundOff(row["f_pur2"].Number() * rate / 200, 0));
        EXPECT_EQ(row["F_Dep"].Number(), row["f_dep1"].Number() + row["f_dep2"].Number());
        EXPECT_EQ(row["f_clbal"].Number(), first + row["f_pur2"].Number() - row["F_Dep"].Number());
        const std::string asset = row["code"].Text().substr(0, 4) + row["f_name"].Text();
        EXPECT_EQ(row["f_opbal"].Number(), closing.try_emplace(asset, row["f_opbal"].Number()).first->second);
        closing[asset] = row["f_clbal"].Number();
    }
    EXPECT_GT(closing.size(), 12u);
}

} // namespace
} // namespace pgbp
