#include "services/ini_file.h"

#include "services/fault.h"
#include "services/text.h"

#include <cerrno>
#include <fstream>
#include <functional>
#include <optional>
#include <sstream>

namespace pgbp {
namespace {

constexpr std::size_t kBuffer = 4096; // one byte of it ends the text

std::string ReadAll(const clsIniFile& ini)
{
    std::ifstream file(ini.File, std::ios::binary);
    const int error = errno;
    if (!file && FileExists(ini.File))
        throw FileFault(error, Attempt::Read, ini.File.string());
    if (!file)
        return ini.Defaults;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The lines of a file with their line ends, so that joining them gives the file back byte by byte.
std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = text.find('\n', at);
        const auto next = end == std::string::npos ? text.size() : end + 1;
        lines.push_back(text.substr(at, next - at));
        at = next;
    }
    return lines;
}

std::optional<std::string> SectionName(const std::string& line)
{
    const std::string trimmed = Trim(line);
    const auto end = trimmed.find(']');
    if (trimmed.empty() || trimmed.front() != '[' || end == std::string::npos)
        return std::nullopt;
    return Trim(trimmed.substr(1, end - 1));
}

/// Without one pair of quotes around it.
std::string Unquoted(const std::string& value)
{
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

/// A value as it goes into the file: in quotes where reading would take something from it.
std::string Written(const std::string& value) { return Unquoted(Trim(value)) == value ? value : '"' + value + '"'; }

struct Entry {
    std::string key;
    std::string written;

    std::string Value() const { return Unquoted(written); }
};

std::optional<Entry> EntryOf(const std::string& line)
{
    const auto equals = line.find('=');
    if (equals == std::string::npos || Trim(line).front() == ';')
        return std::nullopt;
    return Entry{Trim(line.substr(0, equals)), Trim(line.substr(equals + 1))};
}

/// First and one-behind-last line of the section's body; nothing when the section is missing.
std::optional<std::pair<std::size_t, std::size_t>> SectionBody(const std::vector<std::string>& lines,
                                                               std::string_view section)
{
    std::size_t first = 0;
    while (first < lines.size() && !EqualsIgnoringCase(SectionName(lines[first]).value_or("\n"), section))
        ++first;
    if (first == lines.size())
        return std::nullopt;
    std::size_t end = ++first;
    while (end < lines.size() && !SectionName(lines[end]))
        ++end;
    return std::pair{first, end};
}

/// Calls `use` for each entry of the section until it gives false.
void ForEachEntry(const clsIniFile& file, std::string_view section, const std::function<bool(Entry)>& use)
{
    const auto lines = Lines(ReadAll(file));
    const auto body = SectionBody(lines, section);
    if (!body)
        return;
    for (auto at = body->first; at < body->second; ++at)
        if (auto entry = EntryOf(lines[at]); entry && !use(std::move(*entry)))
            return;
}

/// The first entry of the key; an empty one when there is none.
Entry FirstEntry(const clsIniFile& file, std::string_view section, std::string_view key)
{
    Entry first;
    ForEachEntry(file, section, [&](Entry entry) {
        const bool found = EqualsIgnoringCase(entry.key, key);
        if (found)
            first = std::move(entry);
        return !found;
    });
    return first;
}

/// The section's entries as texts, as many as the buffer holds.
std::vector<std::string> Listed(const clsIniFile& file, std::string_view section,
                                const std::function<std::string(const Entry&)>& text)
{
    std::vector<std::string> list;
    std::size_t room = kBuffer - 1;
    ForEachEntry(file, section, [&](const Entry& entry) {
        std::string shown = text(entry);
        if (shown.size() + 1 > room)
            return false;
        room -= shown.size() + 1;
        list.push_back(std::move(shown));
        return true;
    });
    return list;
}

/// Where the key's line stands in the body, or the place behind the body's last line that is not blank.
std::size_t PlaceOfKey(const std::vector<std::string>& lines, std::pair<std::size_t, std::size_t> body,
                       std::string_view key)
{
    std::size_t behind = body.first;
    for (auto at = body.first; at < body.second; ++at) {
        if (const auto entry = EntryOf(lines[at]); entry && EqualsIgnoringCase(entry->key, key))
            return at;
        if (!Trim(lines[at]).empty())
            behind = at + 1;
    }
    return behind;
}

/// A line break would begin another entry.
std::string InOneLine(std::string_view text)
{
    std::string line(text);
    std::erase_if(line, [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
    return line;
}

} // namespace

int FileExists(const std::filesystem::path& path)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored) ? 1 : 0;
}

std::string FirstLine(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string line;
    std::getline(file, line);
    return Trim(line);
}

std::string clsIniFile::GetValue(std::string_view section, std::string_view key) const
{
    return FirstEntry(*this, section, key).Value().substr(0, kBuffer - 1);
}

std::string clsIniFile::GetWritten(std::string_view section, std::string_view key) const
{
    return FirstEntry(*this, section, key).written.substr(0, kBuffer - 1);
}

void clsIniFile::WriteValue(std::string_view section, std::string_view key, std::string_view value) const
{
    auto lines = Lines(ReadAll(*this));
    const bool endsOpen = !lines.empty() && lines.back().back() != '\n';
    const std::string lineEnd = !lines.empty() && lines.front().ends_with("\r\n") ? "\r\n" : "\n";
    if (endsOpen)
        lines.back() += lineEnd;
    auto body = SectionBody(lines, section);
    if (!body) {
        lines.push_back('[' + std::string(section) + ']' + lineEnd);
        body = std::pair{lines.size(), lines.size()};
    }
    const std::string line = std::string(key) + '=' + Written(InOneLine(value)) + lineEnd;
    const auto at = PlaceOfKey(lines, *body, key);
    if (const auto entry = at < body->second ? EntryOf(lines[at]) : std::nullopt;
        entry && EqualsIgnoringCase(entry->key, key))
        lines[at] = line;
    else
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), line);
    std::string content;
    for (const std::string& each : lines)
        content += each;
    FreshFile fresh(File);
    fresh.Write(content);
    fresh.TakePlace();
}

void clsIniFile::MakeDefaults(Rights rights) const
{
    if (FileExists(File))
        return;
    try {
        FreshFile fresh(File, rights);
        fresh.Write(Defaults);
        fresh.TakeFreePlace();
    } catch (const Fault&) {
        return; // the defaults count without a file, too
    }
}

std::vector<std::string> clsIniFile::GetSection(std::string_view section) const
{
    return Listed(*this, section, [](const Entry& entry) { return entry.key + '=' + entry.Value(); });
}

std::vector<std::string> clsIniFile::GetSectionKeys(std::string_view section) const
{
    return Listed(*this, section, [](const Entry& entry) { return entry.key; });
}

} // namespace pgbp
