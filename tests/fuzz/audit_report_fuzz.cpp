#include "audit_report/tables.h"

#include <cstdint>
#include <cstdlib>

/// Any bytes are refused with a message, or give tables whose rows belong to a block.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace pgbp;
    try {
        const ReportTables tables = TablesOf(ReadReport({reinterpret_cast<const char*>(data), size}));
        const auto last = static_cast<double>(tables.blocks.size());
        for (const auto* rows : {&tables.additions, &tables.deductions})
            for (const ReportTables::Row& row : *rows)
                if (row.front().value.Number() < 1 || row.front().value.Number() > last)
                    std::abort();
    } catch (const ReportError&) { // the file is refused
    }
    return 0;
}
