#include "store/schema.h"

#include "services/text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <stdexcept>

namespace pgbp {
namespace {

constexpr int kTextWidth = 255;

ColumnKind KindOfMark(char mark)
{
    constexpr std::string_view marks = "~#?@";
    constexpr ColumnKind kinds[] = {ColumnKind::Memo, ColumnKind::Number, ColumnKind::Flag, ColumnKind::Date};
    const auto at = marks.find(mark);
    return at == std::string_view::npos ? ColumnKind::Text : kinds[at];
}

/// "code:50" a text of 50 characters, "name1" of 255, "add1~" a memo, "amt1#" a number, "flag?" yes or no, "date1@" a
/// date.
Column ReadColumn(std::string_view word)
{
    Column column{word, KindOfMark(word.back()), kTextWidth};
    if (column.kind != ColumnKind::Text)
        column.name.remove_suffix(1);
    if (const auto colon = word.find(':'); colon != std::string_view::npos) {
        column.name = word.substr(0, colon);
        std::from_chars(word.data() + colon + 1, word.data() + word.size(), column.width);
    }
    return column;
}

std::vector<Column> Columns(std::string_view words)
{
    std::vector<Column> columns;
    while (!words.empty()) {
        const auto end = std::min(words.find(' '), words.size());
        columns.push_back(ReadColumn(words.substr(0, end)));
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return columns;
}

constexpr std::string_view kMiscItems = "code:50 Type:50 sno# name1 name2 name3 name4 name5 Na2 na3 Na4 add1~ Add2 "
                                        "amt1# amt2# Am3# am4# amt6# tds# sur# intt# "
                                        "cess# penal# date1@ Flags linking";
constexpr std::string_view kTemplate =
    "d_type:50 pslno# slno# head1 head2 s_1 s_2 s_3 s_4 Descr1 Descr2 Descr3 Descr4 flag? "
    "text_numeric? blocked?";
constexpr std::string_view kAssessmentYear = "code:50 company# year:7 comp_name pan:10";

/// An index on `code` alone gives an assessee's rows in the order in which they were added, which the screens show; one
/// on more columns would give them in another. Only the statements' cells, hundreds a line, are worth such an index.
std::vector<Table> MakeTables()
{
    return {
        {"company",
         "business",
         Columns(
             "code:50 Type:1 SNO# name1 name2 PNL# dep1# dep2# q10abc1# q10abc2# NET# books? turnover# sec44# net44# "
             "loss# Minor#"),
         {"code", "SNO"}},
        {"company",
         "business1",
         Columns(
             "code:50 SNO# Type:50 name1 name2 name3 amt1# amt2# amt3# amt4# amt5# amt6# amt7# AD1 CITY State PIN utn "
             "flag1? pan:10 Minor# sec44# net44#"),
         {"code", "name2, Type"}},
        // the second index answers for the settings that are looked up by their type alone, blanks around it or not
        {"company", "misc_items", Columns(kMiscItems), {"code", "trim(Type) collate nocase"}},
        {"company", "capital1", Columns("code:50 Type:50 name1 amt1# amt2# amt3# date1@ Minor#"), {"code"}},
        {"company",
         "assessee",
         Columns(
             "company# comp_name pan:10 Status:2 flag? add_o1 add_o2 add_o3 add_o4 city_o state_o pin_o add_r1 add_r2 "
             "add_r3 add_r4 city_r state_r pin_r comm"),
         {"company", "comp_name", "pan"}},
        {"company", "assessee1", Columns(kAssessmentYear), {"code", "company, year"}},
        {"company", "setup", Columns("code:50 auto_rem? newov?"), {"code"}},
        {"company", "user1", Columns("code# category#"), {"code"}},
        {"company", "user_comp", Columns("code# company#"), {"code"}},
        {"company", "misc", Columns("type:50 name"), {"type, name"}},

        {"balance",
         "qelgeneral",
         Columns(
             "code:50 Type:50 SNO# name1 name2 name3 name7 name8 name9 amt1# amt2# amt3# amt4# amt5# amt6# amt7# amt8# "
             "amt9# Amt10# amt11# amt12# amt13# amt14#"),
         {"code, Type, amt2"}},
        {"balance",
         "fassets",
         Columns(
             "code:50 f_name f_opbal# f_pur1# f_pur2# f_sales# F_Dep# f_clbal# f_deprate# U_Desc f_sales1# F_sales2# "
             "f_dep1# f_dep2# f_add1# f_add2# f_exps# ded382# netdep# f_block? f_date@ Type:50 SNO# Minor# date1@ "
             "date2@ REMARK"),
         {"code", "Minor"}},
        {"balance", "compu", Columns("code:50 gross#"), {"code"}},
        {"balance", "misc_items", Columns(kMiscItems), {"code"}},

        {"tax", "system", Columns("Type:50 Amount# From# date@"), {"Type"}},
        {"tax", "misc", Columns("type:50 Rate# Max#"), {}},
        {"tax", "taxaudit", Columns(kTemplate), {"d_type, pslno", "slno"}},
        {"tax", "taxauditjson", Columns(kTemplate), {"d_type, pslno"}},
        {"tax", "statecode", Columns("nm"), {}},
        {"tax", "Coun", Columns("Coun_Name"), {}},
        {"tax", "air", Columns("type:50 srno# code descr"), {}},
        {"tax", "vornhelp", Columns("name Desc~"), {}},

        {"qeltemp",
         "temp",
         Columns("code:50 Type:50 name1 name2 name3 name5 name6 name8 name9 amt1# amt2# amt3# amt4# amt5# amt6# amt8# "
                 "Amt10# "
                 "AD1 CITY State PIN utn flag1? linking"),
         {"code"}},
        {"qeltemp",
         "temp1",
         Columns("code:50 SNO# Type:50 name1 name2 name3 name6 amt1# amt2# amt3# amt4# amt5# amt6# amt7# AD1 CITY "
                 "State PIN "
                 "utn flag1? pan:10 Minor# sec44# net44#"),
         {"code"}},
        // two descriptions and the blank between them
        {"qeltemp", "misc", Columns("code1:50 Name:511 amt1# amt2# amt3# SNO#"), {"code1, Name"}},
        {"qeltemp", "assessee1", Columns(kAssessmentYear), {}},

        {"VornTemp",
         "main",
         Columns(
             "GLGroup GLReport# GLrem? GLPend? GLlock# GlDate? GLcompany# GLsex? GComp? GLrep GLwhere# Glall? GLminor# "
             "GLtitle USER Glold# Glrebate1# Glrebate2# Gl88B# Gl88C# Glsurcharge# GLCess# GL80# GL88? Glsenior? "
             "Glstatus:2 Rebate? Gladmin? Gluser# Glyear:7 Glcode:50 PGBPloss# GlSpLoss# IncNormal# IncSpecialL1# "
             "IncSpecialL2# IncSpecial2# STCG# NorInc# SpInc# NorTax# SpTax# SpTax1# GlPrCode:50 GlLarge? GlProv? "
             "GLMaxRate? GlServer~ GlClient~ GL88D#"),
         {}},

        {"qel", "taxaudit", Columns(kTemplate), {"d_type, pslno"}},

        {"balancesheet", "accounts", Columns("code:50 a_name a_balance# ac_type:50 a_relative a_flag?"), {"code"}},
        {"balancesheet", "accgroup", Columns("code:50 g_type:50 g_relative Amount# clstk#"), {"code"}},
        {"balancesheet", "comassets", Columns("code:50 f_depyear#"), {"code"}},
        {"balancesheet", "capital", Columns("code:50 p_name p_interest# p_remuneration# p_share#"), {"code"}},
        {"balancesheet", "clientasst", Columns("c_no# ass_yr:9 actual? code:50"), {"c_no, ass_yr"}},
        {"balancesheet", "clientcomp", Columns("c_no# c_status:50 c_pan:10"), {"c_no"}},
        {"balancesheet",
         "fassets",
         Columns(
             "code:50 Type:50 f_name f_opbal# f_pur1# f_pur2# f_sales# f_dep# f_clbal# f_deprate# Desc date1@ date2@ "
             "Minor# REMARK"),
         {"code"}},

        {"TempXML", "Form3cdDeprAllw", Columns("Form3cdDeprAllw_Id# DescBlockAssets AssetsName OpeningWDV#"), {}},
        {"TempXML",
         "Additions",
         Columns(
             "Form3cdDeprAllw_Id# PurchaseOrSaleDate1@ Date1PutToUse@ PurchaseOrSaleValue# Modvat# ExchangeRateChange# "
             "subsidyGrant#"),
         {"Form3cdDeprAllw_Id"}},
        {"TempXML", "Deductions", Columns("Form3cdDeprAllw_Id# SaleCata PurchaseOrSaleValue#"), {"Form3cdDeprAllw_Id"}},
    };
}

std::string IndexName(const Table& table, std::string_view columns)
{
    std::string name = std::string(table.name) + "_" + std::string(columns);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
}

template <typename Rows, typename Matches>
const auto& Find(const Rows& rows, std::string_view name, Matches matches)
{
    const auto found = std::find_if(rows.begin(), rows.end(), matches);
    if (found == rows.end())
        throw std::out_of_range("The store has no " + std::string(name));
    return *found;
}

} // namespace

std::span<const Table> Tables()
{
    static const std::vector<Table> tables = MakeTables();
    return tables;
}

int ColumnWidth(std::string_view file, std::string_view table, std::string_view column)
{
    const Table& owner = Find(Tables(), table, [&](const Table& candidate) {
        return EqualsIgnoringCase(candidate.file, file) && EqualsIgnoringCase(candidate.name, table);
    });
    const Column& found = Find(owner.columns, column,
                               [&](const Column& candidate) { return EqualsIgnoringCase(candidate.name, column); });
    return found.kind == ColumnKind::Text ? found.width : 0;
}

std::string ColumnText(const Column& column, const Dialect& dialect)
{
    const std::string_view types[] = {dialect.textType, dialect.memoType, dialect.numberType, dialect.flagType,
                                      dialect.dateType};
    const std::string name = '[' + std::string(column.name) + ']';
    const std::string_view type = types[static_cast<int>(column.kind)];
    return name + ' ' + Replace(Replace(type, "{n}", std::to_string(column.width)), "{}", name);
}

std::string CreateTableText(const Table& table, const Dialect& dialect)
{
    std::string columns;
    for (const Column& column : table.columns)
        columns += (columns.empty() ? "" : ", ") + ColumnText(column, dialect);
    return "create table [" + std::string(table.name) + "] (" + columns + ")";
}

std::vector<std::string> IndexTexts(const Table& table, const Dialect& dialect)
{
    std::vector<std::string> texts;
    for (const std::string_view columns : table.indexes) {
        const bool isOfExpression = columns.find('(') != std::string_view::npos;
        if (!isOfExpression || &dialect == &kEmbeddedDialect)
            texts.push_back("create index if not exists " + IndexName(table, columns) + " on [" +
                            std::string(table.name) + "] (" + std::string(columns) + ")");
    }
    return texts;
}

} // namespace pgbp
