#pragma once

#include <QLabel>

namespace pgbp {

/// One line of plain text that ends in dots where it does not fit.
class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(QWidget* parent);

    void Show(const QString& whole, const QString& tip = {});
    /// Blank space at both sides.
    void SetMargin(int margin);
    /// Lets the text be cut down to this width.
    void GiveWay(int least) { least_ = least; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void ShowTip();
    QString Fitting() const;

    QString whole_;
    QString tip_;
    int margin_ = 0;
    int least_ = -1; ///< less than 0: never cut
};

} // namespace pgbp
