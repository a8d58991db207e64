// How the lines of a statement are keyed: cells, pasting, undo, finding a line, and what lies behind an amount.
#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"
#include "statements/statement_screen.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <utility>

namespace pgbp {
namespace {

/// A pasted figure: digits with commas and blanks, a minus in front, no paise.
std::optional<std::string> PastedFigure(const std::string& text)
{
    if (text.find_first_not_of("0123456789,. -") != std::string::npos)
        return std::nullopt;
    const std::string read = ReadAmount(text, 0).text;
    return read.empty() ? std::nullopt : std::optional(read);
}

} // namespace

/// A list of its own, with the debtors' addresses, stands behind this line from 2019.
bool StatementScreen::IsBadDebts(std::size_t line) const
{
    constexpr std::string_view kLine = "Other (More than 1 lakh) where PAN is not available";
    constexpr int kListedFrom = 2019;
    return form_.year >= kListedFrom && Trim(MSH.Cell(static_cast<int>(line), kDescription)) == kLine;
}

bool StatementScreen::CanEnter(int row, int column) const
{
    const auto line = static_cast<std::size_t>(row);
    if (run.GLlock != 0)
        return false;
    if (column == kDescription)
        return lines_.TakesDescription(line);
    if (column != kAmount || (!lines_.TakesNumber(line) && !lines_.TakesChoice(line)))
        return false;
    return !IsBadDebts(line) || (MSH.Cell(row, kDetail) != kDetailsFilled && !Trim(MSH.Cell(row, kAmount)).empty());
}

void StatementScreen::EnterCell(int row, int column)
{
    typedInto_ = 0;
    const auto line = static_cast<std::size_t>(row);
    if (!CanEnter(row, column))
        return;
    if (column == kDescription)
        return MSH.PlaceEditor(Txt1, row, column);
    if (lines_.TakesNumber(line)) {
        if (IsBadDebts(line))
            RunTotals();
        return MSH.PlaceEditor(TxtNum, row, column);
    }
    const auto items = ChoiceItems(lines_.Slno(line));
    CmbYN.SetItems({items.begin(), items.end()});
    MSH.PlaceEditor(CmbYN, row, column);
    if (ChoiceOnOpening(Trim(MSH.Cell(row, column))) < 0)
        CmbYN.Set("", Notify::No);
}

void StatementScreen::ClickCell(int row, int column)
{
    const auto line = static_cast<std::size_t>(row);
    const std::string& mark = MSH.Cell(row, kDetail);
    if (run.GLlock != 0)
        return;
    if (column == kAmount && IsBadDebts(line) && !CanEnter(row, column))
        OpenDetails();
    if (column == kDetail && (mark == kDetailsPossible || mark == kDetailsFilled))
        OpenDetails();
}

void StatementScreen::SetAmount(std::size_t line, const std::string& text)
{
    lines_.SetAmount(line, text);
    MSH.SetCell(static_cast<int>(line), kAmount, text);
}

void StatementScreen::TypeAmount()
{
    const auto line = static_cast<std::size_t>(MSH.currentRow());
    if (line == 0 || MSH.editor() != &TxtNum)
        return;
    if (std::exchange(typedInto_, line) != line)
        undo_.push_back({{{line, MSH.Cell(MSH.currentRow(), kAmount)}}});
    const std::string typed = TxtNum.text() == "-" ? "" : TxtNum.text();
    SetAmount(line, FormatAmountIndian(typed, kIndianGrouping));
    RunTotals();
}

void StatementScreen::ChooseItem()
{
    if (MSH.currentRow() == 0 || MSH.editor() != &CmbYN || CmbYN.text().empty())
        return;
    const auto line = static_cast<std::size_t>(MSH.currentRow());
    undo_.push_back({{{line, lines_.At(line).text()}}});
    SetAmount(line, CmbYN.text());
}

void StatementScreen::TypeDescription()
{
    if (MSH.currentRow() != 0 && MSH.editor() == &Txt1)
        MSH.SetCell(MSH.currentRow(), kDescription, Trim(Txt1.text()));
}

/// A column of figures fills the open lines from the current one on; a blank line passes one over.
bool StatementScreen::PasteLines(int row, int column, const std::vector<std::string>& lines)
{
    if (column != kAmount || run.GLlock != 0)
        return false;
    std::vector<std::pair<std::size_t, std::string>> figures;
    int at = row - 1;
    for (const std::string& text : lines) {
        do
            ++at;
        while (at <= MSH.Rows() &&
               (MSH.IsHidden(at) || !CanEnter(at, kAmount) || !lines_.TakesNumber(static_cast<std::size_t>(at))));
        if (Trim(text).empty())
            continue;
        const auto figure = PastedFigure(Trim(text));
        if (!figure || at > MSH.Rows()) {
            run.Inform(figure ? "There are more figures than open lines below. Nothing was pasted."
                              : "\"" + Trim(text) + "\" is no amount in whole rupees. Nothing was pasted.");
            return true;
        }
        figures.emplace_back(at, FormatAmountIndian(*figure, kIndianGrouping));
    }
    Undo undo;
    for (const auto& [line, text] : figures) {
        undo.amounts.emplace_back(line, lines_.At(line).text());
        SetAmount(line, text);
    }
    undo_.push_back(std::move(undo));
    DataAltered = true;
    RunTotals();
    notice = std::to_string(figures.size()) + " figures pasted. Ctrl+Z takes them back.";
    MSH.EnterCell(std::min(at, MSH.Rows()), kAmount);
    return true;
}

/// What the field itself took back already is passed over.
void StatementScreen::TakeBack()
{
    bool differs = false;
    while (!undo_.empty() && !differs) {
        const Undo last = std::move(undo_.back());
        undo_.pop_back();
        for (const auto& [line, text] : last.amounts) {
            differs = differs || lines_.At(line).text() != text;
            SetAmount(line, text);
        }
        for (const auto& [line, text] : last.descriptions)
            MSH.SetCell(static_cast<int>(line), kDescription, text);
        if (last.entries) {
            differs = differs || entries_ != *last.entries;
            entries_ = *last.entries;
            for (const auto& [line, text] : last.amounts) {
                const auto its = entries_.find(lines_.Slno(line));
                const bool isFilled = its != entries_.end() && !its->second.empty();
                MSH.SetCell(static_cast<int>(line), kDetail, std::string(isFilled ? kDetailsFilled : kDetailsPossible));
            }
        }
        if (differs && !MSH.IsHidden(static_cast<int>(last.amounts.front().first)))
            MSH.EnterCell(static_cast<int>(last.amounts.front().first), kAmount);
    }
    typedInto_ = 0;
    if (!differs)
        return;
    DataAltered = true;
    RunTotals();
}

/// The next line from the marked one on that has the serial, else one that has all the words.
void StatementScreen::FindLine()
{
    const std::string wanted = Upper(Trim(TxtFind.text()));
    if (wanted.empty())
        return;
    const auto hasSerial = [&](int row) { return Upper(Trim(MSH.Cell(row, kSerial))) == wanted; };
    const auto hasWords = [&](int row) {
        const std::string line = Upper(MSH.Cell(row, kDescription));
        std::istringstream words(wanted);
        return std::all_of(std::istream_iterator<std::string>(words), {},
                           [&](const std::string& word) { return line.find(word) != std::string::npos; });
    };
    const auto goTo = [this](const auto& has) {
        const int rows = MSH.Rows();
        for (int step = 0; step < rows; ++step)
            if (const int row = (std::max(MSH.currentRow(), 1) - 1 + step) % rows + 1; !MSH.IsHidden(row) && has(row)) {
                MSH.SetCurrentRow(row);
                return true;
            }
        return false;
    };
    if (!goTo(hasSerial) && !goTo(hasWords))
        notice = "No line has \"" + TxtFind.text() + "\".";
}

void StatementScreen::OpenDetails()
{
    const int row = MSH.currentRow();
    if (row == 0 || MSH.Cell(row, kDetail).empty())
        return;
    const auto line = static_cast<std::size_t>(row);
    if (IsBadDebts(line) && MSH.Cell(row, kDetail) != kDetailsFilled)
        return OpenBadDebts(line);
    const int slno = lines_.Slno(line);
    const auto entries = entries_.find(slno);
    details.Open(slno, Trim(MSH.Cell(row, kDescription)),
                 entries == entries_.end() ? std::vector<DetailEntry>() : entries->second);
}

void StatementScreen::OpenBadDebts(std::size_t line)
{
    run.screens.ShowModal(screens::FrmQ47ii, {.saved = [this, line](double rupees) {
                              undo_.push_back({{{line, lines_.At(line).text()}}});
                              SetAmount(line, FormatAmountIndian(Rupees(rupees), kIndianGrouping));
                              DataAltered = true;
                              RunTotals();
                          }});
}

void StatementScreen::CloseDetails(std::vector<DetailEntry> entries, double total)
{
    const auto line = lines_.Find(details.slno());
    const int row = static_cast<int>(*line);
    undo_.push_back({{{*line, lines_.At(*line).text()}}, entries_});
    entries_[details.slno()] = std::move(entries);
    SetAmount(*line, FormatAmountIndian(Rupees(total), kIndianGrouping));
    MSH.SetCell(row, kDetail, std::string(total > 0 ? kDetailsFilled : kDetailsPossible));
    RunTotals();
    MSH.EnterCell(row, kAmount);
}

} // namespace pgbp
