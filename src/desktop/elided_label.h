#pragma once

#include <QColor>
#include <QLabel>

namespace pgbp {

/// One line of plain text that ends in dots where it does not fit.
class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(QWidget* parent);

    void Show(const QString& whole, const QString& tip = {});
    /// Blank space at both sides of the text.
    void SetMargin(int margin) { margin_ = margin; }
    /// Draws itself: a style sheet would match each of the many labels against all its rules.
    void SetColor(const QColor& text);
    void SetBackground(const QColor& background) { background_ = background; }
    void SetMarked(bool marked);
    /// Underlined, and can have the keyboard.
    void BecomeLink();
    /// Lets the text be cut down to this width.
    void GiveWay(int least) { least_ = least; }

    /// Gives way to this width by further lines.
    void Wrap(int least);
    /// Asks for a width beyond that of the text; down to `least` it is content with less.
    void Ask(int wanted, int least);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QString Fitting() const;
    int TextWidth() const;

    QString whole_;
    QString tip_;
    QColor color_;
    QColor background_;
    bool marked_ = false;
    mutable int width_ = -1; ///< of the whole text; less than 0: not measured yet
    int margin_ = 0;
    bool wraps_ = false;
    int least_ = -1; ///< less than 0: never cut
    int wanted_ = 0; ///< width that it asks for beyond its text
    int blank_ = 0;  ///< of that, what it does not give away
};

} // namespace pgbp
