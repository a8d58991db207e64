#pragma once

#include "income/frmbusiness.h"
#include "module/module.h"
#include "records/lines.h"
#include "startup/sub_main.h"
#include "store/files.h"
#include "support/temporary_folder.h"
#include "support/test_boxes.h"
#include "support/test_server.h"
#include "support/typing.h"

#include <algorithm>
#include <memory>
#include <string>

namespace pgbp {

/// Sibling programs that only note what was started.
class TestProcesses : public Processes {
  public:
    int RunAndWait(const std::filesystem::path& program, const std::vector<std::string>&) override
    {
        started.push_back(program.filename().string());
        if (whileRunning)
            whileRunning();
        return 0;
    }
    void Start(const std::filesystem::path& program) override { started.push_back(program.filename().string()); }

    bool Open(const std::filesystem::path& file) override
    {
        opened.push_back(file);
        return hasOpener;
    }

    std::vector<std::string> started;
    std::vector<std::filesystem::path> opened; ///< files that were to be shown
    bool hasOpener = true;
    std::function<void()> whileRunning;
};

class TestFiles : public FileDialogs {
  public:
    std::optional<std::filesystem::path> AskOpen(const std::string&, const std::string&) override { return chosen; }
    std::optional<std::filesystem::path> AskSave(const std::string&, const std::string&) override { return chosen; }

    std::optional<std::filesystem::path> chosen; ///< none: the dialog is cancelled
};

/// A practice folder with all data files and no rows of its own, and a run on it for one assessee-year.
class EmptyPractice {
  public:
    static constexpr double kSno = 7; ///< of the line that has no other number

    EmptyPractice()
    {
        std::filesystem::copy(Template(), folder.path(), std::filesystem::copy_options::recursive);
        folder.Write("Drive.txt", (folder.path() / "handover").string());
        handOver.Glcode = "A0001r2023-24";
        handOver.Glyear = "2023-24";
        handOver.Glstatus = "01";
        handOver.GlPrCode = "A0001r2022-23";
        handOver.GlServer = (folder.path() / "server").string();
        handOver.GlClient = (folder.path() / "client").string();
    }

    /// Keeps `company` and `balance` on the server, both empty; call before rows go in.
    void PutOn(const ServerLogin& login)
    {
        server = login;
        OpenFreshDatabase(login, "Qel_VornCompany", "company");
        OpenFreshDatabase(login, "Qel_VornBalance", "balance");
        folder.Write("Settings.ini", "[DBTYPE]\nDB=SQL\n");
        folder.Write("VornServer.ini", "[Server]\nServerNM=" + login.server + "\n[Login]\nLogName=" + login.user +
                                           "\nLogPwd=" + login.password + '\n');
    }

    /// Tells which assessment year, by its first year, and status the run has; call before rows go in.
    void Year(int year, const char* status = "06")
    {
        handOver.Glyear = std::to_string(year) + '-' + std::to_string((year + 1) % 100 + 100).substr(1);
        handOver.Glcode = "A0001r" + handOver.Glyear;
        handOver.Glstatus = status;
    }

    /// A stored row of the assessee-year: a line, a detail row, a cell of a line's schedule, a row of its annexure.
    void Line(const char* type, const std::vector<Field>& more = {})
    {
        Put(Company(), "business", {{"Type", type}, {"SNO", kSno}, {"name1", "Main works"}}, more);
    }
    void Detail(const char* type, const std::vector<Field>& more)
    {
        Put(Company(), "business1", {{"Type", type}, {"SNO", kSno}}, more);
    }
    void Cell(const char* statement, int number, const char* amount)
    {
        Put(Balance(), "qelgeneral", {{"Type", statement}, {"amt1", number}, {"amt2", kSno}, {"name8", amount}}, {});
    }
    void Asset(const char* name, double depreciation, double sno = kSno)
    {
        Put(Balance(), "fassets", {{"Type", "P"}, {"SNO", sno}, {"f_name", name}, {"F_Dep", depreciation}}, {});
    }
    /// A row of `misc_items`, and one of `qelgeneral`.
    void Item(const char* type, const std::vector<Field>& more)
    {
        Put(Company(), "misc_items", {{"Type", type}}, more);
    }
    void Note(const char* type, const std::vector<Field>& more)
    {
        Put(Balance(), "qelgeneral", {{"Type", type}}, more);
    }
    /// Lets the program calculate the remuneration of the partners.
    void Automatic() { Put(Company(), "setup", {{"auto_rem", false}}, {}); }

    /// Writes the hand-over record and starts a run; rows go in before.
    Run& Start()
    {
        WriteHandOver(File("handover/VornTemp.mdb"), handOver);
        return StartWithFilesAsTheyAre();
    }

    Run& StartWithFilesAsTheyAre()
    {
        run = std::make_unique<Run>(Host{.boxes = boxes,
                                         .files = files,
                                         .processes = processes,
                                         .programFolder = folder.path(),
                                         .now = [this] { return now; },
                                         .checksFiles = checksFiles});
        RegisterScreens(*run);
        if (screensKnown)
            screensKnown(*run);
        opened = SubMain(*run, why);
        return *run;
    }

    /// Starts a run whose detail screens only note how they were opened, and gives its summary.
    frmbusiness& Begin()
    {
        const auto more = screensKnown;
        screensKnown = [this, more](Run& its) {
            if (notesScreens)
                NoteAll(its, screens::frmbusinesscal, screens::frmbusinesscal1, screens::FrmFirm, screens::Frm44AENew,
                        screens::FrmGST);
            if (more)
                more(its);
        };
        Start();
        return Summary();
    }
    frmbusiness& Begin(int year, const char* status)
    {
        Year(year, status);
        return Begin();
    }
    frmbusiness& Summary() const { return static_cast<frmbusiness&>(*run->screens.Find("frmbusiness")); }

    /// Opens the stored line on its screen, or a new one when none is stored.
    template <typename LineScreen>
    LineScreen& OpenLine(BusinessKind kind, const char* caption)
    {
        if (!run)
            Start();
        run->GlBusinessKind = kind;
        LineOpening opening{.caption = caption};
        const Recordset stored = run->company.Query("select * from {business} where code = ?", handOver.Glcode);
        if (!stored.Empty())
            opening.business = Record(stored.First());
        const bool isShort = kind == kSpeculation || kind == kSpecified;
        run->screens.Show(isShort ? screens::frmbusinesscal1 : screens::frmbusinesscal, opening);
        return *static_cast<LineScreen*>(run->screens.OnDisplay());
    }

    /// A screen that shows nothing, in place of one that is not tested here.
    template <typename Opening>
    void RegisterEmpty(ScreenName<Opening> screen)
    {
        run->screens.Register<Opening>(screen, [screen](Run& its, const Opening& opening) {
            auto made = std::make_unique<Screen>(its, std::string(screen.text), "");
            if constexpr (requires { opening.caption; })
                made->caption = opening.caption;
            return made;
        });
    }

    /// The field is typed over.
    static void Type(Form& form, TextBox& field, const std::string& text)
    {
        form.Do([&] { form.SetFocus(field); });
        EXPECT_EQ(form.focused(), &field) << field.name();
        field.SelectAll();
        TypeText(form, text);
    }

    /// First field of the first row of a statement, among the assessee-year's rows.
    std::string Stored(const std::string& sql) const
    {
        return Company()
            .Scalar(sql + (sql.find(" where ") == std::string::npos ? " where" : " and") + " code = '" +
                    handOver.Glcode + "'")
            .Text();
    }
    double HeadOfIncome(const char* column = "amt14") const
    {
        return Balance()
            .Scalar(std::string("select ") + column + " from {qelgeneral} where [Type] = 'BUSI' and code = ?",
                    handOver.Glcode)
            .Number();
    }

    Connection File(const std::string& name) const { return OpenFile({folder.path() / name, {}}); }
    Connection Company() const
    {
        return server ? OpenServerConnection(*server, "Qel_VornCompany") : File("server/company.mdb");
    }
    Connection Balance() const
    {
        return server ? OpenServerConnection(*server, "Qel_VornBalance") : File("server/balance.mdb");
    }
    Connection Tax() const { return File("server/tax.mdb"); }

    TemporaryFolder folder;
    std::optional<ServerLogin> server; ///< none: all is in files
    HandOver handOver;
    TestBoxes boxes;
    TestFiles files;
    TestProcesses processes;
    DateTime now{2023, 7, 15, 10, 30, 0};
    bool checksFiles = false;
    std::unique_ptr<Run> run;
    bool notesScreens = true;                                  ///< the detail screens are there
    std::vector<std::pair<std::string, LineOpening>> openings; ///< of those; empty for one that is not of a line
    std::function<void(Run&)> screensKnown; ///< before the run opens its files: to put another screen in place of one
    std::string why;
    bool opened = false;

  private:
    template <typename... Openings>
    void NoteAll(Run& its, ScreenName<Openings>... screen)
    {
        (NoteOpening(its, screen), ...);
    }
    template <typename Opening>
    void NoteOpening(Run& its, ScreenName<Opening> screen)
    {
        its.screens.Register<Opening>(screen, [this, screen](Run& made, const Opening& opening) {
            openings.emplace_back(screen.text, LineOpening());
            if constexpr (std::is_same_v<Opening, LineOpening>)
                openings.back().second = opening;
            return std::make_unique<Screen>(made, std::string(screen.text), "");
        });
    }

    /// The fields that `more` holds too are its.
    void Put(const Connection& file, const char* table, std::vector<Field> fields, const std::vector<Field>& more) const
    {
        fields.push_back({"code", handOver.Glcode});
        std::erase_if(fields, [&](const Field& field) {
            return std::ranges::any_of(more, [&](const Field& other) { return other.column == field.column; });
        });
        fields.insert(fields.end(), more.begin(), more.end());
        file.Insert(table, fields);
    }

    /// Made once a test program; each practice copies it.
    static const std::filesystem::path& Template()
    {
        static const TemporaryFolder made;
        static const bool done = [] {
            for (const char* sub : {"handover", "server", "client/data"})
                std::filesystem::create_directories(made.path() / sub);
            CreateEmbeddedFile(made.path() / "VornTemp.mdb", "VornTemp");
            CreateEmbeddedFile(made.path() / "qel.mmm", "qel");
            CreateEmbeddedFile(made.path() / "handover/VornTemp.mdb", "VornTemp");
            CreateEmbeddedFile(made.path() / "client/data/qeltemp.mdb", "qeltemp");
            for (const char* name : {"company", "balance", "tax", "misc", "export1", "export2"})
                CreateEmbeddedFile(made.path() / "server" / (std::string(name) + ".mdb"), name);
            return true;
        }();
        static_cast<void>(done);
        return made.path();
    }
};

} // namespace pgbp
