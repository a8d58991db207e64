#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace pgbp {

/// Keeps a widget of the form at its place over or below a field, whatever moves: the page that is scrolled, a card,
/// the window. It stays above the cards.
class OverField : public QObject {
  public:
    /// `place` moves the widget, given the field's rectangle in the form.
    OverField(QWidget& widget, QWidget& field, std::function<void(const QRect& field)> place);

    void Show();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void Place();

    QWidget& widget_;
    QWidget& field_;
    std::function<void(const QRect&)> place_;
};

} // namespace pgbp
