#pragma once

#include "law/presumptive_income.h"
#include "records/lines.h"

#include <string_view>

namespace pgbp {

/// Rules of a line's computation that turn on the assessment year, the status of the assessee and the kind of business.
struct LineRules {
    int year;
    std::string_view status;
    BusinessKind kind;

    bool IsNormal() const;                     ///< computed from the net profit of the accounts
    bool ProfitIsOfStatement() const;          ///< the net profit is that of the return's account, from 2007
    bool TakesOtherIncome() const;             ///< an income beside the account, from 2007
    bool HasSection35() const;                 ///< scientific research, from 2007
    bool ListsSections10() const;              ///< sections 10A to 10C one by one, from 2007; one list before
    bool HasOldAnnexure() const;               ///< the depreciation annexure of the years up to 2006
    bool OffersStatementsDepreciation() const; ///< taken over by a button, from 2019
    bool AddsProfessionWithoutBooks() const;   ///< the account has the no-books case of a profession, from 2017
    bool MayReportUnderIndAS() const;          ///< companies, from 2018
    bool DeductsOtherHeadsOfVDA() const;       ///< virtual digital assets, section 115BBH, from 2023
    bool AsksForExemption() const; ///< schedule of exempt income: companies from 2013, all but individuals from 2021
    bool ShowsPartners() const;    ///< firms and associations
    bool PartnersOfDeemedIncome() const; ///< of a deemed income too, from 2007
    bool ShowsAccountOfReturn() const;   ///< four figures of the return's account beside a deemed income, 2007 to 2018
    bool StoresAccountOfReturn() const;  ///< and rows of the return with them: u/s 44ADA, which begins later, from 2017
    bool HasWholeProfit() const;         ///< the account tells the profit of all lines too, from 2017

    DeemingSection Section() const;    ///< that deems the income of a presumptive line
    bool DeemsAtRate() const;          ///< on all receipts one rate that can be typed over: sections 44AD, 44AF
    bool DeemsByReceipts() const;      ///< a rate and a profit for each kind of receipts: section 44AD from 2017
    bool TakesBankReceipts() const;    ///< receipts through a bank apart: section 44AD from 2017, section 44ADA
    bool NamesCashAndBank() const;     ///< a profession's receipts are asked for as cash and bank, from 2024
    bool TakesOtherReceipts() const;   ///< neither in cash nor through a bank, from 2025
    bool HasSeveralBusinesses() const; ///< several businesses under one line: section 44AD
    bool CountsVehicles() const;       ///< section 44AE
};

LineRules RulesOf(const Run& run);

} // namespace pgbp
