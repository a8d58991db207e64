#pragma once

#include "records/lines.h"
#include "support/empty_practice.h"
#include "support/typing.h"

#include <gtest/gtest.h>

namespace pgbp {

/// A practice with one assessee-year, and its computation screen on display.
template <typename ComputationScreen>
class LineUnderTest : public EmptyPractice, public testing::Test {
  public:
    static constexpr double kSno = 7;

    LineUnderTest() { Year(2023); }

    /// Tells which year and status the run has; call before rows go in.
    void Year(int year, const char* status = "06")
    {
        handOver.Glyear = std::to_string(year) + '-' + std::to_string((year + 1) % 100 + 100).substr(1);
        handOver.Glcode = "A0001r" + handOver.Glyear;
        handOver.Glstatus = status;
    }

    /// A stored line with the number kSno.
    void Line(const char* type, std::initializer_list<Field> more = {})
    {
        Put(Company(), "business", type, {{"SNO", kSno}, {"name1", "Main works"}}, more);
    }
    /// A stored detail row of that line.
    void Detail(const char* type, std::initializer_list<Field> more)
    {
        Put(Company(), "business1", type, {{"SNO", kSno}}, more);
    }
    /// A stored schedule cell of that line.
    void Cell(const char* statement, int number, const char* amount)
    {
        Put(Balance(), "qelgeneral", statement, {{"amt1", number}, {"amt2", kSno}, {"name8", amount}}, {});
    }
    /// A stored row of the line's annexure.
    void Asset(const char* name, double depreciation, double sno = kSno)
    {
        Put(Balance(), "fassets", "P", {{"SNO", sno}, {"f_name", name}, {"F_Dep", depreciation}}, {});
    }

    /// Starts the run and opens the stored line, or a new one when none is stored.
    ComputationScreen& OpenScreen(BusinessKind kind = kNormal, const char* caption = "Normal Business")
    {
        if (!run)
            Start();
        run->GlBusinessKind = kind;
        LineOpening opening{.caption = caption};
        const Recordset stored = run->company.Query("select * from {business} where code = ?", handOver.Glcode);
        if (!stored.Empty())
            opening.business = Record(stored.First());
        run->screens.Show(ScreenOf(kind), opening);
        return *static_cast<ComputationScreen*>(run->screens.OnDisplay());
    }

    /// A screen that shows nothing, in place of one that is not tested here.
    template <typename Opening>
    void RegisterEmpty(ScreenName<Opening> screen)
    {
        run->screens.Register<Opening>(screen, [screen](pgbp::Run& its, const Opening& opening) {
            auto made = std::make_unique<Screen>(its, std::string(screen.text), "");
            if constexpr (requires { opening.caption; })
                made->caption = opening.caption;
            return made;
        });
    }

    /// First field of the first row of a statement on the stored files.
    std::string Stored(const std::string& sql) const
    {
        return Company().Scalar(sql + " and code = '" + handOver.Glcode + "'").Text();
    }

    static void Type(Form& form, TextBox& field, const std::string& text)
    {
        ASSERT_TRUE(form.SetFocus(field)) << field.name();
        field.SelectAll();
        TypeText(form, text);
    }

  private:
    static ScreenName<LineOpening> ScreenOf(BusinessKind kind)
    {
        return kind == kSpeculation || kind == kSpecified ? screens::frmbusinesscal1 : screens::frmbusinesscal;
    }

    void Put(const Connection& file, const char* table, const char* type, std::initializer_list<Field> fixed,
             std::initializer_list<Field> more) const
    {
        std::vector<Field> fields{{"code", handOver.Glcode}, {"Type", type}};
        fields.insert(fields.end(), fixed);
        fields.insert(fields.end(), more);
        file.Insert(table, fields);
    }
};

} // namespace pgbp
