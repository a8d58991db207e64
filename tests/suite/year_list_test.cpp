#include "suite/year_list.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace pgbp {
namespace {

AssesseeYear Year(const std::string& code, double client, const std::string& name, const std::string& pan,
                  const std::string& status)
{
    AssesseeYear year;
    year.code = code;
    year.client = client;
    year.name = name;
    year.pan = pan;
    year.status = status;
    year.year = code.substr(code.size() - 7);
    return year;
}

class ListOfYears : public testing::Test {
  protected:
    ListOfYears()
    {
        list.Show({
            Year("7r2022-23", 7, "verma hosiery", "AAQFV5512C", "05"),
            Year("7r2023-24", 7, "verma hosiery", "AAQFV5512C", "05"),
            Year("12r2023-24", 12, "Asha Gupta", "ABQPG4821K", "01"),
            Year("12r2024-25", 12, "Asha Gupta", "ABQPG4821K", "01"),
            Year("9r2023-24", 9, "Verma Gupta & Co", "AAHCS9087B", "06"),
            Year("30r2023-24", 30, "Asha Gupta", "AEVPN7043F", "01"),
        });
    }
    std::string Codes()
    {
        std::string codes;
        for (std::size_t row = 0; row < list.Size(); ++row)
            codes += (row ? " " : "") + list.At(row).code;
        return codes;
    }

    std::map<std::string, double> amounts;
    int reads = 0;
    bool isLocked = false;
    YearList list{[this](std::span<AssesseeYear* const> years) {
        ++reads;
        if (isLocked)
            throw std::runtime_error("locked");
        for (AssesseeYear* year : years) {
            year->headOfIncome.reset();
            if (const auto amount = amounts.find(year->code); amount != amounts.end())
                year->headOfIncome = amount->second;
        }
    }};
};

TEST_F(ListOfYears, FindsEachWordAnywhereInAnyOrder)
{
    struct Case {
        const char* search;
        const char* codes;
        std::size_t best;
    };
    constexpr Case kCases[] = {
        {"verma", "9r2023-24 7r2023-24 7r2022-23", 0},
        {"2023 VERMA", "9r2023-24 7r2023-24", 0},
        {"  hos\t5512c ", "7r2023-24 7r2022-23", 0},
        {"gupta ver", "9r2023-24", 0},
        {"firm", "9r2023-24 7r2023-24 7r2022-23", 0},
        {"profession", "9r2023-24", 0},
        {"7r", "7r2023-24 7r2022-23", 0},
        {"70", "30r2023-24", 0},
        {"7", "30r2023-24 9r2023-24 7r2023-24 7r2022-23", 2}, // two PANs hold it, the client of that number is meant
        {"hosieryaaq", "", 0},
        {"", "12r2024-25 12r2023-24 30r2023-24 9r2023-24 7r2023-24 7r2022-23", 0},
    };
    for (const auto& [search, codes, best] : kCases) {
        list.Search(search);
        EXPECT_EQ(Codes(), codes) << search;
        EXPECT_EQ(list.Best(), best) << search;
    }
    EXPECT_EQ(reads, 0);
}

TEST_F(ListOfYears, SortsByAnyColumnWithTheNewestYearOfAClientFirst)
{
    amounts = {{"7r2022-23", -5}, {"7r2023-24", 100}, {"12r2023-24", 20}};
    struct Case {
        YearList::Order order;
        const char* codes;
    };
    constexpr Case kCases[] = {
        {{YearList::Client, true}, "7r2023-24 7r2022-23 9r2023-24 12r2024-25 12r2023-24 30r2023-24"},
        {{YearList::Year, true}, "12r2024-25 12r2023-24 30r2023-24 9r2023-24 7r2023-24 7r2022-23"},
        {{YearList::Year, false}, "7r2022-23 12r2023-24 30r2023-24 9r2023-24 7r2023-24 12r2024-25"},
        {{YearList::Kind, false}, "7r2023-24 7r2022-23 9r2023-24 12r2024-25 12r2023-24 30r2023-24"},
        {{YearList::Pan, false}, "9r2023-24 7r2023-24 7r2022-23 12r2024-25 12r2023-24 30r2023-24"},
        {{YearList::Head, true}, "7r2023-24 12r2023-24 7r2022-23 12r2024-25 30r2023-24 9r2023-24"},
    };
    for (const auto& [order, codes] : kCases) {
        list.Sort(order);
        EXPECT_EQ(Codes(), codes) << OrderText(order);
        EXPECT_EQ(list.IsNewest(*list.RowOf("12r2024-25")), true);
        EXPECT_EQ(list.IsNewest(*list.RowOf("12r2023-24")), false);
    }
    EXPECT_EQ(reads, 6);
}

TEST_F(ListOfYears, AClientsYearsAreReadTogetherAndKept)
{
    amounts = {{"7r2022-23", -5}, {"12r2023-24", 20}};
    list.Search("7r2023-24"); // his other year is not in the list
    EXPECT_FALSE(list.KnowsYearsOfClient(0));
    EXPECT_EQ(InWords(list.YearsOfClient(0)), "2022-23: loss of 5; 2023-24: not written yet");
    EXPECT_EQ(InWords(list.YearsOfClient(0)), "2022-23: loss of 5; 2023-24: not written yet");
    EXPECT_TRUE(list.KnowsYearsOfClient(0));
    EXPECT_EQ(list.WithHead(0).code, "7r2023-24");
    EXPECT_EQ(reads, 1);

    amounts["7r2023-24"] = 900;
    list.Forget("7r2023-24");
    EXPECT_FALSE(list.KnowsYearsOfClient(0));
    EXPECT_EQ(InWords(list.YearsOfClient(0)), "2022-23: loss of 5; 2023-24: 900");
    EXPECT_EQ(reads, 2);
    list.Search("");
    EXPECT_FALSE(list.KnowsYearsOfClient(*list.RowOf("12r2023-24")));
}

TEST_F(ListOfYears, YearsThatCannotBeReadSaySoUntilTheyAreForgotten)
{
    isLocked = true;
    list.Search("7r2023-24");
    EXPECT_EQ(InWords(list.YearsOfClient(0)), "2022-23: cannot be read; 2023-24: cannot be read");
    EXPECT_TRUE(list.KnowsYearsOfClient(0)); // a locked file is waited for once
    EXPECT_EQ(list.CellText(0, YearList::Head), "cannot be read");
    isLocked = false;
    list.Forget("7r2023-24");
    EXPECT_EQ(InWords(list.YearsOfClient(0)), "2022-23: cannot be read; 2023-24: not written yet");
}

} // namespace
} // namespace pgbp
