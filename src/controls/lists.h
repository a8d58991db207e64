#pragma once

#include "controls/text_controls.h"

#include <string>
#include <vector>

namespace pgbp {

/// A field with a list that drops down. Free text can be typed only when `editable`.
class combo : public TextBox {
  public:
    combo(Form& form, std::string_view name, bool isEditable = false)
        : TextBox(form, name, Walks::Yes), editable(isEditable)
    {
    }
    using TextBox::operator=;

    const bool editable;
    std::function<void()> onClick; ///< an item was chosen

    const std::vector<std::string>& items() const { return items_; }
    void SetItems(std::vector<std::string> items);
    /// Chooses an item as the preparer does; -1 chooses none.
    void Choose(int item);
    int Chosen() const; ///< -1 when the text is none of the items

    bool KeyDown(Key key) override; ///< Up and Down choose in a list that cannot be typed into
    bool Type(char32_t character) override;

  private:
    std::vector<std::string> items_;
};

/// A list of titles. Entries count from 1; 0 is the empty spot below them.
class List : public Control {
  public:
    using Control::Control;

    std::function<void(int entry)> onClick;
    std::function<void(int entry)> onDoubleClick;

    const std::vector<std::string>& items() const { return items_; }
    void SetItems(std::vector<std::string> items);
    int current() const { return current_; }
    void Click(int entry);
    void DoubleClick(int entry);

    std::string Shows() const override;
    bool TakesFocus() const override { return true; }
    bool KeyDown(Key key) override; ///< Up and Down move, Enter clicks; Down behind the last entry is the empty spot

  private:
    std::vector<std::string> items_;
    int current_ = 0;
};

} // namespace pgbp
