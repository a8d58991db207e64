#pragma once

#include "suite/practice.h"
#include "suite/table_text.h"

namespace pgbp {

/// Gives the numbers of new lines of business: the highest of the practice plus one, and on from there. 90000 is left
/// out: it marks rows of a line that is not saved yet.
class LineNumbers {
  public:
    explicit LineNumbers(const Connection& company);
    double Next();

  private:
    double last_;
};

/// A client with all rows of his years, as a text file tells them.
struct Client {
    double number = 0; ///< `company` of his first row in `assessee`
    double width = 1;  ///< how many numbers his rows in `assessee` take from there on
    std::vector<TableText> tables;

    /// The assessment years, oldest first, with the number of the return form.
    const TableText& Years() const;
};

/// Throws std::runtime_error that names the file, and the line where one is at fault.
Client ReadClient(const std::filesystem::path& path);

/// What makes a copy of a client another client.
struct ClientCopy {
    double number;  ///< his `company`
    int serial = 0; ///< 0: the client himself; any other: told behind the names, and in the PANs
};

/// Adds the client's rows. Must stand within a transaction over the practice's connections.
void WriteClient(const Practice& practice, const Client& client, const ClientCopy& copy, LineNumbers& lines);

/// `code` of a client's assessment year: the letter r parts the number from the year, which stands last.
std::string CodeOf(double client, std::string_view year);

/// The rows that every assessee-year has in the tables of `company`; `hasBusiness` tells whether it has any other.
void AddAssesseeYear(const Connection& company, double client, const Value& name, const Value& pan,
                     std::string_view year, bool hasBusiness);

} // namespace pgbp
