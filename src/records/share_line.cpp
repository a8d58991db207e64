#include "records/share_line.h"

#include "records/keys.h"
#include "records/rows_of_type.h"

namespace pgbp {

void AddShareLine(const Run& run, const KindOfShare& share, double sno, double net, const Transaction&)
{
    run.company.Insert("business", {{"code", run.Code()},
                                    {"Type", TypeOf(share.kind)},
                                    {"SNO", sno},
                                    {"name1", share.caption},
                                    {"name2", ""},
                                    {"PNL", 0},
                                    {"dep1", 0},
                                    {"dep2", 0},
                                    {"turnover", 0},
                                    {"sec44", 0},
                                    {"net44", 0},
                                    {"NET", net},
                                    {"Minor", MinorOfRun(run)}});
}

void AddShare(const Run& run, const KindOfShare& share, double sno, const std::string& name, double rupees,
              const Transaction& proof)
{
    LineDetails(run, share.detail, sno).Add({{"name1", name}, {"amt1", rupees}, {"Minor", MinorOfRun(run)}}, proof);
}

} // namespace pgbp
