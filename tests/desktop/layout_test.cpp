#include "desktop/cell_delegate.h"
#include "desktop/sample_form.h"
#include "desktop/theme.h"

#include <QLineEdit>
#include <QScrollArea>
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

TEST_F(Pages, KeepAButtonBesideTheNumberItBelongsTo)
{
    view.Act([&] { form.Raise(form.side, form.sidetext); });
    Settle();
    const QRect amount = PlaceOf(form.sideamount);
    EXPECT_EQ(PlaceOf(form.sidetext).right(), PlaceOf(form.siderows).right());
    EXPECT_LT(amount.right(), PlaceOf(form.cmdadd).left());
    EXPECT_LT(PlaceOf(form.cmdadd).right(), amount.right() + amount.width());
}

TEST_F(Pages, KeepTheTotalsOfAGridUnderTheirColumnsWhileItsRowsScroll)
{
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

TEST_F(Pages, GiveANarrowColumnOfAGridTheLeastFromTheWideOnes)
{
    view.Act([&] { form.Raise(form.side, form.sidetext); });
    Settle();
    const auto& table = WidgetOf<QTableView>(form.siderows);
    EXPECT_GT(table.columnWidth(0), table.fontMetrics().horizontalAdvance("10AA"));
    EXPECT_EQ(table.columnWidth(0) + table.columnWidth(1) + table.columnWidth(2), table.viewport()->width());
}
