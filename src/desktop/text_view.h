#pragma once

#include "desktop/control_view.h"
#include "desktop/text_sync.h"

namespace pgbp {

/// A field: one line, or a page of text where the box has many lines.
class TextView : public ControlView {
  public:
    TextView(TextBox& itsBox, FormView& itsForm, const Place& place);

    void FromModel() override;
    bool KeyPressed(const QKeyEvent& event) override;
    bool Noticed(QEvent& event) override;
    bool KeepsFirstPress() const override { return true; }
    void Forget() override;
    bool TakesHeight() const override { return box_.multiLine; }

  protected:
    bool Wants(Key key) const override;
    QLineEdit* line() const { return line_; }

  private:
    void MakeLine(const Place& place);
    void MakePage(const Place& place);
    void ShowSign();

    TextBox& box_;
    QLineEdit* line_ = nullptr;
    QPlainTextEdit* page_ = nullptr;
    std::unique_ptr<TextSync> sync_;
};

} // namespace pgbp
