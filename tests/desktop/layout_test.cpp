#include "desktop/sample_form.h"
#include "desktop/theme.h"

#include <QLabel>
#include <QLineEdit>

using namespace pgbp;

namespace {

class Pages : public ShownForm {
  protected:
    QRect PlaceOf(const Control& control)
    {
        QWidget* widget = view.Find(&control)->widget();
        return {widget->mapTo(&view, QPoint(0, 0)), widget->size()};
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
    EXPECT_EQ(view.Find(&form.amountP)->widget()->property("sign"), "negative");
    view.Act([&] { form.amountP = "12.00"; });
    EXPECT_EQ(view.Find(&form.amountP)->widget()->property("sign"), "");
    view.Act([&] { form.amount.enabled = false; });
    EXPECT_FALSE(KeyboardOf(form.amount)->isEnabled());
}

TEST_F(Pages, FollowTheFormWhenItChangesByItself)
{
    form.total = "99.00";
    form.cmddetails.visible = false;
    form.SetFocus(form.name);
    Settle();
    EXPECT_EQ(qobject_cast<QLabel*>(view.Find(&form.total)->widget())->text(), "99.00");
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
