#include "statements/export_formulas.h"

#include "statements/form_predicates.h"
#include "statements/template_row.h"
#include "workbook/formula.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

namespace pgbp {
namespace {

struct Line {
    int row;
    std::string_view formula = {}; ///< none: the form has no total here, the formula of the layer before goes
    std::string_view unlocked = {};
};

// -- Up to 2016

constexpr Line kUpTo2016[] = {
    {8, "=sum(C4:C7)", "C4:C7"},
    {20, "=sum(C10:C19)", "C10:C19"},
    {22, "=sum(C2+C8+C20+C21)", "C2,C8,C20,C21"},
    {33, "=sum(C26:C32)", "C26:C32"},
    {51, "=sum(C41:C50)", "C41:C50"},
    {57, "=sum(C53:C56)", "C53:C56"},
    {81, "=sum(C76:C80)", "C76:C80"},
    {87, "=C22-sum(C23,C24,C33,C34:C39,C51,C57,C58:C74,C81,C82:C86)",
     "C22,C23,C24,C33,C34:C39,C51,C57,C58:C74,C81,C82:C86"},
    {90, "=sum(C87-C88-C89)"},
    {93, "=sum(C90-C91-C92)", "C90,C91,C92"},
    {95, "=sum(C93+C94)"},
    {97, "=sum(C95-C96)"},
    {102, "=sum(C100-C101)"},
};

// -- 2017 to 2020

constexpr Line kFirm2017[] = {
    {8, "=sum(C6:C7)", "C6:C7"},
    {9, "=sum(C3+C4+C8)"},
    {16, "=sum(C12:C15)"},
    {17, "=sum(C9,C10,C16)"},
    {31, "=sum(C29+C30)", "C29:C30"},
    {32, "=sum(C19:C27,C31)"},
    {37, "=sum(C34:C36)", "C34:C36"},
    {38, "=sum(C9+C32+C37)"},
    {43, "=sum(C40:C42)", "C40:C42"},
    {53, "=sum(C46:C52)", "C46:C52"},
    {71, "=sum(C61:C70)", "C61:C70"},
    {79, "=sum(C75:C78)", "C75:C78"},
    {89, "=sum(C87:C88)", "C87:C88"},
    {93, "=sum(C91:C92)", "C91:C92"},
    {97, "=sum(C95+C96)", "C95,C96"},
    {115, "=sum(C110:C114)", "C110:C114"},
    {121, "=sum(C119:C120)", "C119:C120"},
    {128, "=sum(C123:C127)", "C123:C127"},
    {137, "=sum(C133:C136)", "C133:C136"},
    {139, "=sum(C131-C137-C138)"},
    {142, "=sum(C139-C140-C141)"},
    {144, "=sum(C142+C143)"},
    {146, "=sum(C144-C145)"},
    {158, "=sum(C152+C157)"},
};

constexpr Line kIndividual2017[] = {
    {17, "=sum(C9,C16)"},
    {120, "=sum(C118:C119)", "C118:C119"},
    {121},
    {127, "=sum(C122:C126)", "C122:C126"},
    {128},
    {134, "=sum(C132:C133)", "C132:C133"},
    {136, "=sum(C130-C134-C135)"},
    {137},
    {139, "=sum(C136-C137-C138)"},
    {141, "=sum(C139+C140)"},
    {142},
    {143, "=sum(C141-C142)"},
    {144},
    {146},
    {155, "=sum(C149-C154)"},
    {158},
};

constexpr Line kCompany2017[] = {
    {9},
    {11, "=sum(C3+C4+C8+C9+C10)"},
    {16},
    {17, "=sum(C13:C16)"},
    {18, "=sum(C11+C17)"},
    {31},
    {32, "=sum(C30+C31)", "C30:C31"},
    {33, "=sum(C21:C28,C32)"},
    {37},
    {38, "=sum(C35:C37)", "C35:C37"},
    {39, "=sum(C18,C33,C38)"},
    {43},
    {44, "=sum(C41:C43)", "C41:C43"},
    {53},
    {54, "=sum(C47:C53)", "C47:C53"},
    {71},
    {72, "=sum(C62:C71)", "C62:C71"},
    {79},
    {80, "=sum(C76:C79)", "C76:C79"},
    {89},
    {90, "=sum(C88:C89)", "C88:C89"},
    {93},
    {94, "=sum(C92:C93)", "C92:C93"},
    {97},
    {98, "=sum(C96+C97)", "C96,C97"},
    {115},
    {116, "=sum(C111:C115)", "C111:C115"},
    {135, "=sum(C133:C134)", "C133:C134"},
    {137, "=sum(C131-C135-C136)"},
    {139},
    {140, "=sum(C137-C138-C139)"},
    {142, "=sum(C140+C141)"},
    {144},
    {146},
    {148, "=sum(C144:C147)"},
    {149, "=sum(C142-C148)"},
    {158},
};

// -- From 2021: Manufacturing Account, Trading Account, Profit and Loss Account

constexpr Line kFirm2021[] = {
    {6, "=sum(C4:C5)"},
    {9, "=sum(C10+C11+C12)"},
    {20, "=sum(C14:C19)"},
    {21, "=sum(C6+C7+C8+C9+C20)"},
    {25, "=sum(C23+C24)"},
    {26, "=sum(C21-C25)"},
    {35, "=sum(C33:C34)"},
    {36, "=sum(C30+C31+C35)"},
    {47, "=sum(C39:C46)"},
    {48, "=sum(C36+C37+C47)"},
    {50, "=sum(C48+C49)"},
    {53, "=sum(C54:C56)"},
    {69, "=sum(C58:C68)"},
    {70, "=sum(C26)"},
    {71, "=sum(C50-C51-C52-C53-C69-C70)"},
    {72, "=sum(C71)"},
    {87, "=sum(C85:C86)"},
    {88, "=sum(C74+C75+C76+C77+C78+C79+C80+C81+C82+C83+C87)"},
    {89, "=sum(C72+C88)"},
    {107, "=sum(C97:C106)"},
    {115, "=sum(C111:C114)"},
    {125, "=sum(C123+C124)"},
    {129, "=sum(C127+C128)"},
    {133, "=sum(C131+C132)"},
    {155, "=sum(C146:C154)"},
    {161, "=sum(C159:C160)"},
    {168, "=sum(C163:C167)"},
    {171, "=sum(C89-(C90+C91+C92+C93+C94+C95+C107+C115+C116+C117+C118+C119+C120+C121+C125+C129+C133+C134+C135+C136+"
          "C137+C138+C139+C140+C141+C142+C143+C144+C155+C156+C157+C161+C168+C169+C170))"},
    {177, "=sum(C173:C176)"},
    {179, "=sum(C171-C177-C178)"},
    {182, "=sum(C179-C180-C181)"},
    {184, "=sum(C182+C183)"},
    {186, "=sum(C184-C185)"},
    {192, "=sum(C190-C191)"},
    {197, "=sum(C195-C196)"},
    {198, "=sum(C192+C197)"},
};

/// Without the line of the partners' remuneration, every later line is one row higher.
constexpr Line kWithoutPartners2021[] = {
    {160, "=sum(C158:C159)"},
    {161},
    {167, "=sum(C162:C166)"},
    {168},
    {170, "=sum(C89-(C90+C91+C92+C93+C94+C95+C107+C115+C116+C117+C118+C119+C120+C121+C125+C129+C133+C134+C135+C136+"
          "C137+C138+C139+C140+C141+C142+C143+C144+C155+C156+C160+C167+C168+C169))"},
    {171},
    {174, "=sum(C172:C173)"},
    {176, "=sum(C170-C174-C175)"},
    {177},
    {179, "=sum(C176-C177-C178)"},
    {181, "=sum(C179+C180)"},
    {182},
    {184},
    {186},
    {192},
    {197},
    {198},
};

constexpr Line kIndividual2021[] = {
    {183, "=sum(C181-C182)"}, {189, "=sum(C187-C188)"}, {194, "=sum(C192-C193)"}, {195, "=sum(C189+C194)"}};

constexpr Line kCompany2021[] = {{187, "=sum(C182:C186)"}, {188, "=sum(C181-C187)"}};

using Layers = std::span<const std::span<const Line>>;

constexpr std::span<const Line> kLayersUpTo2016[] = {kUpTo2016};
constexpr std::span<const Line> kLayers17Firm[] = {kFirm2017};
constexpr std::span<const Line> kLayers17Individual[] = {kFirm2017, kIndividual2017};
constexpr std::span<const Line> kLayers17Company[] = {kFirm2017, kCompany2017};
constexpr std::span<const Line> kLayers21Firm[] = {kFirm2021};
constexpr std::span<const Line> kLayers21Individual[] = {kFirm2021, kWithoutPartners2021, kIndividual2021};
constexpr std::span<const Line> kLayers21Company[] = {kFirm2021, kWithoutPartners2021, kCompany2021};

struct Sheet {
    Layers layers; ///< a later one replaces rows of the earlier ones
    ExportLook look;
};

constexpr ExportLook kLookUpTo2020 = {.addsUpPreviousYear = false, .opensCells = true, .numberFormat = "General"};
constexpr ExportLook kLookFrom2021 = {.addsUpPreviousYear = true, .opensCells = false, .numberFormat = "0"};

/// By operation, in the order of their names.
constexpr Sheet kSheets[] = {
    {kLayersUpTo2016, kLookUpTo2020},  {kLayers17Firm, kLookUpTo2020}, {kLayers17Individual, kLookUpTo2020},
    {kLayers17Company, kLookUpTo2020}, {kLayers21Firm, kLookFrom2021}, {kLayers21Individual, kLookFrom2021},
    {kLayers21Company, kLookFrom2021},
};

const Sheet& SheetOf(ExportOperation operation) { return kSheets[static_cast<std::size_t>(operation)]; }

/// The first line that reaches back to the year and serves the form's number tells the operation.
struct Choice {
    int firstYear;
    bool (*serves)(const StatementForm&);
    ExportOperation operation;
};
constexpr Choice kChoices[] = {
    {2021, forms::RunsAsCompany, ExportOperation::excel_mod_21_PL6},
    {2021, forms::RunsAsFirm, ExportOperation::excel_mod_21_PL1},
    {2021, forms::Any, ExportOperation::excel_mod_21_PL4},
    {2017, forms::RunsAsCompany, ExportOperation::excel_mod_17_PL6},
    {2017, forms::RunsAsFirm, ExportOperation::excel_mod_17_PL1},
    {2017, forms::Any, ExportOperation::excel_mod_17_PL4},
    {forms::kNoStart, forms::Any, ExportOperation::excel_mod},
};

constexpr xls::Colour kYellow = {255, 255, 0};

/// Locked in every sheet that unlocks anything, whatever stands there in its form.
constexpr int kAlwaysLockedRows[] = {8, 20, 30, 51, 57, 81};

xls::Cell& CellAt(xls::Sheet& sheet, int row, int column) { return sheet.cells[{row - 1, column}]; }

std::string InPreviousYear(std::string_view formula)
{
    std::string text(formula);
    std::ranges::replace(text, 'C', 'F');
    return text;
}

void Shade(xls::Sheet& sheet, int row, int lastColumn)
{
    for (int column = 0; column <= lastColumn; ++column)
        CellAt(sheet, row, column).style.fill = kYellow;
}

void Unlock(xls::Sheet& sheet, std::string_view cells)
{
    if (cells.empty())
        return;
    for (const xls::Token& token : xls::ParseFormula("=sum(" + std::string(cells) + ")")) {
        if (!token.isReference)
            continue;
        const int last = token.operation == xls::Operation::Cells ? token.area.last.row : token.area.first.row;
        for (int row = token.area.first.row; row <= last; ++row)
            sheet.cells[{row, kAmount}].style.locked = false;
    }
}

} // namespace

ExportOperation ExportOperationFor(const StatementForm& form)
{
    return std::ranges::find_if(
               kChoices, [&](const Choice& choice) { return choice.firstYear <= form.year && choice.serves(form); })
        ->operation;
}

ExportFormulas ExportFormulasOf(ExportOperation operation)
{
    ExportFormulas formulas;
    for (const auto& layer : SheetOf(operation).layers)
        for (const Line& line : layer)
            formulas[line.row] = {line.formula, line.unlocked};
    std::erase_if(formulas, [](const auto& entry) { return entry.second.formula.empty(); });
    return formulas;
}

const ExportLook& ExportLookOf(ExportOperation operation) { return SheetOf(operation).look; }

void PutExportFormulas(xls::Sheet& sheet, ExportOperation operation, std::span<const std::size_t> computedLines)
{
    const ExportLook& look = ExportLookOf(operation);
    for (const auto& [row, line] : ExportFormulasOf(operation)) {
        if (std::ranges::find(computedLines, static_cast<std::size_t>(row) - 1) == computedLines.end())
            continue;
        CellAt(sheet, row, kAmount).formula = line.formula;
        if (look.addsUpPreviousYear)
            CellAt(sheet, row, kPreviousYear).formula = InPreviousYear(line.formula);
        Shade(sheet, row, look.addsUpPreviousYear ? kPreviousYear : kAmount);
        if (look.opensCells)
            Unlock(sheet, line.unlocked);
    }
    if (look.opensCells)
        for (const int row : kAlwaysLockedRows)
            CellAt(sheet, row, kAmount).style.locked = true;
}

} // namespace pgbp
