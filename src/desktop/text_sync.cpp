#include "desktop/text_sync.h"

#include "controls/form.h"
#include "desktop/captions.h"
#include "desktop/form_view.h"
#include "desktop/offer_list.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextCursor>

#include <algorithm>
#include <limits>

namespace pgbp {
namespace {

class LineEditor : public Editor {
  public:
    explicit LineEditor(QLineEdit& line) : line_(line)
    {
        line.setMaxLength(std::numeric_limits<int>::max()); // the box keeps the length; the widget would cut silently
        QObject::connect(&line, &QLineEdit::textEdited, &connections_, [this] { edited(); });
        QObject::connect(&line, &QLineEdit::selectionChanged, &connections_, [this] { selected(); });
        QObject::connect(&line, &QLineEdit::cursorPositionChanged, &connections_, [this] { selected(); });
    }

    QString Text() const override { return line_.text(); }

    void Replace(Span span, const QString& with) override
    {
        if (!FormView::HasKeyboard(line_)) // the program's own change is no step of undo
            return line_.setText(Text().replace(span.start, span.length, with));
        Select(span);
        line_.insert(with);
    }

    void Begin(const QString& text) override { line_.setText(text); }

    Span Selection() const override
    {
        if (line_.hasSelectedText())
            return {line_.selectionStart(), line_.selectionLength()};
        return {line_.cursorPosition(), 0};
    }

    void Select(Span span) override
    {
        span.length > 0 ? line_.setSelection(span.start, span.length) : line_.setCursorPosition(span.start);
    }

    QWidget& Widget() const override { return line_; }
    int PlaceAt(QPoint point) const override { return line_.cursorPositionAt(point); }
    QMenu* StandardMenu() const override { return line_.createStandardContextMenu(); }

  private:
    QLineEdit& line_;
    QObject connections_;
};

class PageEditor : public Editor {
  public:
    explicit PageEditor(QPlainTextEdit& page) : page_(page)
    {
        QObject::connect(&page, &QPlainTextEdit::textChanged, &connections_, [this] { edited(); });
        QObject::connect(&page, &QPlainTextEdit::cursorPositionChanged, &connections_, [this] { selected(); });
        QObject::connect(&page, &QPlainTextEdit::selectionChanged, &connections_, [this] { selected(); });
    }

    QString Text() const override { return page_.toPlainText(); }

    void Replace(Span span, const QString& with) override
    {
        if (!FormView::HasKeyboard(page_))
            return page_.setPlainText(Text().replace(span.start, span.length, with));
        Select(span); // another cursor's change would leave the page's own one in its old column
        page_.insertPlainText(with);
    }

    void Begin(const QString& text) override { page_.setPlainText(text); }

    Span Selection() const override
    {
        const QTextCursor cursor = page_.textCursor();
        return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
    }

    void Select(Span span) override { page_.setTextCursor(CursorOver(span)); }
    QWidget& Widget() const override { return page_; }
    int PlaceAt(QPoint point) const override { return page_.cursorForPosition(point).position(); }
    QMenu* StandardMenu() const override { return page_.createStandardContextMenu(); }

  private:
    QTextCursor CursorOver(Span span) const
    {
        QTextCursor cursor(page_.document());
        cursor.setPosition(span.start);
        cursor.setPosition(span.start + span.length, QTextCursor::KeepAnchor);
        return cursor;
    }

    QPlainTextEdit& page_;
    QObject connections_;
};

/// What turns one text into the other: a stretch that is replaced.
struct Difference {
    Span span;
    QString with;
    bool Any() const { return span.length > 0 || !with.isEmpty(); }
};

/// The shortest one; a character of two units is never cut in half.
Difference Compare(const QString& before, const QString& after)
{
    const auto shorter = std::min(before.size(), after.size());
    qsizetype start = std::mismatch(before.begin(), before.begin() + shorter, after.begin()).first - before.begin();
    if (start > 0 && before[start - 1].isHighSurrogate())
        --start;
    qsizetype end = 0;
    while (end < shorter - start && before[before.size() - 1 - end] == after[after.size() - 1 - end])
        ++end;
    if (end > 0 && before[before.size() - end].isLowSurrogate())
        --end;
    return {{static_cast<int>(start), static_cast<int>(before.size() - start - end)},
            after.mid(start, after.size() - start - end)};
}

int CharactersBefore(const QString& text, int unit)
{
    const auto front = QStringView(text).left(unit);
    return unit -
           static_cast<int>(std::count_if(front.begin(), front.end(), [](QChar c) { return c.isLowSurrogate(); }));
}

int UnitsBefore(const QString& text, int character)
{
    int unit = 0;
    for (; character > 0 && unit < text.size(); --character)
        unit += text[unit].isHighSurrogate() ? 2 : 1;
    return unit;
}

} // namespace

std::unique_ptr<Editor> MakeEditor(QLineEdit& line) { return std::make_unique<LineEditor>(line); }

std::unique_ptr<Editor> MakeEditor(QPlainTextEdit& page) { return std::make_unique<PageEditor>(page); }

std::u32string TypedText(const QKeyEvent& event)
{
    const auto held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool isAltGr = held == (Qt::ControlModifier | Qt::AltModifier);
    const QString text = event.text();
    const bool printable = !text.isEmpty() && (text[0].isPrint() || text[0].isSurrogate());
    return printable && (!held || isAltGr) ? text.toStdU32String() : std::u32string();
}

TextSync::TextSync(TextBox& box, FormView& form, std::unique_ptr<Editor> editor)
    : box_(box), form_(form), editor_(std::move(editor))
{
    editor_->edited = [this] { Edited(); };
    editor_->selected = [this] { Selected(); };
}

/// Lines end as the widgets end them.
QString TextSync::ModelText() const { return Text(box_.text()).replace("\r\n", "\n"); }

/// Else the editor shows the text as it is drawn, and what is marked there is none of the box's concern.
bool TextSync::IsTyped() const { return form_.form.focused() == &box_ && !box_.locked; }

void TextSync::FromModel()
{
    following_ = true;
    const QString text = IsTyped() ? ModelText() : Text(box_.Drawn()).replace("\r\n", "\n");
    if (const Difference change = Compare(editor_->Text(), text); change.Any())
        editor_->Replace(change.span, change.with);
    // a selection says that the next key replaces the text
    if (IsTyped()) {
        const int start = UnitsBefore(text, box_.selStart());
        const Span span{start, UnitsBefore(text, box_.selStart() + box_.selLength()) - start};
        if (editor_->Selection() != span)
            editor_->Select(span);
    }
    following_ = false;
    ShowOffers();
}

void TextSync::Forget()
{
    following_ = true;
    editor_->Begin(ModelText());
    following_ = false;
}

void TextSync::ShowOffers()
{
    const bool isUp = IsTyped() && box_.offers().IsOpen();
    if (isUp && !offers_) {
        offers_ = new OfferList(&form_, editor_->Widget());
        offers_->setObjectName("offers of " + Text(box_.name()));
        QObject::connect(offers_, &QListWidget::clicked, &editor_->Widget(),
                         [this](const QModelIndex& at) { form_.Act([&] { box_.TakeOffer(at.row()); }); });
    }
    if (isUp)
        offers_->Show(box_.offers());
    else if (offers_)
        offers_->hide();
}

bool TextSync::KeyPressed(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Paste)) {
        Paste(QGuiApplication::clipboard()->text());
        return true;
    }
    const bool opensOffers =
        event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && event.modifiers() == Qt::AltModifier);
    if (opensOffers && box_.offers().Any()) {
        form_.Act([&] { box_.OpenOffers(); });
        return true;
    }
    const std::u32string typed = TypedText(event);
    if (!typed.empty())
        form_.Act([&] { std::for_each(typed.begin(), typed.end(), [&](char32_t c) { form_.form.Type(c); }); });
    return !typed.empty();
}

bool TextSync::Noticed(QEvent& event)
{
    switch (event.type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return Dropped(static_cast<QDropEvent&>(event));
    case QEvent::InputMethod:
        return Composed(static_cast<const QInputMethodEvent&>(event));
    case QEvent::ContextMenu:
        ShowMenu(static_cast<const QContextMenuEvent&>(event));
        return true;
    case QEvent::MouseButtonRelease: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        const bool pastes = mouse.button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection();
        if (pastes)
            PasteAt(mouse.position().toPoint(), QGuiApplication::clipboard()->text(QClipboard::Selection));
        return pastes;
    }
    default:
        return false;
    }
}

void TextSync::Paste(const QString& text)
{
    form_.Act([&] { box_.Paste(text.toStdString()); });
}

/// The field comes to the keyboard first, where the old one lets go.
void TextSync::PasteAt(QPoint place, const QString& text)
{
    form_.Act([&] {
        if (!form_.form.SetFocus(box_))
            return;
        box_.Select(CharactersBefore(ModelText(), editor_->PlaceAt(place)), 0);
        box_.Paste(text.toStdString());
    });
}

/// What is dropped is copied: it stays where it came from.
bool TextSync::Dropped(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(event.mimeData()->hasText() && MayPaste());
    if (event.type() == QEvent::Drop && event.isAccepted())
        PasteAt(event.position().toPoint(), event.mimeData()->text());
    return true;
}

/// An input method gives single characters as well, for each key: these are typed. The widget draws what is not
/// finished yet.
bool TextSync::Composed(const QInputMethodEvent& event)
{
    const QString& text = event.commitString();
    if (text.isEmpty())
        return false;
    QInputMethodEvent unfinished(event.preeditString(), event.attributes());
    QCoreApplication::sendEvent(&editor_->Widget(), &unfinished);
    if (event.replacementLength() > 0)
        editor_->Select({editor_->Selection().start + event.replacementStart(), event.replacementLength()});
    const std::u32string characters = text.toStdU32String();
    if (characters.size() > 1)
        Paste(text);
    else
        form_.Act([&] { form_.form.Type(characters.front()); });
    return true;
}

/// The widget's own menu, with a "Paste" that goes to the box.
void TextSync::ShowMenu(const QContextMenuEvent& event)
{
    QMenu* menu = editor_->StandardMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QString keys = '\t' + QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
    for (QAction* action : menu->actions())
        if (action->text().endsWith(keys)) {
            action->disconnect();
            QObject::connect(action, &QAction::triggered, &editor_->Widget(),
                             [this] { Paste(QGuiApplication::clipboard()->text()); });
        }
    menu->popup(event.globalPos());
}

void TextSync::Edited()
{
    if (following_ || !IsTyped())
        return;
    const QString before = ModelText();
    const Difference change = Compare(before, editor_->Text());
    if (!change.Any())
        return;
    form_.Act([&] {
        box_.Set(before.toStdString(), Notify::No);
        const int from = CharactersBefore(before, change.span.start);
        box_.Select(from, CharactersBefore(before, change.span.start + change.span.length) - from);
        if (change.with.isEmpty())
            box_.KeyDown(Key::Delete);
        else
            box_.Amend(change.with.toStdString());
    });
}

void TextSync::Selected()
{
    if (following_ || !IsTyped())
        return;
    const QString text = ModelText();
    const Span span = editor_->Selection();
    const int start = CharactersBefore(text, span.start);
    const int length = CharactersBefore(text, span.start + span.length) - start;
    if (start != box_.selStart() || length != box_.selLength())
        box_.Select(start, length);
}

} // namespace pgbp
