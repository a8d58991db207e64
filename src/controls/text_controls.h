#pragma once

#include "controls/control.h"
#include "controls/offers.h"

#include "services/arithmetic.h"

#include <optional>

namespace pgbp {

class MessageBoxes;

enum class Notify { No, Yes };

/// A control with a text: label or text box.
class TextControl : public Control {
  public:
    using Control::Control;

    std::function<void()> onChange; ///< raised by typing and by program alike: several rules depend on it

    const std::string& text() const { return text_; }
    void Set(std::string text, Notify notify = Notify::Yes);
    TextControl& operator=(std::string text)
    {
        Set(std::move(text));
        return *this;
    }
    std::string Shows() const override { return text_; }

  private:
    std::string text_;
};

/// The number a control's text begins with; "" and "-" read as 0.
double Val(const TextControl& control);

enum class LabelLook { Caption, Amount, Hint, Heading };

/// A caption or a computed amount. The text is the caption; "&" marks the mnemonic; "&&", and "&" before a
/// blank, is the letter itself. With `onClick` it is a link: a stop of the walk, but not of Enter's.
class Label : public TextControl {
  public:
    Label(Form& form, std::string_view name, std::string text = "", LabelLook look = LabelLook::Caption);
    using TextControl::operator=;
    LabelLook look;
    std::function<void()> onClick; ///< set before the label is drawn

    /// Shows a text of the data, in which "&" is the letter itself.
    void ShowData(std::string_view text);

    void Click();
    bool TakesFocus() const override { return static_cast<bool>(onClick); }
    bool KeyDown(Key key) override;         ///< Enter clicks
    bool Type(char32_t character) override; ///< the space bar clicks
};

/// What a text box does with a pressed character.
enum class Verdict { Pass, Swallow };

/// A text box with its selection, told in characters (not bytes). The kinds below differ in the keys they act on.
class TextBox : public TextControl {
  public:
    using TextControl::operator=;

    Property<bool> locked{changed, false};
    int maxLength = 0;      ///< in characters; 0 is no limit
    bool multiLine = false; ///< Enter begins a new line

    /// The screen's own look at a pressed character: gives it back, another one, or 0 to swallow it.
    std::function<char32_t(char32_t)> onKeyPress;
    /// The Enter key, before the walk goes on.
    std::function<void()> onEnter;

    int selStart() const { return selStart_; }
    int selLength() const { return selLength_; }
    void Select(int start, int length);
    void SelectAll();

    /// Passes the character through the filters, which may change the text. What draws the box inserts a passed
    /// character itself; Type does both.
    Verdict KeyPress(char32_t& character);

    /// A text from elsewhere - the clipboard, a drop, an input method - takes the place of the selection, or is refused
    /// whole: then the text stays and a notice says why.
    void Paste(std::string_view utf8);
    /// What draws the box changed the selection to this by itself: it took back an edit, or made it again.
    virtual void Amend(std::string_view utf8) { Paste(utf8); }

    /// Texts, say those used before, offered while the preparer types: Down goes into them, Enter or Tab takes the
    /// marked one, Escape closes them.
    void SetOffers(std::vector<std::string> texts, OfferMatch match = OfferMatch::Begins);
    const Offers& offers() const { return offers_; }
    void OpenOffers(); ///< all of them, before anything is typed
    void TakeOffer(int entry);

    /// How the text is drawn while it is not being typed; the text itself stays.
    virtual std::string Drawn() const { return text(); }

    bool TakesFocus() const override { return true; }
    void Enter() override; ///< selects the whole line, so that the first key replaces the old text
    bool Leave() override;
    bool KeyDown(Key key) override;
    bool Type(char32_t character) override;

  protected:
    /// What a pasted text puts in place of the selection. Says in the notice why there is nothing.
    virtual std::optional<std::string> Pasted(std::string_view utf8);
    /// A key for the open offers; false when it means the box itself.
    bool OfferKey(Key key);
    /// Says why a text is not taken; the next one that is taken clears it.
    void Hint(std::string hint);

    enum class Walks { No, Yes };
    TextBox(Form& form, std::string_view name, Walks walks);

    /// The kind's own filter, after the screen's.
    virtual Verdict Filter(char32_t) { return Verdict::Pass; }

    bool WholeTextSelected() const;
    Walks walks() const { return walks_; }

    /// The text with the selection replaced.
    std::string WithSelection(std::string_view replaced) const;

  private:
    void ReplaceSelection(std::string_view utf8);
    void Erase(Key key);
    bool MoveCaret(Key key);

    Walks walks_;
    int selStart_ = 0;
    int selLength_ = 0;
    Offers offers_;
    std::string hint_; ///< the notice that this box gave last
};

/// Free text; Up, Down and Enter walk through the fields.
class txt : public TextBox {
  public:
    txt(Form& form, std::string_view name) : TextBox(form, name, Walks::Yes) {}
    using TextBox::operator=;
};

/// Free text without the walk.
class Txt1 : public TextBox {
  public:
    Txt1(Form& form, std::string_view name) : TextBox(form, name, Walks::No) {}
    using TextBox::operator=;
};

/// The line of arithmetic over an amount field.
struct SumLine {
    std::string text;
    SumResult result;

    std::string Shows() const; ///< "3*450 = 1350.00", or why there is no result
};

/// An amount: digits, one point and a minus that turns the sign wherever the caret stands. A pasted text is read as one
/// number; with no part of the text marked it replaces the whole. The key "=" opens a line of arithmetic: Enter, or
/// going to another field, puts its result in place of the text, Escape leaves the text.
class NumberBox : public TextBox {
  public:
    using TextBox::operator=;
    int deci = 2;        ///< digits behind the point; 0 refuses the point
    bool grouped = true; ///< drawn as 24,72,131.00; a year or another number that is counted is not

    const std::optional<SumLine>& sum() const { return sum_; }
    /// The open line reads so from now on.
    void TypeSum(std::string line);

    std::string Drawn() const override; ///< with all its places: "900000" as 9,00,000.00, an empty one as 0.00
    void Amend(std::string_view utf8) override;
    void Enter() override;
    bool Leave() override; ///< not while the open line has no result
    bool KeyDown(Key key) override;
    bool Type(char32_t character) override;

  protected:
    using TextBox::TextBox;
    Verdict Filter(char32_t character) override;
    std::optional<std::string> Pasted(std::string_view utf8) override;

  private:
    void TurnSign();
    bool SumKey(Key key);
    bool TakeSum();
    void CloseSum();
    bool DecimalsAreFull() const;
    bool DigitsAreFull() const;

    std::optional<SumLine> sum_;
};

/// An amount; Up, Down and Enter walk through the fields.
class txtn : public NumberBox {
  public:
    txtn(Form& form, std::string_view name) : NumberBox(form, name, Walks::Yes) {}
    using TextBox::operator=;
};

/// An amount without the walk: Enter does nothing.
class Txtn1 : public NumberBox {
  public:
    Txtn1(Form& form, std::string_view name) : NumberBox(form, name, Walks::No) {}
    using TextBox::operator=;
    bool KeyDown(Key key) override;
};

/// Drops the double quote and the apostrophe at the key: for the description fields whose texts the suite's own
/// programs build into statements.
char32_t DropQuotes(char32_t character);

/// Makes a letter a capital at the key: for the numbers of registrations.
char32_t InCapitals(char32_t character);

} // namespace pgbp
