#include "suite/backup_record.h"

#include "services/fault.h"
#include "services/fresh_file.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <sstream>
#include <zlib.h>

namespace pgbp {
namespace {

namespace fs = std::filesystem;

constexpr const char* kName = "backup.txt";

unsigned long Sum(std::string_view bytes, unsigned long before = 0)
{
    return crc32_z(before, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
}

std::string TextOf(const BackupRecord& record)
{
    std::ostringstream text;
    text << "practice " << record.practice << "\nmoment " << record.moment << '\n';
    for (const BackupFile& file : record.files)
        text << "file " << file.sum << ' ' << file.size << ' ' << file.changed << ' ' << file.name << '\n';
    for (const std::string& each : record.without)
        text << "without " << each << '\n';
    return text.str();
}

/// The text in front of its last line, which tells its sum; nothing when it is not whole.
std::optional<std::string> WholeText(const fs::path& file)
{
    std::ostringstream all;
    all << std::ifstream(file, std::ios::binary).rdbuf();
    const std::string text = all.str();
    const auto last = text.rfind("whole ");
    if (last == std::string::npos || text.substr(last) != "whole " + std::to_string(Sum(text.substr(0, last))) + '\n')
        return std::nullopt;
    return text.substr(0, last);
}

std::string RestOf(std::istream& line)
{
    std::string rest;
    std::getline(line >> std::ws, rest);
    return rest;
}

BackupRecord RecordFrom(const std::string& text)
{
    BackupRecord record;
    std::istringstream lines(text);
    for (std::string each; std::getline(lines, each);) {
        std::istringstream line(each);
        std::string word;
        line >> word;
        BackupFile file;
        if (word == "file" && line >> file.sum >> file.size >> file.changed) {
            file.name = RestOf(line);
            record.files.push_back(file);
        } else if (word == "practice") {
            record.practice = RestOf(line);
        } else if (word == "moment") {
            record.moment = RestOf(line);
        } else if (word == "without") {
            record.without.push_back(RestOf(line));
        }
    }
    return record;
}

} // namespace

void WriteBackupRecord(const fs::path& backup, const BackupRecord& record)
{
    const std::string text = TextOf(record);
    FreshFile file(backup / kName);
    file.Write(text + "whole " + std::to_string(Sum(text)) + '\n');
    file.TakePlace();
}

std::optional<BackupRecord> ReadBackupRecord(const fs::path& backup)
{
    const auto text = WholeText(backup / kName);
    if (!text)
        return std::nullopt;
    BackupRecord record = RecordFrom(*text);
    std::error_code missing;
    for (const BackupFile& file : record.files)
        if (fs::file_size(backup / file.name, missing) != file.size)
            return std::nullopt;
    return record;
}

unsigned long SumOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::array<char, 1 << 16> piece;
    unsigned long sum = 0;
    while (stream.read(piece.data(), piece.size()) || stream.gcount() > 0)
        sum = Sum({piece.data(), static_cast<std::size_t>(stream.gcount())}, sum);
    if (!stream.eof())
        throw FileFault(errno, Attempt::Read, file.string());
    return sum;
}

} // namespace pgbp
