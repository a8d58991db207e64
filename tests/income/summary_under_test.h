#pragma once

#include "income/frmbusiness.h"
#include "support/empty_practice.h"

namespace pgbp {

/// A run with its summary on display, and a detail screen that only notes how it was opened.
class SummaryUnderTest : public EmptyPractice {
  public:
    struct NotedOpening {
        std::string screen;
        LineOpening opening; ///< empty for a screen that is not opened with a line
    };

    /// Starts the run. `year` is the first year of the assessment year.
    frmbusiness& Begin(int year = 2023, const char* status = "06")
    {
        handOver.Glyear = std::to_string(year) + '-' + std::to_string((year + 1) % 100 + 100).substr(1);
        handOver.Glcode = "A0001r" + handOver.Glyear;
        handOver.Glstatus = status;
        const auto more = screensKnown;
        screensKnown = [this, more](Run& its) {
            if (notesScreens)
                NoteAll(its, screens::frmbusinesscal, screens::frmbusinesscal1, screens::FrmFirm, screens::Frm44AENew,
                        screens::FrmGST);
            if (more)
                more(its);
        };
        Start();
        return static_cast<frmbusiness&>(*run->screens.Find("frmbusiness"));
    }

    /// Rows for the code of `year`; call before Begin.
    void Line(const char* type, std::initializer_list<Field> more, int year = 2023)
    {
        std::vector<Field> fields{{"code", "A0001r" + std::to_string(year) + '-' + std::to_string((year + 1) % 100)},
                                  {"Type", type}};
        fields.insert(fields.end(), more);
        Company().Insert("business", fields);
    }
    void Detail(const char* type, std::initializer_list<Field> more)
    {
        std::vector<Field> fields{{"code", "A0001r2023-24"}, {"Type", type}};
        fields.insert(fields.end(), more);
        Company().Insert("business1", fields);
    }

    std::vector<NotedOpening> openings;
    bool notesScreens = true; ///< the detail screens are there

  private:
    template <typename... Openings>
    void NoteAll(Run& its, ScreenName<Openings>... screen)
    {
        (Note(its, screen), ...);
    }
    template <typename Opening>
    void Note(Run& its, ScreenName<Opening> screen)
    {
        its.screens.Register<Opening>(screen, [this, screen](Run& made, const Opening& opening) {
            openings.push_back({std::string(screen.text), {}});
            if constexpr (std::is_same_v<Opening, LineOpening>)
                openings.back().opening = opening;
            return std::make_unique<Screen>(made, std::string(screen.text), "");
        });
    }
};

} // namespace pgbp
