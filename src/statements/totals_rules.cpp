#include "statements/totals_rules.h"

#include "statements/form_predicates.h"

#include <algorithm>

namespace pgbp {
namespace {

using namespace forms;

// -- Forms from 2019: Manufacturing Account, Trading Account, Profit and Loss Account

constexpr std::string_view kManufacturingAndTrading2019 = R"(
5 = 3..4
8 = 9..11
19 = 13..18
20 = 5 + 6 + 7 + 8 + 19
24 = 22 + 23
25 = 20 - 24
34 = 32 + 33
35 = 29 + 30 + 34
46 = 38..45
47 = 35 + 36 + 46
49 = 47 + 48
52 = 53..55
68 = 57..67
69 = copy of 25
70 = 49 - 50 - 51 - 52 - 68 - 69
)";

constexpr std::string_view kGrossProfitWithIntraday = "71 = 70 + intraday";
constexpr std::string_view kGrossProfit = "71 = copy of 70";

constexpr std::string_view kCreditsAndExpenses2019 = R"(
86 = 84..85
87 = 73..82 + 86
88 = 71 + 87
106 = 96..105
114 = 110..113
124 = 122..123
128 = 126..127
132 = 130..131
154 = 145..153
)";

/// Individuals and companies; a firm has one line more, its partners' remuneration.
constexpr std::string_view kProfit2019 = R"(
159 = 157..158
166 = 161..165
169 = 88 - (89..94 + 106 + 114 + 115..120 + 124 + 128 + 132 + 133..143 + 154 + 155 + 159 + 166 + 167 + 168)
173 = 171..172
175 = 169 - 173 - 174
178 = 175 - 176 - 177
180 = 178 + 179
)";

constexpr std::string_view kIndividual2019[] = {kManufacturingAndTrading2019, kGrossProfitWithIntraday,
                                                kCreditsAndExpenses2019, kProfit2019, R"(
182 = 180 - 181
188 = 186 - 187
193 = 191 - 192
194 = 188 + 193
)"};

constexpr std::string_view kFirm2019[] = {kManufacturingAndTrading2019, kGrossProfit, kCreditsAndExpenses2019, R"(
160 = 158..159
167 = 162..166
170 = 88 - (89..94 + 106 + 114 + 115..120 + 124 + 128 + 132 + 133..143 + 154 + 155 + 156 + 160 + 167 + 168 + 169)
176 = 172..175
178 = 170 - 176 - 177
181 = 178 - 179 - 180
183 = 181 + 182
185 = 183 - 184
191 = 189 - 190
196 = 194 - 195
197 = 191 + 196
)"};

constexpr std::string_view kCompany2019[] = {kManufacturingAndTrading2019, kGrossProfit, kCreditsAndExpenses2019,
                                             kProfit2019, R"(
186 = 181..185
187 = 180 - 186
)"};

// -- 2018

constexpr std::string_view kCreditsAndExpenses2018 = R"(
7 = 5..6
8 = 2..3 + 7
19 = 11..18
20 = 8 + 9 + 19
34 = 32 + 33
35 = 22..30 + 34
40 = 37..39
41 = 20 + 35 + 40
46 = 43..45
60 = 49..59
78 = 68..77
86 = 82..85
96 = 94..95
100 = 98..99
104 = 102..103
126 = 117..125
)";

constexpr std::string_view kIndividual2018[] = {kCreditsAndExpenses2018, R"(
131 = 129..130
138 = 133..137
141 = 41 - (46 + 47 + 60 + 61..66 + 78 + 86 + 87..92 + 96 + 100 + 104 + 105..115 + 126 + 127 + 131 + 138 + 139 + 140)
145 = 143..144
147 = 141 - 145 - 146
150 = 147 - 148 - 149
152 = 150..151
154 = 152 - 153
160 = 158 - 159
165 = 163 - 164
166 = 160 + 165
)"};

constexpr std::string_view kFirm2018[] = {kCreditsAndExpenses2018, R"(
132 = 130..131
139 = 134..138
142 = 41 - (46 + 47 + 60 + 61..66 + 78 + 86 + 87..92 + 96 + 100 + 104 + 105..115 + 126 + 127 + 128 + 132 + 139 + 140 + 141)
148 = 144..147
150 = 142 - 148 - 149
153 = 150 - 151 - 152
155 = 153..154
157 = 155 - 156
163 = 161 - 162
168 = 166 - 167
169 = 163 + 168
)"};

// -- 2017

constexpr std::string_view kCreditsAndExpenses2017 = R"(
7 = 5..6
8 = 2..3 + 7
15 = 11..14
16 = 8 + 9 + 15
30 = 28 + 29
31 = 18..26 + 30
36 = 33..35
37 = 16 + 31 + 36
42 = 39..41
52 = 45..51
70 = 60..69
78 = 74..77
88 = 86..87
92 = 90..91
96 = 94..95
114 = 109..113
)";

constexpr std::string_view kIndividual2017[] = {kCreditsAndExpenses2017, R"(
119 = 117..118
126 = 121..125
129 = 37 - (42 + 43 + 52 + 53..58 + 70 + 78 + 79..84 + 88 + 92 + 96 + 97..107 + 114 + 115 + 119 + 126 + 127 + 128)
133 = 131..132
135 = 129 - 133 - 134
138 = 135 - 136 - 137
140 = 138..139
142 = 140 - 141
148 = 146 - 147
153 = 151 - 152
154 = 148 + 153
)"};

constexpr std::string_view kFirm2017[] = {kCreditsAndExpenses2017, R"(
120 = 118..119
127 = 122..126
130 = 37 - (42 + 43 + 52 + 53..58 + 70 + 78 + 79..84 + 88 + 92 + 96 + 97..107 + 114 + 115 + 116 + 120 + 127 + 128 + 129)
136 = 132..135
138 = 130 - 136 - 137
141 = 138 - 139 - 140
143 = 141..142
145 = 143 - 144
151 = 149 - 150
156 = 154 - 155
157 = 151 + 156
)"};

// -- 2013 to 2016, companies up to 2018

constexpr std::string_view kFirmsCreditsAndExpenses2013 = R"(
7 = 5..6
8 = 2..3 + 7
14 = 10..13
15 = 8 + 14
29 = 27 + 28
30 = 17..25 + 29
35 = 32..34
36 = 15 + 30 + 35
41 = 38..40
51 = 44..50
69 = 59..68
77 = 73..76
87 = 85..86
91 = 89..90
95 = 93..94
113 = 108..112
)";

constexpr std::string_view kFirm2013[] = {kFirmsCreditsAndExpenses2013, R"(
118 = 116..117
125 = 120..124
128 = 36 - (41 + 42 + 51 + 52..57 + 69 + 77 + 78..83 + 87 + 91 + 95 + 96..106 + 113 + 114 + 118 + 125 + 126 + 127)
132 = 130..131
134 = 128 - 132 - 133
137 = 134 - 135 - 136
139 = 137..138
141 = 139 - 140
146 = 144 - 145
)"};

constexpr std::string_view kFirm2015[] = {kFirmsCreditsAndExpenses2013, R"(
119 = 117..118
126 = 121..125
129 = 36 - (41 + 42 + 51 + 52..57 + 69 + 77 + 78..83 + 87 + 91 + 95 + 96..106 + 113 + 114 + 115 + 119 + 126 + 127 + 128)
135 = 131..134
137 = 129 - 135 - 136
140 = 137 - 138 - 139
142 = 140..141
144 = 142 - 143
149 = 147 - 148
)"};

constexpr std::string_view kCompanysRevenue = R"(
7 = 5..6
10 = 2..3 + 7..9
)";

constexpr std::string_view kCompany2013[] = {kCompanysRevenue, R"(
16 = 12..15
17 = 10 + 16
31 = 29 + 30
32 = 19..27 + 31
37 = 34..36
38 = 17 + 32 + 37
43 = 40..42
53 = 46..52
71 = 61..70
79 = 75..78
89 = 87..88
93 = 91..92
97 = 95..96
115 = 110..114
120 = 118..119
127 = 122..126
130 = 38 - (43 + 44 + 53 + 54..59 + 71 + 79 + 80..85 + 89 + 93 + 97 + 98..108 + 115 + 116 + 120 + 127 + 128 + 129)
134 = 132..133
136 = 130 - 134 - 135
139 = 136 - 137 - 138
141 = 139..140
147 = 143..146
148 = 141 - 147
)"};

constexpr std::string_view kCompany2018[] = {kCompanysRevenue, R"(
20 = 12..19
21 = 10 + 20
35 = 33..34
36 = 23..31 + 33..34
41 = 38..40
42 = 21 + 36 + 41
47 = 44..46
61 = 50..60
79 = 69..78
87 = 83..86
97 = 95..96
101 = 99..100
105 = 103..104
127 = 118..126
132 = 130..131
139 = 134..138
142 = 42 - (47 + 48 + 61 + 62..67 + 79 + 87 + 88..93 + 97 + 101 + 105 + 106..116 + 127 + 128 + 132 + 139 + 140 + 141)
146 = 144..145
148 = 142 - 146 - 147
151 = 148 - 149 - 150
153 = 151 + 152
160 = 155..159
161 = 153 - 160
166 = 164 - 165
)"};

// -- Up to 2012, form 4 also in 2013

constexpr std::string_view kCreditsUpTo2012 = R"(
7 = 3..6
19 = 9..18
21 = 1 + 7 + 19 + 20
32 = 25..31
)";

constexpr std::string_view kIndividualUpTo2012[] = {kCreditsUpTo2012, R"(
50 = 40..49
56 = 52..55
80 = 75..79
86 = 21 - (22 + 23 + 32 + 33..38 + 50 + 56 + 57..73 + 80 + 81..85)
89 = 86 - 87 - 88
92 = 89 - 90 - 91
94 = 92 + 93
96 = 94 - 95
101 = 99 - 100
)"};

constexpr std::string_view kFirmAndCompanyUpTo2012 = R"(
51 = 40..50
57 = 53..56
81 = 76..80
87 = 21 - (22 + 23 + 32 + 33..38 + 51 + 57 + 58..74 + 81 + 82..86)
90 = 87 - 88 - 89
94 = 90 - 91 - 92 - 93
96 = 94 + 95
)";

constexpr std::string_view kFirmUpTo2012[] = {kCreditsUpTo2012, kFirmAndCompanyUpTo2012, R"(
98 = 96 - 97
103 = 101 - 102
)"};

constexpr std::string_view kCompanyUpTo2012[] = {kCreditsUpTo2012, kFirmAndCompanyUpTo2012, R"(
102 = 98 + 99 + 100 + 101
103 = 96 - 102
)"};

struct Dispatch {
    int firstYear;
    bool (*serves)(const StatementForm&);
    TotalsOperation operation;
};
constexpr Dispatch kDispatches[] = {
    {2019, FilesAsIndividual, TotalsOperation::Cal_Total_4}, {2019, RunsAsCompany, TotalsOperation::Cal_Total_6},
    {2019, FilesAsFirm, TotalsOperation::Cal_Total_5},       {2018, RunsAsFirm, TotalsOperation::Cal_Total_3},
    {2017, RunsAsFirm, TotalsOperation::Cal_Total_2},        {2013, RunsAsFirmOrCompany, TotalsOperation::Cal_Total_1},
};

/// Within an operation the first line that serves the form, up to its last year, gives the rules.
struct RuleSet {
    TotalsOperation operation;
    int lastYear;
    bool (*serves)(const StatementForm&);
    std::span<const std::string_view> rules;
};
constexpr RuleSet kRuleSets[] = {
    {TotalsOperation::Cal_Total_4, kNoEnd, Any, kIndividual2019},
    {TotalsOperation::Cal_Total_5, kNoEnd, Any, kFirm2019},
    {TotalsOperation::Cal_Total_6, kNoEnd, Any, kCompany2019},
    {TotalsOperation::Cal_Total_3, kNoEnd, IsItrThree, kIndividual2018},
    {TotalsOperation::Cal_Total_3, kNoEnd, Any, kFirm2018},
    {TotalsOperation::Cal_Total_2, kNoEnd, IsItrThree, kIndividual2017},
    {TotalsOperation::Cal_Total_2, kNoEnd, Any, kFirm2017},
    {TotalsOperation::Cal_Total_1, 2017, RunsAsCompany, kCompany2013},
    {TotalsOperation::Cal_Total_1, kNoEnd, RunsAsCompany, kCompany2018},
    {TotalsOperation::Cal_Total_1, kNoEnd, IsItrThree, kFirm2013},
    {TotalsOperation::Cal_Total_1, 2014, RunsAsFirm, kFirm2013},
    {TotalsOperation::Cal_Total_1, kNoEnd, RunsAsFirm, kFirm2015},
    {TotalsOperation::Cal_Total, kNoEnd, RunsAsIndividual, kIndividualUpTo2012},
    {TotalsOperation::Cal_Total, kNoEnd, RunsAsFirm, kFirmUpTo2012},
    {TotalsOperation::Cal_Total, kNoEnd, RunsAsCompany, kCompanyUpTo2012},
};

} // namespace

TotalsOperation OperationFor(const StatementForm& form)
{
    const auto dispatch = std::ranges::find_if(kDispatches, [&](const Dispatch& candidate) {
        return candidate.firstYear <= form.year && candidate.serves(form);
    });
    return dispatch == std::end(kDispatches) ? TotalsOperation::Cal_Total : dispatch->operation;
}

std::span<const std::string_view> TotalsRules(TotalsOperation operation, const StatementForm& form)
{
    const auto set = std::ranges::find_if(kRuleSets, [&](const RuleSet& candidate) {
        return candidate.operation == operation && form.year <= candidate.lastYear && candidate.serves(form);
    });
    return set == std::end(kRuleSets) ? std::span<const std::string_view>() : set->rules;
}

} // namespace pgbp
