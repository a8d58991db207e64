#pragma once

#include "controls/text_controls.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class QKeyEvent;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

namespace pgbp {

class FormView;

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
    virtual Span Selection() const = 0;
    virtual void Select(Span span) = 0;

    std::function<void()> edited;   ///< the widget itself changed the text: paste, undo, input method, Backspace
    std::function<void()> selected; ///< caret or selection moved
};

std::unique_ptr<Editor> MakeEditor(QLineEdit& line);
std::unique_ptr<Editor> MakeEditor(QPlainTextEdit& page);

/// Keeps a text box and its editor alike. Every character, typed or pasted, goes through the box's key filter; what the
/// widget does itself is taken back to the characters it put in, and these are passed through the same filter.
class TextSync {
  public:
    TextSync(TextBox& box, FormView& form, std::unique_ptr<Editor> editor);

    void FromModel();
    /// True for a character, which is then typed into the box.
    bool KeyPressed(const QKeyEvent& event);

  private:
    void Edited();
    void Selected();
    QString ModelText() const;

    TextBox& box_;
    FormView& form_;
    std::unique_ptr<Editor> editor_;
    bool following_ = false;
};

/// The characters of a key press that are text; empty for a key that is none.
std::u32string TypedText(const QKeyEvent& event);

} // namespace pgbp
