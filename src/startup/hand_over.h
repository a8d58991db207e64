#pragma once

#include "store/connection.h"

#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace pgbp {

/// The one row of table `main` by which the suite starts the module, as run-wide variables. Those without a comment are
/// only carried through: the whole record goes back whenever a sibling program is started.
struct HandOver {
    std::string GLGroup;
    double GLReport = 0;
    bool GLrem = false; ///< reminder is active
    bool GLPend = false;
    int GLlock = 0; ///< not 0: the assessee-year is locked
    bool GlDate = false;
    double GLcompany = 0;
    bool GLsex = false;
    bool GComp = false;
    std::string GLrep;  ///< working marker of the summary: "New", "ASDF"; the word for a sibling program
    double GLwhere = 0; ///< from where the annexure was opened
    bool Glall = false;
    double GLminor = 0; ///< not 0: the number of the minor whose clubbed income the run is showing
    std::string GLtitle;
    std::string USER;
    double Glold = 0;
    double Glrebate1 = 0;
    double Glrebate2 = 0;
    double Gl88B = 0;
    double Gl88C = 0;
    double Glsurcharge = 0;
    double GLCess = 0;
    double GL80 = 0;
    bool GL88 = false;
    bool Glsenior = false;
    std::string Glstatus; ///< status code, two digits
    bool Rebate = false;
    bool Gladmin = false; ///< the user is an administrator of the suite
    double Gluser = 0;    ///< user number, key into `user1`
    std::string Glyear;   ///< assessment year, "2023-24"
    std::string Glcode;   ///< key of the assessee-year in all tables
    double PGBPloss = 0;
    double GlSpLoss = 0;
    double IncNormal = 0;
    double IncSpecialL1 = 0;
    double IncSpecialL2 = 0;
    double IncSpecial2 = 0;
    double STCG = 0;
    double NorInc = 0;
    double SpInc = 0;
    double NorTax = 0;
    double SpTax = 0;
    double SpTax1 = 0;
    std::string GlPrCode; ///< `Glcode` of the preceding year
    bool GlLarge = false; ///< show the comparative column of the preceding year
    bool GlProv = false;
    bool GLMaxRate = false;
    std::string GlServer; ///< folder of the suite's shared data files
    std::string GlClient; ///< folder of the client's working data
};

/// A column of `main` and the variable that holds it.
struct HandOverColumn {
    std::string_view name;
    std::variant<std::string HandOver::*, double HandOver::*, bool HandOver::*, int HandOver::*> variable;
};

/// All columns, in the order in which they are read and written.
std::span<const HandOverColumn> HandOverColumns();

/// Reads the record from the first row of `main`; Null counts as empty, 0 or false. False when there is no row, and
/// then `record` stays as it was.
bool ReadHandOver(const Connection& file, HandOver& record);

/// Replaces the rows of `main` by this record. `GlProv` stays behind: the plain hand-over does not write it.
void WriteHandOver(const Connection& file, const HandOver& record);

/// The same for the link with the accounts product, which takes `GlProv` as well, and a column of its own, `GL88D`.
void WriteLinkHandOver(const Connection& file, const HandOver& record);

} // namespace pgbp
