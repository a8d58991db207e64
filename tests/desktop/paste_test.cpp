#include "desktop/sample_form.h"

#include <QAction>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>

using namespace pgbp;

namespace {

/// The ways by which a text from elsewhere comes into a field.
class Pastes : public ShownForm {
  public:
    static void PutOnClipboard(const char* text) { QGuiApplication::clipboard()->setText(QString::fromUtf8(text)); }

    void PasteByKey(TextBox&, const char* text)
    {
        PutOnClipboard(text);
        Press(Qt::Key_V, Qt::ControlModifier);
    }

    void PasteByMenu(TextBox& box, const char* text)
    {
        PutOnClipboard(text);
        QContextMenuEvent asked(QContextMenuEvent::Mouse, {5, 5}, KeyboardOf(box)->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(KeyboardOf(box), &asked);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        for (QAction* action : menu->actions())
            if (action->text().contains("Ctrl+V"))
                action->trigger();
        menu->close();
        Settle();
    }

    void Compose(TextBox& box, const char* text)
    {
        QInputMethodEvent commit;
        commit.setCommitString(QString::fromUtf8(text));
        QApplication::sendEvent(KeyboardOf(box), &commit);
    }

    void Drop(TextBox& box, const char* text)
    {
        QMimeData data;
        data.setText(QString::fromUtf8(text));
        QWidget* widget = KeyboardOf(box);
        if (auto* page = qobject_cast<QPlainTextEdit*>(widget))
            widget = page->viewport();
        QDragEnterEvent enter({9, 9}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(widget, &enter);
        QDropEvent drop({9, 9}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        if (enter.isAccepted())
            QApplication::sendEvent(widget, &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    }

    void ExpectBoth(const TextBox& box, const char* text, const std::string& why)
    {
        EXPECT_EQ(box.text(), text) << why;
        EXPECT_EQ(WidgetOf<QLineEdit>(box).text().toStdString(), text) << why;
    }
};

} // namespace

TEST_F(Pastes, ReplaceAnAmountWholeOrNotAtAll)
{
    constexpr int kEnd = -1;
    constexpr int kWhole = -2;
    struct {
        const char* before;
        int from; ///< of the selection, or one of the above
        int count;
        const char* pasted;
        const char* after;
        bool refused = false;
    } const rows[] = {
        {"0.00", kEnd, 0, "-5000", "-5000"},
        {"0.00", kWhole, 0, "-5000", "-5000"},
        {"1234.50", kEnd, 0, "123.75", "123.75"},
        {"1234.50", 2, 0, "123.75", "123.75"},
        {"1234.50", kWhole, 0, "(1,250.00)", "-1250.00"},
        {"-75", kEnd, 0, "Rs. 12,50,000.75\n", "1250000.75"},
        {"", kEnd, 0, "1,250.00 Dr", "-1250.00"},
        {"1234.50", 1, 2, "56", "1564.50"}, // the part that is marked
        {"1234.50", 1, 2, "-56", "1234.50", true},
        {"1234.50", 1, 2, "5.6", "1234.50", true},
        {"1234.50", kWhole, 0, "100\t200", "1234.50", true},
        {"1234.50", kWhole, 0, "123.456", "1234.50", true},
        {"1234.50", kWhole, 0, "1234567890123456", "1234.50", true},
        {"1234.50", kWhole, 0, "12345678901", "1234.50", true}, // longer than the field
        {"1234.50", kWhole, 0, "eleven", "1234.50", true},
    };
    const auto ways = {&Pastes::PasteByKey, &Pastes::PasteByMenu, &Pastes::Compose};
    form.amount.maxLength = form.fixed.maxLength = 10;
    for (const auto& row : rows)
        for (const auto way : ways)
            for (NumberBox* box : {static_cast<NumberBox*>(&form.amount), static_cast<NumberBox*>(&form.fixed)}) {
                const std::string why = std::string(row.pasted) + " over " + row.before + " in " + box->name();
                Focus(*box);
                view.Act([&] {
                    form.notice = "";
                    box->Set(row.before);
                    row.from == kWhole ? box->SelectAll() : box->Select(row.from == kEnd ? 99 : row.from, row.count);
                });
                int changes = 0;
                box->onChange = [&] { ++changes; };
                (this->*way)(*box, row.pasted);
                ExpectBoth(*box, row.after, why);
                EXPECT_EQ(changes, row.refused ? 0 : 1) << why;
                EXPECT_EQ(form.notice.get().starts_with("Not taken: "), row.refused) << why << form.notice.get();
                box->onChange = nullptr; // the count ends with the round
            }
}

TEST_F(Pastes, AreDroppedOnAnyFieldThatLetsThem)
{
    form.amount = "1234.50";
    Focus(form.name);
    Drop(form.amount, "(1,250.00)");
    ExpectBoth(form.amount, "-1250.00", "over a field without the focus");
    EXPECT_EQ(form.focused(), &form.amount);
    Drop(form.amount, "1,2");
    ExpectBoth(form.amount, "-1250.00", "refused");
    Drop(form.name, "Mehta");
    ExpectBoth(form.name, "Mehta", "free text");
    view.Act([&] { form.amount.locked = true; });
    Drop(form.amount, "5");
    EXPECT_EQ(form.amount.text(), "-1250.00");

    Focus(form.day);
    Type("31-2-24");
    boxes.shown.clear();
    Drop(form.name, "Shah");
    EXPECT_EQ(boxes.Take().text, "Invalid month days");
    EXPECT_EQ(form.name.text(), "Mehta") << "the old field does not let go";
}

TEST_F(Pastes, TypeWhatAnInputMethodGivesForOneKey)
{
    form.amount = "7";
    Focus(form.amount);
    for (const char* key : {"1", "2", ".", "5", "-"})
        Compose(form.amount, key);
    ExpectBoth(form.amount, "-12.5", "the first one replaces the old text");
}

TEST_F(Pastes, GoThroughTheFilterOfAFreeTextAndAreNeverCut)
{
    form.name.onKeyPress = DropQuotes;
    form.name.maxLength = 12;
    form.name = "old";
    Focus(form.name);
    PasteByKey(form.name, "D'Souza\r\n& \"Co\"\n");
    ExpectBoth(form.name, "DSouza & Co", "one line");
    PasteByKey(form.name, " and sons");
    ExpectBoth(form.name, "DSouza & Co", "too long");
    EXPECT_EQ(form.notice.get(), "Not taken: 20 characters, and there is room for 12");
    Compose(form.name, "\u0906");
    ExpectBoth(form.name, "DSouza & Co\u0906", "one character more");
    EXPECT_EQ(form.notice.get(), "Not taken: 20 characters, and there is room for 12");
    view.Act([&] { form.name.Select(0, 3); });
    PasteByMenu(form.name, "X");
    ExpectBoth(form.name, "Xuza & Co\u0906", "the marked part");
    EXPECT_EQ(form.notice.get(), "") << "a text that is taken clears the hint";

    Focus(form.note);
    PasteByKey(form.note, "one\r\ntwo\tthree\n");
    EXPECT_EQ(form.note.text(), "one\ntwo three");
}

TEST_F(Pastes, AreTakenBackByUndo)
{
    form.amount = "1234.50";
    Focus(form.amount);
    PasteByKey(form.amount, "(1,250.75)");
    ExpectBoth(form.amount, "-1250.75", "pasted");
    for (int i = 0; i < 5 && form.amount.text() != "1234.50"; ++i)
        Press(Qt::Key_Z, Qt::ControlModifier);
    ExpectBoth(form.amount, "1234.50", "undone");
    for (int i = 0; i < 5 && form.amount.text() != "-1250.75"; ++i)
        Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    ExpectBoth(form.amount, "-1250.75", "done again");
    Press(Qt::Key_Backspace, Qt::ControlModifier);
    ExpectBoth(form.amount, "-1250.", "a word erased");
}
