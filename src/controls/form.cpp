#include "controls/form.h"

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "services/fault.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace pgbp {
namespace {

/// The letter behind a single "&"; 0 when the caption marks none. An "&" before a blank is the letter itself.
char MarkedLetter(const std::string& caption)
{
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        const auto behind = static_cast<unsigned char>(caption[i + 1]);
        if (caption[i] == '&' && std::isalnum(behind))
            return static_cast<char>(std::toupper(behind));
        i += caption[i] == '&' ? 1 : 0;
    }
    return 0;
}

/// Letters of a caption by which a button without a mark could be called.
std::string Candidates(const std::string& caption)
{
    std::string letters;
    for (const char c : caption)
        if (std::isalnum(static_cast<unsigned char>(c)))
            letters += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return letters;
}

void AddStops(const Frame& in, std::vector<Control*>& stops)
{
    const auto add = [&](Control* control) {
        if (control && control->TakesFocus())
            stops.push_back(control);
        else if (const auto* group = dynamic_cast<const Frame*>(control))
            AddStops(*group, stops);
    };
    for (const auto& row : in.layout().rows)
        std::for_each(row.cells.begin(), row.cells.end(), add);
    std::for_each(in.layout().buttonsRight.begin(), in.layout().buttonsRight.end(), add);
    std::for_each(in.layout().buttonsLeft.begin(), in.layout().buttonsLeft.end(), add);
}

/// A column of fields that are filled in one after the other, with a button behind them that takes what was keyed. In a
/// column of amounts a button is a way to another place.
bool IsKeyedInto(const Frame& in, const LayoutRow& row, std::size_t column)
{
    const Control* cell = row.cells[column];
    return cell && cell->TakesFocus() && !dynamic_cast<const cmd*>(cell) &&
           in.layout().columns.at(column) == LayoutColumn::Field;
}

/// Enter walks through the fields. Of the buttons it stops at the main one, and at the one behind fields (Add); the
/// others wait for their letter, Tab or an arrow, and so do links.
bool StopsEnter(const Control& stop)
{
    if (dynamic_cast<const Label*>(&stop))
        return false;
    const auto* button = dynamic_cast<const cmd*>(&stop);
    if (!button || button->isDefault)
        return true;
    if (!button->container)
        return false;
    const Frame& around = *button->container;
    for (const LayoutRow& row : around.layout().rows)
        for (std::size_t i = 0, fields = 0; i < row.cells.size(); ++i) {
            if (row.cells[i] == button)
                return fields > 0;
            fields += IsKeyedInto(around, row, i) ? 1 : 0;
        }
    return false;
}

/// The picture that stands behind the control in its row: its help or its look-up.
Image* PictureBehind(const Control& control)
{
    if (!control.container)
        return nullptr;
    for (const LayoutRow& row : control.container->layout().rows)
        for (auto at = std::find(row.cells.begin(), row.cells.end(), &control); at != row.cells.end(); ++at)
            if (auto* picture = dynamic_cast<Image*>(*at))
                return picture;
    return nullptr;
}

} // namespace

Form::Form(std::string name, std::string captionText, MessageBoxes& boxes, std::string title)
    : caption(changed, std::move(captionText)), name_(std::move(name)), title_(std::move(title)), boxes_(boxes)
{
}

Control* Form::Find(std::string_view controlName) const
{
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const Control* control) { return control->name() == controlName; });
    return found == controls_.end() ? nullptr : *found;
}

void Form::Raise(Frame& card, Control& first)
{
    if (std::find(cards_.begin(), cards_.end(), &card) == cards_.end()) {
        card.cameFrom_ = FocusedStop();
        cards_.push_back(&card);
    }
    card.visible = true;
    SetFocus(first);
}

void Form::Lower(Frame& card)
{
    const auto lowered = std::find(cards_.begin(), cards_.end(), &card);
    if (lowered == cards_.end())
        return;
    for (auto over = lowered; over != cards_.end(); ++over)
        (*over)->visible = false;
    cards_.erase(lowered, cards_.end());
    const Control* before = focused_;
    if (card.onLowered)
        card.onLowered();
    if (card.cameFrom_ && focused_ == before)
        SetFocus(*card.cameFrom_);
}

/// The side frame on top, else the main frame.
Frame* Form::Front() const
{
    if (Frame* card = Card())
        return card;
    const auto main = std::find_if(frames_.begin(), frames_.end(), [](const Frame* frame) {
        return frame->place == FramePlace::Main && frame->visible;
    });
    return main == frames_.end() ? nullptr : *main;
}

std::vector<Control*> Form::Stops() const
{
    std::vector<Control*> stops;
    for (const Frame* frame : frames_)
        if (frame->place != FramePlace::Group)
            AddStops(*frame, stops);
    stops.insert(stops.end(), bar.begin(), bar.end());
    std::erase_if(stops, [](const Control* stop) { return !stop->Reachable() || !stop->TakesFocus(); });
    return stops;
}

bool Form::SetFocus(Control& control)
{
    if (!control.TakesFocus() || !control.Reachable())
        return &control == focused_;
    if (leaving_) { // the field's own handler moves the focus: that decides
        wanted_ = &control;
        return true;
    }
    if (&control == focused_)
        return true;
    if (!LeaveFocused())
        return false;
    Control& target = wanted_ ? *std::exchange(wanted_, nullptr) : control;
    if (&target == focused_)
        return false;
    focused_ = &target;
    focusMoved();
    target.Enter();
    return &target == &control;
}

/// Runs the focused field's handler of leaving; true when it lets go. Its handler may ask for another field meanwhile.
bool Form::LeaveFocused()
{
    struct Leaving {
        bool& flag;
        explicit Leaving(bool& itsFlag) : flag(itsFlag) { flag = true; }
        ~Leaving() { flag = false; }
    };
    wanted_ = nullptr;
    if (!focused_ || !focused_->Reachable())
        return true;
    const Leaving leaving(leaving_);
    return focused_->Leave();
}

/// Where the walk stands: an editor over a cell stands where its grid does.
Control* Form::FocusedStop() const { return focused_ && focused_->host ? focused_->host : focused_; }

void Form::FocusNext() { Step(1); }

void Form::FocusNextField()
{
    auto stops = Stops();
    std::erase_if(stops, [at = FocusedStop()](const Control* stop) { return stop != at && !StopsEnter(*stop); });
    StepAmong(stops, 1);
}

void Form::FocusPrevious() { Step(-1); }

void Form::Step(int direction) { StepAmong(Stops(), direction); }

void Form::StepAmong(const std::vector<Control*>& stops, int direction)
{
    if (stops.empty())
        return;
    const auto at = std::find(stops.begin(), stops.end(), FocusedStop());
    const auto count = static_cast<int>(stops.size());
    const int from = at == stops.end() ? (direction > 0 ? -1 : 0) : static_cast<int>(at - stops.begin());
    SetFocus(*stops[static_cast<std::size_t>((from + direction + count) % count)]);
}

/// Down from the field before the button that adds goes on to the rows below it; Enter presses the button.
void Form::FocusBelow()
{
    const auto stops = Stops();
    const auto at = std::find(stops.begin(), stops.end(), focused_);
    const bool addsToRows = stops.end() - at > 2 && dynamic_cast<const cmd*>(at[1]) && StopsEnter(*at[1]) &&
                            dynamic_cast<const Grid*>(at[2]);
    addsToRows ? static_cast<void>(SetFocus(*at[2])) : FocusNext();
}

void Form::FocusGrid()
{
    const auto stops = Stops();
    const auto rows = std::find_if(stops.begin(), stops.end(),
                                   [](const Control* stop) { return dynamic_cast<const Grid*>(stop) != nullptr; });
    if (rows != stops.end())
        SetFocus(**rows);
}

/// A control that was hidden or disabled under the focus gives it to the first stop.
void Form::KeepFocusReachable()
{
    if (focused_ && focused_->Reachable())
        return;
    focused_ = nullptr;
    Step(1);
    if (!focused_)
        focusMoved();
}

void Form::Do(const std::function<void()>& action)
{
    if (acting_)
        return action();
    acting_ = true;
    Guard([&] {
        action();
        KeepFocusReachable();
    });
    if (focused_ && !focused_->Reachable()) // after an error
        focused_ = nullptr;
    acting_ = false;
}

void Form::Guard(const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::exception& error) {
        boxes_.Show({PreparersWords(error), title_, Icon::Critical});
    }
}

void Form::Press(Key key)
{
    Do([&] {
        if (!focused_ || !focused_->KeyDown(key))
            DefaultKey(key);
    });
}

void Form::DefaultKey(Key key)
{
    if (key == Key::Tab || key == Key::Down)
        FocusNext();
    if (key == Key::BackTab || key == Key::Up)
        FocusPrevious();
    if (Image* picture = key == Key::F1 && focused_ ? PictureBehind(*focused_) : nullptr)
        Click(*picture);
    const Frame* front = Front();
    if (key == Key::Escape && front && front->onEscape)
        front->onEscape();
    if (key == Key::ControlDown)
        FocusGrid();
    if (key == Key::Undo && front && front->onUndo)
        front->onUndo();
    if (key == Key::Print && front && front->onPrint)
        front->onPrint();
}

void Form::Type(char32_t character)
{
    Do([&] {
        if (focused_)
            focused_->Type(character);
    });
}

void Form::Click(PushControl& control)
{
    ClickOn(control, [&] { control.Click(); });
}

void Form::Click(Label& link)
{
    ClickOn(link, [&] { link.Click(); });
}

void Form::ClickOn(Control& control, const std::function<void()>& click)
{
    Do([&] {
        const auto stops = Stops();
        const bool isStop = std::find(stops.begin(), stops.end(), &control) != stops.end();
        if (control.Reachable() && (isStop ? SetFocus(control) : LeaveFocused()))
            click();
    });
}

void Form::PressCross()
{
    Do([&] {
        if (LeaveFocused())
            Close();
    });
}

bool Form::Mnemonic(char32_t letter)
{
    const auto wanted = letter < 128 ? std::toupper(static_cast<int>(letter)) : 0;
    for (const auto& [button, mark] : Mnemonics()) {
        if (mark != wanted || !button->Reachable())
            continue;
        Click(const_cast<PushControl&>(*button));
        return true;
    }
    return false;
}

std::map<const PushControl*, char> Form::Mnemonics() const
{
    std::map<const PushControl*, char> letters;
    std::vector<const PushControl*> unmarked;
    std::string taken;
    for (const Control* control : controls_) {
        const auto* button = dynamic_cast<const PushControl*>(control);
        if (!button || !button->Shown() || !button->InFront())
            continue;
        const char letter = MarkedLetter(button->caption);
        if (letter == 0) {
            unmarked.push_back(button);
            continue;
        }
        letters[button] = letter;
        taken += letter;
    }
    for (const PushControl* button : unmarked) {
        const std::string candidates = Candidates(button->caption);
        if (const auto free = candidates.find_first_not_of(taken); free != std::string::npos)
            taken += letters[button] = candidates[free];
    }
    return letters;
}

} // namespace pgbp
