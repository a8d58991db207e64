#pragma once

#include "controls/text_controls.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class QContextMenuEvent;
class QDropEvent;
class QInputMethodEvent;
class QKeyEvent;
class QLineEdit;
class QMenu;
class QMimeData;
class QPlainTextEdit;
class QWidget;

namespace pgbp {

class FormView;
class OfferList;

/// A selection, or the caret when it is empty, in the toolkit's units (UTF-16).
struct Span {
    int start = 0;
    int length = 0;
    bool operator==(const Span&) const = default;
};

/// The widget a text box is typed into: a line or a page.
class Editor {
  public:
    virtual ~Editor() = default;
    virtual QString Text() const = 0;
    /// As one step of undo while the widget has the keyboard.
    virtual void Replace(Span span, const QString& with) = 0;
    virtual void Begin(const QString& text) = 0; ///< anew, with nothing to undo
    virtual Span Selection() const = 0;
    virtual void Select(Span span) = 0;
    virtual QWidget& Widget() const = 0;
    virtual int PlaceAt(QPoint point) const = 0; ///< between which characters the point lies
    virtual QMenu* StandardMenu() const = 0;

    std::function<void()> edited;   ///< the widget itself changed the text: undo, a word erased, a part cut out
    std::function<void()> selected; ///< caret or selection moved
};

std::unique_ptr<Editor> MakeEditor(QLineEdit& line);
std::unique_ptr<Editor> MakeEditor(QPlainTextEdit& page);

/// Keeps a text box and its editor alike. Typed characters go through the box's key filter. A text from elsewhere is
/// the box's to read, by whatever way it comes, and never enters the widget by itself. What the widget still does
/// alone, erasing and undoing, is told to the box as the stretch that it replaced.
class TextSync {
  public:
    TextSync(TextBox& box, FormView& form, std::unique_ptr<Editor> editor);

    void FromModel();
    /// What was typed so far can not be undone any more.
    void Forget();
    /// True for a character, which is then typed into the box.
    bool KeyPressed(const QKeyEvent& event);
    /// True for an event that brought a text from elsewhere.
    bool Noticed(QEvent& event);

  private:
    void Paste(const QString& text);
    void PasteAt(QPoint place, const QString& text);
    bool Dropped(QDropEvent& event);
    bool Composed(const QInputMethodEvent& event);
    void ShowMenu(const QContextMenuEvent& event);
    bool MayPaste() const { return box_.Reachable() && !box_.locked; }
    void ShowOffers();
    bool IsTyped() const;
    void Edited();
    void Selected();
    QString ModelText() const;

    TextBox& box_;
    FormView& form_;
    std::unique_ptr<Editor> editor_;
    OfferList* offers_ = nullptr; ///< made when there is something to offer first
    bool following_ = false;
};

/// The characters of a key press that are text; empty for a key that is none.
std::u32string TypedText(const QKeyEvent& event);

} // namespace pgbp
