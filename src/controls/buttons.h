#pragma once

#include "controls/control.h"

#include <vector>

namespace pgbp {

/// A control that is pressed: button, image, check box, option.
class PushControl : public Control {
  public:
    PushControl(Form& form, std::string_view name, std::string captionText)
        : Control(form, name), caption(changed, std::move(captionText))
    {
    }

    Property<std::string> caption;         ///< "&" marks the mnemonic, "&&" is the letter itself
    Property<bool> inSight{changed, true}; ///< drawn; out of sight it keeps its letter
    std::function<void()> onClick;

    std::string Shows() const override { return caption; }
    bool TakesFocus() const override { return inSight; }
    virtual void Click();
    bool Type(char32_t character) override; ///< the space bar presses
};

/// A button.
class cmd : public PushControl {
  public:
    using PushControl::PushControl;
    bool isDefault = false; ///< drawn as the main button of its frame
    bool KeyDown(Key key) override;
};

/// A small picture that is clicked, such as the question mark of a help topic; its tool tip is its meaning.
class Image : public PushControl {
  public:
    Image(Form& form, std::string_view name, std::string tip) : PushControl(form, name, "")
    {
        toolTip = std::move(tip);
    }
    bool TakesFocus() const override { return false; }
};

/// A check box.
class CheckBox : public PushControl {
  public:
    using PushControl::PushControl;
    Property<bool> value{changed, false};
    CheckBox& operator=(bool ticked); ///< setting by program raises the click, as ticking does
    std::string Shows() const override { return value ? "1" : "0"; }
    void Click() override;
    bool KeyDown(Key key) override;
};

/// One of the options of its frame; choosing it lets go the others. The walk stops at the chosen one alone, from which
/// Left and Right choose the one beside it.
class Option : public PushControl {
  public:
    using PushControl::PushControl;
    Property<bool> value{changed, false};
    std::string Shows() const override { return value ? "1" : "0"; }
    bool TakesFocus() const override;
    void Click() override;
    bool KeyDown(Key key) override;

  private:
    std::vector<Option*> Group() const;
};

} // namespace pgbp
