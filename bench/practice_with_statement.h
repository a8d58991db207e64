#pragma once

#include "filled_practice.h"
#include "statements/no_books.h"
#include "statements/statement_screen.h"
#include "statements/template_store.h"
#include "store/connection.h"

#include <filesystem>
#include <optional>
#include <string>

namespace pgbp {

/// The preparer chooses one file, over and over.
class OneFile : public FileDialogs {
  public:
    std::filesystem::path chosen;

    std::optional<std::filesystem::path> AskOpen(const std::string&, const std::string&) override { return chosen; }
    std::optional<std::filesystem::path> AskSave(const std::string&, const std::string&) override { return chosen; }
};

/// A practice whose assessee's first line has an individual's profit and loss account from 2019, saved once: 194 lines,
/// each open one filled with one to nine digits, 50 details, and the same account of the year before.
class PracticeWithStatement : public FilledPractice {
  public:
    static constexpr double kLine = 10000000;
    static constexpr int kKeyedLine = 29; ///< sale of goods, from which a dozen totals follow

    explicit PracticeWithStatement(int assesseeYears) : FilledPractice(assesseeYears)
    {
        run.reset();
        chosenFile.chosen = folder.path() / "statement.xls";
        run = std::make_unique<Run>(Host{boxes, chosenFile, processes, Root()});
        RegisterScreens(*run);
        SubMain(*run, why);
        run->Glstatus = "01";
        run->GlITR = 4;
        run->GLrep = "NEWPL";
        run->GlBusinessKind = kNormal;
        StoreAccounts();
        RegisterEmpty(screens::Frm44AENew);
        run->screens.Show(screens::Frm44AENew); // nothing is computed on the return from the statement
        Save(OpenStatement());
    }

    StatementScreen& OpenStatement()
    {
        run->screens.Show(screens::FrmbspnlPGBP, {.sno = kLine});
        return static_cast<StatementScreen&>(*run->screens.OnDisplay());
    }

    void Save(StatementScreen& form)
    {
        form.Click(form.CmdSave);
        run->screens.Sweep();
    }

    /// What was keyed is discarded.
    void Leave(StatementScreen& form)
    {
        boxes.answers = {Answer::Yes};
        form.Click(form.CmdBack);
        boxes.answers.clear();
        boxes.shown.clear();
        run->screens.Sweep();
    }

    OneFile chosenFile;

  private:
    void StoreAccounts()
    {
        constexpr int kBrokenDown = 10, kDetailsOfALine = 5, kFromLine = 30;
        Transaction transaction({run->balance});
        run->balance.Delete("from {qelgeneral} where code = ? and [Type] = 'NEWPL' and amt2 = ?", kCode, kLine);
        int figure = 7, row = 0, brokenDown = 0;
        for (const StatementRow& line : LoadTemplate(run->tax, kTemplates, "PL_3_2019")) {
            ++row;
            const int slno = std::stoi(line[kSlno]);
            if (line[kType] != "NUM" || IsNoBooksLine(slno))
                continue;
            figure = figure < 100000000 ? figure * 7 + 3 : 5;
            for (const std::string& code : {std::string(kCode), run->GlPrCode})
                run->balance.Insert("qelgeneral", {{"code", code},
                                                   {"Type", "NEWPL"},
                                                   {"amt1", slno},
                                                   {"amt2", kLine},
                                                   {"name8", std::to_string(figure)}});
            if (row >= kFromLine && brokenDown++ < kBrokenDown)
                for (int i = 0; i < kDetailsOfALine; ++i)
                    run->balance.Insert("qelgeneral", {{"code", kCode},
                                                       {"Type", "SNEWPL"},
                                                       {"amt1", slno},
                                                       {"amt2", kLine},
                                                       {"name9", "Part " + std::to_string(i)},
                                                       {"name8", "1000"}});
        }
        transaction.Commit();
    }
};

} // namespace pgbp
