#include "services/states.h"

#include "services/text.h"

#include <utility>

namespace pgbp {
namespace {

// The spellings are those that stored addresses hold; UTTARANCHAL is the name of UTTARAKHAND up to 2006.
constexpr std::pair<std::string_view, std::string_view> kStates[] = {
    {"ANDAMAN AND NICOBAR ISLANDS", "01"},
    {"ANDHRA PRADESH", "02"},
    {"ARUNACHAL PRADESH", "03"},
    {"ASSAM", "04"},
    {"BIHAR", "05"},
    {"CHANDIGARH", "06"},
    {"DADRA & NAGAR HAVELI", "07"},
    {"DAMAN & DIU", "08"},
    {"DELHI", "09"},
    {"GOA", "10"},
    {"GUJARAT", "11"},
    {"HARYANA", "12"},
    {"HIMACHAL PRADESH", "13"},
    {"JAMMU & KASHMIR", "14"},
    {"KARNATAKA", "15"},
    {"KERALA", "16"},
    {"LAKSHADWEEP", "17"},
    {"MADHYA PRADESH", "18"},
    {"MAHARASHTRA", "19"},
    {"MANIPUR", "20"},
    {"MEGHALAYA", "21"},
    {"MIZORAM", "22"},
    {"NAGALAND", "23"},
    {"ORISSA", "24"},
    {"PONDICHERRY", "25"},
    {"PUNJAB", "26"},
    {"RAJASTHAN", "27"},
    {"SIKKIM", "28"},
    {"TAMILNADU", "29"},
    {"TRIPURA", "30"},
    {"UTTAR PRADESH", "31"},
    {"WESTBENGAL", "32"},
    {"CHATTISGARH", "33"},
    {"UTTARANCHAL", "34"},
    {"UTTARAKHAND", "34"},
    {"JHARKHAND", "35"},
    {"TELANGANA", "36"},
    {"FOREIGN", "99"},
};

} // namespace

std::string StateCode(std::string_view state)
{
    const std::string name = Upper(Trim(state));
    for (const auto& [spelling, code] : kStates)
        if (spelling == name)
            return std::string(code);
    return "0";
}

} // namespace pgbp
