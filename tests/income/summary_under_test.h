#pragma once

#include "income/frmbusiness.h"
#include "support/empty_practice.h"

namespace pgbp {

/// A run with its summary on display, and a detail screen that only notes how it was opened.
class SummaryUnderTest : public EmptyPractice {
  public:
    struct NotedOpening {
        std::string screen;
        Opening opening;
    };

    /// Starts the run. `year` is the first year of the assessment year.
    frmbusiness& Begin(int year = 2023, const char* status = "06")
    {
        handOver.Glyear = std::to_string(year) + '-' + std::to_string((year + 1) % 100 + 100).substr(1);
        handOver.Glcode = "A0001r" + handOver.Glyear;
        handOver.Glstatus = status;
        const auto more = screensKnown;
        screensKnown = [this, more](Run& its) {
            for (const std::string& name : detailScreens)
                its.screens.Register(name,
                                     [this, name](Run& made) { return std::make_unique<Noted>(made, name, openings); });
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

    std::vector<std::string> detailScreens{"frmbusinesscal", "frmbusinesscal1", "FrmFirm", "Frm44AENew", "FrmGST"};
    std::vector<NotedOpening> openings;

  private:
    class Noted : public Screen {
      public:
        Noted(Run& itsRun, const std::string& name, std::vector<NotedOpening>& itsOpenings)
            : Screen(itsRun, name, name), openings_(itsOpenings)
        {
        }
        void Open(const Opening& opening) override { openings_.push_back({name(), opening}); }

      private:
        std::vector<NotedOpening>& openings_;
    };
};

} // namespace pgbp
