#pragma once

#include "statements/statement_screen.h"
#include "statements/template_files.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

#include <string>

namespace pgbp::test {

/// A practice with the forms, and the statement of a line on display.
class StatementTest : public EmptyPractice, public testing::Test {
  public:
    StatementTest() { Year(2023, "01"); }

    void PutForm(const std::string& name) const
    {
        const TemplateFile& form = TemplateNamed(name);
        const char* table = name.starts_with("IND") ? "taxauditjson" : "taxaudit";
        constexpr const char* kSerials[] = {"head1", "head2", "s_1", "s_2", "s_3", "s_4"};
        constexpr const char* kCaptions[] = {"Descr1", "Descr2", "Descr3", "Descr4"};
        const Connection tax = Tax();
        Transaction transaction({tax});
        tax.Delete("from {" + std::string(table) + "} where d_type = ?", name);
        for (std::size_t i = 0; i < form.rows.size(); ++i) {
            const TemplateRow& row = form.rows[i];
            std::vector<Field> fields = {
                {"d_type", name},       {"pslno", form.pslno[i]},       {"slno", row.slno},
                {"flag", row.isChoice}, {"text_numeric", row.isNumber}, {"blocked", row.isBlocked}};
            for (std::size_t at = 0; at < row.serials.size(); ++at)
                fields.push_back({kSerials[at], row.serials[at]});
            for (std::size_t at = 0; at < row.captions.size(); ++at)
                fields.push_back({kCaptions[at], row.captions[at]});
            tax.Insert(table, fields);
        }
        transaction.Commit();
    }

    /// Opens the statement of a line; the question for the books is answered with yes.
    StatementScreen& OpenStatement(double glITR = 4, const char* glRep = "PNL", double sno = 0)
    {
        if (!run)
            Start();
        run->GlITR = glITR;
        run->GLrep = glRep;
        run->GlBusinessKind = kNormal;
        run->screens.Show(isIndAs ? screens::FrmbspnlINDAS : screens::FrmbspnlPGBP, {.sno = sno});
        auto& screen = static_cast<StatementScreen&>(*run->screens.OnDisplay());
        if (screen.FraBooks.visible)
            screen.Click(screen.CmdBackFra);
        return screen;
    }

    static void Key(StatementScreen& screen, int row, const std::string& text)
    {
        screen.Do([&] { screen.MSH.EnterCell(row, kAmount); });
        TypeText(screen, text);
    }
    static std::string Amount(const StatementScreen& screen, int row) { return screen.MSH.Cell(row, kAmount); }

    bool isIndAs = false;
};

} // namespace pgbp::test
