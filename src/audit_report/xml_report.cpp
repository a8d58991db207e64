#include "audit_report/report.h"

#include "services/utf8.h"

#include <pugixml.hpp>

#include <algorithm>

namespace pgbp {
namespace {

std::string_view LocalName(const pugi::xml_node& node)
{
    const std::string_view name = node.name();
    return name.substr(name.rfind(':') + 1);
}

bool IsText(const pugi::xml_node& node) { return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata; }

/// All of its text, also where a comment stands between.
std::string TextOf(const pugi::xml_node& element)
{
    std::string text;
    for (const pugi::xml_node& child : element)
        if (IsText(child))
            text += child.value();
    return text;
}

void CheckIsUtf8(const std::string& text)
{
    constexpr char32_t kNoCharacter = 0xFFFD;
    if (Characters(text).find(kNoCharacter) != std::u32string::npos)
        throw ReportError("The file is damaged, or not in the encoding that it tells: a text in it can not be read.");
}

Members MembersOf(const pugi::xml_node& element)
{
    Members members;
    for (const pugi::xml_node& child : element) {
        const std::string text = TextOf(child);
        CheckIsUtf8(text);
        if (child.type() == pugi::node_element)
            members.Add(child.name(), text);
    }
    return members;
}

ReportedBlock BlockOf(const pugi::xml_node& element)
{
    ReportedBlock block{.members = MembersOf(element), .additions = {}, .deductions = {}};
    for (const pugi::xml_node& child : element) {
        if (LocalName(child) == kAdditionElement)
            block.additions.push_back(MembersOf(child));
        if (LocalName(child) == kDeductionElement)
            block.deductions.push_back(MembersOf(child));
    }
    return block;
}

/// Walks the tree without calling itself, however deep it is.
class BlockCollector : public pugi::xml_tree_walker {
  public:
    bool for_each(pugi::xml_node& node) override
    {
        if (node.type() == pugi::node_element && LocalName(node) == kBlockElement)
            blocks.push_back(BlockOf(node));
        return true;
    }

    std::vector<ReportedBlock> blocks;
};

} // namespace

std::vector<ReportedBlock> ReadXmlReport(std::string& content)
{
    pugi::xml_document document;
    const auto result =
        document.load_buffer_inplace(content.data(), content.size(), pugi::parse_default | pugi::parse_doctype);
    if (!result)
        throw ReportError("The XML of the file is damaged or not complete.",
                          std::string(result.description()) + " at byte " + std::to_string(result.offset));
    for (const pugi::xml_node& node : document)
        if (node.type() == pugi::node_doctype)
            throw ReportError("The file declares a document type of its own, as no audit report does. It is not read.");
    BlockCollector collector;
    document.traverse(collector);
    return collector.blocks;
}

} // namespace pgbp
