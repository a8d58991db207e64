#pragma once

#include "store/recordset.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace pgbp {

/// A screen by its name, and what it is opened with. A screen names another one, never its class, so that no folder of
/// screens knows the insides of another.
template <typename Opening>
struct ScreenName {
    std::string_view text;
};

struct NoOpening {};

/// A line of business, for its computation.
struct LineOpening {
    std::string caption{};            ///< of the screen
    std::optional<Record> business{}; ///< the row that is to be changed; none for a new line
};

/// One of the sections 10A to 10C.
struct SectionOpening {
    int index = 0; ///< its place among them, from 0
    std::string section{};
    std::string description{};
};

/// What an annexure leaves to the line.
struct AnnexureTotal {
    std::string rupees{};  ///< as the annexure shows its total depreciation
    bool isOfRows = false; ///< there are rows: the depreciation is theirs, and is not typed
};

/// One of several businesses under one line u/s 44AD.
struct BusinessPart {
    std::string description{};
    double receipts = 0; ///< rupees
    double percent = 0;  ///< of the receipts
    double deemed = 0;   ///< profit, rupees

    bool operator==(const BusinessPart&) const = default;
};

/// The businesses of a line, which the line keeps until it is saved.
struct BusinessesOpening {
    std::vector<BusinessPart> businesses{};
    /// They were left by Back and are these now.
    std::function<void(const std::vector<BusinessPart>& businesses)> taken{};
};

/// The annexure's working rows are those of the line that is open.
struct AnnexureOpening {
    std::string caption{};
    /// The annexure is left, saved or not. None where no line waits for the depreciation.
    std::function<void(const AnnexureTotal& total)> left{};
};

/// The profit and loss account, or the balance sheet, of a line of business.
struct StatementOpening {
    double sno = 0;       ///< of the line; 0 for one that is not saved yet
    std::string descr1{}; ///< its descriptions, as they stand on the screen
    std::string descr2{};
    /// The statement is left, and the line has this row: none as long as it is not stored.
    std::function<void(const std::optional<Record>& business)> left{};
};

/// The list of bad debts above one lakh without a PAN, which a line of the account sums up.
struct BadDebtsOpening {
    std::function<void(double rupees)> saved{}; ///< the list was stored with this total
};

/// What the assessee gets from firms, or from associations.
struct MembershipOpening {
    bool isOfAssociations = false;
};

struct HelpOpening {
    std::string topic{};
};

namespace screens {

inline constexpr ScreenName<NoOpening> frmmdi{"frmmdi"};
inline constexpr ScreenName<NoOpening> frmbusiness{"frmbusiness"};
inline constexpr ScreenName<NoOpening> frmReminder{"frmReminder"};
inline constexpr ScreenName<HelpOpening> FrmHelp{"FrmHelp"};
inline constexpr ScreenName<LineOpening> frmbusinesscal{"frmbusinesscal"};
inline constexpr ScreenName<LineOpening> frmbusinesscal1{"frmbusinesscal1"};
inline constexpr ScreenName<SectionOpening> Frm10ABC{"Frm10ABC"};
inline constexpr ScreenName<BusinessesOpening> FrmMulti{"FrmMulti"};
inline constexpr ScreenName<AnnexureOpening> frmfassets{"frmfassets"};
inline constexpr ScreenName<AnnexureOpening> frmfassetsNew{"frmfassetsNew"};
inline constexpr ScreenName<AnnexureOpening> frmfassetsNew_1{"frmfassetsNew_1"};
inline constexpr ScreenName<NoOpening> frmEditfassetsNew{"frmEditfassetsNew"};
inline constexpr ScreenName<StatementOpening> FrmbspnlPGBP{"FrmbspnlPGBP"};
inline constexpr ScreenName<StatementOpening> FrmbspnlINDAS{"FrmbspnlINDAS"};
inline constexpr ScreenName<BadDebtsOpening> FrmQ47ii{"FrmQ47ii"};
inline constexpr ScreenName<NoOpening> FrmGST{"FrmGST"};
inline constexpr ScreenName<NoOpening> Frm44AENew{"Frm44AENew"};
inline constexpr ScreenName<MembershipOpening> FrmFirm{"FrmFirm"};

/// All of them.
inline constexpr std::tuple kAll{frmmdi,          frmbusiness,       frmReminder,  FrmHelp,       frmbusinesscal,
                                 frmbusinesscal1, Frm10ABC,          FrmMulti,     frmfassets,    frmfassetsNew,
                                 frmfassetsNew_1, frmEditfassetsNew, FrmbspnlPGBP, FrmbspnlINDAS, FrmQ47ii,
                                 FrmGST,          Frm44AENew,        FrmFirm};

} // namespace screens
} // namespace pgbp
