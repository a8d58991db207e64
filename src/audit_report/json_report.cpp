#include "audit_report/report.h"

#include <nlohmann/json.hpp>

namespace pgbp {
namespace {

using nlohmann::json;

const json& Member(const json& object, std::initializer_list<std::string_view> names)
{
    static const json none;
    if (object.is_object())
        for (const std::string_view name : names)
            if (const auto found = object.find(name); found != object.end())
                return *found;
    return none;
}

/// A list's objects. An object that stands alone is a list of one.
std::vector<const json*> ObjectsOf(const json& list)
{
    std::vector<const json*> objects;
    if (list.is_object())
        objects.push_back(&list);
    if (list.is_array())
        for (const json& each : list)
            if (each.is_object())
                objects.push_back(&each);
    return objects;
}

Members MembersOf(const json& object)
{
    Members members;
    for (const auto& [name, value] : object.items()) {
        if (value.is_string())
            members.Add(name, value.get_ref<const std::string&>());
        else if (value.is_number())
            members.Add(name, value.dump());
    }
    return members;
}

std::vector<Members> MembersOfAll(const json& list)
{
    std::vector<Members> all;
    for (const json* each : ObjectsOf(list))
        all.push_back(MembersOf(*each));
    return all;
}

json Parsed(std::string_view content)
try {
    return json::parse(content);
} catch (const json::exception& error) { // a number beyond the largest double is no parse error
    throw ReportError("The JSON of the file is damaged or not complete.", error.what());
}

} // namespace

std::vector<ReportedBlock> ReadJsonReport(std::string_view content)
{
    const json document = Parsed(content);
    const json& data = Member(document, {"data"}); // what the portal gives back stands in an envelope
    const json& form = Member(data.is_object() ? data : document, {"FORM3CA", "FORM3CB"});
    std::vector<ReportedBlock> blocks;
    for (const json* block : ObjectsOf(Member(Member(form, {"F3CA", "F3CB"}), {kBlockElement})))
        blocks.push_back({MembersOf(*block), MembersOfAll(Member(*block, {kAdditionElement})),
                          MembersOfAll(Member(*block, {kDeductionElement}))});
    return blocks;
}

} // namespace pgbp
