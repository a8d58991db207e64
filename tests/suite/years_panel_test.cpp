#include "suite/years_panel.h"

#include "desktop/captions.h"
#include "suite/years_chart_view.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace pgbp {
namespace {

/// Two clients with five years each, of which the fourth is not written, on a panel of its own.
class ClientsYears : public testing::Test {
  protected:
    ClientsYears()
    {
        std::vector<AssesseeYear> years;
        for (const auto& [client, name] : {std::pair(7, "Verma & Sons"), std::pair(8, "Wadia")})
            for (int year = 0; year < 5; ++year) {
                const std::string text = YearAfter("2019-20", year);
                years.push_back({.code = std::to_string(client) + 'r' + text,
                                 .client = static_cast<double>(client),
                                 .name = name,
                                 .pan = {},
                                 .status = "05",
                                 .year = text,
                                 .headOfIncome = {}});
            }
        list.Show(std::move(years));
        panel.resize(1000, 140);
        panel.show();
        QApplication::processEvents();
    }
    std::size_t RowOf(const char* code) { return *list.RowOf(code); }
    void MarkAndStay(const char* code)
    {
        panel.Mark(RowOf(code));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !Description().isEmpty(); }, 5000));
    }
    YearsChartView& View() { return *dynamic_cast<YearsChartView*>(panel.findChild<QWidget*>("years")); }
    QString Description() { return View().accessibleDescription(); }
    /// The tips of the chart from left to right, each once.
    QStringList Tips()
    {
        QStringList tips;
        for (int x = 0; x < View().width(); x += 3) {
            const QPoint place(x, View().height() / 2);
            QHelpEvent event(QEvent::ToolTip, place, View().mapToGlobal(place));
            QApplication::sendEvent(&View(), &event);
            if (const QString tip = QToolTip::isVisible() ? QToolTip::text() : "";
                !tip.isEmpty() && !tips.contains(tip))
                tips << tip;
        }
        QToolTip::hideText();
        return tips;
    }

    int reads = 0;
    YearList list{[this](std::span<AssesseeYear* const> years) {
        ++reads;
        constexpr double kHeads[] = {430000, -100000, 0, -1, 12345678.5};
        for (AssesseeYear* year : years) {
            const int place = std::stoi(year->year) - 2019;
            if (place != 3)
                year->headOfIncome = kHeads[place];
            year->writtenFor = place == 4 ? 1 : 0;
        }
    }};
    YearsPanel panel{nullptr, list};
};

TEST_F(ClientsYears, ExactFiguresAreInTipsAndAsTextForReaders)
{
    MarkAndStay("7r2020-21");
    const QStringList figures = {"2019-20: 4,30,000", "2020-21: loss of 1,00,000", "2021-22: 0",
                                 "2022-23: not written yet", "2023-24: 1,23,45,678.50 (minor 1)"};
    EXPECT_EQ(Tips(), figures);
    EXPECT_EQ(Description(), figures.join("; "));
    EXPECT_EQ(View().accessibleName(), "Head of income of Verma & Sons, 2020-21: loss of 1,00,000");
    const auto* forReaders = QAccessible::queryAccessibleInterface(&View());
    EXPECT_EQ(forReaders->role(), QAccessible::Chart);
    EXPECT_EQ(forReaders->text(QAccessible::Description), figures.join("; "));
}

TEST_F(ClientsYears, ArrowsWalkThemAndLeavingReturnsToTheMarkedOne)
{
    MarkAndStay("7r2020-21");
    struct Step {
        Qt::Key key;
        const char* told;
    };
    constexpr Step kSteps[] = {
        {Qt::Key_Right, "2021-22: 0"},
        {Qt::Key_Home, "2019-20: 4,30,000"},
        {Qt::Key_Left, "2019-20: 4,30,000"},
        {Qt::Key_End, "2023-24: 1,23,45,678.50 (minor 1)"},
        {Qt::Key_Right, "2023-24: 1,23,45,678.50 (minor 1)"},
    };
    View().setFocus(Qt::TabFocusReason);
    for (const auto& [key, told] : kSteps) {
        QTest::keyClick(&View(), key);
        EXPECT_TRUE(View().accessibleName().endsWith(told)) << View().accessibleName().toStdString();
    }
    View().clearFocus();
    EXPECT_TRUE(View().accessibleName().endsWith("2020-21: loss of 1,00,000"));
}

TEST_F(ClientsYears, WalkingTheListReadsNothingAndAClientIsReadOnce)
{
    for (int round = 0; round < 20; ++round)
        panel.Mark(RowOf(round % 2 ? "7r2020-21" : "8r2019-20"));
    EXPECT_EQ(reads, 0);
    EXPECT_EQ(Description(), "");
    MarkAndStay("7r2019-20");
    for (const char* code : {"7r2021-22", "7r2023-24"}) {
        panel.Mark(RowOf(code));
        EXPECT_TRUE(View().accessibleName().contains(code + 2)) << code; // at once
    }
    EXPECT_EQ(reads, 1);
    panel.Mark(RowOf("8r2019-20"));
    EXPECT_EQ(Description(), ""); // not the figures of another client
    panel.Mark(std::nullopt);
    QTest::qWait(2 * YearsPanel::kStays.count());
    EXPECT_EQ(Tips(), QStringList());
    EXPECT_EQ(reads, 1);
}

TEST_F(ClientsYears, NothingIsReadWhileALowWindowHidesThem)
{
    panel.GiveWay(300);
    EXPECT_FALSE(panel.isVisible());
    panel.Mark(RowOf("7r2020-21"));
    QTest::qWait(2 * YearsPanel::kStays.count());
    EXPECT_EQ(reads, 0);
    panel.GiveWay(2000);
    EXPECT_TRUE(panel.isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Description().isEmpty(); }, 5000));
}

} // namespace
} // namespace pgbp
