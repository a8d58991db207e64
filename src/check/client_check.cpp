#include "check/client_check.h"

#include "computation/line_rules.h"
#include "computation/statement_figures.h"
#include "entry/partner_row.h"
#include "income/frmbusiness.h"
#include "records/annexure_rows.h"
#include "records/rows_of_line.h"
#include "records/rows_of_type.h"
#include "services/format.h"
#include "services/text.h"
#include "startup/frmmdi.h"
#include "startup/status.h"
#include "startup/unattended.h"
#include "suite/head_of_income.h"

#include <algorithm>
#include <map>

namespace pgbp::check {
namespace {

/// Amounts are compared as they are shown: to the paisa.
bool Differ(double a, double b) { return a != b && Amount(a) != Amount(b); }

/// What is found in one assessee-year, whose run has its summary open.
class Client {
  public:
    Client(const Practice& practice, const AssesseeYear& assesseeYear, Run& run)
        : practice_(practice), year_(assesseeYear), run_(run)
    {
    }

    std::vector<Finding> Check(const std::vector<Field>& headOfIncome)
    {
        CheckHead(headOfIncome);
        CheckLines();
        if (IsFirm(run_.Glstatus))
            CheckRatios();
        for (const StrayRows& stray : RowsOfNoLine(run_, numbers_))
            Add("Rows of no line",
                stray.table + ": " + Value(stray.count).Text() + " of a line numbered " + Value(stray.line).Text());
        return std::move(findings_);
    }

  private:
    void Add(std::string what, std::string where, std::optional<double> stored = {}, std::optional<double> follows = {})
    {
        findings_.push_back({year_.code, year_.name, year_.year, std::move(what), std::move(where), stored, follows});
    }
    void AddIfOther(const char* what, const std::string& where, double stored, double follows)
    {
        if (Differ(stored, follows))
            Add(what, where, stored, follows);
    }

    void CheckHead(const std::vector<Field>& computed);
    void CompareHeads(const std::vector<HeadLine>& stored, const std::vector<Field>& computed);
    void CheckLines();
    void CheckFigures(const Row& line);
    void CheckRatios();

    const Practice& practice_;
    const AssesseeYear& year_;
    Run& run_;
    std::vector<double> numbers_;         ///< of the lines of business
    std::map<double, std::string> names_; ///< of those
    std::vector<Finding> findings_;
};

void Client::CheckHead(const std::vector<Field>& computed)
{
    const double final = computed.back().value.Number();
    if (const auto stored = HeadOfIncome(practice_, year_.code))
        CompareHeads(*stored, computed);
    else if (final != 0)
        Add("Head of income not written", "", {}, final);
}

/// One finding, that of the final figure; where that is as it should be, that of the first amount which is not.
void Client::CompareHeads(const std::vector<HeadLine>& stored, const std::vector<Field>& computed)
{
    std::string differing;
    const HeadLine* told = nullptr;
    double follows = 0;
    for (std::size_t i = 0; i < stored.size(); ++i) {
        if (!Differ(stored[i].amount, computed[i].value.Number()))
            continue;
        const bool isFinal = i + 1 == stored.size();
        if (!isFinal)
            differing += (differing.empty() ? "" : "; ") + stored[i].caption;
        if (!told || isFinal) {
            told = &stored[i];
            follows = computed[i].value.Number();
        }
    }
    if (!told)
        return;
    AssesseeYear written = year_;
    ReadHead(practice_, written);
    const std::string what =
        written.writtenFor == 0 ? "Head of income" : "Head of income of " + MinorInWords(written.writtenFor);
    Add(what, differing, told->amount, follows);
}

void Client::CheckLines()
{
    for (const Row line : run_.company.Query("select [Type], SNO, name1, name2, PNL, dep1, dep2 from {business} where "
                                             "code = ?" +
                                                 std::string(run_.company.dialect().insertionOrder),
                                             run_.Code())) {
        numbers_.push_back(line["SNO"].Number());
        names_[numbers_.back()] = Trim(line["name1"].Text() + ' ' + line["name2"].Text());
        CheckFigures(line);
    }
}

/// The figures that a line takes over whenever it is opened.
void Client::CheckFigures(const Row& line)
{
    const std::string type = line["Type"].Text();
    const double sno = line["SNO"].Number();
    const std::string& name = names_[sno];
    if (type == TypeOf(kSpeculation) || type == TypeOf(kSpecified))
        run_.GlBusinessKind = kSpeculation;
    else if (type == TypeOf(kNormal))
        run_.GlBusinessKind = kNormal;
    else
        return;
    const LineRules rules = RulesOf(run_);
    if (!rules.ProfitIsOfStatement())
        return;
    constexpr const char* kProfit = "Net profit of the statement";
    if (!rules.IsNormal())
        return AddIfOther(kProfit, name, line["PNL"].Number(), ReadPlainNetProfit(run_, sno));
    const StatementFigures figures = ReadStatement(run_, sno);
    AddIfOther(kProfit, name, line["PNL"].Number(), figures.netProfit);
    AddIfOther("Depreciation of the statement", name, line["dep1"].Number(), figures.depreciation);
    if (const auto depreciation = StoredDepreciation(run_, sno))
        AddIfOther("Depreciation of the annexure", name, line["dep2"].Number(), *depreciation);
}

/// As the frame of the partners puts them together.
void Client::CheckRatios()
{
    for (const double sno : numbers_) {
        const auto partners =
            MergePartners(LineDetails(run_, "PARTREMU", sno).Read(), LineDetails(run_, "PARTINTT", sno).Read());
        if (!partners.empty() && !RatiosAddUp(partners))
            Add("Ratios of the partners", names_[sno], SumOfRatios(partners), 100);
    }
}

} // namespace

/// A run with its summary, for all assessee-years of one year and one status, which decide how a summary looks: making
/// its controls anew for each would take longer than reading the rows.
class ClientCheck::Desk {
  public:
    Desk(const Practice& practice, const AssesseeYear& first)
        : run_({.boxes = boxes_, .files = files_, .processes = processes_, .programFolder = practice.folders.program})
    {
        run_.Glyear = first.year;
        run_.Glstatus = first.status;
        run_.GlLarge = false;
        run_.readOnly = true;
        run_.company = practice.company;
        run_.balance = practice.balance;
        run_.tax = practice.tax;
        Take(first);
        run_.screens.Register<frmbusiness>(screens::frmbusiness);
        run_.screens.Show(screens::frmbusiness);
    }

    /// As the module opens it: with the marker by which the remuneration is refreshed.
    Run& Open(const AssesseeYear& assesseeYear)
    {
        Take(assesseeYear);
        Summary().StartFromZero();
        Summary().Activate();
        return run_;
    }
    std::vector<Field> HeadOfIncome() { return Summary().HeadOfIncome(); }

  private:
    void Take(const AssesseeYear& assesseeYear)
    {
        run_.Glcode = assesseeYear.code;
        run_.GLcompany = assesseeYear.client;
        run_.GLrep.clear();
        run_.FormCheckDone = ReportsUnderIndAS(run_);
    }
    frmbusiness& Summary() { return dynamic_cast<frmbusiness&>(*run_.screens.OnDisplay()); }

    SilentBoxes boxes_;
    NoFiles files_;
    NoProcesses processes_;
    Run run_;
};

ClientCheck::ClientCheck(const Practice& practice) : practice_(practice) {}
ClientCheck::~ClientCheck() = default;

std::vector<Finding> ClientCheck::Check(const AssesseeYear& assesseeYear)
{
    auto& desk = desks_[{assesseeYear.year, assesseeYear.status}];
    if (!desk)
        desk = std::make_unique<Desk>(practice_, assesseeYear);
    Run& run = desk->Open(assesseeYear);
    return Client(practice_, assesseeYear, run).Check(desk->HeadOfIncome());
}

} // namespace pgbp::check
