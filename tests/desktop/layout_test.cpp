#include "desktop/cell_delegate.h"
#include "desktop/sample_form.h"
#include "desktop/theme.h"

#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>

using namespace pgbp;

namespace {

class Pages : public ShownForm {
  protected:
    QRect PlaceOf(const Control& control)
    {
        QWidget* widget = view.Find(&control)->widget();
        return {widget->mapTo(&view, QPoint(0, 0)), widget->size()};
    }

    static QImage Picture(QWidget& widget, const QRect& part)
    {
        return widget.grab(part).toImage().convertToFormat(QImage::Format_RGB32);
    }

    /// The colour is in the picture of the control.
    bool Paints(const Control& control, const QColor& color)
    {
        QWidget& widget = *view.Find(&control)->widget();
        const QImage picture = Picture(widget, widget.rect());
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == color)
                    return true;
        return false;
    }
};

} // namespace

TEST_F(Pages, AlignAmountsOnOneEdgeAndGiveNoRoomToWhatIsHidden)
{
    view.resize(1100, 1000);
    Settle();
    EXPECT_EQ(PlaceOf(form.amount).right(), PlaceOf(form.total).right());
    EXPECT_EQ(PlaceOf(form.amountP).right(), PlaceOf(form.totalP).right());
    const int below = PlaceOf(form.totalCaption).top();
    view.Act([&] {
        for (Control* previous : std::initializer_list<Control*>{&form.headingP, &form.amountP, &form.totalP})
            previous->visible = false;
        form.tick.visible = false;
    });
    Settle();
    EXPECT_EQ(PlaceOf(form.total).right(), PlaceOf(form.lines).right());
    EXPECT_LE(PlaceOf(form.totalCaption).top(), below - RowHeight());
    view.Act([&] { form.framain.visible = false; });
    EXPECT_FALSE(view.Find(&form.amount)->widget()->isVisible());
}

TEST_F(Pages, TellFieldsByTheirCaptionAndAmountsByTheirSign)
{
    EXPECT_EQ(KeyboardOf(form.name)->accessibleName(), "Profits & Gains :");
    EXPECT_EQ(KeyboardOf(form.amount)->accessibleName(), "Profits & Gains :, This year");
    EXPECT_EQ(KeyboardOf(form.kinds)->accessibleName(), "Profits & Gains :") << "the caption above";
    EXPECT_EQ(KeyboardOf(form.lines)->accessibleName(), "Lines");
    EXPECT_TRUE(Paints(form.amountP, Theme().negative));
    view.Act([&] { form.amountP = "12.00"; });
    EXPECT_FALSE(Paints(form.amountP, Theme().negative));
    view.Act([&] { form.amount.enabled = false; });
    EXPECT_FALSE(KeyboardOf(form.amount)->isEnabled());
}

TEST_F(Pages, FollowTheFormWhenItChangesByItself)
{
    form.total = "99.00";
    form.cmddetails.visible = false;
    form.SetFocus(form.name);
    Settle();
    EXPECT_EQ(view.Find(&form.total)->widget()->accessibleName(), "99.00");
    EXPECT_FALSE(KeyboardOf(form.cmddetails)->isVisible());
    EXPECT_EQ(view.focusWidget(), KeyboardOf(form.name));
}

TEST_F(Pages, ScrollToTheFieldWithTheFocusWhileTheButtonsStay)
{
    view.resize(420, 300);
    Settle();
    Focus(form.note);
    Settle();
    EXPECT_TRUE(view.rect().contains(PlaceOf(form.CmdBack)));
    EXPECT_TRUE(view.rect().intersects(PlaceOf(form.note)));
}

TEST_F(Pages, KeepTheFinalFigureInSight)
{
    view.resize(1100, 400);
    Settle();
    const auto& page = *view.findChild<QScrollArea*>();
    const int bottom = page.mapTo(&view, QPoint(0, page.viewport()->height())).y();
    QWidget& figure = *view.Find(&form.net)->widget();
    const auto isSeenAtTheFoot = [&] {
        const QRect digits = figure.rect().adjusted(kUnit, kUnit, -kUnit, -kUnit);
        const QPoint corner(PlaceOf(form.net).left(), bottom - kUnit - figure.height());
        return Picture(view, digits.translated(corner)) == Picture(figure, digits);
    };
    EXPECT_GT(PlaceOf(form.net).top(), bottom);
    EXPECT_TRUE(isSeenAtTheFoot());
    view.Act([&] { form.net = "-7.00"; });
    Settle();
    EXPECT_TRUE(isSeenAtTheFoot());
    Focus(form.kinds);
    Focus(form.tick);
    EXPECT_LE(PlaceOf(form.tick).bottom(), bottom - figure.height());
    view.resize(1100, 900);
    Settle();
    EXPECT_FALSE(isSeenAtTheFoot());
}

/// Scroll bars that can be moved, from the widget up to the form.
class Cards : public Pages {
  protected:
    static int ScrollBars(const QWidget& from, Qt::Orientation orientation)
    {
        int bars = 0;
        for (const QWidget* widget = &from; widget; widget = widget->parentWidget())
            if (const auto* area = qobject_cast<const QAbstractScrollArea*>(widget)) {
                const QScrollBar& bar =
                    orientation == Qt::Vertical ? *area->verticalScrollBar() : *area->horizontalScrollBar();
                bars += bar.maximum() > bar.minimum() ? 1 : 0;
            }
        return bars;
    }

    void OpenSide(int rows)
    {
        view.Act([&] {
            form.siderows.SetRows(
                std::vector<std::vector<std::string>>(static_cast<std::size_t>(rows), {"1", "x", "5"}));
            form.siderows.SetCurrentRow(rows);
            form.Raise(form.side, form.sidetext);
        });
        Settle();
    }
};

TEST_F(Cards, ScrollAsOnePageWithTheirButtonsFixed)
{
    struct {
        QSize room;
        int bars;
    } const cases[] = {{{1366, 700}, 1}, {{640, 300}, 1}, {{640, 700}, 1}};
    OpenSide(60);
    for (const auto& [room, bars] : cases) {
        view.resize(room);
        Settle();
        EXPECT_EQ(ScrollBars(WidgetOf<QTableView>(form.siderows), Qt::Vertical), bars) << room.width();
        EXPECT_EQ(ScrollBars(WidgetOf<QTableView>(form.siderows), Qt::Horizontal), 0) << room.width();
        EXPECT_TRUE(view.rect().contains(PlaceOf(form.cmdcancel)));
        Focus(form.siderows);
        auto& table = WidgetOf<QTableView>(form.siderows);
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End}) {
            Press(key);
            Settle();
            const QRect row = table.visualRect(table.currentIndex());
            EXPECT_FALSE((table.viewport()->visibleRegion() & row).isEmpty()) << room.height();
        }
    }
}

TEST_F(Cards, LieBelowWhatBelongsToTheirFields)
{
    form.sidetext.SetOffers({"Rent", "Repairs"});
    OpenSide(3);
    const auto middle = [&](QWidget& widget) { return widget.mapTo(&view, widget.rect().center()); };
    for (const QSize room : {QSize(1366, 700), QSize(900, 400)}) {
        Focus(form.sideamount);
        Type("=");
        view.resize(room);
        Settle();
        view.Act([&] { form.caption = "drawn anew"; });
        QWidget& line = *KeyboardOf(form.sideamount);
        EXPECT_EQ(view.childAt(middle(line)), &line) << room.width();
        EXPECT_NEAR(middle(line).y(), PlaceOf(form.sideamount).center().y(), 1) << room.width();
        Press(Qt::Key_Escape);
        Focus(form.sidetext);
        Type("r");
        auto& offered = *view.findChild<QListWidget*>("offers of sidetext");
        EXPECT_EQ(view.childAt(middle(offered)), offered.viewport()) << room.width();
        EXPECT_GT(offered.y(), PlaceOf(form.sidetext).bottom()) << room.width();
        Press(Qt::Key_Escape);
    }
}

TEST_F(Cards, LeaveThePlaceOfARowThatComesAndGoes)
{
    OpenSide(1);
    const QRect rows = PlaceOf(form.siderows);
    view.Act([&] { form.sidenote.visible = false; });
    Settle();
    EXPECT_EQ(PlaceOf(form.siderows), rows);
}

TEST_F(Pages, KeepTheirButtonsNearTheirRowsUnlessAListTakesTheHeight)
{
    view.resize(1366, 1300);
    Settle();
    EXPECT_GT(PlaceOf(form.CmdBack).top(), 1200);
    class Short : public Form {
      public:
        explicit Short(MessageBoxes& boxes) : Form("Short", "Short", boxes, "Vorn")
        {
            framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&name}}}});
            bar = {&CmdBack};
        }
        Frame framain{*this, "framain", "", FramePlace::Main};
        txt name{*this, "name"};
        cmd CmdBack{*this, "CmdBack", "&Back"};
    } shortForm(boxes);
    FormView shortView(shortForm, actions);
    shortView.resize(1366, 1300);
    shortView.show();
    Settle();
    EXPECT_LT(shortView.Find(&shortForm.CmdBack)->widget()->geometry().bottom(), HighestPage() + 3 * RowHeight());
}

TEST_F(Pages, KeepTheTotalsOfAGridUnderTheirColumnsWhileItsRowsScroll)
{
    view.resize(1100, 1000);
    const auto& table = WidgetOf<QTableView>(form.lines);
    view.Act([&] {
        form.lines.SetRows(std::vector<std::vector<std::string>>(90, {"1", "Shop", "10.00"}));
        form.lines.SetFooter({"", "90 lines", "900.00"});
        form.lines.SetCurrentRow(90);
    });
    Settle();
    EXPECT_TRUE(table.viewport()->rect().contains(table.visualRect(table.currentIndex())));
    const QRect foot(table.geometry().bottomLeft() + QPoint(0, 1), QSize(table.width(), GridRowHeight() + kUnit));
    const QImage picture = Picture(*table.parentWidget(), foot);
    int edge = picture.width() - 1; // of the last digit
    while (edge > 0 && picture.copy(edge, 0, 1, picture.height()) == picture.copy(1, 0, 1, picture.height()))
        --edge;
    EXPECT_NEAR(edge, table.viewport()->geometry().right() - CellDelegate::kMargin, 2);
    view.Act([&] { form.lines.SetFooter({}); });
    Settle();
    EXPECT_EQ(table.height(), table.parentWidget()->height());
}
