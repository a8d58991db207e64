#include "statements/template_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace pgbp::test {
namespace {

std::vector<std::string> Fields(const std::string& line)
{
    std::vector<std::string> fields;
    std::istringstream in(line + '\t');
    for (std::string field; std::getline(in, field, '\t');)
        fields.push_back(field);
    return fields;
}

TemplateFile Read(const std::filesystem::path& path)
{
    TemplateFile file{.name = path.stem().string()};
    std::ifstream in(path);
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) {
        const auto& fields = file.texts.emplace_back(Fields(line));
        if (fields.size() != 15)
            throw std::runtime_error(file.name + ": a line of " + std::to_string(fields.size()) + " fields");
        TemplateRow row{.slno = std::stoi(fields[1])};
        std::copy_n(&fields[2], row.serials.size(), row.serials.begin());
        std::copy_n(&fields[8], row.captions.size(), row.captions.begin());
        row.isChoice = fields[12] == "1";
        row.isNumber = fields[13] == "1";
        row.isBlocked = fields[14] == "1";
        file.pslno.push_back(std::stoi(fields[0]));
        file.rows.push_back(row);
    }
    return file;
}

std::vector<TemplateFile> ReadAll()
{
    std::vector<TemplateFile> files;
    for (const char* folder : {PGBP_DATA "/taxaudit", PGBP_DATA "/taxauditjson", PGBP_TESTS "/statements/layouts"})
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.path().extension() == ".tsv")
                files.push_back(Read(entry.path()));
    return files;
}

} // namespace

std::size_t TemplateFile::Line(int slno) const
{
    const auto row = std::ranges::find(rows, slno, &TemplateRow::slno);
    return row == rows.end() ? 0 : static_cast<std::size_t>(row - rows.begin()) + 1;
}

const std::vector<TemplateFile>& TemplateFiles()
{
    static const std::vector<TemplateFile> files = ReadAll();
    return files;
}

const TemplateFile& TemplateNamed(const std::string& name)
{
    const auto file = std::ranges::find(TemplateFiles(), name, &TemplateFile::name);
    if (file == TemplateFiles().end())
        throw std::out_of_range("no template " + name);
    return *file;
}

const std::map<std::string, std::string>& RulesInFull()
{
    static const auto rules = [] {
        std::map<std::string, std::string> read;
        std::ifstream in(PGBP_TESTS "/statements/rules_in_full.txt");
        for (std::string line; std::getline(in, line);)
            if (const auto colon = line.find(": "); line.front() != '#' && colon != std::string::npos)
                read[line.substr(0, colon)] = line.substr(colon + 2);
        return read;
    }();
    return rules;
}

std::string CaptionOf(const TemplateRow& row)
{
    std::string all;
    for (const auto& caption : row.captions)
        all += caption;
    return all;
}

} // namespace pgbp::test
