#include "suite/hand_over_row.h"

#include "services/ini_file.h"
#include "services/text.h"
#include "services/utf8.h"
#include "store/files.h"
#include "store/schema.h"
#include "suite/yes_or_no.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace pgbp {
namespace {

/// Sets a variable of the record from a text; each kind of variable has its own rule of what fits.
class Setter {
  public:
    Setter(HandOver& record, const HandOverColumn& column, std::string_view text)
        : record_(record), name_(column.name), text_(text)
    {
    }

    void operator()(std::string HandOver::*variable) const
    {
        const int width = ColumnWidth("VornTemp", "main", name_);
        if (width != 0 && CharacterCount(text_) > width)
            Refuse("is longer than " + std::to_string(width) + " characters");
        record_.*variable = text_;
    }

    void operator()(double HandOver::*variable) const { record_.*variable = Number(); }

    void operator()(int HandOver::*variable) const
    {
        const double number = Number();
        if (number != std::trunc(number) || number < std::numeric_limits<short>::min() ||
            number > std::numeric_limits<short>::max())
            Refuse("is no whole number of 16 bits");
        record_.*variable = static_cast<int>(number);
    }

    void operator()(bool HandOver::*variable) const
    {
        const auto yes = YesOrNo(text_);
        if (!yes)
            Refuse("is neither true nor false");
        record_.*variable = *yes;
    }

  private:
    double Number() const
    {
        double number = 0;
        const auto [end, error] = std::from_chars(text_.data(), text_.data() + text_.size(), number);
        if (error != std::errc() || end != text_.data() + text_.size() || !std::isfinite(number))
            Refuse("is no number");
        return number;
    }

    [[noreturn]] void Refuse(const std::string& why) const
    {
        throw std::runtime_error(std::string(name_) + ": \"" + std::string(text_) + "\" " + why + ".");
    }

    HandOver& record_;
    std::string_view name_;
    std::string_view text_;
};

/// Another program may do so at the same time.
void MakeWhereMissing(const std::filesystem::path& path)
{
    if (FileExists(path))
        return;
    try {
        CreateEmbeddedFile(path, "VornTemp");
    } catch (const StoreError&) {
        if (!FileExists(path))
            throw;
    }
}

} // namespace

HandOver PrepareHandOver(const Practice& practice, const AssesseeYear& assesseeYear)
{
    HandOver record;
    record.Glcode = assesseeYear.code;
    record.Glyear = assesseeYear.year;
    record.Glstatus = assesseeYear.status;
    record.GLcompany = assesseeYear.client;
    record.GLtitle = assesseeYear.name;
    record.GlPrCode = PrecedingCode(practice, assesseeYear);
    record.Gluser = 1;
    record.GlServer = practice.folders.Server().string();
    record.GlClient = practice.folders.Client().string();
    return record;
}

void SetColumn(HandOver& record, std::string_view columnAndValue)
{
    const auto equals = columnAndValue.find('=');
    const std::string_view name = columnAndValue.substr(0, equals);
    if (equals == std::string_view::npos)
        throw std::runtime_error("\"" + std::string(name) + "\": COLUMN=VALUE is wanted, such as GlLarge=yes.");
    const auto columns = HandOverColumns();
    const auto found = std::ranges::find_if(
        columns, [&](const HandOverColumn& column) { return EqualsIgnoringCase(column.name, name); });
    if (found == columns.end())
        throw std::runtime_error("The hand-over record has no column " + std::string(name) + ".");
    std::visit(Setter(record, *found, columnAndValue.substr(equals + 1)), found->variable);
}

void WriteHandOverFile(const Practice& practice, const HandOver& record)
{
    const std::filesystem::path path = practice.HandOverFile();
    MakeWhereMissing(path);
    const Connection file = OpenFile({path, {}});
    WriteHandOver(file, record);
    file.Execute("update {main} set GlProv = ?", record.GlProv); // the plain hand-over leaves it out
}

} // namespace pgbp
