#include "drive/key_script.h"

#include "controls/text_controls.h"
#include "drive/interpreter.h"
#include "services/text.h"
#include "services/utf8.h"

#include <utility>

namespace pgbp {
namespace {

constexpr std::pair<std::string_view, Key> kKeys[] = {
    {"UP", Key::Up},
    {"DOWN", Key::Down},
    {"LEFT", Key::Left},
    {"RIGHT", Key::Right},
    {"HOME", Key::Home},
    {"END", Key::End},
    {"ENTER", Key::Enter},
    {"TAB", Key::Tab},
    {"BACKTAB", Key::BackTab},
    {"ESC", Key::Escape},
    {"BACKSPACE", Key::Backspace},
    {"DELETE", Key::Delete},
    {"PGUP", Key::PageUp},
    {"PGDN", Key::PageDown},
    {"F1", Key::F1},
    {"CTRL+DOWN", Key::ControlDown},
    {"CTRL+Z", Key::Undo},
    {"CTRL+F", Key::Find},
    {"CTRL+P", Key::Print},
};

KeyStroke Named(const std::string& name)
{
    const std::string upper = Upper(name);
    for (const auto& [word, key] : kKeys)
        if (word == upper)
            return key;
    if (upper == "SELECTALL")
        return SelectAllKey{};
    if (upper.starts_with("ALT+") && upper.size() == 5)
        return AltKey{static_cast<char32_t>(upper.back())};
    throw DriveError("there is no key {" + name + "}");
}

struct Striker {
    Form& form;
    void operator()(char32_t character) const { form.Type(character); }
    void operator()(Key key) const { form.Press(key); }
    void operator()(AltKey key) const
    {
        if (!form.Mnemonic(key.letter))
            throw DriveError(std::string("no button in front has the letter ") + Utf8(key.letter));
    }
    void operator()(SelectAllKey) const
    {
        if (auto* box = dynamic_cast<TextBox*>(form.focused()))
            form.Do([&] { box->SelectAll(); });
    }
};

} // namespace

std::vector<KeyStroke> ReadKeys(const std::string& text)
{
    std::vector<KeyStroke> strokes;
    for (std::size_t at = 0; at < text.size();) {
        const auto brace = std::min(text.find('{', at), text.size());
        for (const char32_t character : Characters(text.substr(at, brace - at)))
            strokes.emplace_back(character);
        if (brace == text.size())
            break;
        const bool literal = text.compare(brace, 2, "{{") == 0;
        const auto end = literal ? brace + 1 : text.find('}', brace);
        if (end == std::string::npos)
            throw DriveError("a brace is not closed");
        strokes.push_back(literal ? KeyStroke(U'{') : Named(text.substr(brace + 1, end - brace - 1)));
        at = end + 1;
    }
    return strokes;
}

void Strike(Form& form, const KeyStroke& stroke) { std::visit(Striker{form}, stroke); }

} // namespace pgbp
